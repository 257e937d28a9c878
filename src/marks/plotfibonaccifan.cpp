#include "plotfibonaccifan.h"

#include "fibonaccigeometry.h"
#include "markgeometry.h"
#include "markpainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

PlotFibonacciFan::PlotFibonacciFan()
{
    addHandle();
    addHandle();
    setHandlesShown(selected);
    setState(state);
}

bool PlotFibonacciFan::hitTest(double x, double y)
{
    if (!plot() || !validHandle(0) || !validHandle(1))
        return false;
    QPoint a, b;
    handleCenter(0, a);
    handleCenter(1, b);
    const QRectF canvas = plot()->canvas()->contentsRect();
    return MarkGeometry::nearAny(FibonacciGeometry::fanLines(a, b, canvas), QPointF(x, y));
}

void PlotFibonacciFan::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                            const QRectF &canvasRect) const
{
    const QPointF a = QwtScaleMap::transform(xMap, yMap, points.value(0));
    const QPointF b = QwtScaleMap::transform(xMap, yMap, points.value(1));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color, Qt::DashLine));
    const bool move = MarkPainter::drawLine(painter, a, b, canvasRect);
    if (move && hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        MarkPainter::drawLine(painter, a, b, canvasRect);
    }
    painter->setPen(MarkPainter::pen(color));
    painter->setFont(MarkPainter::labelFont());
    const QFontMetricsF metrics(painter->font());
    const QVector<QLineF> rays = FibonacciGeometry::fanRays(a, b, canvasRect);
    const QStringList texts = labels();
    for (int i = 0; i < rays.size(); ++i) {
        if (rays.at(i).isNull())
            continue;
        painter->drawLine(rays.at(i));
        // Where the ray leaves the canvas, kept whole inside it.
        QRectF box(0.0, 0.0, std::ceil(metrics.horizontalAdvance(texts.at(i))), metrics.height());
        box.moveCenter(rays.at(i).p2());
        MarkPainter::drawLabel(painter, MarkGeometry::keepInside(box, canvasRect), texts.at(i),
                               canvasRect, Qt::AlignLeft | Qt::AlignTop);
    }
    painter->restore();
}

QStringList PlotFibonacciFan::labels() const
{
    const int decimals = MarkPainter::decimals(plot(), 5);
    const QPointF p0 = points.value(0), p1 = points.value(1);
    QStringList texts;
    for (double r : FibonacciGeometry::fanRatios())
        texts.append(FibonacciGeometry::levelLabel(r * 100.0, p0.y() + r * (p1.y() - p0.y()), decimals));
    return texts;
}
