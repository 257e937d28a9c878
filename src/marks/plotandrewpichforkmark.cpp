#include "plotandrewpichforkmark.h"

#include "markgeometry.h"
#include "markpainter.h"
#include "shapegeometry.h"

#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

PlotAndrewPichforkMark::PlotAndrewPichforkMark()
{
    for (int i = 0; i < 4; ++i)
        addHandle();
    setHandlesShown(selected);
    setState(state);
}

bool PlotAndrewPichforkMark::hitTest(double x, double y)
{
    if (!plot())
        return false;
    QPoint p[4];
    for (int i = 0; i < 4; ++i) {
        if (!validHandle(i))
            return false;
        handleCenter(i, p[i]);
    }
    const QRectF canvas = plot()->canvas()->contentsRect();
    return MarkGeometry::nearAny(ShapeGeometry::pitchforkLines(p[0], p[1], p[2], p[3], canvas),
                                 QPointF(x, y));
}

void PlotAndrewPichforkMark::onHandleMoved(int i)
{
    if (points.size() < 4)
        return;
    if (i == 1) {
        const QPointF shift = points[1] - (points[2] + points[3]) * 0.5;
        points[2] += shift;
        points[3] += shift;
        updateHandleFromPoint(2);
        updateHandleFromPoint(3);
    } else if (i == 2 || i == 3) {
        points[1] = (points[2] + points[3]) * 0.5;
        updateHandleFromPoint(1);
    }
}

void PlotAndrewPichforkMark::shiftBars(double index, double count)
{
    MarkSelfDraw::shiftBars(index, count);
    if (points.size() == 4)
        points[1] = (points[2] + points[3]) * 0.5;
}

void PlotAndrewPichforkMark::draw(QPainter *painter, const QwtScaleMap &xMap,
                                  const QwtScaleMap &yMap, const QRectF &canvasRect) const
{
    QPointF p[4];
    for (int i = 0; i < 4; ++i)
        p[i] = QwtScaleMap::transform(xMap, yMap, points.value(i));
    const QVector<QLineF> lines = ShapeGeometry::pitchforkLines(
        p[0], p[1], p[2], p[3], MarkPainter::paintArea(canvasRect));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color));
    for (const QLineF &line : lines)
        MarkPainter::drawCut(painter, line);
    if (hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        for (const QLineF &line : lines)
            MarkPainter::drawCut(painter, line);
    }
    painter->restore();
}
