#ifndef DATESCALEDRAW_H
#define DATESCALEDRAW_H

#include "colorscaledraw.h"

class TimeScale;

// Bottom axis: the tick at bar index i is labelled with the time of bar i
// of the chart's time axis (the price bars, wherever their panel stands),
// in a format chosen by the bar interval.
class DateScaleDraw : public ColorScaleDraw
{
public:
    explicit DateScaleDraw(const TimeScale *times);

    QwtText label(double value) const override;

    // A time less than a second short of a full minute counts as that
    // minute: host times are Julian dates, whose conversion lands a hair
    // before the minute they mean.
    static double nudge(double ms);

private:
    const TimeScale *m_times;
};

#endif // DATESCALEDRAW_H
