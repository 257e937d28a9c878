#include "plotfibonacciretracementmark.h"

#include "fibonaccigeometry.h"
#include "markpainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <qwt_scale_map.h>

#include <cmath>

void PlotFibonacciRetracementMark::draw(QPainter *painter, const QwtScaleMap &xMap,
                                        const QwtScaleMap &yMap, const QRectF &canvasRect) const
{
    const QPointF p0 = points.value(0), p1 = points.value(1);
    const QPointF a = QwtScaleMap::transform(xMap, yMap, p0);
    const QPointF b = QwtScaleMap::transform(xMap, yMap, p1);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color, Qt::DashLine));
    const bool diagonal = MarkPainter::drawLine(painter, a, b, canvasRect);
    if (diagonal && hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        MarkPainter::drawLine(painter, a, b, canvasRect);
    }

    painter->setFont(MarkPainter::labelFont());
    const QStringList texts = labels();
    qreal widest = 0.0;
    for (const QString &text : texts)
        widest = qMax(widest, painter->fontMetrics().horizontalAdvance(text) * 1.0);
    const QSizeF box(widest, painter->fontMetrics().height());
    painter->setPen(MarkPainter::pen(color));
    const QVector<float> ratios = FibonacciGeometry::retracementRatios();
    const double move = p1.y() - p0.y();
    for (int i = 0; i < ratios.size(); ++i) {
        const double y = yMap.transform(p0.y() + ratios.at(i) * move);
        MarkPainter::drawLine(painter, QPointF(a.x(), y), QPointF(b.x(), y), canvasRect);
        MarkPainter::drawLabel(painter,
                               FibonacciGeometry::retracementLabelBox(box, QPointF(b.x(), y),
                                                                      a.x() < b.x()),
                               texts.at(i), canvasRect, Qt::AlignLeft | Qt::AlignTop);
    }
    painter->restore();
}

QStringList PlotFibonacciRetracementMark::labels() const
{
    const int decimals = MarkPainter::decimals(plot(), 5);
    const QPointF p0 = points.value(0), p1 = points.value(1);
    QStringList texts;
    for (float r : FibonacciGeometry::retracementRatios())
        texts.append(FibonacciGeometry::levelLabel(r * 100, p0.y() + r * (p1.y() - p0.y()), decimals));
    return texts;
}
