#include "barseries.h"

#include "timescale.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

namespace {
const double MinTime = -2208988800000.0; // 1900-01-01
const double MaxTime = 7258118400000.0;  // 2200-01-01
}

bool BarSeries::isSaneTime(double time)
{
    return std::isfinite(time) && time >= MinTime && time <= MaxTime;
}

bool BarSeries::isFinitePrice(double v)
{
    return std::isfinite(v) && std::fabs(v) <= MaxValue;
}

bool BarSeries::validate(const char *what, double time, double o, double h, double l,
                         double c, double v) const
{
    if (!isSaneTime(time)) {
        qWarning("BarSeries::%s() rejected a bar with time %g ms.", what, time);
        return false;
    }
    if (!isFinitePrice(o) || !isFinitePrice(h) || !isFinitePrice(l) || !isFinitePrice(c)
        || !isFinitePrice(v)) {
        qWarning("BarSeries::%s() rejected a bar with a non-finite or absurd value "
                 "(%g %g %g %g %g).",
                 what, o, h, l, c, v);
        return false;
    }
    return true;
}

void BarSeries::store(int i, double o, double h, double l, double c, double v)
{
    const size_t k = size_t(i);
    m_open[k] = o;
    m_high[k] = std::max({h, o, c, l});
    m_low[k] = std::min({l, o, c, h});
    m_close[k] = c;
    m_volume[k] = v > 0.0 ? v : 0.0;
}

BarSeries::Result BarSeries::add(double time, double o, double h, double l, double c,
                                 double v, int *index)
{
    if (!validate("add", time, o, h, l, c, v))
        return Rejected;
    bool exists = false;
    const int i = m_table.placeFor(time, &exists);
    if (index)
        *index = i;
    if (exists) {
        store(i, o, h, l, c, v);
        updateBlockOf(i);
        return Replaced;
    }
    const bool append = i == size();
    m_table.updating = true;
    m_table.insertAt(i, time);
    for (auto *col : {&m_open, &m_high, &m_low, &m_close, &m_volume})
        col->insert(col->begin() + i, 0.0);
    store(i, o, h, l, c, v);
    m_table.updating = false;
    if (append) {
        updateBlockOf(i);
        return Appended;
    }
    rebuildBlocksFrom(i);
    if (m_scale)
        m_scale->noteInserted(i, 1);
    return Inserted;
}

BarSeries::Result BarSeries::editLast(double time, double o, double h, double l, double c,
                                      double v)
{
    if (isEmpty())
        return add(time, o, h, l, c, v);
    // The newest bar keeps its time, but a garbage time still marks the
    // call as garbage.
    if (!validate("editLast", time, o, h, l, c, v))
        return Rejected;
    store(size() - 1, o, h, l, c, v);
    updateBlockOf(size() - 1);
    return Replaced;
}

void BarSeries::clear()
{
    const bool had = !isEmpty();
    m_table.clear();
    for (auto *col : {&m_open, &m_high, &m_low, &m_close, &m_volume, &m_blockLow,
                      &m_blockHigh, &m_blockVolume}) {
        col->clear();
        col->shrink_to_fit();
    }
    if (had && m_scale)
        m_scale->noteReset();
}

bool BarSeries::setVolume(int i, double v)
{
    if (i < 0 || i >= size() || !isFinitePrice(v)) {
        qWarning("BarSeries::setVolume() ignored volume %g for bar %d of %d.", v, i, size());
        return false;
    }
    m_volume[size_t(i)] = v > 0.0 ? v : 0.0;
    updateBlockOf(i);
    return true;
}

void BarSeries::clearVolumes()
{
    std::fill(m_volume.begin(), m_volume.end(), 0.0);
    std::fill(m_blockVolume.begin(), m_blockVolume.end(), 0.0);
}

void BarSeries::updateBlockOf(int bar)
{
    const size_t b = size_t(bar) >> BlockShift;
    const size_t first = b << BlockShift;
    const size_t last = std::min(m_low.size(), first + (size_t(1) << BlockShift));
    double lo = m_low[first], hi = m_high[first], vol = m_volume[first];
    for (size_t k = first + 1; k < last; ++k) {
        lo = std::min(lo, m_low[k]);
        hi = std::max(hi, m_high[k]);
        vol = std::max(vol, m_volume[k]);
    }
    if (m_blockLow.size() <= b) {
        m_blockLow.resize(b + 1);
        m_blockHigh.resize(b + 1);
        m_blockVolume.resize(b + 1);
    }
    m_blockLow[b] = lo;
    m_blockHigh[b] = hi;
    m_blockVolume[b] = vol;
}

void BarSeries::rebuildBlocksFrom(int bar)
{
    for (int i = (bar >> BlockShift) << BlockShift; i < size(); i += 1 << BlockShift)
        updateBlockOf(i);
}

// Visits first..last (already clamped) as whole blocks where a block lies
// inside the span and bar by bar at its ragged ends.
template<typename PerBlock, typename PerBar>
void BarSeries::walk(int first, int last, PerBlock perBlock, PerBar perBar) const
{
    int i = first;
    while (i <= last) {
        const int blockStart = (i >> BlockShift) << BlockShift;
        const int blockEnd = blockStart + (1 << BlockShift) - 1;
        if (i == blockStart && blockEnd <= last) {
            perBlock(size_t(i >> BlockShift));
            i = blockEnd + 1;
        } else {
            perBar(size_t(i));
            ++i;
        }
    }
}

bool BarSeries::priceRange(int first, int last, double &low, double &high) const
{
    first = std::max(first, 0);
    last = std::min(last, size() - 1);
    if (first > last)
        return false;
    double lo = m_low[size_t(first)], hi = m_high[size_t(first)];
    walk(first, last,
         [&](size_t b) {
             lo = std::min(lo, m_blockLow[b]);
             hi = std::max(hi, m_blockHigh[b]);
         },
         [&](size_t k) {
             lo = std::min(lo, m_low[k]);
             hi = std::max(hi, m_high[k]);
         });
    low = lo;
    high = hi;
    return true;
}

bool BarSeries::volumeRange(int first, int last, double &high) const
{
    first = std::max(first, 0);
    last = std::min(last, size() - 1);
    if (first > last)
        return false;
    double hi = 0.0;
    walk(first, last, [&](size_t b) { hi = std::max(hi, m_blockVolume[b]); },
         [&](size_t k) { hi = std::max(hi, m_volume[k]); });
    high = hi;
    return true;
}
