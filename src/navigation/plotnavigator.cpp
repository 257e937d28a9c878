#include "plotnavigator.h"

#include "plot.h"

PlotNavigator::PlotNavigator(Plot *plot)
    : m_plot(plot)
{
}

void PlotNavigator::getX(double &x1, double &x2) const
{
    x1 = m_viewX1;
    x2 = m_viewX2;
}

void PlotNavigator::setX(double x1, double x2, double zoom)
{
    if (x1 == 0.0 && x2 == 0.0)
        return;
    if (zoom != -1.0)
        m_zoom = zoom;
    m_viewX1 = x1;
    m_viewX2 = x2;
    const bool autoReplot = m_plot->autoReplot();
    m_plot->setAutoReplot(false);
    const double d = (x2 - x1) * m_zoom;
    const double lower = (x1 + x2) * 0.5 - 0.5 * d;
    m_plot->setAxisScale(QwtPlot::xBottom, lower, lower + d);
    double low, high;
    if (m_plot->valueRange(lower, lower + d, low, high)) {
        const double mid = (low + high) * 0.5;
        const double span = (high - low) * m_yZoom;
        m_plot->setAxisScale(QwtPlot::yRight, mid - span * 0.5, mid + span * 0.5);
    }
    m_plot->replot();
    m_plot->setAutoReplot(autoReplot);
}

void PlotNavigator::adjustX(double &, double &) {}
void PlotNavigator::scrollRight(long) {}
void PlotNavigator::scrollToEnd() {}
void PlotNavigator::zoomIn() {}
void PlotNavigator::zoomOut() {}
void PlotNavigator::resetZoom() {}
void PlotNavigator::zoomInY(double) {}
void PlotNavigator::zoomOutY(double) {}
void PlotNavigator::moveX(double) {}
void PlotNavigator::recordChartCenter() {}
void PlotNavigator::restoreChartCenter() {}

void PlotNavigator::dataChanged()
{
    // Placeholder until zoom and scroll land: show the newest 100 bars.
    const int n = m_plot->barCount();
    if (n > 0)
        setX(n - 100.5, n - 0.5 + 1.5, -1.0);
}
