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

    // The panel's maximum number of major ticks, read at construction.
    int maxMajor() const { return m_maxMajor; }
    // What the labels need, at least the minimum extent.
    double naturalExtent(const QFont &font) const { return QwtScaleDraw::extent(font); }
    // The extent of the widest price axis of the chart (PriceAxisLayout);
    // true when it changed.
    bool setAlignedExtent(double extent);
    double extent(const QFont &font) const override;

private:
    Plot *m_panel;
    int m_maxMajor;
    double m_alignedExtent = 0.0;
};

#endif // SCALEDRAWWITHPRECISION_H
