#include "viewrange.h"

ViewRange ViewRange::fromLogical(double x1, double x2, double zoom)
{
    const double d = (x2 - x1) * zoom;
    const double lower = (x1 + x2) * 0.5 - 0.5 * d;
    return ViewRange(lower, lower + d);
}

void ViewRange::toLogical(double zoom, double &x1, double &x2) const
{
    const double l = (m_upper - m_lower) / zoom;
    x1 = (m_upper + m_lower) * 0.5 - 0.5 * l;
    x2 = x1 + l;
}
