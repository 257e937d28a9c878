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

    // The label's bottom-right corner is on anchor 1; it stays whole on one
    // line, moved inside the canvas where the corner is near an edge.
    const QString text = labelText(a, b);
    const QFont font = labelFont();
    const QFontMetricsF metrics(font);
    QRectF box(0.0, 0.0, std::ceil(metrics.horizontalAdvance(text)), metrics.height());
    box.moveBottomRight(QPointF(MarkGeometry::toPixel(std::round(b.x())),
                                MarkGeometry::toPixel(std::round(b.y()))));
    if (!box.intersects(canvasRect))
        return;
    if (box.right() > canvasRect.right())
        box.moveRight(canvasRect.right());
    if (box.bottom() > canvasRect.bottom())
        box.moveBottom(canvasRect.bottom());
    if (box.left() < canvasRect.left())
        box.moveLeft(canvasRect.left());
    if (box.top() < canvasRect.top())
        box.moveTop(canvasRect.top());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    painter->save();
    painter->setFont(font);
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

QFont PlotRayMark::labelFont()
{
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(10);
    return font;
}
