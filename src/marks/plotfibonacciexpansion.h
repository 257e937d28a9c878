#ifndef PLOTFIBONACCIEXPANSION_H
#define PLOTFIBONACCIEXPANSION_H

#include "markselfdraw.h"

#include <QStringList>

// Fibonacci expansion: the move from anchor 0 to anchor 1 projected from
// anchor 2 at 23.6, 38.2, 50, 61.8, 161.8 and 261.8%, each level drawn from
// anchor 2's time to the right edge of the canvas and labelled at its left
// end; a dashed polyline joins the anchors. Hit within 3 pixels of any line.
class PlotFibonacciExpansion : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotFibonacciExpansion();

    bool hitTest(double x, double y) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The six labels, level by level.
    QStringList labels() const;
};

#endif // PLOTFIBONACCIEXPANSION_H
