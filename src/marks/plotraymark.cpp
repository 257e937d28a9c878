#include "plotraymark.h"

#include "markgeometry.h"
#include "plot.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <qwt_scale_map.h>

#include <cmath>

void PlotRayMark::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                       const QRectF &canvasRect) const
{
    const QPointF a = QwtScaleMap::transform(xMap, yMap, points.value(0));
    const QPointF b = QwtScaleMap::transform(xMap, yMap, points.value(1));
    const QPointF end = MarkGeometry::rayEnd(a, b, canvasRect);
    if (end != a) // coincident anchors have no direction: no line
        drawSegment(painter, a, end, canvasRect, true);

    // The label stays whole, on one line.
    const QString text = labelText(a, b);
    const QRectF box = labelBox(text, b, canvasRect);
    if (box.isEmpty())
        return;
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    painter->save();
    painter->setFont(labelFont());
    painter->setPen(color);
    painter->drawText(box, text, option);
    painter->restore();
}

QString PlotRayMark::labelText(QPointF a, QPointF b) const
{
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    const int decimals = panel ? panel->priceDecimals() : 4;
    return MarkGeometry::rayLabel(points.value(0), points.value(1), MarkGeometry::direction(a, b),
                                  decimals);
}

QRectF PlotRayMark::labelBox(const QString &text, QPointF corner, const QRectF &canvas)
{
    const QFontMetricsF metrics(labelFont());
    QRectF box(0.0, 0.0, std::ceil(metrics.horizontalAdvance(text)), metrics.height());
    box.moveBottomRight(QPointF(MarkGeometry::toPixel(std::round(corner.x())),
                                MarkGeometry::toPixel(std::round(corner.y()))));
    if (!box.intersects(canvas))
        return QRectF();
    if (box.right() > canvas.right())
        box.moveRight(canvas.right());
    if (box.bottom() > canvas.bottom())
        box.moveBottom(canvas.bottom());
    if (box.left() < canvas.left())
        box.moveLeft(canvas.left());
    if (box.top() < canvas.top())
        box.moveTop(canvas.top());
    return box;
}

QFont PlotRayMark::labelFont()
{
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(10);
    return font;
}
