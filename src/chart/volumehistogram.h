#ifndef VOLUMEHISTOGRAM_H
#define VOLUMEHISTOGRAM_H

#include <QColor>

#include <qwt_plot_histogram.h>

class BarSeries;

// The volume columns of a panel. Each column takes the colour of its bar,
// rising or falling, at 60% opacity, so volume reads with the candles; a
// column of zero volume is not drawn (all-zero volume draws nothing). Only
// the columns inside the x scale are visited, clipped where the candles are.
//
// The item's own brush (red) stands in when there are no candle colours
// yet.
class VolumeHistogram : public QwtPlotHistogram
{
public:
    VolumeHistogram();

    static constexpr int Opacity = 153; // of 255: 60%

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect, int from, int to) const override;

private:
    // The bars the columns stand for, and the colours of their candles.
    const BarSeries *bars(QColor &up, QColor &down) const;
};

#endif // VOLUMEHISTOGRAM_H
