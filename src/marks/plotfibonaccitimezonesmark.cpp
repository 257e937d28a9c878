#include "plotfibonaccitimezonesmark.h"

#include "fibonaccigeometry.h"
#include "markpainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <qwt_scale_map.h>

#include <cmath>

void PlotFibonacciTimeZonesMark::draw(QPainter *painter, const QwtScaleMap &xMap,
                                      const QwtScaleMap &yMap, const QRectF &canvasRect) const
{
    PlotLineMark::draw(painter, xMap, yMap, canvasRect);

    const QPointF a = QwtScaleMap::transform(xMap, yMap, points.value(0));
    const QPointF b = QwtScaleMap::transform(xMap, yMap, points.value(1));
    const double top = qMin(a.y(), b.y()), bottom = qMax(a.y(), b.y());
    const double width = b.x() - a.x();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(MarkPainter::pen(color));
    painter->setFont(MarkPainter::labelFont());
    const QFontMetricsF metrics(painter->font());
    const QVector<double> ratios = FibonacciGeometry::timeZoneRatios();
    const QStringList texts = labels();
    for (int i = 0; i < ratios.size(); ++i) {
        const double x = a.x() + ratios.at(i) * width;
        MarkPainter::drawLine(painter, QPointF(x, top), QPointF(x, bottom), canvasRect);
        QRectF box(0.0, 0.0, std::ceil(metrics.horizontalAdvance(texts.at(i))), metrics.height());
        box.moveCenter(QPointF(x, bottom + 3.0 + metrics.height() * 0.5));
        if (box.intersects(canvasRect))
            painter->drawText(box, texts.at(i), QTextOption());
    }
    painter->restore();
}

QStringList PlotFibonacciTimeZonesMark::labels() const
{
    const QVector<double> ratios = FibonacciGeometry::timeZoneRatios();
    QStringList texts;
    for (int i = 0; i < ratios.size(); ++i)
        texts.append(FibonacciGeometry::timeZoneLabel(i, ratios.at(i), points.value(0).x(),
                                                      points.value(1).x()));
    return texts;
}
