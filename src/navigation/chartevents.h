#ifndef CHARTEVENTS_H
#define CHARTEVENTS_H

#include <QEvent>

// The library's custom event types, registered once when the library loads.
// All of them are sent synchronously to the panel (or widget) concerned.
class ChartEvents
{
public:
    static QEvent::Type sync();         // hint 1100: copy the main panel's view to the others
    static QEvent::Type pan();          // hint 1101: copy the sender's view to the others
    static QEvent::Type pick();         // hint 1200: pick information towards the overlay
    static QEvent::Type scroll();       // PlotScrollEvent: limits and displayed range
    static QEvent::Type freeze();       // freezes or unfreezes the scroll bar
    static QEvent::Type handleDrag();   // a mark's handle was dragged
    static QEvent::Type buttonHidden(); // an order line's button box hid itself

    // Sends a bare event of `type` to `receiver`, synchronously.
    static void send(QObject *receiver, QEvent::Type type);
};

#endif // CHARTEVENTS_H
