#include "plotellipsemark.h"

#include "makedrag.h"
#include "markgeometry.h"
#include "markpainter.h"
#include "shapegeometry.h"

#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

PlotEllipseMark::PlotEllipseMark()
{
    for (int i = 0; i < ShapeGeometry::GripCount; ++i)
        addHandle(i == 1 || i == 5 ? MakeDrag::VerticalOnly : MakeDrag::Free);
    setHandlesShown(selected);
    setState(state);
}

bool PlotEllipseMark::hitTest(double x, double y)
{
    if (!plot() || !validHandle(0) || !validHandle(4))
        return false;
    QPoint a, b;
    handleCenter(0, a);
    handleCenter(4, b);
    return ShapeGeometry::ellipseDistance(QRectF(a, b), QPointF(x, y)) < MarkGeometry::Tolerance;
}

void PlotEllipseMark::onHandleMoved(int i)
{
    if (i < 0 || i >= points.size())
        return;
    QPointF a = points.value(0), b = points.value(4);
    ShapeGeometry::moveGrip(a, b, i, points.at(i));
    points[0] = a;
    points[4] = b;
    layOut();
}

void PlotEllipseMark::shiftBars(double index, double count)
{
    MarkSelfDraw::shiftBars(index, count);
    layOut();
}

void PlotEllipseMark::setRectInCanvas(const QRect &rect)
{
    if (!plot())
        return;
    const QwtScaleMap xMap = plot()->canvasMap(xAxis()), yMap = plot()->canvasMap(yAxis());
    setPoint(0, QwtScaleMap::invTransform(xMap, yMap, QPointF(rect.topLeft())));
    setPoint(4, QwtScaleMap::invTransform(xMap, yMap, QPointF(rect.bottomRight())));
    layOut();
}

void PlotEllipseMark::layOut()
{
    if (points.size() < ShapeGeometry::GripCount)
        return;
    const QPointF a = points.at(0), b = points.at(4);
    for (int i = 0; i < ShapeGeometry::GripCount; ++i) {
        points[i] = ShapeGeometry::gripPoint(a, b, i);
        updateHandleFromPoint(i);
    }
}

void PlotEllipseMark::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                           const QRectF &canvasRect) const
{
    const QRectF box = QRectF(QwtScaleMap::transform(xMap, yMap, points.value(0)),
                              QwtScaleMap::transform(xMap, yMap, points.value(4)))
                           .normalized();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color));
    drawOutline(painter, box, canvasRect);
    if (hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        drawOutline(painter, box, canvasRect);
    }
    painter->restore();
}

void PlotEllipseMark::drawOutline(QPainter *painter, const QRectF &box, const QRectF &canvasRect)
{
    if (MarkPainter::paintArea(canvasRect).contains(box)) {
        painter->drawEllipse(box);
        return;
    }
    // Only the arcs near the canvas, however large the ellipse, each piece
    // cut to the canvas.
    for (const QPolygonF &run : ShapeGeometry::ellipseRuns(box, MarkPainter::paintArea(canvasRect))) {
        for (int i = 1; i < run.size(); ++i)
            MarkPainter::drawLine(painter, run.at(i - 1), run.at(i), canvasRect);
    }
}
