#include "plotequidistancepricechannel.h"

#include "makedrag.h"
#include "markpainter.h"
#include "shapegeometry.h"

#include <QPainter>

#include <qwt_scale_map.h>

#include <cmath>

PlotEquidistancePriceChannel::PlotEquidistancePriceChannel()
{
    addHandle();
    addHandle();
    addHandle(MakeDrag::VerticalOnly);
    setHandlesShown(selected);
    setState(state);
}

bool PlotEquidistancePriceChannel::hitTest(double x, double y)
{
    if (!plot() || !validHandle(0) || !validHandle(1) || !validHandle(2))
        return false;
    QPoint a, b, c;
    handleCenter(0, a);
    handleCenter(1, b);
    handleCenter(2, c);
    return ShapeGeometry::channelHit(a, b, c.y() - (a.y() + b.y()) * 0.5, QPointF(x, y));
}

void PlotEquidistancePriceChannel::onHandleMoved(int i)
{
    if (points.size() < 3)
        return;
    if (i == 2)
        setChannelOffset(points[2].y() - (points[0].y() + points[1].y()) * 0.5);
    else if (i == 0 || i == 1)
        setChannelOffset(channelOffset);
}

void PlotEquidistancePriceChannel::shiftBars(double index, double count)
{
    MarkSelfDraw::shiftBars(index, count);
    setChannelOffset(channelOffset);
}

void PlotEquidistancePriceChannel::setChannelOffset(double w)
{
    if (!std::isfinite(w) || points.size() < 3)
        return;
    channelOffset = w;
    setPoint(2, QPointF((points[0].x() + points[1].x()) * 0.5,
                        (points[0].y() + points[1].y()) * 0.5 + w));
    updateHandleFromPoint(2);
}

void PlotEquidistancePriceChannel::draw(QPainter *painter, const QwtScaleMap &xMap,
                                        const QwtScaleMap &yMap, const QRectF &canvasRect) const
{
    const QPointF p0 = points.value(0), p1 = points.value(1);
    const QPointF shift(0.0, channelOffset);
    const QLineF lines[3] = {
        QLineF(QwtScaleMap::transform(xMap, yMap, p0), QwtScaleMap::transform(xMap, yMap, p1)),
        QLineF(QwtScaleMap::transform(xMap, yMap, p0 + shift),
               QwtScaleMap::transform(xMap, yMap, p1 + shift)),
        QLineF(QwtScaleMap::transform(xMap, yMap, p0 + shift * 0.5),
               QwtScaleMap::transform(xMap, yMap, p1 + shift * 0.5))};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    for (int i = 0; i < 3; ++i) {
        painter->setPen(MarkPainter::pen(color, i == 2 ? Qt::DashLine : Qt::SolidLine));
        MarkPainter::drawLine(painter, lines[i].p1(), lines[i].p2(), canvasRect);
    }
    if (hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        for (int i = 0; i < 2; ++i)
            MarkPainter::drawLine(painter, lines[i].p1(), lines[i].p2(), canvasRect);
    }
    painter->restore();
}
