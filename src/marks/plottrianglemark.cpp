#include "plottrianglemark.h"

#include "markpainter.h"
#include "shapegeometry.h"

#include <QPainter>

#include <qwt_scale_map.h>

PlotTriangleMark::PlotTriangleMark()
{
    for (int i = 0; i < 3; ++i)
        addHandle();
    setHandlesShown(selected);
    setState(state);
}

bool PlotTriangleMark::hitTest(double x, double y)
{
    if (!plot())
        return false;
    QPolygonF triangle;
    for (int i = 0; i < 3; ++i) {
        if (!validHandle(i))
            return false;
        QPoint c;
        handleCenter(i, c);
        triangle.append(c);
    }
    return ShapeGeometry::outlineHit(triangle, QPointF(x, y));
}

void PlotTriangleMark::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                            const QRectF &canvasRect) const
{
    QPolygonF triangle;
    for (int i = 0; i < 3; ++i)
        triangle.append(QwtScaleMap::transform(xMap, yMap, points.value(i)));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    // The style, then the colour, which makes the pen solid again.
    painter->setPen(QPen(Qt::PenStyle(lineStyle)));
    painter->setPen(color);
    drawOutline(painter, triangle, canvasRect);
    if (hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        drawOutline(painter, triangle, canvasRect);
    }
    painter->restore();
}

// One closed polygon when the canvas shows all of it; otherwise the sides
// cut to the canvas (a vertex out of view has no join to show).
void PlotTriangleMark::drawOutline(QPainter *painter, const QPolygonF &triangle,
                                   const QRectF &canvasRect) const
{
    const QRectF area = MarkPainter::paintArea(canvasRect);
    if (area.contains(triangle.boundingRect())) {
        painter->drawPolygon(triangle);
        return;
    }
    for (int i = 0; i < 3; ++i)
        MarkPainter::drawLine(painter, triangle.at(i), triangle.at((i + 1) % 3), canvasRect);
}
