#include "plotlinemark.h"

#include "markgeometry.h"

#include <QPainter>

#include <qwt_scale_map.h>

PlotLineMark::PlotLineMark()
{
    addHandle();
    addHandle();
    setHandlesShown(selected);
    setState(state);
}

bool PlotLineMark::hitTest(double x, double y)
{
    if (!validHandle(0) || !validHandle(1))
        return false;
    QPoint a, b;
    handleCenter(0, a);
    handleCenter(1, b);
    return MarkGeometry::segmentHit(a, b, QPoint(MarkGeometry::toPixel(x), MarkGeometry::toPixel(y)));
}

void PlotLineMark::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                        const QRectF &canvasRect) const
{
    drawSegment(painter, QwtScaleMap::transform(xMap, yMap, points.value(0)),
                QwtScaleMap::transform(xMap, yMap, points.value(1)), canvasRect, true);
}

void PlotLineMark::drawSegment(QPainter *painter, QPointF a, QPointF b,
                               const QRectF &canvasRect, bool antialiased) const
{
    // Only the part in view is drawn; the margin keeps the highlight's
    // round caps whole at the edges.
    if (!MarkGeometry::clip(a, b, canvasRect.adjusted(-8.0, -8.0, 8.0, 8.0)))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, antialiased);
    QPen pen(color);
    pen.setCosmetic(true); // one pixel whatever the painter's scale: the fast stroker
    pen.setStyle(Qt::PenStyle(lineStyle));
    painter->setPen(pen);
    painter->drawLine(a, b);
    if (hovered && !dragging) {
        painter->setPen(QPen(QColor(255, 255, 255, 127), 7.0, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(a, b);
    }
    painter->restore();
}
