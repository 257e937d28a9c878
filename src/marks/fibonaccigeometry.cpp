#include "fibonaccigeometry.h"

#include "markgeometry.h"

#include <QSizeF>

#include <climits>
#include <cmath>

QVector<float> FibonacciGeometry::retracementRatios()
{
    return {0.0f, 0.236f, 0.382f, 0.5f, 0.618f, 1.0f};
}

QVector<double> FibonacciGeometry::timeZoneRatios()
{
    return {0.0, 0.382, 0.618, 1.0, 1.382, 1.618};
}

QVector<double> FibonacciGeometry::fanRatios()
{
    return {0.382, 0.5, 0.618};
}

QVector<double> FibonacciGeometry::expansionRatios()
{
    return {0.236, 0.382, 0.5, 0.618, 1.618, 2.618};
}

QString FibonacciGeometry::levelLabel(double percent, double price, int decimals)
{
    const QByteArray pricePart = QByteArray("(%.") + QByteArray::number(decimals) + "f)";
    return QString::asprintf((QByteArray("%.2f%%") + pricePart).constData(), percent, price);
}

QString FibonacciGeometry::timeZoneLabel(int index, double ratio, double x0, double x1)
{
    if (index > 0)
        return QString::asprintf("%.3f", ratio);
    const double bars = std::fabs(std::floor(x1 - x0 + 0.5));
    return QString::asprintf("%d", bars < double(INT_MAX) ? int(bars) : INT_MAX);
}

QRectF FibonacciGeometry::retracementLabelBox(QSizeF size, QPointF end, bool leftToRight)
{
    QRectF box(QPointF(), size);
    box.moveCenter(end);
    if (leftToRight)
        box.moveLeft(std::trunc(end.x() + 4.0));
    else
        box.moveRight(std::trunc(end.x() - 4.0));
    return box;
}

QVector<QLineF> FibonacciGeometry::fanRays(QPointF a, QPointF b, const QRectF &canvas)
{
    QVector<QLineF> rays;
    for (double r : fanRatios())
        rays.append(MarkGeometry::rayInside(a, QPointF(b.x(), a.y() + r * (b.y() - a.y())), canvas));
    return rays;
}

QVector<QLineF> FibonacciGeometry::expansionLevels(QPointF a, QPointF b, QPointF c,
                                                   const QRectF &canvas)
{
    QVector<QLineF> levels;
    for (double r : expansionRatios()) {
        const double y = c.y() + r * (b.y() - a.y());
        levels.append(MarkGeometry::segmentInside(QPointF(c.x(), y), QPointF(canvas.right(), y),
                                                  canvas));
    }
    return levels;
}

QVector<QLineF> FibonacciGeometry::fanLines(QPointF a, QPointF b, const QRectF &canvas)
{
    return QVector<QLineF>{MarkGeometry::segmentInside(a, b, canvas)} + fanRays(a, b, canvas);
}

QVector<QLineF> FibonacciGeometry::expansionLines(QPointF a, QPointF b, QPointF c,
                                                  const QRectF &canvas)
{
    return QVector<QLineF>{MarkGeometry::segmentInside(a, b, canvas),
                           MarkGeometry::segmentInside(b, c, canvas)}
           + expansionLevels(a, b, c, canvas);
}
