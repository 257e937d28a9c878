#ifndef DIRECTRANGEADAPTER_H
#define DIRECTRANGEADAPTER_H

#include "chartadapter.h"

#include <QString>
#include <QVector>

// Base of the peers whose users set the x range themselves: bar i at key i,
// the view tracked here (bars in view, left edge) and applied by the
// library's own calls in applyView().
class DirectRangeAdapter : public ChartAdapter
{
public:
    double viewNewest(double bars) override;
    double viewWidest(double bars) override;
    void viewMiddle(double bars) override;
    void step(int direction) override;

    // The time label of the bar at key `x` (for the peers' axes); empty off
    // the bars.
    static QString timeLabel(const QVector<double> &times, double x);

protected:
    // With n bars the newest view is [n - bars + edge, n + edge]; each peer
    // keeps the margin its own users would.
    explicit DirectRangeAdapter(double edge);

    // Shows keys [lower, upper] on both panels and fits the value axes.
    virtual void applyView(double lower, double upper) = 0;
    void setView(double lower, double upper);
    void followNewest();

    QVector<double> m_times; // bar times (ms), one per key

private:
    const double m_edge;
    double m_viewBars = 200.0;
    double m_lower = 0.0;
};

#endif // DIRECTRANGEADAPTER_H
