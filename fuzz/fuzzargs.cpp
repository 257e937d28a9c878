#include "fuzzdriver.h"

#include "fuzzchart.h"
#include "plot.h"

#include <QWidget>

#include <qwt_plot_canvas.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <string>

// The argument dictionaries: hostile values mixed with ordinary ones.

namespace {

const double Inf = std::numeric_limits<double>::infinity();
const double NaN = std::numeric_limits<double>::quiet_NaN();

const double HostileDoubles[] = {
    NaN, -NaN, Inf, -Inf, -0.0, 0.0, DBL_MAX, -DBL_MAX, DBL_MIN, -DBL_MIN,
    std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
    1e-310, 1e308, -1e308, 9.2e18, 9223372036854775808.0, -9223372036854775808.0,
    2147483648.0, -2147483649.0, 4294967296.0, 1e-9, 0.5, 1.0, -1.0, 1e15, 1e-300,
    std::numeric_limits<double>::signaling_NaN(), 123456789.123456789, 0.1, 65536.0, -1e6};
const int HostileDoubleCount = int(sizeof HostileDoubles / sizeof HostileDoubles[0]);

// Julian dates: the epoch, the years 1900 and 2200 (the edges of what the
// chart shows), the year 9999, absurd values and the non-finite ones.
const double HostileTimes[] = {
    0.0, -1.0, -1e9, 1e9, 2440588.0, 2440587.5, 2415020.5, 2415020.4, 2524593.5, 2524594.5,
    5373484.5, 1e15, -1e15, NaN, Inf, -Inf, DBL_MAX, -DBL_MAX, DBL_MIN, -0.0,
    2459000.5 + 1e-9, 2459000.5 - 1e-9, 106751991167300.0, 1.0e7, 2459000.5};
const int HostileTimeCount = int(sizeof HostileTimes / sizeof HostileTimes[0]);

const double TimeSteps[] = {1.0, 1.0 / 24.0, 1.0 / 288.0, 1.0 / 1440.0, 7.0, 1.0 / 48.0};

const char *const Names[] = {
    nullptr, "", "OHLC", "volume", "MA*255#x", "band.end", "Position-1", "Buy-1", "Sell-1",
    "X1", "OHLC", "OHLC", "volume", "MA", "Position-1", "Buy-1", "Sell-1",
    "OHLC\xff\xfe", "\xe4\xb8\xad\xe6\x96\x87", "MA*", "*", "*16711680", ".end", "volume.end",
    "OHLC.end", "Position", "Buy", "Sell", "Buy-1Sell-1Position-1", "X1*-1",
    "MA*99999999999999999999", "OHLCvolume", "\x01\x7f", "band", "MA*4294967296", "Buy-2",
    "Sell-2", "Position-2", "\xff", "BAND*255.end"};
const int NameCount = int(sizeof Names / sizeof Names[0]);

const std::string &megabyteName(int which)
{
    static const std::string plain(1 << 20, 'A');
    static const std::string ohlc = std::string("OHLC") + std::string((1 << 20) - 4, '\xe9');
    static const std::string position = std::string((1 << 20) - 10, 'z') + "Position-9";
    return which == 0 ? plain : which == 1 ? ohlc : position;
}

} // namespace

double FuzzDriver::pickDouble()
{
    const uint8_t b = m_in.byte();
    if (b < 64)
        return HostileDoubles[b % HostileDoubleCount];
    if (b < 224)
        return (int(m_in.u16()) - 16384) * 0.01;
    return m_in.rawDouble();
}

double FuzzDriver::pickPrice()
{
    const uint8_t b = m_in.byte();
    if (b < 40)
        return HostileDoubles[b % HostileDoubleCount];
    if (b < 240)
        return 1.0 + m_in.u16() * 0.0125;
    return m_in.rawDouble();
}

double FuzzDriver::pickStep()
{
    return TimeSteps[m_in.byte() % 6];
}

double FuzzDriver::pickTime()
{
    const uint8_t b = m_in.byte();
    double t;
    switch (b % 16) {
    case 1: t = m_lastTime; break;  // duplicate
    case 2: t = m_lastTime - (1 + m_in.byte()) * pickStep(); break;
    case 3: t = 2459000.5 + int16_t(m_in.u16()); break;
    case 4: t = HostileTimes[m_in.byte() % HostileTimeCount]; break;
    case 5: t = m_in.rawDouble(); break;
    default: t = m_lastTime + pickStep(); break;
    }
    if (std::isfinite(t) && std::fabs(t - 2459000.5) < 1e6)
        m_lastTime = t;
    return t;
}

const char *FuzzDriver::pickName()
{
    const uint8_t b = m_in.byte();
    if (b < 200)
        return Names[b % NameCount];
    if (b < 203) {
        // Rare: each use costs megabytes of copies.
        if (m_in.byte() == 0x4d)
            return megabyteName(b % 3).c_str();
        return Names[m_in.byte() % NameCount];
    }
    // A short name made of the input's own bytes, sometimes with a known stem.
    size_t n = 0;
    if (b & 1) {
        const char *stem = Names[2 + m_in.byte() % (NameCount - 2)];
        for (; stem[n] && n < 16; ++n)
            m_scratch[n] = stem[n];
    }
    n += m_in.bytes(m_scratch + n, sizeof m_scratch - n - 1);
    m_scratch[n] = '\0';
    return m_scratch;
}

QString FuzzDriver::pickQName()
{
    const char *name = pickName();
    if (!name)
        return QString();
    if (m_in.flag())
        return QString::fromUtf8(name);
    return QString::fromLatin1(name);
}

long FuzzDriver::pickPanel()
{
    const long count = m_chart->GetPanelCount();
    switch (m_in.byte() % 12) {
    case 0: return -1;
    case 1: case 2: return 0;
    case 3: return 1;
    case 4: return count - 1;
    case 5: return count;
    case 6: return count + 1;
    case 7: return LONG_MAX;
    case 8: return LONG_MIN;
    case 9: return count + 2;
    case 10: return 8;
    default: return m_in.byte() % 6;
    }
}

long FuzzDriver::pickLong()
{
    switch (m_in.byte() % 12) {
    case 0: return 0;
    case 1: return 1;
    case 2: return -1;
    case 3: return LONG_MAX;
    case 4: return LONG_MIN;
    case 5: return INT_MAX;
    case 6: return INT_MIN;
    case 7: return -long(m_in.byte() % 50);
    case 8: return long(int64_t(m_in.u64()));
    default: return m_in.byte() % 50;
    }
}

int FuzzDriver::pickInt()
{
    switch (m_in.byte() % 10) {
    case 0: return 0;
    case 1: return -1;
    case 2: return INT_MAX;
    case 3: return INT_MIN;
    case 4: return int(m_in.u32());
    case 5: return -int(m_in.byte() % 20);
    default: return m_in.byte() % 20;
    }
}

long FuzzDriver::pickCursor()
{
    const uint8_t b = m_in.byte();
    if (b < 210)
        return long(b % 42) - 1;
    const long odd[] = {LONG_MAX, LONG_MIN, long(INT_MAX) + 1, long(INT_MIN) - 1, 1000, -1000,
                        INT_MAX, INT_MIN};
    return odd[b % 8];
}

int FuzzDriver::pickColorIndex()
{
    const uint8_t b = m_in.byte();
    if (b < 240)
        return int(b % 14) - 2;
    return b & 1 ? INT_MAX : INT_MIN;
}

unsigned long FuzzDriver::pickColor()
{
    switch (m_in.byte() % 8) {
    case 0: return 0;
    case 1: return 0xffffff;
    case 2: return 0xffffffffUL;
    case 3: return ULONG_MAX;
    case 4: return 0x1000000;
    default: return m_in.u32();
    }
}

QPoint FuzzDriver::pickPoint(QWidget *w)
{
    const int width = qMax(1, w->width());
    const int height = qMax(1, w->height());
    switch (m_in.byte() % 10) {
    case 0: return QPoint(0, 0);
    case 1: return QPoint(width - 1, height - 1);
    case 2: return QPoint(-1, -1);
    case 3: return QPoint(width / 2, height / 2);
    case 4: return QPoint(-100000, 100000);
    case 5: return QPoint(width, height);
    default: return QPoint(m_in.u16() % width, m_in.u16() % height);
    }
}

QWidget *FuzzDriver::pickTarget()
{
    const uint8_t b = m_in.byte();
    const QList<QwtPlotCanvas *> canvases = m_chart->findChildren<QwtPlotCanvas *>();
    if ((b & 3) != 0 && !canvases.isEmpty())
        return canvases.at(m_in.byte() % canvases.size());
    // Anything else in the widget: scroll bar, zoom buttons, axes, line buttons.
    const QList<QWidget *> all = m_chart->findChildren<QWidget *>();
    if (all.isEmpty())
        return m_chart;
    return all.at(m_in.u16() % all.size());
}

