#ifndef PLOTLINEMARK_H
#define PLOTLINEMARK_H

#include "markselfdraw.h"

// Trend line: a segment between two anchors. The ray and the Fibonacci line
// tools derive from it and share its hit test.
class PlotLineMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotLineMark();

    // Strictly between the handles' centres and within 3 pixels of the line.
    bool hitTest(double x, double y) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    void setLineStyle(int style) { lineStyle = style; }
    int getLineStyle() const { return lineStyle; }

protected:
    // Draws a-b (the part the canvas shows) in the mark's colour and style,
    // with the hover highlight.
    void drawSegment(QPainter *painter, QPointF a, QPointF b, const QRectF &canvasRect,
                     bool antialiased) const;

    int lineStyle = Qt::SolidLine;
};

#endif // PLOTLINEMARK_H
