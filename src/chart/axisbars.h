#ifndef AXISBARS_H
#define AXISBARS_H

#include "timescale.h"

class BarSeries;

// The bars the chart's time axis stands on, and that axis. The chart picks
// them (the price bars, wherever their panel stands; without a price series
// the bars of a volume series) and hands the axis to everything that maps
// bars to times. Panels without bars of their own stand on these bars.
class AxisBars
{
public:
    AxisBars() = default;
    ~AxisBars();

    // Null: no bars. The bars given are told to report to the axis; the
    // ones they replace no longer do.
    void setSource(BarSeries *bars);
    BarSeries *source() const { return m_source; }
    TimeScale *timeScale() { return &m_scale; }
    const TimeScale *timeScale() const { return &m_scale; }

private:
    Q_DISABLE_COPY(AxisBars)
    BarSeries *m_source = nullptr;
    TimeScale m_scale;
};

#endif // AXISBARS_H
