#include "plotpricelinesdata.h"

#include "plot.h"
#include "priceline.h"

PlotPriceLinesData::PlotPriceLinesData(Plot *plot)
    : m_plot(plot)
{
    m_tickLine = new PriceLine;
    m_tickLine->setLabelKind(0);
    m_tickLine->attach(plot);
}

PlotPriceLinesData::~PlotPriceLinesData()
{
    qDeleteAll(m_lines);
    delete m_tickLine;
}

void PlotPriceLinesData::drawPositionLine(double, long, const QString &, int, const QString &,
                                          const QString &, const QString &, QObject *)
{
}

void PlotPriceLinesData::deletePositionLine(const QString &) {}
void PlotPriceLinesData::mergeOrderLinePositionLabelShow(double) {}
void PlotPriceLinesData::setCursorStyle(int) {}

void PlotPriceLinesData::setPriceLineColor(const QColor &color, int)
{
    m_color = color;
}
