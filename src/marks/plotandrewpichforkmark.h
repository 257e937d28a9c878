#ifndef PLOTANDREWPICHFORKMARK_H
#define PLOTANDREWPICHFORKMARK_H

#include "markselfdraw.h"

// Andrew's pitchfork. Anchors: 0 the pivot, 1 the centre of the reaction
// points, 2 and 3 the reaction points; anchor 1 is kept at the midpoint of
// 2 and 3. Drawn as the median from the pivot through the centre, a tine
// through each reaction point parallel to it, all out to the canvas edge,
// and the segment joining the reaction points. Hit within 3 pixels of any.
class PlotAndrewPichforkMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotAndrewPichforkMark();

    bool hitTest(double x, double y) override;
    // The centre handle carries the reaction points with it; a reaction
    // point moves the centre to the new midpoint.
    void onHandleMoved(int i) override;
    void shiftBars(double index, double count) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;
};

#endif // PLOTANDREWPICHFORKMARK_H
