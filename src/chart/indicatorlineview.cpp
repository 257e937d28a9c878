#include "indicatorlineview.h"

#include "barseries.h"
#include "indicatorseries.h"
#include "panelbars.h"

IndicatorLineView::IndicatorLineView(const PanelBars *bars, const IndicatorSeries *points)
    : m_bars(bars)
    , m_points(points)
{
}

size_t IndicatorLineView::size() const
{
    return size_t(m_points->size());
}

QPointF IndicatorLineView::sample(size_t i) const
{
    const int k = int(i);
    return QPointF(m_points->xAt(k, m_bars->times()), m_points->value(k));
}

QRectF IndicatorLineView::boundingRect() const
{
    double x0, x1, lo, hi;
    if (!m_points->extent(m_bars->times(), x0, x1, lo, hi))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    return QRectF(x0, lo, x1 - x0, hi - lo);
}
