#include "indicatorintervalview.h"

#include "barseries.h"
#include "indicatorseries.h"
#include "panelbars.h"

#include <algorithm>

IndicatorIntervalView::IndicatorIntervalView(const PanelBars *bars, const IndicatorSeries *points)
    : m_bars(bars)
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
    return QwtIntervalSample(m_points->xAt(k, m_bars->times()), std::min(a, b),
                             std::max(a, b));
}

QRectF IndicatorIntervalView::boundingRect() const
{
    double x0, x1, lo, hi;
    if (!m_points->extent(m_bars->times(), x0, x1, lo, hi))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    // Qwt's layout for interval data: values along x, positions along y;
    // the vertical interval curve swaps them.
    return QRectF(lo, x0, hi - lo, x1 - x0);
}
