#include "indicatorintervalview.h"

#include "barseries.h"
#include "indicatorseries.h"
#include "plot.h"

#include <algorithm>

IndicatorIntervalView::IndicatorIntervalView(const Plot *panel, const IndicatorSeries *points)
    : m_panel(panel)
    , m_points(points)
{
}

size_t IndicatorIntervalView::size() const
{
    return size_t(m_points->size());
}

QwtIntervalSample IndicatorIntervalView::sample(size_t i) const
{
    const int k = int(i);
    const double a = m_points->low(k), b = m_points->value(k);
    return QwtIntervalSample(m_points->xAt(k, m_panel->axisBars()->timeTable()), std::min(a, b),
                             std::max(a, b));
}

QRectF IndicatorIntervalView::boundingRect() const
{
    double lo, hi;
    const int n = m_points->size();
    if (!m_points->bounds(lo, hi))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    const SampleTimeTable &axis = m_panel->axisBars()->timeTable();
    const double x0 = m_points->xAt(0, axis);
    // Qwt's layout for interval data: values along x, positions along y;
    // the vertical interval curve swaps them.
    return QRectF(lo, x0, hi - lo, m_points->xAt(n - 1, axis) - x0);
}
