#include "priceaxiswidths.h"

#include "plot.h"
#include "pricegraphprivate.h"
#include "scaledrawwithprecision.h"

#include <QCoreApplication>
#include <QEvent>

#include <qwt_scale_widget.h>

#include <algorithm>

namespace {

ScaleDrawWithPrecision *priceDraw(Plot *p)
{
    return dynamic_cast<ScaleDrawWithPrecision *>(p->axisScaleDraw(QwtPlot::yRight));
}

} // namespace

void PriceAxisWidths::align(PriceGraph *chart)
{
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
            widest = std::max(widest, draw->naturalExtent(p->axisWidget(QwtPlot::yRight)->font()));
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
