#include "eventsync.h"

#include "chartevents.h"
#include "plot.h"
#include "plotnavigator.h"

EventSync::EventSync(QObject *parent)
    : QObject(parent)
{
    m_syncTypes << ChartEvents::sync() << ChartEvents::pan();
}

void EventSync::setPanels(const QList<Plot *> &panels)
{
    for (Plot *p : qAsConst(m_panels))
        p->removeEventFilter(this);
    m_panels = panels;
    for (Plot *p : qAsConst(m_panels))
        p->installEventFilter(this);
}

void EventSync::removePanel(Plot *panel)
{
    if (m_panels.removeOne(panel))
        panel->removeEventFilter(this);
}

void EventSync::clear()
{
    setPanels(QList<Plot *>());
}

bool EventSync::eventFilter(QObject *watched, QEvent *event)
{
    if (m_panels.isEmpty() || !m_syncTypes.contains(event->type()))
        return false;
    Plot *sender = qobject_cast<Plot *>(watched);
    if (!sender || !m_panels.contains(sender) || m_busy)
        return false;
    m_busy = true; // the copies below send events of their own
    Plot *source = event->type() == ChartEvents::sync() ? m_panels.first() : sender;
    double x1, x2;
    source->getX(x1, x2);
    const double zoom = source->getNavigator()->zoom();
    const QList<Plot *> snapshot = m_panels;
    for (Plot *p : snapshot) {
        if (p != source && p->isVisible())
            p->setX(x1, x2, zoom);
    }
    m_busy = false;
    return false;
}
