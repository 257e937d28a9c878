#ifndef SESSIONCALENDAR_H
#define SESSIONCALENDAR_H

#include "barfile.h"

#include <QSet>

// When a market trades, as its own history shows it: the bar start times
// of a data set, as minutes of the week (UTC). A daily set thus trades on
// the weekdays it has bars on, an intraday set in its own session hours.
// The simulated feed opens new bars only at such times.
class SessionCalendar
{
public:
    SessionCalendar() = default;
    SessionCalendar(const QVector<Bar> &bars, double intervalMs);

    // Start of the bar after the one starting at `time` (a Julian date):
    // one interval on, then on until a time the market traded at. Bars of a
    // week or longer, and a history that shows no sessions, just step on.
    double nextBarTime(double time) const;

    // Minute of the week of a moment (Monday 00:00 UTC is 0).
    static int minuteOfWeek(qint64 unixMs);

private:
    QSet<int> m_minutes;
    qint64 m_intervalMs = 86400000;
};

#endif // SESSIONCALENDAR_H
