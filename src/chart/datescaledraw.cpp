#include "datescaledraw.h"

#include "timescale.h"

#include <QDateTime>
#include <qwt_date.h>

#include <cmath>

DateScaleDraw::DateScaleDraw(const TimeScale *times)
    : m_times(times)
{
    setSpacing(5.0);
    setMinimumExtent(24.0);
    setTickLength(QwtScaleDiv::MinorTick, 0);
    setTickLength(QwtScaleDiv::MediumTick, 0);
}

QwtText DateScaleDraw::label(double value) const
{
    if (!m_times || !std::isfinite(value) || std::fabs(value) > 2e9)
        return QwtText();
    const double time = m_times->timeAt(std::trunc(value));
    if (!(time > 0.0))
        return QwtText();
    const double interval = m_times->interval();
    QString format = QStringLiteral("MM");
    if (interval > 0.0 && interval < 86400000.0)
        format = QStringLiteral("hh:mm");
    else if (interval >= 86400000.0 && interval < 2592000000.0)
        format = QStringLiteral("MM/dd");
    return QwtText(QwtDate::toDateTime(nudge(time), Qt::UTC).toString(format));
}

double DateScaleDraw::nudge(double ms)
{
    return std::fmod(ms, 60000.0) > 59000.0 ? ms + 1000.0 : ms;
}
