#ifndef VOLUMEHISTOGRAM_H
#define VOLUMEHISTOGRAM_H

#include <qwt_plot_histogram.h>

// The volume columns of a panel; draws only the columns inside the x scale.
class VolumeHistogram : public QwtPlotHistogram
{
public:
    VolumeHistogram();

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect, int from, int to) const override;
    // An opaque column outlined in its own colour is one solid rectangle:
    // filled in one pass instead of a fill plus four stroked edges.
    void drawColumn(QPainter *painter, const QwtColumnRect &rect,
                    const QwtIntervalSample &sample) const override;
};

#endif // VOLUMEHISTOGRAM_H
