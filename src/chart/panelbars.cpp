#include "panelbars.h"

#include "axisbars.h"
#include "barseries.h"

PanelBars::PanelBars(BarSeries *own, const AxisBars *chart)
    : m_own(own)
    , m_chart(chart)
{
}

BarSeries *PanelBars::axis() const
{
    if (m_holdsPrice || !m_chart || !m_chart->source())
        return m_own;
    return m_chart->source();
}

const SampleTimeTable &PanelBars::times() const
{
    return axis()->timeTable();
}
