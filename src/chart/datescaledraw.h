#ifndef DATESCALEDRAW_H
#define DATESCALEDRAW_H

#include "colorscaledraw.h"

class PriceGraph;
class TimeScale;

// Bottom axis: the tick at bar index i is labelled with the time of bar i
// of the chart's time axis (the price bars, wherever their panel stands),
// in a format chosen by the bar interval.
class DateScaleDraw : public ColorScaleDraw
{
public:
    explicit DateScaleDraw(const TimeScale *times);
    ~DateScaleDraw() override;

    QwtText label(double value) const override;

    // A time less than a second short of a full minute counts as that
    // minute: host times are Julian dates, whose conversion lands a hair
    // before the minute they mean.
    static double nudge(double ms);

    // The labels are cached by tick value, and the ticks need not move when
    // the dates under them do: whenever the main panel's bars, the bar
    // interval or the main panel itself change, this clears the labels of
    // every panel of `chart`.
    static void datesChanged(PriceGraph *chart);
    // False while no date scale draw holds labels: then datesChanged() has
    // nothing to do (a load of many bars before the first draw).
    static bool anyLabels() { return s_labelled > 0; }

private:
    const TimeScale *m_times;
    // Set once a label was made, cleared when they are dropped: a load of
    // many bars with nothing drawn in between costs no invalidation.
    mutable bool m_labelled = false;
    static int s_labelled; // draws with m_labelled set (one GUI thread)
};

#endif // DATESCALEDRAW_H
