#include "marketfeed.h"

#include <pricegraph.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

struct Average
{
    const char *name;   // the name data is fed under
    const char *added;  // the name the series is added with: colour after '*'
    int length;
};

// Colours are decimal 0xRRGGBB: orange and turquoise.
const Average kAverages[] = {{"MA20", "MA20*16753920", 20}, {"MA50", "MA50*4251856", 50}};

} // namespace

const char *const MarketFeed::priceSeries = "OHLC";
const char *const MarketFeed::volumeSeries = "volume";

QStringList MarketFeed::averageSeries()
{
    QStringList names;
    for (const Average &a : kAverages)
        names << QString::fromLatin1(a.added);
    return names;
}

MarketFeed::MarketFeed(PriceGraph *c, QObject *parent)
    : QObject(parent)
    , chart(c)
{
    timer.setInterval(200);
    connect(&timer, &QTimer::timeout, this, &MarketFeed::tick);
}

void MarketFeed::load(const QVector<Bar> &data, double intervalMs, int decimals)
{
    chart->ClearValues(priceSeries);
    chart->ClearValues(volumeSeries);
    for (const Average &a : kAverages)
        chart->ClearValues(a.name);
    bars = data;
    calendar = SessionCalendar(bars, intervalMs);
    priceDecimals = decimals;
    ticks = ticksPerBar - 1;    // the history is closed: the first tick opens a bar
    chart->SetInterval(intervalMs);
    // Simulated ticks move and trade like the recent bars did.
    double range = 0.0, traded = 0.0;
    const int recent = qMin(50, bars.size());
    for (int i = bars.size() - recent; i < bars.size(); ++i) {
        range += bars[i].high - bars[i].low;
        traded += double(bars[i].volume);
    }
    tickStep = recent ? range / recent / std::sqrt(double(ticksPerBar)) : 0.0;
    tickVolume = recent ? traded / recent / ticksPerBar : 0.0;
    for (int i = 0; i < bars.size(); ++i)
        sendBar(i, true, i == bars.size() - 1);
    if (!bars.isEmpty()) {
        chart->updateL1(lastPrice(), lastPrice(), decimals, 0);
        chart->DrawTickLine(lastPrice(), 0);
    }
    chart->Update();
    Q_EMIT priceChanged(lastPrice());
}

void MarketFeed::setRunning(bool on)
{
    if (on && !bars.isEmpty())
        timer.start();
    else
        timer.stop();
}

void MarketFeed::tick()
{
    if (bars.isEmpty())
        return;
    if (++ticks >= ticksPerBar) {
        // A new bar opens where the last one closed.
        ticks = 0;
        Bar next;
        next.time = calendar.nextBarTime(bars.last().time);
        next.open = next.high = next.low = next.close = bars.last().close;
        bars.append(next);
        sendBar(bars.size() - 1, true, true);
    }
    Bar &b = bars.last();
    const double step = tickStep * (random.generateDouble() * 2.0 - 1.0);
    const double unit = std::pow(10.0, priceDecimals);
    b.close = std::round((b.close + step) * unit) / unit;
    b.high = std::max(b.high, b.close);
    b.low = std::min(b.low, b.close);
    b.volume += qint64(tickVolume * (0.5 + random.generateDouble()));
    sendBar(bars.size() - 1, false, true);
    chart->updateL1(b.close, b.close, priceDecimals, 0);
    chart->DrawTickLine(b.close, 0);
    Q_EMIT priceChanged(b.close);
}

bool MarketFeed::hasVolume() const
{
    return std::any_of(bars.cbegin(), bars.cend(), [](const Bar &b) { return b.volume > 0; });
}

void MarketFeed::resendVolume()
{
    for (const Bar &b : qAsConst(bars))
        chart->AppendOHLC(volumeSeries, b.time, false, b.open, b.high, b.low, b.close,
                          long(qMin<qint64>(b.volume, std::numeric_limits<long>::max())));
    chart->Update();
}

void MarketFeed::resendAverages()
{
    for (const Average &a : kAverages) {
        for (int i = a.length - 1; i < bars.size(); ++i)
            chart->AppendValue(a.name, bars[i].time, average(a.length, i), false);
    }
    chart->Update();
}

double MarketFeed::average(int length, int last) const
{
    double sum = 0.0;
    for (int i = last - length + 1; i <= last; ++i)
        sum += bars[i].close;
    return sum / length;
}

void MarketFeed::sendBar(int i, bool append, bool show)
{
    const Bar &b = bars[i];
    // The interface takes a long; where that is 32 bits large volumes saturate.
    const long volume = long(qMin<qint64>(b.volume, std::numeric_limits<long>::max()));
    if (append) {
        chart->AppendOHLC(priceSeries, b.time, show, b.open, b.high, b.low, b.close, volume);
        chart->AppendOHLC(volumeSeries, b.time, show, b.open, b.high, b.low, b.close, volume);
    } else {
        chart->EditOHLC(priceSeries, b.time, show, b.open, b.high, b.low, b.close, volume);
        chart->EditOHLC(volumeSeries, b.time, show, b.open, b.high, b.low, b.close, volume);
    }
    for (const Average &a : kAverages) {
        if (i + 1 < a.length)
            continue;
        const double v = average(a.length, i);
        if (append)
            chart->AppendValue(a.name, b.time, v, show);
        else
            chart->EditValue(a.name, b.time, v, show);
    }
}
