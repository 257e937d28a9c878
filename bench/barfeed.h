#ifndef BARFEED_H
#define BARFEED_H

#include <QVector>

#include <cstdint>
#include <random>

// One synthetic one-minute bar. `jd` is the host's time (a Julian date),
// `ms` the same instant in milliseconds since 1970 (what the peers plot).
struct Bar
{
    double jd;
    double ms;
    double open, high, low, close;
    long volume;
};

// Deterministic random walk: the same seed gives the same bars on every
// machine and every run, so all libraries see identical data.
class BarFeed
{
public:
    explicit BarFeed(std::uint64_t seed = 20240611);

    Bar next();
    // A new price for the newest bar, as a live tick would bring.
    Bar tick(const Bar &last);

    static QVector<Bar> make(int count, std::uint64_t seed = 20240611);

private:
    std::mt19937_64 m_rng;
    std::normal_distribution<double> m_step{0.0, 1.0};
    std::uniform_int_distribution<long> m_volume{1, 5000};
    long m_index = 0;
    double m_price = 1000.0;
};

#endif // BARFEED_H
