#ifndef PLOTSCROLLEVENT_H
#define PLOTSCROLLEVENT_H

#include <QEvent>

// Sent by a panel to itself whenever its scroll limits are recomputed; the
// scroll bar watching the panel takes its range from it.
class PlotScrollEvent : public QEvent
{
public:
    PlotScrollEvent(double minX, double maxX, double lower, double width);

    double minX() const { return m_minX; }
    double maxX() const { return m_maxX; }
    double lower() const { return m_lower; }  // displayed lower end
    double width() const { return m_width; }  // displayed width

private:
    double m_minX;
    double m_maxX;
    double m_lower;
    double m_width;
};

#endif // PLOTSCROLLEVENT_H
