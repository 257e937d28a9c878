#include "priceaxislayout.h"

#include "plot.h"
#include "pricegraphprivate.h"
#include "scaledrawwithprecision.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>

#include <qwt_plot_canvas.h>
#include <qwt_scale_widget.h>

#include <algorithm>
#include <cmath>

namespace {

ScaleDrawWithPrecision *priceDraw(Plot *p)
{
    return dynamic_cast<ScaleDrawWithPrecision *>(p->axisScaleDraw(QwtPlot::yRight));
}

QFont priceFont(Plot *p)
{
    return p->axisWidget(QwtPlot::yRight)->font();
}

} // namespace

int PriceAxisLayout::labelPitch(const QFont &font)
{
    const int digits =
        QFontMetrics(font).tightBoundingRect(QStringLiteral("0123456789")).height();
    return digits + 4;
}

void PriceAxisLayout::panelLaidOut(Plot *panel)
{
    if (thinLabels(panel))
        panel->scheduleReplot(); // the ticks are chosen by the next replot
    keepMinimumHeight(panel);
    alignWidths(panel);
}

bool PriceAxisLayout::thinLabels(Plot *panel)
{
    // The panel's usual number of intervals, fewer where the labels would
    // not fit along the price scale.
    ScaleDrawWithPrecision *draw = priceDraw(panel);
    if (!draw)
        return false;
    const double length = std::fabs(panel->canvasMap(QwtPlot::yRight).pDist());
    const int fit = int(length / labelPitch(priceFont(panel)));
    const int steps = std::max(1, std::min(draw->maxMajor(), fit));
    if (panel->axisMaxMajor(QwtPlot::yRight) == steps)
        return false;
    const bool autoReplot = panel->autoReplot();
    panel->setAutoReplot(false); // not from inside a layout
    panel->setAxisMaxMajor(QwtPlot::yRight, steps);
    panel->setAutoReplot(autoReplot);
    return true;
}

void PriceAxisLayout::keepMinimumHeight(Plot *panel)
{
    // Two labels' room on the price scale, and whatever the panel keeps
    // beside the scale: the headroom, the canvas frame, the ends the axis
    // keeps for its outer labels, the date axis under the lowest panel.
    QWidget *canvas = panel->canvas();
    const int length = int(std::fabs(panel->canvasMap(QwtPlot::yRight).pDist()));
    const int beside = std::max(0, canvas->height() - length)
        + std::max(0, panel->height() - canvas->height());
    // The main panel takes what is left, so a small chart (a price and a
    // volume panel in 200 x 120 pixels) can still be made: its labels thin.
    PriceGraph *chart = panel->getChart();
    const bool main = chart && PriceGraphPrivate::mainPanel(chart) == panel;
    const int minimum = main ? 0
                             : std::max(2 * labelPitch(priceFont(panel)) + beside,
                                        2 * (labelPitch(priceFont(panel)) + Plot::PriceHeadroom));
    if (panel->minimumHeight() != minimum)
        panel->setMinimumHeight(minimum);
}

void PriceAxisLayout::alignWidths(Plot *panel)
{
    PriceGraph *chart = panel->getChart();
    if (!chart)
        return;
    const QList<Plot *> panels = PriceGraphPrivate::allPanels(chart);
    double widest = 0.0;
    for (Plot *p : panels) {
        // A panel hidden on purpose (volume switched off) does not widen
        // the others; it is aligned again as it shows.
        const bool hidden = p->isHidden() && p->testAttribute(Qt::WA_WState_ExplicitShowHide);
        ScaleDrawWithPrecision *draw = priceDraw(p);
        if (draw && !hidden)
            widest = std::max(widest, draw->naturalExtent(priceFont(p)));
    }
    for (Plot *p : panels) {
        // Posted, not sent: this runs inside a panel's layout, which may be
        // inside a view being copied between panels; a canvas resized from
        // in there would move its view where the copy cannot follow. Qt
        // merges the requests, and a replot takes them at once.
        ScaleDrawWithPrecision *draw = priceDraw(p);
        if (draw && draw->setAlignedExtent(widest))
            QCoreApplication::postEvent(p, new QEvent(QEvent::LayoutRequest));
    }
}
