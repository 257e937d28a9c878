#ifndef PLOTFREEZEEVENT_H
#define PLOTFREEZEEVENT_H

#include <QEvent>

// Asks the scroll bar watching a panel to freeze (disable) or unfreeze
// itself. A panel sends it to itself around a reload of its bars
// (recordChartCenter ... restoreChartCenter), when the bar's values mean
// nothing.
class PlotFreezeEvent : public QEvent
{
public:
    explicit PlotFreezeEvent(bool freeze);

    bool freeze() const { return m_freeze; }

private:
    bool m_freeze;
};

#endif // PLOTFREEZEEVENT_H
