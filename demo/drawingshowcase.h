#ifndef DRAWINGSHOWCASE_H
#define DRAWINGSHOWCASE_H

class PriceGraph;

// Draws one mark of every drawing tool on the chart's main panel the way a
// trader does: the tool chosen with SetCursorType, then a drag of the mouse
// on the panel. Laid out for the S&P 500 daily data, one zoom step out:
// the channel on the 2019 uptrend, the retracement and the fan on the
// crash of 2020, the shapes in the room under the candles.
class DrawingShowcase
{
public:
    // False when the chart has no main panel on screen to draw on.
    static bool drawOneOfEach(PriceGraph &chart);
};

#endif // DRAWINGSHOWCASE_H
