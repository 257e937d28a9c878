#ifndef PLOTTRIANGLEMARK_H
#define PLOTTRIANGLEMARK_H

#include "markselfdraw.h"

// Triangle: three free vertices drawn as a closed outline. Always solid:
// the painter takes the pen style first and the colour after it, which
// resets the pen to a solid line. Hit within 3 pixels of a side.
class PlotTriangleMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotTriangleMark();

    bool hitTest(double x, double y) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    void setLineStyle(int style) { lineStyle = style; }
    int getLineStyle() const { return lineStyle; }

private:
    void drawOutline(QPainter *painter, const QPolygonF &triangle, const QRectF &canvasRect) const;

    int lineStyle = Qt::SolidLine;
};

#endif // PLOTTRIANGLEMARK_H
