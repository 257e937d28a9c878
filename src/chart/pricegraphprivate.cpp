#include "pricegraphprivate.h"

#include "eventsync.h"
#include "overlaywidget.h"
#include "plot.h"
#include "plotscrollbar.h"
#include "pricegraph.h"
#include "zoombuttons.h"

#include <QSplitter>

#include <cmath>

PriceGraphPrivate::PriceGraphPrivate(PriceGraph *chart)
    : q(chart)
    , mutex(new QRecursiveMutex)
    , splitter(nullptr)
    , overlay(new OverlayWidget)
    , scrollBar(new PlotScrollBar(Qt::Horizontal))
    , eventSync(new EventSync)
    , l1DecimalFix(1.0 / std::pow(10.0, 6))
{
    splitter = new QSplitter;
}

PriceGraphPrivate::~PriceGraphPrivate()
{
    eventSync->clear();
    // A panel's destructor reports back through OnPlotClose, which edits
    // `panels`: walk a copy.
    const QList<Plot *> doomed = panels;
    for (Plot *p : doomed)
        delete p;
    panels.clear();
    delete zoomButtons;
    delete overlay;
    delete scrollBar;
    delete eventSync;
    delete splitter;
    delete mutex;
}

PriceGraphPrivate *PriceGraphPrivate::get(PriceGraph *chart)
{
    return chart->d;
}

Plot *PriceGraphPrivate::mainPanel(PriceGraph *chart)
{
    return chart->GetMainPanel();
}

QList<Plot *> PriceGraphPrivate::allPanels(PriceGraph *chart)
{
    return chart->GetAllPanel();
}

void PriceGraphPrivate::plotClosed(PriceGraph *chart, Plot *plot)
{
    if (chart->d)
        chart->OnPlotClose(plot);
}

int PriceGraphPrivate::decimals(PriceGraph *chart)
{
    return chart->getL1Decimal();
}

double PriceGraphPrivate::decimalFix(PriceGraph *chart)
{
    return chart->getL1DecimalFix();
}

QWidget *PriceGraphPrivate::overlayWidget(PriceGraph *chart)
{
    return chart->getOverlayWidget();
}
