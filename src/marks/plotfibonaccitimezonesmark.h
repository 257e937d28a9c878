#ifndef PLOTFIBONACCITIMEZONESMARK_H
#define PLOTFIBONACCITIMEZONESMARK_H

#include "plotlinemark.h"

#include <QStringList>

// Fibonacci time zones: the trend line from anchor 0 to anchor 1, and
// vertical lines at 0, 0.382, 0.618, 1, 1.382 and 1.618 of its width,
// spanning its height, labelled underneath (the first with the bar count
// between the anchors, the others with their ratio). The trend line's
// anchors, meta-object and hit test.
class PlotFibonacciTimeZonesMark : public PlotLineMark
{
public:
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The six labels, line by line.
    QStringList labels() const;
};

#endif // PLOTFIBONACCITIMEZONESMARK_H
