#include "colorscaledraw.h"

#include <QPainter>

ColorScaleDraw::ColorScaleDraw()
{
    resetColors();
}

void ColorScaleDraw::resetColors()
{
    backboneColor = QColor(51, 51, 51);
    tickColor = QColor(51, 51, 51);
    labelColor = QColor(255, 255, 255, 76);
}

void ColorScaleDraw::setColors(const QColor &color)
{
    backboneColor = tickColor = labelColor = color;
}

namespace {
void useColorAndFont(QPainter *painter, const QColor &color)
{
    painter->setPen(color);
    QFont f = painter->font();
    f.setPixelSize(10);
    painter->setFont(f);
}
} // namespace

void ColorScaleDraw::drawTick(QPainter *painter, double value, double len) const
{
    painter->save();
    useColorAndFont(painter, tickColor);
    QwtScaleDraw::drawTick(painter, value, len);
    painter->restore();
}

void ColorScaleDraw::drawBackbone(QPainter *painter) const
{
    painter->save();
    useColorAndFont(painter, backboneColor);
    QwtScaleDraw::drawBackbone(painter);
    painter->restore();
}

void ColorScaleDraw::drawLabel(QPainter *painter, double value) const
{
    painter->save();
    useColorAndFont(painter, labelColor);
    QwtScaleDraw::drawLabel(painter, value);
    painter->restore();
}
