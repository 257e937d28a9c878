#include "benchrunner.h"

#include "chartadapter.h"
#include "pricegraphadapter.h"
#ifdef BENCH_HAVE_QWT
#include "qwtadapter.h"
#endif
#ifdef BENCH_HAVE_QCUSTOMPLOT
#include "qcustomplotadapter.h"
#endif

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point t0)
{
    return std::chrono::duration<double>(Clock::now() - t0).count();
}

double median(QVector<double> v)
{
    v.erase(std::remove_if(v.begin(), v.end(), [](double x) { return std::isnan(x); }),
            v.end());
    if (v.isEmpty())
        return NAN;
    std::sort(v.begin(), v.end());
    const int n = v.size();
    return n % 2 ? v[n / 2] : 0.5 * (v[n / 2 - 1] + v[n / 2]);
}

// Seconds per call of `f`, over a batch of at least `minSeconds` and three
// calls (at most 1000).
template <class F>
double perCall(F f, double minSeconds)
{
    const Clock::time_point t0 = Clock::now();
    int calls = 0;
    double elapsed = 0.0;
    while (calls < 3 || (elapsed < minSeconds && calls < 1000)) {
        f();
        ++calls;
        elapsed = secondsSince(t0);
    }
    return elapsed / calls;
}

// kB value of a /proc/self/status field (VmHWM, VmRSS).
long statusKb(const char *field)
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray key = QByteArray(field) + ':';
    for (const QByteArray &line : f.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(key.size()).trimmed().split(' ').value(0).toLong();
    }
    return -1;
}

QString num(double v)
{
    return std::isnan(v) ? QStringLiteral("nan") : QString::number(v, 'g', 6);
}

// Kept out of line so that a profiler can collect just this.
__attribute__((noinline)) void profiledSection(const std::function<void()> &work, int iterations)
{
    for (int i = 0; i < iterations; ++i)
        work();
}

} // namespace

QString RunResult::keyValueLine() const
{
    QString s = QStringLiteral("result lib=%1 bars=%2").arg(lib).arg(bars);
    s += QStringLiteral(" load_us_per_bar=") + num(loadUs);
    s += QStringLiteral(" load_show_us_per_bar=") + num(loadShowUs);
    s += QStringLiteral(" frame_ms=") + num(frameMs);
    s += QStringLiteral(" view_bars=") + num(viewBars);
    s += QStringLiteral(" frame_wide_ms=") + num(frameWideMs);
    s += QStringLiteral(" view_wide_bars=") + num(viewWideBars);
    s += QStringLiteral(" tick_us=") + num(tickUs);
    s += QStringLiteral(" pan_fps=") + num(panFps);
    s += QStringLiteral(" pan_marks_spread_fps=") + num(panMarksSpreadFps);
    s += QStringLiteral(" pan_marks_fps=") + num(panMarksFps);
    s += QStringLiteral(" mem_bytes_per_bar=") + num(memBytes);
    if (!notes.isEmpty())
        s += QStringLiteral(" notes=") + notes.join(QLatin1Char(','));
    return s;
}

BenchRunner::BenchRunner(const BenchOptions &options)
    : m_options(options)
{
}

QStringList BenchRunner::availableLibraries()
{
    QStringList libs{QStringLiteral("pricegraph")};
#ifdef BENCH_HAVE_QWT
    libs << QStringLiteral("qwt");
#endif
#ifdef BENCH_HAVE_QCUSTOMPLOT
    libs << QStringLiteral("qcustomplot");
#endif
    return libs;
}

std::unique_ptr<ChartAdapter> BenchRunner::create(const QString &lib)
{
    if (lib == QLatin1String("pricegraph"))
        return std::make_unique<PriceGraphAdapter>();
#ifdef BENCH_HAVE_QWT
    if (lib == QLatin1String("qwt"))
        return std::make_unique<QwtAdapter>();
#endif
#ifdef BENCH_HAVE_QCUSTOMPLOT
    if (lib == QLatin1String("qcustomplot"))
        return std::make_unique<QCustomPlotAdapter>();
#endif
    return nullptr;
}

void BenchRunner::warmUp()
{
    // Fonts, glyph caches, style sheets and the paint engines settle on
    // first use; none of that belongs to the first measured figure.
    const QVector<Bar> bars = BarFeed::make(500, 99);
    for (const QString &lib : m_options.libs) {
        std::unique_ptr<ChartAdapter> chart = create(lib);
        QImage image = chart->makeImage();
        for (const Bar &b : bars)
            chart->append(b, false);
        chart->finishLoad();
        chart->viewNewest(200.0);
        for (int i = 0; i < 10; ++i) {
            chart->replot();
            chart->render(image);
        }
    }
}

QVector<RunResult> BenchRunner::runSize(int count)
{
    if (!m_warm) {
        warmUp();
        m_warm = true;
    }
    const QVector<Bar> bars = BarFeed::make(count);
    QVector<RunResult> results;
    double viewBars = 200.0, wideBars = 800.0;
    for (const QString &lib : m_options.libs) {
        RunResult r = runLibrary(lib, bars, viewBars, wideBars);
        if (lib == QLatin1String("pricegraph")) {
            if (!std::isnan(r.viewBars))
                viewBars = r.viewBars;
            if (!std::isnan(r.viewWideBars))
                wideBars = r.viewWideBars;
        }
        std::printf("%s\n", qPrintable(r.keyValueLine()));
        std::fflush(stdout);
        results.append(r);
    }
    return results;
}

double BenchRunner::measureLoad(const QString &lib, const QVector<Bar> &bars, bool showEach,
                                std::unique_ptr<ChartAdapter> *keep, QStringList &notes)
{
    QVector<double> perBar;
    const int n = bars.size();
    for (int rep = 0; rep < m_options.reps; ++rep) {
        std::unique_ptr<ChartAdapter> chart = create(lib);
        QImage image = chart->makeImage();
        const Clock::time_point t0 = Clock::now();
        bool abandoned = false;
        for (int i = 0; i < n; ++i) {
            chart->append(bars[i], showEach || i == n - 1);
            if ((i & 1023) == 1023 && secondsSince(t0) > m_options.loadLimitSeconds) {
                abandoned = true;
                notes << QStringLiteral("%1_over_%2s_at_%3_bars")
                             .arg(showEach ? QStringLiteral("load_show")
                                           : QStringLiteral("load"))
                             .arg(m_options.loadLimitSeconds)
                             .arg(i + 1);
                break;
            }
        }
        if (abandoned)
            return NAN;
        chart->finishLoad();
        chart->render(image);
        perBar.append(secondsSince(t0) * 1e6 / n);
        if (keep && rep == m_options.reps - 1)
            *keep = std::move(chart);
    }
    return median(perBar);
}

RunResult BenchRunner::runLibrary(const QString &lib, const QVector<Bar> &bars,
                                  double viewBars, double wideBars)
{
    RunResult r;
    r.lib = lib;
    r.bars = bars.size();
    const int reps = m_options.reps;

    r.loadShowUs = measureLoad(lib, bars, true, nullptr, r.notes);
    std::unique_ptr<ChartAdapter> chart;
    r.loadUs = measureLoad(lib, bars, false, &chart, r.notes);
    if (!chart) {
        // The plain load was abandoned; the rest still needs a chart.
        chart = create(lib);
        for (int i = 0; i < bars.size(); ++i)
            chart->append(bars[i], i == bars.size() - 1);
        chart->finishLoad();
    }
    QImage image = chart->makeImage();
    auto frame = [&] {
        chart->replot();
        chart->render(image);
    };

    // Newest bars in view.
    r.viewBars = chart->viewNewest(viewBars);
    frame();
    QVector<double> samples;
    for (int rep = 0; rep < reps; ++rep)
        samples.append(perCall(frame, m_options.minBatchSeconds) * 1e3);
    r.frameMs = median(samples);

    // Live ticks on the newest bar, which is in view.
    BarFeed ticks(7);
    Bar last = bars.last();
    samples.clear();
    for (int rep = 0; rep < reps; ++rep) {
        samples.append(perCall(
                           [&] {
                               last = ticks.tick(last);
                               chart->editLast(last);
                               chart->render(image);
                           },
                           m_options.minBatchSeconds)
                       * 1e6);
    }
    r.tickUs = median(samples);

    // The widest view.
    r.viewWideBars = chart->viewWidest(wideBars);
    frame();
    samples.clear();
    for (int rep = 0; rep < reps; ++rep)
        samples.append(perCall(frame, m_options.minBatchSeconds) * 1e3);
    r.frameWideMs = median(samples);

    // Panning from the middle of the history, back and forth by one bar.
    // (viewMiddle only works from the newest bars, where a load leaves the view.)
    auto panRate = [&] {
        frame();
        QVector<double> rates;
        for (int rep = 0; rep < reps; ++rep) {
            const int direction = rep % 2 ? -1 : 1;
            const Clock::time_point t0 = Clock::now();
            int steps = 0;
            while (steps < m_options.panSteps
                   && (steps < 5 || secondsSince(t0) < m_options.panMaxSeconds)) {
                chart->step(direction);
                chart->render(image);
                ++steps;
            }
            rates.append(steps / secondsSince(t0));
            if (steps < m_options.panSteps && !r.notes.contains(QStringLiteral("pan_cut_short")))
                r.notes << QStringLiteral("pan_cut_short");
        }
        return median(rates);
    };
    chart->viewMiddle(r.viewBars);
    r.panFps = panRate();

    // The same with 200 trend lines on the price panel: spread over the
    // 2,000 bars around the view, then all in view (fresh charts).
    const bool draws = create(lib)->addMarks(0, 0);
    for (double RunResult::*field : {&RunResult::panMarksSpreadFps, &RunResult::panMarksFps}) {
        if (!draws)
            break;
        chart.reset();
        chart = create(lib);
        for (int i = 0; i < bars.size(); ++i)
            chart->append(bars[i], i == bars.size() - 1);
        chart->finishLoad();
        chart->viewNewest(viewBars);
        chart->viewMiddle(r.viewBars);
        const int spread = field == &RunResult::panMarksSpreadFps ? 2000 : 0;
        chart->addMarks(MarkCount, spread);
        r.*field = panRate();
    }
    chart.reset();

    if (m_options.memory)
        r.memBytes = measureMemory(lib, bars.size(), r.notes);
    return r;
}

double BenchRunner::measureMemory(const QString &lib, int bars, QStringList &notes)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--memory-child"), lib, QString::number(bars)});
    if (!child.waitForFinished(600000) || child.exitCode() != 0) {
        notes << QStringLiteral("memory_failed");
        return NAN;
    }
    const QString out = QString::fromLatin1(child.readAllStandardOutput());
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("bytes_per_bar=([0-9.eE+-]+)")).match(out);
    return m.hasMatch() ? m.captured(1).toDouble() : NAN;
}

int BenchRunner::memoryChild(const QString &lib, int count)
{
    std::unique_ptr<ChartAdapter> chart = create(lib);
    if (!chart)
        return 2;
    QImage image = chart->makeImage();
    chart->render(image);
    const long emptyKb = statusKb("VmHWM");
    // Bars come from the generator one at a time, so only the chart's own
    // storage grows.
    BarFeed feed;
    for (int i = 0; i < count; ++i)
        chart->append(feed.next(), i == count - 1);
    chart->finishLoad();
    // No view changes here: finding our view keeps probe images that would
    // count as the chart's memory.
    chart->replot();
    chart->render(image);
    const long loadedKb = statusKb("VmHWM");
    std::printf("memory lib=%s bars=%d hwm_empty_kb=%ld hwm_loaded_kb=%ld rss_kb=%ld "
                "bytes_per_bar=%.2f\n",
                qPrintable(lib), count, emptyKb, loadedKb, statusKb("VmRSS"),
                double(loadedKb - emptyKb) * 1024.0 / count);
    return 0;
}

int BenchRunner::profile(const QString &workload, int count, int iterations)
{
    const QString lib = m_options.libs.value(0);
    const QVector<Bar> bars = BarFeed::make(count);
    std::unique_ptr<ChartAdapter> chart = create(lib);
    if (!chart)
        return 2;
    QImage image = chart->makeImage();
    std::function<void()> work;
    if (workload == QLatin1String("load") || workload == QLatin1String("load-show")) {
        // One whole load; the chart is made outside the profiled part.
        const bool showEach = workload == QLatin1String("load-show");
        iterations = 1;
        work = [&] {
            for (int i = 0; i < bars.size(); ++i)
                chart->append(bars[i], showEach || i == bars.size() - 1);
            chart->finishLoad();
            chart->render(image);
        };
    } else {
        for (int i = 0; i < bars.size(); ++i)
            chart->append(bars[i], i == bars.size() - 1);
        chart->finishLoad();
        const double viewBars = chart->viewNewest(200.0);
        BarFeed ticks(7);
        Bar last = bars.last();
        if (workload == QLatin1String("frame")) {
            work = [&] { chart->replot(); chart->render(image); };
        } else if (workload == QLatin1String("wide")) {
            chart->viewWidest(800.0);
            work = [&] { chart->replot(); chart->render(image); };
        } else if (workload == QLatin1String("tick")) {
            work = [&] {
                last = ticks.tick(last);
                chart->editLast(last);
                chart->render(image);
            };
        } else if (workload == QLatin1String("pan")) {
            chart->viewMiddle(viewBars);
            work = [&] { chart->step(1); chart->render(image); };
        } else if (workload.startsWith(QLatin1String("pan-marks"))) {
            chart->viewMiddle(viewBars);
            chart->addMarks(MarkCount, workload.endsWith(QLatin1String("spread")) ? 2000 : 0);
            work = [&] { chart->step(1); chart->render(image); };
        } else {
            std::fprintf(stderr, "unknown workload %s\n", qPrintable(workload));
            return 1;
        }
        // Warm caches outside the profiled part.
        for (int i = 0; i < 3; ++i)
            work();
    }
    const Clock::time_point t0 = Clock::now();
    profiledSection(work, iterations);
    const double seconds = secondsSince(t0);
    if (!m_options.saveImage.isEmpty()) {
        chart->render(image);
        image.save(m_options.saveImage);
    }
    std::printf("profile lib=%s bars=%d workload=%s iterations=%d us_per_iteration=%.1f\n",
                qPrintable(lib), count, qPrintable(workload), iterations,
                seconds * 1e6 / iterations);
    return 0;
}
