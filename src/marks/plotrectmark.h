#ifndef PLOTRECTMARK_H
#define PLOTRECTMARK_H

#include "markselfdraw.h"

#include <QPointer>
#include <QRect>

class RectMark;

// Rectangle: a translucent box in the mark's colour with a solid outline.
// Its two anchors are opposite corners in (bar, price), so it follows zoom
// and scroll like every mark. Instead of handles it has a RectMark, whose
// grips resize it; the anchors' "handles" are the RectMark's corners (0
// top-left, 1 bottom-right). It is moved by its body like every mark. Hit
// inside or within 3 pixels of the outline.
class PlotRectMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotRectMark();
    ~PlotRectMark() override;

    bool hitTest(double x, double y) override;
    void setState(int s) override;
    void attachToPlot(QwtPlot *plot) override;
    void updateHandleFromPoint(int i) override;
    void updatePointFromHandle(int i) override;
    void moveHandleTo(int i, QPoint center) override;
    void handleCenter(int i, QPoint &center) override;
    bool canvasEventFilter(QObject *watched, QEvent *event) override;
    void setHandlesShown(bool shown) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    RectMark *rectMark() const { return editor; }
    // The press point of the gesture that draws it, in canvas pixels.
    void setFirstCorner(QPoint corner) { firstCorner = corner; }
    QPoint getFirstCorner() const { return firstCorner; }

public Q_SLOTS:
    // The anchors from a rectangle in canvas pixels.
    void setWithRectInCanvas(QRect rect);

private:
    void rectEdited(QRect rect);

    QPointer<RectMark> editor;
    QPoint firstCorner;
};

#endif // PLOTRECTMARK_H
