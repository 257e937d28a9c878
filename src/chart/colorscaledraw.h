#ifndef COLORSCALEDRAW_H
#define COLORSCALEDRAW_H

#include <QColor>
#include <qwt_scale_draw.h>

// A scale draw whose backbone, ticks and labels have colours of their own,
// all drawn with a 10-pixel font.
class ColorScaleDraw : public QwtScaleDraw
{
public:
    ColorScaleDraw();

    void resetColors();
    void setColors(const QColor &color);

    QColor backboneColor;
    QColor tickColor;
    QColor labelColor;

protected:
    void drawTick(QPainter *painter, double value, double len) const override;
    void drawBackbone(QPainter *painter) const override;
    void drawLabel(QPainter *painter, double value) const override;
};

#endif // COLORSCALEDRAW_H
