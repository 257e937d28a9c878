#ifndef PRICEAXISLAYOUT_H
#define PRICEAXISLAYOUT_H

class Plot;
class QFont;

// What a panel's price axis needs from the panel's size, settled after each
// layout of the panel (when its height or its labels' width may change):
// - labels thinned to the room there is: never closer than labelPitch(),
//   never more than the panel's usual number;
// - a minimum height that keeps room for two labels above and below the
//   headroom;
// - panels share one bar axis, so their canvases must be equally wide:
//   every price axis takes the extent of the widest labels among the
//   visible panels (a volume panel's "8000000000" against "1234.56").
class PriceAxisLayout
{
public:
    static void panelLaidOut(Plot *panel);

    // Pixels from one price label's tick to the next at the least: a line
    // of digits and a gap that keeps them readable.
    static int labelPitch(const QFont &font);

private:
    static bool thinLabels(Plot *panel);
    static void keepMinimumHeight(Plot *panel);
    static void alignWidths(Plot *panel);
};

#endif // PRICEAXISLAYOUT_H
