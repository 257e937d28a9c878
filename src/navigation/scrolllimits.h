#ifndef SCROLLLIMITS_H
#define SCROLLLIMITS_H

#include "viewrange.h"

// How far a panel may scroll, and the rules that keep a displayed range
// inside those limits with its bars on whole positions.
//
// The left margin keeps `marginPx` pixels and half a candle free before the
// first bar; the right margin half a candle and 25 pixels (at 16 pixels a
// bar) after the last one, where the price tags stand. When the view holds
// more than both margins, the right margin also takes the fractional part of
// what is left, so that a view at either end holds a whole number of bars.
class ScrollLimits
{
public:
    // Pixels a bar gets at zoom 1 is 1 / BarFraction.
    static constexpr double BarFraction = 0.0625;

    // Bars a canvas of `canvasWidth` pixels shows at `zoom`.
    static double visibleSpan(double canvasWidth, double zoom)
    {
        return canvasWidth * BarFraction * zoom;
    }

    // `candleWidth` is the candle's width in pixels when the newest
    // `visibleSpan` bars fill the canvas.
    void update(double dataMinX, double dataMaxX, double visibleSpan, double candleWidth,
                int marginPx, double zoom);

    double leftMargin() const { return m_leftMargin; }
    double rightMargin() const { return m_rightMargin; }
    double minX() const { return m_minX; }
    double maxX() const { return m_maxX; }
    double span() const { return m_maxX - m_minX; }

    // Moves `range` (keeping its width) back inside [minX, maxX]; the upper
    // limit wins when the range is wider than the limits.
    ViewRange clamp(const ViewRange &range) const;
    // Shifts `range` so that a bar's candle starts right after the left
    // margin; `candleWidth` is the candle width in pixels for `range`.
    ViewRange snap(const ViewRange &range, double candleWidth) const;
    // True when a view whose displayed upper edge is `upper` shows the
    // newest bars (running past maxX counts too).
    bool isAtEnd(double upper) const;

private:
    double m_leftMargin = 0.0;
    double m_rightMargin = 0.0;
    double m_minX = 0.0;
    double m_maxX = 0.0;
    int m_marginPx = 0;
    double m_zoom = 1.0;
};

#endif // SCROLLLIMITS_H
