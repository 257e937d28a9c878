#include "closelineview.h"

#include "barseries.h"

CloseLineView::CloseLineView(const BarSeries *bars)
    : m_bars(bars)
{
}

size_t CloseLineView::size() const
{
    return size_t(m_bars->size());
}

QPointF CloseLineView::sample(size_t i) const
{
    return QPointF(double(i), m_bars->close(int(i)));
}

QRectF CloseLineView::boundingRect() const
{
    const int n = m_bars->size();
    double lo, hi;
    if (!m_bars->priceRange(0, n - 1, lo, hi))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    return QRectF(0.0, lo, n - 1, hi - lo);
}
