#ifndef MARKETFEED_H
#define MARKETFEED_H

#include "barfile.h"

#include <QObject>
#include <QRandomGenerator>
#include <QTimer>

class PriceGraph;

// Feeds a data set into the chart and then simulates a live market on it:
// ticks edit the newest bar, and every `ticksPerBar` ticks a new bar opens.
// Everything reaches the chart through its exported interface.
class MarketFeed : public QObject
{
    Q_OBJECT

public:
    MarketFeed(PriceGraph *chart, QObject *parent = nullptr);

    // Replaces the chart's series with `bars`.
    void load(const QVector<Bar> &bars, double intervalMs, int decimals);
    void setRunning(bool on);
    bool isRunning() const { return timer.isActive(); }
    double lastPrice() const { return bars.isEmpty() ? 0.0 : bars.last().close; }
    int decimals() const { return priceDecimals; }

    static const char *const priceSeries;
    static const char *const volumeSeries;

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
    double intervalDays = 1.0;
    int priceDecimals = 2;
    int ticks = 0;
    int ticksPerBar = 20;
    double tickStep = 0.0;      // largest price move of one tick
    double tickVolume = 0.0;    // typical volume of one tick
    QRandomGenerator random{20260101};
    QTimer timer;
};

#endif // MARKETFEED_H
