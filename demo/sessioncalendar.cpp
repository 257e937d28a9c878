#include "sessioncalendar.h"

#include <QDateTime>

namespace {
const qint64 WeekMs = 7 * 86400000LL;
} // namespace

SessionCalendar::SessionCalendar(const QVector<Bar> &bars, double intervalMs)
    : m_intervalMs(qMax<qint64>(60000, qRound64(intervalMs)))
{
    if (m_intervalMs >= WeekMs)
        return;
    for (const Bar &b : bars)
        m_minutes.insert(minuteOfWeek(BarFile::unixMs(b.time)));
}

int SessionCalendar::minuteOfWeek(qint64 unixMs)
{
    const QDateTime t = QDateTime::fromMSecsSinceEpoch(unixMs, Qt::UTC);
    const QTime clock = t.time();
    return (t.date().dayOfWeek() - 1) * 1440 + clock.hour() * 60 + clock.minute();
}

double SessionCalendar::nextBarTime(double time) const
{
    const qint64 last = BarFile::unixMs(time);
    qint64 next = last + m_intervalMs;
    if (!m_minutes.isEmpty()) {
        // Within a week every time of the week comes round once.
        for (qint64 t = next; t <= last + WeekMs; t += m_intervalMs) {
            if (m_minutes.contains(minuteOfWeek(t))) {
                next = t;
                break;
            }
        }
    }
    return BarFile::julianDate(next);
}
