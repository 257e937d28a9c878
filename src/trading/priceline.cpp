#include "priceline.h"

#include <QLabel>
#include <qwt_plot.h>

PriceLine::PriceLine()
    : m_label(new QLabel)
{
}

PriceLine::~PriceLine()
{
    delete m_label;
}

void PriceLine::attach(QwtPlot *plot)
{
    QwtPlotMarker::attach(plot);
    setParent(plot);
    setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    setLineStyle(QwtPlotMarker::HLine);
    setVisible(false);
}

void PriceLine::setMode(int mode)
{
    setEditable(mode == 0 || mode == 3);
}

void PriceLine::setEditable(bool) {}

void PriceLine::setValue(double x, double y)
{
    QwtPlotMarker::setValue(x, y);
    updateLabel();
}

void PriceLine::setCount(long count)
{
    m_count = count;
}

void PriceLine::updateLabel() {}

void PriceLine::setLabelKind(int kind)
{
    m_kind = kind;
}

void PriceLine::updatePartnerPos()
{
    updateLabel();
}
