#include "barfeed.h"

#include <algorithm>
#include <cmath>

namespace {
const double FirstDay = 2459000.5;       // 2020-05-31 00:00 UTC
const double MinutesPerDay = 1440.0;
const double Tick = 0.25;                // price step

double toMs(double jd)
{
    return (jd - 2440588.0 + 0.5) * 86400000.0;
}

double onTick(double v)
{
    return std::round(v / Tick) * Tick;
}
} // namespace

BarFeed::BarFeed(std::uint64_t seed)
    : m_rng(seed)
{
}

Bar BarFeed::next()
{
    Bar b;
    b.jd = FirstDay + double(m_index) / MinutesPerDay;
    b.ms = toMs(b.jd);
    b.open = onTick(m_price);
    double price = m_price;
    double hi = price, lo = price;
    for (int k = 0; k < 4; ++k) {
        price = std::max(10.0, price + m_step(m_rng) * 0.6);
        hi = std::max(hi, price);
        lo = std::min(lo, price);
    }
    b.close = onTick(price);
    b.high = onTick(hi + std::abs(m_step(m_rng)) * 0.3);
    b.low = onTick(lo - std::abs(m_step(m_rng)) * 0.3);
    b.high = std::max({b.high, b.open, b.close});
    b.low = std::min({b.low, b.open, b.close});
    b.volume = m_volume(m_rng);
    m_price = price;
    ++m_index;
    return b;
}

Bar BarFeed::tick(const Bar &last)
{
    Bar b = last;
    b.close = onTick(std::max(10.0, b.close + m_step(m_rng) * 0.5));
    b.high = std::max(b.high, b.close);
    b.low = std::min(b.low, b.close);
    b.volume += 1 + m_volume(m_rng) % 20;
    return b;
}

QVector<Bar> BarFeed::make(int count, std::uint64_t seed)
{
    BarFeed feed(seed);
    QVector<Bar> bars;
    bars.reserve(count);
    for (int i = 0; i < count; ++i)
        bars.append(feed.next());
    return bars;
}
