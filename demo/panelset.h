#ifndef PANELSET_H
#define PANELSET_H

#include <QObject>
#include <QVector>

class DemoChart;
class MarketFeed;

// What the demo shows in each panel: prices on top, then volume and the two
// moving averages. Panels are closed from the menu or by their close
// button, and brought back from the menu; a data set without volume gets no
// volume panel, one with volume gets it back unless the user closed it.
class PanelSet : public QObject
{
    Q_OBJECT

public:
    enum Role { Prices, Volume, Averages, Empty };

    PanelSet(DemoChart *chart, MarketFeed *feed, QObject *parent = nullptr);

    // The prices, volume and averages panels of a fresh chart.
    void build();
    // The feed was given a new data set.
    void dataLoaded();

    void showVolume();
    void showAverages();
    void addEmpty();
    bool closeLowest();
    bool swapLowest();
    bool has(Role role) const { return roles.contains(role); }

    static QString name(Role role);

Q_SIGNALS:
    // Panels were added, closed or moved.
    void changed();
    // A line for the log.
    void message(const QString &text);

private:
    void panelClosed(int index);
    int addPanel(Role role);

    DemoChart *chart;
    MarketFeed *feed;
    QVector<Role> roles;       // one a panel, top to bottom
    bool volumeClosedByUser = false;
    bool closingForData = false;
};

#endif // PANELSET_H
