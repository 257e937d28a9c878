#ifndef PLOTEQUIDISTANCEPRICECHANNEL_H
#define PLOTEQUIDISTANCEPRICECHANNEL_H

#include "markselfdraw.h"

// Equidistant price channel: the base line from anchor 0 to anchor 1, a
// parallel line `channelOffset` away in price and a dashed median between
// them, all between the anchors' times. Anchor 2 is the parallel line's
// handle: it sits over the base line's midpoint, moves up and down only,
// and dragging it sets the offset. Hit within 3 pixels of either line or
// inside the band.
class PlotEquidistancePriceChannel : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotEquidistancePriceChannel();

    bool hitTest(double x, double y) override;
    // Handle 2 sets the offset; the base line's handles carry anchor 2.
    void onHandleMoved(int i) override;
    void shiftBars(double index, double count) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // Stores w (price units) and puts anchor 2 at the base line's midpoint
    // shifted by w, its handle with it.
    void setChannelOffset(double w);
    double getChannelOffset() const { return channelOffset; }

private:
    double channelOffset = 0.0;
};

#endif // PLOTEQUIDISTANCEPRICECHANNEL_H
