#include "volumeseriesview.h"

#include "barseries.h"
#include "panelbars.h"

VolumeSeriesView::VolumeSeriesView(const PanelBars *bars)
    : m_bars(bars)
{
}

const BarSeries *VolumeSeriesView::bars() const
{
    return m_bars->axis();
}

size_t VolumeSeriesView::size() const
{
    return size_t(bars()->size());
}

QwtIntervalSample VolumeSeriesView::sample(size_t i) const
{
    const double x = double(i);
    return QwtIntervalSample(bars()->volume(int(i)), x - HalfWidth, x + HalfWidth);
}

QRectF VolumeSeriesView::boundingRect() const
{
    const BarSeries *b = bars();
    double hi;
    if (!b->volumeRange(0, b->size() - 1, hi))
        return QRectF(1.0, 1.0, -2.0, -2.0);
    return QRectF(-HalfWidth, 0.0, b->size() - 1 + 2 * HalfWidth, hi);
}
