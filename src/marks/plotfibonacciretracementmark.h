#ifndef PLOTFIBONACCIRETRACEMENTMARK_H
#define PLOTFIBONACCIRETRACEMENTMARK_H

#include "plotlinemark.h"

#include <QStringList>

// Fibonacci retracement: a dashed diagonal from anchor 0 to anchor 1 and
// price levels at 0, 23.6, 38.2, 50, 61.8 and 100% of the move between
// them, each drawn between the anchors' times and labelled past anchor 1
// with its percentage and price. A trend line in all but its drawing: the
// same anchors, meta-object and hit test (on the diagonal).
class PlotFibonacciRetracementMark : public PlotLineMark
{
public:
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The six labels, level by level ("61.80%(1.26180)").
    QStringList labels() const;
};

#endif // PLOTFIBONACCIRETRACEMENTMARK_H
