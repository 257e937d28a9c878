#include "plotfreezeevent.h"

#include "chartevents.h"

PlotFreezeEvent::PlotFreezeEvent(bool freeze)
    : QEvent(ChartEvents::freeze())
    , m_freeze(freeze)
{
}
