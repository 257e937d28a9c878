#include "plotscrollevent.h"

#include "chartevents.h"

PlotScrollEvent::PlotScrollEvent(double minX, double maxX, double lower, double width)
    : QEvent(ChartEvents::scroll())
    , m_minX(minX)
    , m_maxX(maxX)
    , m_lower(lower)
    , m_width(width)
{
}
