#ifndef PRICEAXISWIDTHS_H
#define PRICEAXISWIDTHS_H

class PriceGraph;

// Panels share one bar axis, so their canvases must be equally wide: every
// panel's price axis takes the extent of the widest labels among the
// visible panels (a volume panel's "8000000000" against a price panel's
// "1234.56"). A panel calls align() after each layout, which is when its
// labels may have changed width; panels whose extent changes are laid out
// again from the event loop.
class PriceAxisWidths
{
public:
    static void align(PriceGraph *chart);
};

#endif // PRICEAXISWIDTHS_H
