#ifndef PLOTELLIPSEMARK_H
#define PLOTELLIPSEMARK_H

#include "markselfdraw.h"

// Ellipse inscribed in a box with eight handles on the box: the corners
// and the middles of the sides, clockwise from anchor 0's corner (see
// ShapeGeometry's grips). Dragging one resizes the box like a window's
// edge: a corner moves two edges, a side handle its own edge (the top and
// bottom ones move up and down only), and the handles then line up on the
// new box. Hit within 3 pixels of the outline.
class PlotEllipseMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotEllipseMark();

    bool hitTest(double x, double y) override;
    void onHandleMoved(int i) override;
    void shiftBars(double index, double count) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The box in canvas pixels (while it is drawn, the span from the first
    // corner to the mouse); the handles follow.
    void setRectInCanvas(const QRect &rect);
    // The press point of the gesture that draws it, in canvas pixels.
    void setFirstCorner(QPoint corner) { firstCorner = corner; }
    QPoint getFirstCorner() const { return firstCorner; }

private:
    // Puts every anchor on the box spanned by anchors 0 and 4.
    void layOut();
    static void drawOutline(QPainter *painter, const QRectF &box, const QRectF &canvasRect);

    QPoint firstCorner;
};

#endif // PLOTELLIPSEMARK_H
