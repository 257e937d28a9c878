#include "scaledrawwithprecision.h"

#include "plot.h"
#include "pricelabeltext.h"

#include <algorithm>

ScaleDrawWithPrecision::ScaleDrawWithPrecision(Plot *panel)
    : m_panel(panel)
    , m_maxMajor(panel ? panel->axisMaxMajor(QwtPlot::yRight) : 8)
{
    setSpacing(7.0);
    setMinimumExtent(60.0);
    setTickLength(QwtScaleDiv::MinorTick, 0);
    setTickLength(QwtScaleDiv::MediumTick, 0);
    setTickLength(QwtScaleDiv::MajorTick, 3.0);
}

QwtText ScaleDrawWithPrecision::label(double value) const
{
    return QwtText(PriceLabelText::format(value), QwtText::PlainText);
}

bool ScaleDrawWithPrecision::setAlignedExtent(double extent)
{
    if (extent == m_alignedExtent)
        return false;
    m_alignedExtent = extent;
    return true;
}

double ScaleDrawWithPrecision::extent(const QFont &font) const
{
    return std::max(naturalExtent(font), m_alignedExtent);
}
