#include "markpainter.h"

#include "markgeometry.h"
#include "plot.h"

#include <QPainter>

QPen MarkPainter::pen(const QColor &color, int style)
{
    QPen p(color);
    p.setCosmetic(true);
    p.setStyle(Qt::PenStyle(style));
    return p;
}

QPen MarkPainter::highlightPen()
{
    return QPen(QColor(255, 255, 255, 127), 7.0, Qt::SolidLine, Qt::RoundCap);
}

QRectF MarkPainter::paintArea(const QRectF &canvas)
{
    return canvas.adjusted(-8.0, -8.0, 8.0, 8.0);
}

bool MarkPainter::drawLine(QPainter *painter, QPointF a, QPointF b, const QRectF &canvas)
{
    if (!MarkGeometry::clip(a, b, paintArea(canvas)))
        return false;
    painter->drawLine(a, b);
    return true;
}

void MarkPainter::drawCut(QPainter *painter, const QLineF &line)
{
    if (!line.isNull())
        painter->drawLine(line);
}

QFont MarkPainter::labelFont()
{
    QFont font(QStringLiteral("Roboto"));
    font.setPixelSize(10);
    return font;
}

void MarkPainter::drawLabel(QPainter *painter, const QRectF &box, const QString &text,
                            const QRectF &canvas, int flags)
{
    if (box.intersects(canvas))
        painter->drawText(box, flags, text);
}

int MarkPainter::decimals(const QwtPlot *plot, int fallback)
{
    const Plot *panel = dynamic_cast<const Plot *>(plot);
    const int n = panel ? panel->priceDecimals() : -1;
    return n >= 0 ? n : fallback;
}
