#include "directrangeadapter.h"

#include <QDateTime>

#include <cmath>

DirectRangeAdapter::DirectRangeAdapter(double edge)
    : m_edge(edge)
{
}

void DirectRangeAdapter::setView(double lower, double upper)
{
    m_lower = lower;
    applyView(lower, upper);
}

void DirectRangeAdapter::followNewest()
{
    const double n = m_times.size();
    setView(n - m_viewBars + m_edge, n + m_edge);
}

double DirectRangeAdapter::viewNewest(double bars)
{
    m_viewBars = bars;
    followNewest();
    replot();
    return bars;
}

double DirectRangeAdapter::viewWidest(double bars)
{
    return viewNewest(bars);
}

void DirectRangeAdapter::viewMiddle(double bars)
{
    m_viewBars = bars;
    const double mid = m_times.size() / 2;
    setView(mid - bars / 2 + m_edge, mid + bars / 2 + m_edge);
    replot();
}

void DirectRangeAdapter::step(int direction)
{
    setView(m_lower + direction, m_lower + direction + m_viewBars);
    replot();
}

QString DirectRangeAdapter::timeLabel(const QVector<double> &times, double x)
{
    const int i = int(std::lround(x));
    if (i < 0 || i >= times.size())
        return QString();
    return QDateTime::fromMSecsSinceEpoch(qint64(times[i]), Qt::UTC)
        .toString(QStringLiteral("dd.MM hh:mm"));
}
