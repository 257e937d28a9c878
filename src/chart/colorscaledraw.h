#ifndef COLORSCALEDRAW_H
#define COLORSCALEDRAW_H

#include <QColor>
#include <QFont>
#include <QHash>
#include <QStaticText>
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

private:
    // Laid-out label texts with their box and place in it, for one font and
    // device resolution: through QPainter::drawText a label is laid out and
    // shaped again on every frame, and its metrics looked up by font key.
    struct StaticLabel
    {
        QStaticText text;
        QSizeF size;
        QPointF topLeft;
    };
    mutable QHash<QString, StaticLabel> m_staticLabels;
    mutable QFont m_staticFont;
    mutable int m_staticDpi = 0;
};

#endif // COLORSCALEDRAW_H
