#ifndef BENCHRUNNER_H
#define BENCHRUNNER_H

#include "barfeed.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <cmath>
#include <functional>
#include <memory>

class ChartAdapter;

// Medians of one library at one history length. NaN: not measured.
struct RunResult
{
    QString lib;
    int bars = 0;
    double loadUs = NAN;        // µs per bar, show only on the last bar
    double loadShowUs = NAN;    // µs per bar, show on every bar
    double frameMs = NAN;       // replot + render, newest bars in view
    double viewBars = NAN;
    double frameWideMs = NAN;   // replot + render, widest view
    double viewWideBars = NAN;
    double tickUs = NAN;        // edit newest bar + render
    double panFps = NAN;        // one-bar scroll + render
    double panMarksSpreadFps = NAN; // the same, 200 marks over 2,000 bars around the view
    double panMarksFps = NAN;   // the same, 200 marks all in view
    double memBytes = NAN;      // peak RSS over the empty chart, per bar
    QStringList notes;

    QString keyValueLine() const;
};

struct BenchOptions
{
    QVector<int> sizes{1000, 10000, 100000, 1000000};
    QStringList libs;
    int reps = 5;
    int panSteps = 100;
    double minBatchSeconds = 0.25;  // frame and tick batches run at least this long
    double panMaxSeconds = 3.0;     // slow libraries pan fewer steps
    double loadLimitSeconds = 10.0; // a load slower than this is abandoned
    bool memory = true;
    QString saveImage;              // --profile: the last frame, to compare drawings
};

// Runs the workloads of every library on the same bars.
class BenchRunner
{
public:
    // Marks drawn for the pan-with-marks figures.
    static const int MarkCount = 200;

    using Factory = std::function<std::unique_ptr<ChartAdapter>()>;

    explicit BenchRunner(const BenchOptions &options);

    static QStringList availableLibraries();
    static std::unique_ptr<ChartAdapter> create(const QString &lib);

    // Runs one history length for every library; ours first, so the peers
    // can be given the same number of bars in view.
    QVector<RunResult> runSize(int bars);

    // One workload, a fixed number of times, for an instruction profiler:
    // valgrind --tool=callgrind --toggle-collect='*profiledSection*' ...
    int profile(const QString &workload, int bars, int iterations);

    // Child-process entry: loads `bars` bars into `lib` and prints the peak
    // RSS over the empty chart (a fresh process keeps earlier runs out).
    static int memoryChild(const QString &lib, int bars);

private:
    RunResult runLibrary(const QString &lib, const QVector<Bar> &bars, double viewBars,
                         double wideBars);
    double measureLoad(const QString &lib, const QVector<Bar> &bars, bool showEach,
                       std::unique_ptr<ChartAdapter> *keep, QStringList &notes);
    double measureMemory(const QString &lib, int bars, QStringList &notes);

    void warmUp();

    BenchOptions m_options;
    bool m_warm = false;
};

#endif // BENCHRUNNER_H
