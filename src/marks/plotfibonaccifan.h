#ifndef PLOTFIBONACCIFAN_H
#define PLOTFIBONACCIFAN_H

#include "markselfdraw.h"

#include <QStringList>

// Fibonacci fan: from anchor 0, rays through the points at anchor 1's time
// whose prices retrace 38.2, 50 and 61.8% of the move from anchor 0 to
// anchor 1, out to the canvas edge, each labelled where it leaves the
// canvas; the move itself is a dashed line. Hit within 3 pixels of any of
// them.
class PlotFibonacciFan : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotFibonacciFan();

    bool hitTest(double x, double y) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The three labels, ray by ray ("50.00%(1.25000)").
    QStringList labels() const;
};

#endif // PLOTFIBONACCIFAN_H
