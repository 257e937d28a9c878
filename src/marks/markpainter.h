#ifndef MARKPAINTER_H
#define MARKPAINTER_H

#include <QColor>
#include <QFont>
#include <QLineF>
#include <QPen>
#include <QRectF>
#include <QString>

class QPainter;
class QwtPlot;

// What the drawing tools share when they paint: their pens, the hover
// highlight, lines cut to the canvas before the painter sees them (a line
// millions of pixels long, dashed, would keep the stroker busy for ages),
// the label font and the chart's price decimals.
class MarkPainter
{
public:
    // A mark's line: its colour and pen style, one pixel wide whatever the
    // painter's scale (the fast stroker).
    static QPen pen(const QColor &color, int style = Qt::SolidLine);
    // The hover highlight: white at half opacity, 7 pixels, round caps.
    static QPen highlightPen();
    // The canvas a mark may paint on, with room for the highlight's caps.
    static QRectF paintArea(const QRectF &canvas);
    // Draws the part of a-b that `canvas` shows with the painter's pen;
    // false when none does.
    static bool drawLine(QPainter *painter, QPointF a, QPointF b, const QRectF &canvas);
    // Draws a line already cut to the canvas (nothing for a null line).
    static void drawCut(QPainter *painter, const QLineF &line);
    // Labels: the chart's font, "Roboto" at 10 pixels.
    static QFont labelFont();
    // Draws `text` in `box` when any of it is on the canvas.
    static void drawLabel(QPainter *painter, const QRectF &box, const QString &text,
                          const QRectF &canvas, int flags);
    // The price decimals of the chart `plot` is a panel of (the host's
    // L1 decimals); `fallback` for another plot or a nonsense value.
    static int decimals(const QwtPlot *plot, int fallback);
};

#endif // MARKPAINTER_H
