#include "pricegraphprivate.h"

#include "barseries.h"
#include "eventsync.h"
#include "markregistry.h"
#include "overlaywidget.h"
#include "plot.h"
#include "plotnavigator.h"
#include "plotpricelinesdata.h"
#include "plotscrollbar.h"
#include "pricegraph.h"
#include "zoombuttons.h"

#include <QHBoxLayout>
#include <QMutexLocker>
#include <QPushButton>
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
    , marks(new MarkRegistry)
{
    overlay->setMarkRegistry(marks);
    // Older history moves the bars after it: the marks stay on their bars.
    MarkRegistry *registry = marks;
    QObject::connect(axisBars.timeScale(), &TimeScale::barsInserted, axisBars.timeScale(),
                     [registry](int index, int count) { registry->barsInserted(index, count); });
    splitter = new QSplitter;
    zoomButtons = new ZoomButtons;
    QObject::connect(zoomButtons, &ZoomButtons::zoomInRequested, chart,
                     [chart]() { chart->ZoomIn(1); });
    QObject::connect(zoomButtons, &ZoomButtons::zoomOutRequested, chart,
                     [chart]() { chart->ZoomOut(1); });
}

PriceGraphPrivate::~PriceGraphPrivate()
{
    tearingDown = true;
    axisBars.setSource(nullptr);
    scrollBar->setNavigator(nullptr);
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
    delete marks; // the panels took their marks with them
}

QWidget *PriceGraphPrivate::rebuildScrollRow()
{
    QPushButton *zoomIn = zoomButtons->button(0);
    QPushButton *zoomOut = zoomButtons->button(1);
    if (scrollRow) {
        scrollBar->setParent(nullptr);
        zoomIn->setParent(nullptr);
        zoomOut->setParent(nullptr);
        delete scrollRow;
    }
    // On the bar's own background, so the transparent buttons blend in.
    QWidget *row = new QWidget;
    row->setObjectName(QStringLiteral("scrollRow"));
    row->setAutoFillBackground(true);
    QPalette palette = row->palette();
    palette.setColor(QPalette::Window, QColor(0x11, 0x11, 0x11));
    row->setPalette(palette);
    QHBoxLayout *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 6, 0);
    layout->setSpacing(4);
    layout->addWidget(scrollBar, 1);
    layout->addWidget(zoomIn, 0, Qt::AlignVCenter);
    layout->addWidget(zoomOut, 0, Qt::AlignVCenter);
    scrollRow = row;
    return row;
}

PriceGraphPrivate *PriceGraphPrivate::get(PriceGraph *chart)
{
    return chart->d;
}

Plot *PriceGraphPrivate::mainPanel(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->panels.value(0) : nullptr;
}

QList<Plot *> PriceGraphPrivate::allPanels(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->panels : QList<Plot *>();
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

ZoomButtons *PriceGraphPrivate::zoomButtonsOf(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->zoomButtons : nullptr;
}

PlotScrollBar *PriceGraphPrivate::scrollBarOf(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->scrollBar : nullptr;
}

EventSync *PriceGraphPrivate::eventSyncOf(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->eventSync : nullptr;
}

MarkRegistry *PriceGraphPrivate::markRegistryOf(PriceGraph *chart)
{
    return (chart && chart->d) ? chart->d->marks : nullptr;
}

void PriceGraphPrivate::selectAxisBars()
{
    Plot *source = nullptr;
    for (Plot *p : qAsConst(panels)) {
        if (p->tradingCurve) {
            source = p;
            break;
        }
        if (!source && p->volumeHistogram)
            source = p; // volume without prices stands on bars of its own
    }
    axisBars.setSource(source ? source->barSeries() : nullptr);
}

void PriceGraphPrivate::regroup()
{
    QList<PlotNavigator *> navigators;
    for (Plot *p : qAsConst(panels))
        navigators.append(p->getNavigator());
    eventSync->setPanels(navigators);
    scrollBar->setNavigator(eventSync->leader());
    selectAxisBars();
    placeTickLine();
}

void PriceGraphPrivate::panelsChanged()
{
    regroup();
    q->resetLayout();
}

void PriceGraphPrivate::placeTickLine()
{
    for (Plot *p : qAsConst(panels)) {
        PlotPriceLinesData *lines = p->getPriceLines();
        if (!lines)
            continue;
        if (p == panels.first() && tickShown)
            lines->showTickLine(tickPrice);
        else
            lines->hideTickLine();
    }
}

AxisBars *PriceGraphPrivate::axisBarsOf(PriceGraph *chart)
{
    return (chart && chart->d) ? &chart->d->axisBars : nullptr;
}

void PriceGraphPrivate::seriesChanged(PriceGraph *chart)
{
    if (chart && chart->d)
        chart->d->selectAxisBars();
}

void PriceGraphPrivate::closePanel(PriceGraph *chart, Plot *plot)
{
    if (!chart || !chart->d)
        return;
    QMutexLocker locker(chart->d->mutex);
    const QList<Plot *> &panels = chart->d->panels;
    if (panels.indexOf(plot) <= 0) // unknown, or the main panel
        return;
    delete plot;
    chart->resetLayout();
}
