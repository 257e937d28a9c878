#ifndef DATESCALEDRAW_H
#define DATESCALEDRAW_H

#include "colorscaledraw.h"

class Plot;
class PriceGraph;

// Bottom axis: the tick at bar index i is labelled with the time of the
// main panel's bar i, in a format chosen by the bar interval.
class DateScaleDraw : public ColorScaleDraw
{
public:
    DateScaleDraw(PriceGraph *chart, Plot *panel);

    QwtText label(double value) const override;

private:
    PriceGraph *m_chart;
    Plot *m_panel;
};

#endif // DATESCALEDRAW_H
