#ifndef PLOTRAYMARK_H
#define PLOTRAYMARK_H

#include "plotlinemark.h"

#include <QFont>

// Ray: from anchor 0 through anchor 1 to beyond the canvas, labelled at
// anchor 1 with "bars/pips,angle°". Only its drawing differs from the trend
// line (the same data, the same hit test: it is hit between its anchors
// only, not along its extension).
class PlotRayMark : public PlotLineMark
{
public:
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    // The label's text for the current anchors and their pixels a, b.
    QString labelText(QPointF a, QPointF b) const;
    // The label's font: the chart's, "Roboto" at 10 pixels.
    static QFont labelFont();
};

#endif // PLOTRAYMARK_H
