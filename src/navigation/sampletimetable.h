#ifndef SAMPLETIMETABLE_H
#define SAMPLETIMETABLE_H

#include <cstddef>
#include <vector>

// Plotting times (ms since 1970) of a panel's bars, by bar index.
//
// Times are kept strictly increasing, so the vector itself is the ordered
// time -> index lookup: a binary search replaces a node-per-bar map and the
// table costs 8 bytes a bar.
class SampleTimeTable
{
public:
    int size() const { return int(m_times.size()); }
    bool isEmpty() const { return m_times.empty(); }
    double timeAt(int index) const { return m_times[size_t(index)]; }
    double first() const { return m_times.front(); }
    double last() const { return m_times.back(); }
    const std::vector<double> &times() const { return m_times; }

    // Index of the bar at exactly `time`, or -1.
    int indexOf(double time) const;
    // First index whose time is not less than `time` (size() if none).
    int lowerBound(double time) const;

    // Where a bar at `time` goes: its index, and whether a bar at that time
    // is already there (and would be replaced).
    int placeFor(double time, bool *exists) const;
    void insertAt(int index, double time);
    void removeAt(int index);
    void clear() { m_times.clear(); }
    void reserve(int n) { m_times.reserve(size_t(n)); }

    // Fractional bar index of `time`: exact hits return their index, times
    // between bars interpolate, times outside extrapolate at the pace of the
    // two outermost bars. 0.0 (with a debug line) while the table is being
    // rebuilt or holds fewer than two bars.
    double suitableIndex(double time) const;
    // The same mapping without the debug lines: false (and *index untouched)
    // when the table is being rebuilt, is empty, or holds one bar at another
    // time.
    bool fractionalIndex(double time, double *index) const;

    // Set while the table and the samples disagree; lookups answer 0.0.
    bool updating = false;

private:
    std::vector<double> m_times;
};

#endif // SAMPLETIMETABLE_H
