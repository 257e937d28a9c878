#include "eventsync.h"

#include "chartevents.h"
#include "plotnavigator.h"

#include <QTimerEvent>

#include <qwt_plot.h>

EventSync::EventSync(QObject *parent)
    : QObject(parent)
{
    m_syncTypes << ChartEvents::sync() << ChartEvents::pan();
}

void EventSync::setPanels(const QList<PlotNavigator *> &panels)
{
    for (PlotNavigator *p : qAsConst(m_panels)) {
        p->plot()->removeEventFilter(this);
        p->setGroup(nullptr);
    }
    m_panels = panels;
    for (PlotNavigator *p : qAsConst(m_panels)) {
        p->plot()->installEventFilter(this);
        p->setGroup(this);
    }
}

void EventSync::removePanel(PlotNavigator *panel)
{
    if (m_panels.removeOne(panel)) {
        panel->plot()->removeEventFilter(this);
        panel->setGroup(nullptr);
    }
}

void EventSync::clear()
{
    setPanels(QList<PlotNavigator *>());
}

QList<QwtPlot *> EventSync::plots() const
{
    QList<QwtPlot *> out;
    for (PlotNavigator *p : m_panels)
        out.append(p->plot());
    return out;
}

bool EventSync::hiddenOnPurpose(const QWidget *panel)
{
    return panel->isHidden() && panel->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

PlotNavigator *EventSync::leader() const
{
    for (PlotNavigator *p : m_panels) {
        if (!hiddenOnPurpose(p->plot()))
            return p;
    }
    return m_panels.value(0);
}

PlotNavigator *EventSync::navigatorOf(QObject *plot) const
{
    for (PlotNavigator *p : m_panels) {
        if (p->plot() == plot)
            return p;
    }
    return nullptr;
}

void EventSync::copyView(PlotNavigator *source, PlotNavigator *target)
{
    double x1, x2;
    source->getX(x1, x2);
    target->setX(x1, x2, source->zoom());
}

void EventSync::adopt(PlotNavigator *panel)
{
    PlotNavigator *lead = leader();
    if (!panel || !m_panels.contains(panel))
        return;
    const bool busy = m_busy;
    m_busy = true;
    if (lead && lead != panel && lead->hasView())
        copyView(lead, panel);
    panel->updateScrollLimits();
    m_busy = busy;
}

void EventSync::requestFlush()
{
    m_pending = true;
    if (!m_timer)
        m_timer = startTimer(0);
}

void EventSync::flushPending()
{
    if (m_pending)
        flush();
}

void EventSync::flush()
{
    m_pending = false; // before anything below navigates and asks again
    if (m_timer) {
        killTimer(m_timer);
        m_timer = 0;
    }
    const QList<PlotNavigator *> snapshot = m_panels;
    PlotNavigator *lead = leader();
    if (!lead)
        return;
    // Every panel takes the new bars into its limits; the leading panel
    // decides where the view goes (the newest bars, or where it was), and
    // the others take its view: each panel replots once.
    for (PlotNavigator *p : snapshot) {
        if (p != lead)
            p->dataChanged(false);
    }
    lead->dataChanged(false);
    const bool busy = m_busy;
    m_busy = true;
    for (PlotNavigator *p : snapshot) {
        if (p != lead && lead->hasView() && !hiddenOnPurpose(p->plot()))
            copyView(lead, p);
        else
            p->plot()->replot();
    }
    m_busy = busy;
}

void EventSync::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer)
        flush();
    else
        QObject::timerEvent(event);
}

bool EventSync::eventFilter(QObject *watched, QEvent *event)
{
    // Every event of every panel passes here: decide on the type first.
    const bool show = event->type() == QEvent::Show;
    if ((!show && !m_syncTypes.contains(event->type())) || m_busy || m_panels.isEmpty())
        return false;
    PlotNavigator *sender = navigatorOf(watched);
    if (!sender)
        return false;
    m_busy = true; // the copies below send events of their own
    if (show) {
        // A panel that was hidden missed the copies meanwhile: it catches up
        // as it shows (from the panel that led while it was away), so it
        // never appears with a stale range.
        for (PlotNavigator *p : qAsConst(m_panels)) {
            if (p != sender && !hiddenOnPurpose(p->plot())) {
                if (p->hasView())
                    copyView(p, sender);
                break;
            }
        }
        m_busy = false;
        return false;
    }
    // A synchronisation spreads the leading panel's view whichever panel
    // asked (scrolls and zooms always move the leading panel); a pan spreads
    // the view of the panel that was dragged.
    PlotNavigator *source = event->type() == ChartEvents::sync() ? leader() : sender;
    const QList<PlotNavigator *> snapshot = m_panels;
    for (PlotNavigator *p : snapshot) {
        // Panels hidden on purpose (e.g. volume switched off) keep their
        // range; panels of a chart not shown yet still follow.
        if (p != source && !hiddenOnPurpose(p->plot()))
            copyView(source, p);
    }
    m_busy = false;
    return false;
}
