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

void EventSync::copyView(Plot *source, Plot *target)
{
    double x1, x2;
    source->getX(x1, x2);
    target->setX(x1, x2, source->getNavigator()->zoom());
}

bool EventSync::eventFilter(QObject *watched, QEvent *event)
{
    // Every event of every panel passes here: decide on the type first.
    const bool show = event->type() == QEvent::Show;
    if ((!show && !m_syncTypes.contains(event->type())) || m_busy || m_panels.isEmpty())
        return false;
    Plot *sender = qobject_cast<Plot *>(watched);
    if (!sender || !m_panels.contains(sender))
        return false;
    m_busy = true; // the copies below send events of their own
    if (show) {
        // A panel that was hidden missed the copies meanwhile: it catches up
        // as it shows, so it never appears with a stale range.
        if (sender != m_panels.first())
            copyView(m_panels.first(), sender);
        m_busy = false;
        return false;
    }
    // A synchronisation spreads the main panel's view whichever panel asked
    // (scrolls and zooms always move the main panel); a pan spreads the view
    // of the panel that was dragged.
    Plot *source = event->type() == ChartEvents::sync() ? m_panels.first() : sender;
    const QList<Plot *> snapshot = m_panels;
    for (Plot *p : snapshot) {
        // Panels hidden on purpose (e.g. volume switched off) keep their
        // range; panels of a chart not shown yet still follow.
        const bool hidden = p->isHidden() && p->testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (p != source && !hidden)
            copyView(source, p);
    }
    m_busy = false;
    return false;
}
