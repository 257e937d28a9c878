#ifndef EVENTSYNC_H
#define EVENTSYNC_H

#include <QEvent>
#include <QList>
#include <QObject>

class PlotNavigator;
class QWidget;
class QwtPlot;

// Keeps the panels of one chart on the same x range: catches the
// synchronisation and pan events a panel sends itself and copies the view
// to every other visible panel. Never swallows the event.
//
// It also takes fed data into the view, for all panels at once: a feed
// asks for a flush (coalesced on the event loop), and any navigation before
// that flush runs it first, so a move made right after a feed acts on the
// new bars. Whichever panel's series asked, the leading panel decides where
// the view goes and the others follow it.
//
// The leading panel is the first one (the main panel) unless it was hidden
// on purpose: then the first one shown leads, so that the view always
// belongs to a panel whose canvas is laid out.
class EventSync : public QObject
{
    Q_OBJECT

public:
    explicit EventSync(QObject *parent = nullptr);

    // Replaces the watched panels (chart order, [0] is the main panel),
    // installs the filter on each and makes them move as a group.
    void setPanels(const QList<PlotNavigator *> &panels);
    void removePanel(PlotNavigator *panel);
    void clear();
    const QList<PlotNavigator *> &panels() const { return m_panels; }
    QList<QwtPlot *> plots() const;
    PlotNavigator *leader() const;
    // Hidden by a call, not merely not shown yet (a chart not on screen).
    static bool hiddenOnPurpose(const QWidget *panel);

    // Gives `panel` the leading panel's view at once (a panel just added).
    void adopt(PlotNavigator *panel);

    // Data was fed: flush on the next pass of the event loop.
    void requestFlush();
    bool isFlushPending() const { return m_pending; }
    // Flushes now if a flush is pending.
    void flushPending();
    // Draws what was fed to the panels since their last flush: each panel
    // takes its data into its limits, the leading panel's view spreads once,
    // and every panel replots once.
    void flush();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    static void copyView(PlotNavigator *source, PlotNavigator *target);
    PlotNavigator *navigatorOf(QObject *plot) const;

    QList<PlotNavigator *> m_panels;
    QList<QEvent::Type> m_syncTypes;
    bool m_busy = false; // set while copying: drops the echoes of our own setX calls
    bool m_pending = false;
    int m_timer = 0;
};

#endif // EVENTSYNC_H
