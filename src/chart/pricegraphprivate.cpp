#include "pricegraphprivate.h"

#include "eventsync.h"
#include "markregistry.h"
#include "overlaywidget.h"
#include "plot.h"
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
    splitter = new QSplitter;
    zoomButtons = new ZoomButtons(chart);
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
