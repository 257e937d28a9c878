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
    // Where the label goes: bottom-right corner on `corner`, the text's
    // width and one line high, moved inside `canvas` when the corner is
    // near an edge. Empty when the label would not show at all.
    static QRectF labelBox(const QString &text, QPointF corner, const QRectF &canvas);
};

#endif // PLOTRAYMARK_H
