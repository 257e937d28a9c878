#ifndef FUZZDRIVER_H
#define FUZZDRIVER_H

#include "fuzzinput.h"

#include <QPointer>
#include <QString>

#include <cstdint>
#include <string>

class FuzzChart;
class MarkSelfDraw;
class OrderEntrySink;
class QWidget;

// Decodes one fuzz input into a sequence of calls on a fresh chart: every
// exported member (protected ones through FuzzChart), resizes, mouse, wheel
// and key events on the panels, and renders. After every call it checks
// what must always hold; a violation ends the process with qFatal.
//
// Arguments come from a dictionary of hostile values (NaN, infinities, -0,
// DBL_MAX, denormals, absurd and out-of-order times, null / empty / 1 MB /
// non-ASCII names, out-of-range indices) mixed with ordinary ones so that
// inputs also reach the states that real data builds.
class FuzzDriver
{
public:
    FuzzDriver(const uint8_t *data, size_t size);
    ~FuzzDriver();

    // Runs the whole input; returns the number of exported calls made.
    uint64_t run();

    // Exported calls made by every driver in this process.
    static uint64_t totalCalls();
    // Silences the library's warnings (they are expected here) but keeps
    // fatal messages fatal.
    static void installQuietMessageHandler();

    // Upper bounds that keep one input well inside a second.
    static const int MaxCalls = 3000;
    static const int MaxRenders = 6;
    static const int MaxBatch = 600;
    static const int MaxPanels = 3;
    static const int MaxHeavy = 4;
    // Every mark filters every event: more would only slow an input down.
    static const int MaxMarks = 40;
    static const int MaxMoves = 8; // panel moves and volume switches among feeds (76, 77)
    // Operation codes: 0..63 the chart's members, gestures and renders;
    // 64..67 drawing tools, 68..71 read-outs and annotations, 72..75 saved
    // drawings, 76..79 bulk history and panel moves (76 panel moves among
    // feeds and navigation, 77 panel moves during a drag and ticks). A code
    // without an operation yet falls to navigation.
    static const int OpCount = 80;

private:
    // argument dictionaries
    double pickDouble();
    double pickPrice();
    double pickStep(); // a bar interval, in days
    double pickTime();
    const char *pickName();
    QString pickQName();
    long pickPanel();
    long pickLong();
    int pickInt();
    long pickCursor();
    int pickColorIndex();
    unsigned long pickColor();
    QPoint pickPoint(QWidget *w);
    QWidget *pickTarget();

    // one decoded operation
    void step();
    void stepOp(int op);
    void feedBatch();
    void mouseGesture();
    void wheel();
    void key();
    void closePanel();
    void removeSomePanels();
    void panelShuffle();
    void moveWhileBusy();
    void render();
    // drawing tools (codes 64..67)
    void drawGesture();
    void markGesture();
    void markKeys();
    void markHazard();
    MarkSelfDraw *pickMark();
    long pickDrawingType();

    void called(const char *what);
    void check(const char *what);
    void checkSeries(const char *what);
    void checkMarks(const char *what, bool gestureOver);

    FuzzInput m_in;
    FuzzChart *m_chart;
    OrderEntrySink *m_sink;
    uint64_t m_calls = 0;
    int m_renders = 0;
    int m_heavy = 0;
    int m_moves = 0;
    double m_lastTime = 2459000.5;
    char m_scratch[40];
    std::string m_owned;
};

#endif // FUZZDRIVER_H
