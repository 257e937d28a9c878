#include "scrolllimits.h"

#include <cmath>

void ScrollLimits::update(double dataMinX, double dataMaxX, double visibleSpan,
                          double candleWidth, int marginPx, double zoom)
{
    m_marginPx = marginPx;
    m_zoom = zoom;
    const double halfCandle = candleWidth * 0.5 * BarFraction;
    m_leftMargin = (BarFraction * marginPx + halfCandle) * zoom;
    m_rightMargin = (halfCandle + 25.0 * BarFraction) * zoom;
    if (m_leftMargin + m_rightMargin < visibleSpan) {
        // Only the fraction: the rest of the view is whole bars.
        const double rest = visibleSpan - m_leftMargin - m_rightMargin;
        m_rightMargin += rest - std::floor(rest);
    }
    m_minX = dataMinX - m_leftMargin;
    m_maxX = dataMaxX + m_rightMargin;
}

ViewRange ScrollLimits::clamp(const ViewRange &range) const
{
    const double s = range.width();
    if (range.upper() > m_maxX)
        return ViewRange(m_maxX - s, m_maxX);
    if (range.lower() < m_minX)
        return ViewRange(m_minX, m_minX + s);
    return range;
}

ViewRange ScrollLimits::snap(const ViewRange &range, double candleWidth) const
{
    const double o = (candleWidth * 0.5 * BarFraction + m_marginPx * BarFraction) * m_zoom;
    const double lower = std::floor(range.lower() + o + 0.5) - o;
    return ViewRange(lower, lower + range.width());
}

bool ScrollLimits::isAtEnd(double upper) const
{
    return m_maxX - upper <= 2.0 * m_rightMargin;
}
