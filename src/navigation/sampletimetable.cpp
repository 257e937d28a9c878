#include "sampletimetable.h"

#include <QDebug>

#include <algorithm>
#include <cmath>

int SampleTimeTable::indexOf(double time) const
{
    const int i = lowerBound(time);
    return (i < size() && m_times[size_t(i)] == time) ? i : -1;
}

int SampleTimeTable::lowerBound(double time) const
{
    return int(std::lower_bound(m_times.begin(), m_times.end(), time) - m_times.begin());
}

int SampleTimeTable::placeFor(double time, bool *exists) const
{
    // Live feeds append: check the end before searching.
    if (m_times.empty() || time > m_times.back()) {
        *exists = false;
        return size();
    }
    const int i = lowerBound(time);
    *exists = m_times[size_t(i)] == time;
    return i;
}

void SampleTimeTable::insertAt(int index, double time)
{
    m_times.insert(m_times.begin() + index, time);
}

void SampleTimeTable::removeAt(int index)
{
    m_times.erase(m_times.begin() + index);
}

double SampleTimeTable::suitableIndex(double time) const
{
    if (updating || m_times.empty()) {
        qWarning("Plot::TimeToIndexSuitable() data sample is not ready.\n");
        return 0.0;
    }
    if (!std::isfinite(time)) {
        qWarning("Plot::TimeToIndexSuitable() ignored a non-finite time.\n");
        return 0.0;
    }
    double index = 0.0;
    if (!fractionalIndex(time, &index))
        qWarning("Plot::TimeToIndexSuitable() no enough data sample|%d.\n", size());
    return index;
}

bool SampleTimeTable::fractionalIndex(double time, double *index) const
{
    if (updating || m_times.empty() || !std::isfinite(time))
        return false;
    const int l = lowerBound(time);
    if (l < size() && m_times[size_t(l)] == time) {
        *index = double(l);
        return true;
    }
    if (m_times.size() == 1)
        return false;
    int lo; // index of t0; t1 is the next bar
    if (l >= size())
        lo = size() - 2;
    else if (l == 0)
        lo = 0;
    else
        lo = l - 1;
    const double t0 = m_times[size_t(lo)];
    const double t1 = m_times[size_t(lo + 1)];
    *index = lo + (time - t0) / (t1 - t0); // consecutive bars are 1.0 apart
    return true;
}
