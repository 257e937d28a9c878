#include "indicatorseries.h"

#include "barseries.h"
#include "sampletimetable.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

IndicatorSeries::IndicatorSeries(bool intervals)
    : m_intervals(intervals)
{
}

bool IndicatorSeries::validate(const char *what, double time, double low, double value) const
{
    if (!BarSeries::isSaneTime(time)) {
        qWarning("IndicatorSeries::%s() rejected a point with time %g ms.", what, time);
        return false;
    }
    if (!BarSeries::isFinitePrice(value) || !BarSeries::isFinitePrice(low)) {
        qWarning("IndicatorSeries::%s() rejected a non-finite or absurd value (%g, %g).", what,
                 low, value);
        return false;
    }
    return true;
}

IndicatorSeries::Result IndicatorSeries::add(double time, double low, double value)
{
    if (!validate("add", time, low, value))
        return Rejected;
    if (m_times.empty()) {
        m_min = std::min(low, value);
        m_max = std::max(low, value);
    } else {
        m_min = std::min({m_min, low, value});
        m_max = std::max({m_max, low, value});
    }
    // Live feeds append: test the end before searching.
    size_t i = m_times.size();
    if (!m_times.empty() && time <= m_times.back())
        i = size_t(std::lower_bound(m_times.begin(), m_times.end(), time) - m_times.begin());
    if (i < m_times.size() && m_times[i] == time) {
        m_values[i] = value;
        if (m_intervals)
            m_lows[i] = low;
        return Replaced;
    }
    const bool append = i == m_times.size();
    m_times.insert(m_times.begin() + long(i), time);
    m_values.insert(m_values.begin() + long(i), value);
    if (m_intervals)
        m_lows.insert(m_lows.begin() + long(i), low);
    return append ? Appended : Inserted;
}

IndicatorSeries::Result IndicatorSeries::editLast(double time, double low, double value)
{
    if (m_times.empty())
        return add(time, low, value);
    if (!validate("editLast", time, low, value))
        return Rejected;
    m_values.back() = value;
    if (m_intervals)
        m_lows.back() = low;
    m_min = std::min({m_min, low, value});
    m_max = std::max({m_max, low, value});
    return Replaced;
}

void IndicatorSeries::clear()
{
    for (auto *col : {&m_times, &m_values, &m_lows}) {
        col->clear();
        col->shrink_to_fit();
    }
    m_min = m_max = 0.0;
}

double IndicatorSeries::xAt(int i, const SampleTimeTable &axis) const
{
    double x;
    return axis.fractionalIndex(m_times[size_t(i)], &x) ? x : double(i);
}

bool IndicatorSeries::indexRange(double x1, double x2, const SampleTimeTable &axis, int &from,
                                 int &to) const
{
    if (m_times.empty() || !(x1 <= x2))
        return false;
    // x grows with the index (the time mapping is monotonic): two binary
    // searches, each probe one time lookup.
    int lo = 0, hi = size();
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        if (xAt(mid, axis) < x1)
            lo = mid + 1;
        else
            hi = mid;
    }
    from = lo;
    lo = from;
    hi = size();
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        if (xAt(mid, axis) <= x2)
            lo = mid + 1;
        else
            hi = mid;
    }
    to = lo - 1;
    return from <= to;
}

bool IndicatorSeries::valueRange(double x1, double x2, const SampleTimeTable &axis, double &lo,
                                 double &hi) const
{
    int from, to;
    if (!indexRange(x1, x2, axis, from, to))
        return false;
    lo = std::min(low(from), value(from));
    hi = std::max(low(from), value(from));
    for (int i = from + 1; i <= to; ++i) {
        lo = std::min({lo, low(i), value(i)});
        hi = std::max({hi, low(i), value(i)});
    }
    return true;
}

bool IndicatorSeries::extent(const SampleTimeTable &axis, double &x0, double &x1, double &lo,
                             double &hi) const
{
    if (m_times.empty())
        return false;
    x0 = xAt(0, axis);
    x1 = xAt(size() - 1, axis);
    lo = m_min;
    hi = m_max;
    return true;
}
