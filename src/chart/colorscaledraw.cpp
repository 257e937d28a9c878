#include "colorscaledraw.h"

#include <QPainter>
#include <qwt_text.h>
#include <qwt_text_engine.h>

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
    // What QwtScaleDraw::drawLabel and QwtText::draw do, with the text
    // drawn from a cached QStaticText. Labels with their own font, colour or
    // background, rich text or several lines take Qwt's path.
    const QwtText &label = tickLabel(painter->font(), value);
    const int flags = label.renderFlags();
    const QwtTextEngine *plainEngine = QwtText::textEngine(QwtText::PlainText);
    const bool plain = !label.isEmpty() && !label.testPaintAttribute(QwtText::PaintUsingTextFont)
        && !label.testPaintAttribute(QwtText::PaintUsingTextColor)
        && !label.testPaintAttribute(QwtText::PaintBackground)
        && QwtText::textEngine(label.text(), QwtText::AutoText) == plainEngine
        && !label.text().contains(QLatin1Char('\n')) && !(flags & Qt::TextWordWrap)
        && painter->font().pixelSize() > 0;
    if (!plain) {
        if (!label.isEmpty())
            QwtScaleDraw::drawLabel(painter, value);
        painter->restore();
        return;
    }
    const QFont &font = painter->font();
    const int dpi = painter->device() ? painter->device()->logicalDpiY() : 0;
    if (dpi != m_staticDpi || font != m_staticFont) {
        m_staticLabels.clear();
        m_staticFont = font;
        m_staticDpi = dpi;
    }
    auto it = m_staticLabels.find(label.text());
    if (it == m_staticLabels.end()) {
        if (m_staticLabels.size() > 512) // labels change as the view moves
            m_staticLabels.clear();
        StaticLabel entry;
        entry.text.setText(label.text());
        entry.text.setTextFormat(Qt::PlainText);
        entry.text.prepare(QTransform(), font);
        entry.size = label.textSize(font);
        // The label's box, grown by the font's margins when the label is
        // laid out tight, and the text placed in it as drawText would.
        QRectF box(QPointF(0, 0), QSizeF(entry.size.toSize()));
        if (label.testLayoutAttribute(QwtText::MinimumLayout)) {
            const QFont deviceFont(font, painter->device());
            double left, right, top, bottom;
            plainEngine->textMargins(deviceFont, label.text(), left, right, top, bottom);
            box.adjust(-left, -top, right, bottom);
        }
        const QSizeF textSize = entry.text.size();
        double x = box.left(), y = box.top();
        if (flags & Qt::AlignRight)
            x = box.right() - textSize.width();
        else if (flags & Qt::AlignHCenter)
            x += 0.5 * (box.width() - textSize.width());
        if (flags & Qt::AlignBottom)
            y = box.bottom() - textSize.height();
        else if (flags & Qt::AlignVCenter)
            y += 0.5 * (box.height() - textSize.height());
        entry.topLeft = QPointF(x, y);
        it = m_staticLabels.insert(label.text(), entry);
    }
    painter->setWorldTransform(labelTransformation(labelPosition(value), it->size), true);
    painter->drawStaticText(it->topLeft, it->text);
    painter->restore();
}
