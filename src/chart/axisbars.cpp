#include "axisbars.h"

#include "barseries.h"

AxisBars::~AxisBars()
{
    setSource(nullptr);
}

void AxisBars::setSource(BarSeries *bars)
{
    if (bars == m_source)
        return;
    if (m_source)
        m_source->setTimeScale(nullptr);
    m_source = bars;
    if (m_source)
        m_source->setTimeScale(&m_scale);
    m_scale.setTable(m_source ? &m_source->timeTable() : nullptr);
}
