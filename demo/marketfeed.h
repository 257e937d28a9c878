#ifndef MARKETFEED_H
#define MARKETFEED_H

#include "barfile.h"
#include "sessioncalendar.h"

#include <QObject>
#include <QStringList>
#include <QRandomGenerator>
#include <QTimer>

class PriceGraph;

// Feeds a data set into the chart and then simulates a live market on it:
// ticks edit the newest bar, and every `ticksPerBar` ticks a new bar opens,
// at the next time the data set's market traded (no weekend bars on daily
// data, the set's own session hours on intraday data). Everything reaches
// the chart through its exported interface; a series the chart does not
// hold (a closed panel's) is simply not drawn.
class MarketFeed : public QObject
{
    Q_OBJECT

public:
    MarketFeed(PriceGraph *chart, QObject *parent = nullptr);

    // Replaces the chart's series with `bars`.
    void load(const QVector<Bar> &bars, double intervalMs, int decimals);
    // Feeds the volume, or the averages, of every bar again: their panel
    // was just added back.
    void resendVolume();
    void resendAverages();
    bool hasVolume() const;
    void setRunning(bool on);
    bool isRunning() const { return timer.isActive(); }
    double lastPrice() const { return bars.isEmpty() ? 0.0 : bars.last().close; }
    int decimals() const { return priceDecimals; }

    static const char *const priceSeries;
    static const char *const volumeSeries;
    // The averages' series as added (with their colours) and as fed.
    static QStringList averageSeries();

Q_SIGNALS:
    void priceChanged(double price);

public Q_SLOTS:
    void tick();

private:
    // Moving average of the closes over `length` bars ending at `last`.
    double average(int length, int last) const;
    void sendBar(int index, bool append, bool show);

    PriceGraph *chart;
    QVector<Bar> bars;
    SessionCalendar calendar;
    int priceDecimals = 2;
    int ticks = 0;
    int ticksPerBar = 20;
    double tickStep = 0.0;      // largest price move of one tick
    double tickVolume = 0.0;    // typical volume of one tick
    QRandomGenerator random{20260101};
    QTimer timer;
};

#endif // MARKETFEED_H
