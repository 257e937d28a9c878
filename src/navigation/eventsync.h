#ifndef EVENTSYNC_H
#define EVENTSYNC_H

#include <QEvent>
#include <QList>
#include <QObject>

class Plot;

// Keeps the panels of one chart on the same x range: catches the
// synchronisation and pan events a panel sends itself and copies the view
// to every other visible panel. Never swallows the event.
class EventSync : public QObject
{
    Q_OBJECT

public:
    explicit EventSync(QObject *parent = nullptr);

    // Replaces the watched panels (chart order, [0] is the main panel) and
    // installs the filter on each.
    void setPanels(const QList<Plot *> &panels);
    void removePanel(Plot *panel);
    void clear();
    const QList<Plot *> &panels() const { return m_panels; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void copyView(Plot *source, Plot *target);

    QList<Plot *> m_panels;
    QList<QEvent::Type> m_syncTypes;
    bool m_busy = false; // set while copying: drops the echoes of our own setX calls
};

#endif // EVENTSYNC_H
