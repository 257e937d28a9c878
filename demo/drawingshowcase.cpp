#include "drawingshowcase.h"

#include <pricegraph.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

namespace {

// Where each mark goes, in thousandths of the main panel's canvas.
struct Stroke
{
    long tool; // cursor type; 0: no tool, a drag of what is under the press
    int x0, y0, x1, y1;
};

const Stroke kStrokes[] = {
    {29, 870, 594, 870, 594},  // vertical line on the day of the low
    {28, 375, 79, 375, 79},    // horizontal line at the old high
    {2, 112, 313, 174, 426},   // trend line on a pullback
    {7, 15, 459, 659, 158},    // price channel on the uptrend...
    {0, 337, 418, 337, 198},   // ...its parallel line dragged above the candles
    {30, 749, 119, 794, 376},  // ray down the crash
    {5, 733, 12, 870, 974},    // retracement of the crash
    {25, 882, 931, 974, 554},  // fan from the low
    {8, 15, 554, 120, 792},    // pitchfork
    {10, 315, 594, 404, 752},  // rectangle
    {22, 434, 594, 539, 752},  // ellipse
    {23, 569, 594, 614, 832},  // triangle
    {4, 322, 832, 419, 931},   // time zones
    {26, 652, 931, 697, 653},  // expansion...
    {0, 697, 653, 712, 792},   // ...its third anchor taken to the pullback
};

void send(QWidget *w, QEvent::Type type, QPoint at, Qt::MouseButton button,
          Qt::MouseButtons held)
{
    if (!w)
        return;
    QMouseEvent event(type, at, w->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &event);
}

// A drag from `from` to `to` (chart pixels), delivered like the window
// system does: to the widget under the press, which keeps the mouse.
void drag(PriceGraph &chart, QPoint from, QPoint to)
{
    QPointer<QWidget> target = chart.childAt(from);
    if (!target)
        return;
    const QPoint offset = target->mapTo(&chart, QPoint());
    send(target, QEvent::MouseButtonPress, from - offset, Qt::LeftButton, Qt::LeftButton);
    for (int step = 1; from != to && step <= 4; ++step)
        send(target, QEvent::MouseMove, from + (to - from) * step / 4 - offset, Qt::NoButton,
             Qt::LeftButton);
    send(target, QEvent::MouseButtonRelease, to - offset, Qt::LeftButton, Qt::NoButton);
}

} // namespace

bool DrawingShowcase::drawOneOfEach(PriceGraph &chart)
{
    // The main panel's canvas is the top-left widget of the chart.
    QWidget *canvas = chart.childAt(QPoint(4, 4));
    if (!canvas || !canvas->inherits("QwtPlotCanvas"))
        return false;
    const QRect area(canvas->mapTo(&chart, QPoint()), canvas->size());
    auto at = [&area](int x, int y) {
        return area.topLeft() + QPoint(area.width() * x / 1000, area.height() * y / 1000);
    };
    chart.SetCursorType(3);
    for (const Stroke &s : kStrokes) {
        if (s.tool)
            chart.SetCursorType(s.tool);
        drag(chart, at(s.x0, s.y0), at(s.x1, s.y1));
    }
    // A press on empty canvas leaves nothing selected.
    drag(chart, at(988, 980), at(988, 980));
    return true;
}
