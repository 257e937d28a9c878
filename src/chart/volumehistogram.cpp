#include "volumehistogram.h"

#include "visiblerange.h"

VolumeHistogram::VolumeHistogram()
{
    setStyle(QwtPlotHistogram::Columns);
    setBaseline(0.0);
    // Above the grid, under the price curves when they share a panel.
    setZ(15.0);
}

void VolumeHistogram::drawSeries(QPainter *painter, const QwtScaleMap &xMap,
                                 const QwtScaleMap &yMap, const QRectF &canvasRect, int from,
                                 int to) const
{
    const auto centre = [](const QwtIntervalSample &s) {
        return 0.5 * (s.interval.minValue() + s.interval.maxValue());
    };
    if (VisibleRange::narrow(data(), xMap, centre, from, to))
        QwtPlotHistogram::drawSeries(painter, xMap, yMap, canvasRect, from, to);
}
