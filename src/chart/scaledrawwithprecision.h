#ifndef SCALEDRAWWITHPRECISION_H
#define SCALEDRAWWITHPRECISION_H

#include "colorscaledraw.h"

class Plot;

// Right axis: prices, by the fixed-width price-label rule.
class ScaleDrawWithPrecision : public ColorScaleDraw
{
public:
    explicit ScaleDrawWithPrecision(Plot *panel);

    QwtText label(double value) const override;

private:
    Plot *m_panel;
    int m_maxMajor;
};

#endif // SCALEDRAWWITHPRECISION_H
