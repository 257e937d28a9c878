#ifndef DEMOCHART_H
#define DEMOCHART_H

#include <pricegraph.h>

// The chart as a terminal embeds it. A terminal may subclass the widget to
// reach its protected members; this one closes panels with them.
class DemoChart : public PriceGraph
{
    Q_OBJECT

public:
    explicit DemoChart(QWidget *parent = nullptr);

    // Closes panel `index`; the main panel (0) is kept. False when there is
    // no such panel.
    bool closePanel(long index);
};

#endif // DEMOCHART_H
