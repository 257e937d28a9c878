#ifndef FIBONACCIGEOMETRY_H
#define FIBONACCIGEOMETRY_H

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

// The arithmetic of the Fibonacci tools, apart from any widget: their ratio
// sets, label texts and the lines the fan and the expansion draw. Points
// are canvas pixels unless they are called anchors (bar, price).
class FibonacciGeometry
{
public:
    // The ratio sets, in drawing order. The retracement's are floats: its
    // 61.8% level is the float nearest 0.618, as its label shows.
    static QVector<float> retracementRatios();
    static QVector<double> timeZoneRatios();
    static QVector<double> fanRatios();
    static QVector<double> expansionRatios();

    // "%.2f%%(%.Nf)": a level's percentage and its price in `decimals`.
    static QString levelLabel(double percent, double price, int decimals);
    // Time zone `index`: the first is the bar distance of the anchors'
    // x, rounded ("%d"), the others their ratio ("%.3f").
    static QString timeZoneLabel(int index, double ratio, double x0, double x1);
    // The retracement's label box: centred on the level's end at anchor 1,
    // then moved off the level by 4 pixels on the side away from anchor 0.
    static QRectF retracementLabelBox(QSizeF size, QPointF end, bool leftToRight);

    // The fan's rays from a through the points at b's x whose y is a's plus
    // ratio times the a-b move, cut to `canvas`; one per ratio, null where
    // it shows nothing.
    static QVector<QLineF> fanRays(QPointF a, QPointF b, const QRectF &canvas);
    // The expansion's levels at c's y plus ratio times the a-b move, from
    // c's x to the right edge of `canvas`; one per ratio, null where none.
    static QVector<QLineF> expansionLevels(QPointF a, QPointF b, QPointF c, const QRectF &canvas);
    // Everything the fan draws (the a-b line, then the rays): the fan and
    // the expansion are hit within 3 pixels of any line they draw.
    static QVector<QLineF> fanLines(QPointF a, QPointF b, const QRectF &canvas);
    // Everything the expansion draws (a-b, b-c, then the levels).
    static QVector<QLineF> expansionLines(QPointF a, QPointF b, QPointF c, const QRectF &canvas);
};

#endif // FIBONACCIGEOMETRY_H
