#include "ohlcseriesview.h"

#include "barseries.h"

OhlcSeriesView::OhlcSeriesView(const BarSeries *bars)
    : m_bars(bars)
{
}

size_t OhlcSeriesView::size() const
{
    return size_t(m_bars->size());
}

QwtOHLCSample OhlcSeriesView::sample(size_t i) const
{
    return m_bars->sample(int(i));
}

QRectF OhlcSeriesView::boundingRect() const
{
    // Scales are set explicitly by the navigation; a full scan here would
    // cost O(n) per replot.
    const int n = m_bars->size();
    if (n == 0)
        return QRectF(1.0, 1.0, -2.0, -2.0);
    double lo, hi;
    m_bars->priceRange(0, n - 1, lo, hi);
    // Qwt's layout for OHLC data: prices along x, positions along y; the
    // vertical trading curve swaps them.
    return QRectF(lo, 0.0, hi - lo, n - 1);
}
