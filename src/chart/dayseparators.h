#ifndef DAYSEPARATORS_H
#define DAYSEPARATORS_H

#include <QVector>

class QwtInterval;
class QwtPlot;
class QwtPlotMarker;
class SampleTimeTable;

// The dotted lines of an intraday panel where the calendar date changes,
// each labelled with its date. Only the bars in view are walked (plus one
// before, to tell whether the first of them starts a day), so a live tick
// or a scroll costs what is visible, never the history. The markers are
// reused and only grow; unused ones are detached. None are placed on daily
// and longer charts, nor when the view spans more than MaxSpan bars (they
// would be denser than the pixels).
class DaySeparators
{
public:
    static const int MaxSpan = 20000;

    explicit DaySeparators(QwtPlot *plot);
    ~DaySeparators();

    // Places the markers for the bars whose times are `times`, over the
    // x interval `view`, for bars `interval` ms long.
    void update(const SampleTimeTable &times, double interval, const QwtInterval &view);
    const QVector<QwtPlotMarker *> &markers() const { return m_markers; }

private:
    QwtPlotMarker *marker(int used);

    QwtPlot *m_plot;
    QVector<QwtPlotMarker *> m_markers;
};

#endif // DAYSEPARATORS_H
