#ifndef MARKGESTURE_H
#define MARKGESTURE_H

#include "markregistry.h"

#include <QColor>
#include <QPoint>
#include <QPointer>

class Plot;
class QEvent;

// Drawing on a panel's canvas: the panel hands its canvas events here, and
// a press, drag and release in a drawing cursor type makes the mark of that
// tool. The chart then returns to cursor type 3 (one mark per choice of
// tool). Marks see the canvas's events before the panel does, so a press
// on an existing mark drags that mark instead of drawing a new one.
//
// Cursor types:
//   1, 3, 6     pointer modes: the canvas is left alone;
//   12 to 20    (text tool, icon objects) act as 3 until they are built;
//   2, 27       trend line        28  horizontal line
//   29          vertical line     30  ray
//   4  Fibonacci time zones       5   Fibonacci retracement
//   25 Fibonacci fan              26  Fibonacci expansion
//   7  price channel              8   pitchfork
//   10, 21 rectangle              22  ellipse          23  triangle
//   9, 11, 24 and above 30: a press creates nothing and returns to 3;
//   0: the press passes, the release returns to 3.
// While a type routes the canvas every mouse move on it is consumed, so the
// panel never pans under a drawing tool.
//
// The panel owns this helper, and through it the marks attached to it:
// they are deleted with the panel.
class MarkGesture
{
public:
    MarkGesture(Plot *plot, MarkRegistry *registry);
    ~MarkGesture();

    // A canvas event of the panel; true when the gesture consumed it.
    bool canvasEvent(QEvent *event);
    // pos in canvas pixels. true when the press was taken.
    bool beginMark(const QPoint &pos);
    void dragMark(const QPoint &pos);
    void finishMark();

    // The panel's cursor type changed: a gesture in progress ends with its
    // mark as drawn so far, interactive like any finished mark.
    void cursorTypeChanged(int from, int to);
    // The canvas moved or changed size: handles go back onto their anchors.
    void layoutChanged();

    MarkSelfDraw *currentMark() const { return m_current; }
    QColor drawColor() const { return m_drawColor; }
    void setDrawColor(const QColor &color) { m_drawColor = color; }
    MarkRegistry *registry() const { return m_registry; }

    // Whether cursor type `type` hands the canvas's mouse to the gesture.
    static bool routesCanvas(int type);

private:
    MarkSelfDraw *create(int type, MarkRegistry::Kind &kind) const;
    static bool isExpected(int type, MarkSelfDraw *mark);
    static QPointF toPlot(Plot *panel, QPointF pos);
    double priceSpan(int pixels) const;
    static void stretchBox(MarkSelfDraw *mark, const QPoint &pos);
    QPointF horizontalAnchor(const QPoint &pos) const;
    QPointF verticalAnchor(const QPoint &pos) const;
    Plot *mainPanel() const;
    void endGesture();
    void returnToArrow();

    Plot *m_plot;
    MarkRegistry *m_registry;          // the chart's; null for a panel without a chart
    QColor m_drawColor;                // given to every new mark
    QPointer<MarkSelfDraw> m_current;  // the mark the gesture in progress draws
};

#endif // MARKGESTURE_H
