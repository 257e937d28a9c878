#include "timescale.h"

#include "sampletimetable.h"

#include <cmath>

namespace {

const SampleTimeTable &noBars()
{
    static const SampleTimeTable empty;
    return empty;
}

} // namespace

TimeScale::TimeScale(QObject *parent)
    : QObject(parent)
{
}

void TimeScale::setTable(const SampleTimeTable *table)
{
    if (table == m_table)
        return;
    const bool hadBars = !isEmpty();
    m_table = table;
    if (hadBars || !isEmpty())
        Q_EMIT barsReset();
}

const SampleTimeTable &TimeScale::table() const
{
    return m_table ? *m_table : noBars();
}

int TimeScale::size() const
{
    return table().size();
}

bool TimeScale::isEmpty() const
{
    return table().isEmpty();
}

double TimeScale::timeAt(double index) const
{
    const SampleTimeTable &t = table();
    if (!(index >= 0.0 && index < t.size()))
        return 0.0;
    return t.timeAt(int(index));
}

double TimeScale::indexToTime(double index) const
{
    const SampleTimeTable &t = table();
    const int n = t.size();
    if (n == 0)
        return -1.0;
    if (!(index >= 0.0))
        return t.first();
    if (index >= n)
        return t.last();
    return t.timeAt(int(index));
}

int TimeScale::indexOf(double time) const
{
    return table().indexOf(time);
}

double TimeScale::suitableIndex(double time) const
{
    return table().suitableIndex(time);
}

bool TimeScale::fractionalIndex(double time, double *index) const
{
    return table().fractionalIndex(time, index);
}

void TimeScale::noteInserted(int index, int count)
{
    if (count > 0)
        Q_EMIT barsInserted(index, count);
}

void TimeScale::noteReset()
{
    Q_EMIT barsReset();
}
