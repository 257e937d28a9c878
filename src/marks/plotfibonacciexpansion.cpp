#include "plotfibonacciexpansion.h"

#include "fibonaccigeometry.h"
#include "markgeometry.h"
#include "markpainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

PlotFibonacciExpansion::PlotFibonacciExpansion()
{
    addHandle();
    addHandle();
    addHandle();
    setHandlesShown(selected);
    setState(state);
}

bool PlotFibonacciExpansion::hitTest(double x, double y)
{
    if (!plot() || !validHandle(0) || !validHandle(1) || !validHandle(2))
        return false;
    QPoint a, b, c;
    handleCenter(0, a);
    handleCenter(1, b);
    handleCenter(2, c);
    const QRectF canvas = plot()->canvas()->contentsRect();
    return MarkGeometry::nearAny(FibonacciGeometry::expansionLines(a, b, c, canvas),
                                      QPointF(x, y));
}

void PlotFibonacciExpansion::draw(QPainter *painter, const QwtScaleMap &xMap,
                                  const QwtScaleMap &yMap, const QRectF &canvasRect) const
{
    const QPointF a = QwtScaleMap::transform(xMap, yMap, points.value(0));
    const QPointF b = QwtScaleMap::transform(xMap, yMap, points.value(1));
    const QPointF c = QwtScaleMap::transform(xMap, yMap, points.value(2));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color, Qt::DashLine));
    const bool move = MarkPainter::drawLine(painter, a, b, canvasRect);
    MarkPainter::drawLine(painter, b, c, canvasRect);
    if (move && hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        MarkPainter::drawLine(painter, a, b, canvasRect);
    }
    painter->setPen(MarkPainter::pen(color));
    painter->setFont(MarkPainter::labelFont());
    const QFontMetricsF metrics(painter->font());
    const QVector<QLineF> levels = FibonacciGeometry::expansionLevels(a, b, c, canvasRect);
    const QStringList texts = labels();
    for (int i = 0; i < levels.size(); ++i) {
        const QLineF &level = levels.at(i);
        if (level.isNull())
            continue;
        painter->drawLine(level);
        // Just above the level's left end.
        QRectF box(0.0, 0.0, std::ceil(metrics.horizontalAdvance(texts.at(i))), metrics.height());
        box.moveBottomLeft(QPointF(std::trunc(level.x1() + 4.0), std::trunc(level.y1()) - 1.0));
        MarkPainter::drawLabel(painter, box, texts.at(i), canvasRect, Qt::AlignLeft | Qt::AlignTop);
    }
    painter->restore();
}

QStringList PlotFibonacciExpansion::labels() const
{
    const int decimals = MarkPainter::decimals(plot(), 5);
    const QPointF p0 = points.value(0), p1 = points.value(1), p2 = points.value(2);
    QStringList texts;
    for (double r : FibonacciGeometry::expansionRatios())
        texts.append(FibonacciGeometry::levelLabel(r * 100.0, p2.y() + r * (p1.y() - p0.y()), decimals));
    return texts;
}
