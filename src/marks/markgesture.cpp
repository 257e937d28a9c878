#include "markgesture.h"

#include "markgeometry.h"
#include "plot.h"
#include "plotandrewpichforkmark.h"
#include "plotellipsemark.h"
#include "plotequidistancepricechannel.h"
#include "plotfibonacciexpansion.h"
#include "plotfibonaccifan.h"
#include "plotfibonacciretracementmark.h"
#include "plotfibonaccitimezonesmark.h"
#include "plothorizontalmark.h"
#include "plotlinemark.h"
#include "plotraymark.h"
#include "plotrectmark.h"
#include "plottrianglemark.h"
#include "plotverticallinemark.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "rectmark.h"

#include <QMouseEvent>

#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

#include <cmath>

MarkGesture::MarkGesture(Plot *plot, MarkRegistry *registry)
    : m_plot(plot)
    , m_registry(registry)
    , m_drawColor(112, 48, 160)
{
}

MarkGesture::~MarkGesture()
{
    const QwtPlotItemList items = m_plot->itemList();
    for (QwtPlotItem *item : items) {
        if (auto *mark = dynamic_cast<MarkSelfDraw *>(item))
            delete mark;
    }
}

bool MarkGesture::routesCanvas(int type)
{
    return type >= 0 && type != 1 && type != 3 && type != 6 && !(type >= 12 && type <= 20);
}

bool MarkGesture::canvasEvent(QEvent *event)
{
    if (!routesCanvas(m_plot->getCursorStyle()))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !beginMark(mouse->pos()))
            return false;
        event->accept();
        return true;
    }
    case QEvent::MouseButtonRelease:
        finishMark();
        return true;
    case QEvent::MouseMove:
        dragMark(static_cast<QMouseEvent *>(event)->pos());
        return true;
    default:
        return false;
    }
}

bool MarkGesture::beginMark(const QPoint &pos)
{
    const int type = m_plot->getCursorStyle();
    if (type == 9 || type == 11 || type == 24 || type > 30) {
        returnToArrow();
        return true;
    }
    MarkRegistry::Kind kind;
    MarkSelfDraw *mark = create(type, kind);
    if (!mark)
        return false;
    const QPointF press = toPlot(m_plot, pos);
    if (!std::isfinite(press.x()) || !std::isfinite(press.y())) {
        delete mark; // a canvas without size maps nowhere
        return false;
    }
    endGesture(); // a second press before the release: the first mark is done
    Plot *host = kind == MarkRegistry::VerticalLine ? mainPanel() : m_plot;
    if (kind != MarkRegistry::Pitchfork) // attached once its four anchors are set
        mark->attachToPlot(host);
    switch (kind) {
    case MarkRegistry::HorizontalLine:
        mark->setPoint(0, horizontalAnchor(pos));
        mark->updateHandleFromPoint(0);
        break;
    case MarkRegistry::VerticalLine:
        mark->setPoint(0, verticalAnchor(pos));
        mark->updateHandleFromPoint(0);
        break;
    case MarkRegistry::PriceChannel:
        mark->setPoint(0, press);
        mark->setPoint(1, press);
        static_cast<PlotEquidistancePriceChannel *>(mark)->setChannelOffset(priceSpan(55));
        break;
    case MarkRegistry::Pitchfork:
        mark->setPoint(0, press);
        mark->setPoint(1, press);
        mark->setPoint(2, press + QPointF(0.0, priceSpan(100)));
        mark->setPoint(3, press - QPointF(0.0, priceSpan(100)));
        mark->attachToPlot(host);
        break;
    case MarkRegistry::Rectangle:
        static_cast<PlotRectMark *>(mark)->setFirstCorner(pos);
        stretchBox(mark, pos);
        break;
    case MarkRegistry::Ellipse:
        static_cast<PlotEllipseMark *>(mark)->setFirstCorner(pos);
        stretchBox(mark, pos);
        break;
    case MarkRegistry::Triangle:
        mark->moveHandleTo(0, pos);
        mark->moveHandleTo(2, pos);
        mark->moveHandleTo(1, pos + QPoint(60, 0));
        for (int i : {0, 2, 1})
            mark->updatePointFromHandle(i);
        break;
    default:
        // The fan and the expansion have their handles on the press at once.
        for (int i = 0; i < mark->count(); ++i) {
            mark->setPoint(i, press);
            if (kind == MarkRegistry::FibonacciFan || kind == MarkRegistry::FibonacciExpansion)
                mark->updateHandleFromPoint(i);
        }
        break;
    }
    if (kind != MarkRegistry::Ellipse && kind != MarkRegistry::Triangle)
        mark->setState(1);
    mark->setSelected(true);
    mark->setColor(m_drawColor);
    if (m_registry)
        m_registry->add(kind, mark);
    m_current = mark;
    // Every handle stands on its anchor at once, also for a mark that is
    // released where it was pressed.
    mark->syncHandles();
    host->replot();
    return true;
}

void MarkGesture::dragMark(const QPoint &pos)
{
    const int type = m_plot->getCursorStyle();
    MarkSelfDraw *mark = m_current;
    if (!mark || !isExpected(type, mark))
        return;
    switch (type) {
    case 28:
        mark->setPoint(0, horizontalAnchor(pos));
        mark->updateHandleFromPoint(0);
        m_plot->replot();
        break;
    case 29:
        // Drawn on the overlay, which the line repaints as it moves.
        mark->setPoint(0, verticalAnchor(pos));
        mark->updateHandleFromPoint(0);
        break;
    case 10:
    case 21:
    case 22:
        stretchBox(mark, pos);
        m_plot->replot();
        break;
    case 23: // the triangle's last vertex
        mark->moveHandleTo(2, pos);
        mark->updatePointFromHandle(2);
        m_plot->replot();
        break;
    case 25:
    case 26:
        // The fan's anchor 1; the expansion's 1 and 2 together.
        for (int i = 1; i <= (type == 26 ? 2 : 1); ++i) {
            mark->moveHandleTo(i, pos);
            mark->updatePointFromHandle(i);
        }
        m_plot->replot();
        break;
    default:
        mark->setPoint(1, toPlot(m_plot, pos));
        mark->updateHandleFromPoint(1);
        if (auto *channel = type == 7 ? static_cast<PlotEquidistancePriceChannel *>(mark) : nullptr)
            channel->setChannelOffset(channel->getChannelOffset()); // anchor 2 follows
        else if (type == 8) // the reaction points travel with the centre
            mark->onHandleMoved(1);
        m_plot->replot();
        break;
    }
}

void MarkGesture::finishMark()
{
    switch (m_plot->getCursorStyle()) {
    case 2: case 4: case 5: case 7: case 8: case 10: case 21: case 22: case 23: case 25:
    case 26: case 27: case 28: case 29: case 30:
        endGesture();
        returnToArrow();
        break;
    default:
        break;
    }
}

void MarkGesture::cursorTypeChanged(int from, int to)
{
    if (from != to)
        endGesture();
}

void MarkGesture::layoutChanged()
{
    const QwtPlotItemList items = m_plot->itemList();
    for (QwtPlotItem *item : items) {
        if (auto *mark = dynamic_cast<MarkSelfDraw *>(item))
            mark->syncHandles();
    }
}

MarkSelfDraw *MarkGesture::create(int type, MarkRegistry::Kind &kind) const
{
    switch (type) {
    case 2:
    case 27:
        kind = MarkRegistry::TrendLine;
        return new PlotLineMark;
    case 4:
        kind = MarkRegistry::FibonacciTimeZones;
        return new PlotFibonacciTimeZonesMark;
    case 5:
        kind = MarkRegistry::FibonacciRetracement;
        return new PlotFibonacciRetracementMark;
    case 7:
        kind = MarkRegistry::PriceChannel;
        return new PlotEquidistancePriceChannel;
    case 8:
        kind = MarkRegistry::Pitchfork;
        return new PlotAndrewPichforkMark;
    case 10:
    case 21:
        kind = MarkRegistry::Rectangle;
        return new PlotRectMark;
    case 22:
        kind = MarkRegistry::Ellipse;
        return new PlotEllipseMark;
    case 23:
        kind = MarkRegistry::Triangle;
        return new PlotTriangleMark;
    case 25:
        kind = MarkRegistry::FibonacciFan;
        return new PlotFibonacciFan;
    case 26:
        kind = MarkRegistry::FibonacciExpansion;
        return new PlotFibonacciExpansion;
    case 28:
        kind = MarkRegistry::HorizontalLine;
        return new PlotHorizontalMark;
    case 29:
        kind = MarkRegistry::VerticalLine;
        return new PlotVerticalLineMark;
    case 30:
        kind = MarkRegistry::Ray;
        return new PlotRayMark;
    default:
        return nullptr;
    }
}

bool MarkGesture::isExpected(int type, MarkSelfDraw *mark)
{
    switch (type) {
    case 2:
    case 27:
        return dynamic_cast<PlotLineMark *>(mark);
    case 4:
        return dynamic_cast<PlotFibonacciTimeZonesMark *>(mark);
    case 5:
        return dynamic_cast<PlotFibonacciRetracementMark *>(mark);
    case 7:
        return dynamic_cast<PlotEquidistancePriceChannel *>(mark);
    case 8:
        return dynamic_cast<PlotAndrewPichforkMark *>(mark);
    case 10:
    case 21:
        return dynamic_cast<PlotRectMark *>(mark);
    case 22:
        return dynamic_cast<PlotEllipseMark *>(mark);
    case 23:
        return dynamic_cast<PlotTriangleMark *>(mark);
    case 25:
        return dynamic_cast<PlotFibonacciFan *>(mark);
    case 26:
        return dynamic_cast<PlotFibonacciExpansion *>(mark);
    case 28:
        return dynamic_cast<PlotHorizontalMark *>(mark);
    case 29:
        return dynamic_cast<PlotVerticalLineMark *>(mark);
    case 30:
        return dynamic_cast<PlotRayMark *>(mark);
    default:
        return false;
    }
}

QPointF MarkGesture::toPlot(Plot *panel, QPointF pos)
{
    return QwtScaleMap::invTransform(panel->canvasMap(QwtPlot::xBottom),
                                     panel->canvasMap(QwtPlot::yRight), pos);
}

// "The price span of n pixels": negative, since prices fall down the canvas.
double MarkGesture::priceSpan(int pixels) const
{
    const QwtScaleMap yMap = m_plot->canvasMap(QwtPlot::yRight);
    return yMap.invTransform(pixels) - yMap.invTransform(0.0);
}

// The ellipse and the rectangle span from the press to the mouse.
void MarkGesture::stretchBox(MarkSelfDraw *mark, const QPoint &pos)
{
    if (auto *ellipse = dynamic_cast<PlotEllipseMark *>(mark)) {
        ellipse->setRectInCanvas(MarkGeometry::spanned(ellipse->getFirstCorner(), pos));
    } else if (auto *rect = dynamic_cast<PlotRectMark *>(mark)) {
        const QRect box = MarkGeometry::spanned(rect->getFirstCorner(), pos);
        rect->rectMark()->setRect(box);
        rect->setWithRectInCanvas(box);
    }
}

// The horizontal line's time is mid-canvas; only the mouse's price counts.
QPointF MarkGesture::horizontalAnchor(const QPoint &pos) const
{
    return toPlot(m_plot, QPointF(int(m_plot->canvas()->width() * 0.5), pos.y()));
}

// The vertical line stands on the main panel: the mouse's bar (the panels
// share their bars), at mid-height of the main panel's prices.
QPointF MarkGesture::verticalAnchor(const QPoint &pos) const
{
    Plot *main = mainPanel();
    const double x = m_plot->canvasMap(QwtPlot::xBottom).invTransform(pos.x());
    const double y = main->canvasMap(QwtPlot::yRight).invTransform(int(main->canvas()->height() * 0.5));
    return QPointF(x, y);
}

Plot *MarkGesture::mainPanel() const
{
    Plot *main = m_plot->getChart() ? PriceGraphPrivate::mainPanel(m_plot->getChart()) : nullptr;
    return main ? main : m_plot;
}

void MarkGesture::endGesture()
{
    if (MarkSelfDraw *mark = m_current) {
        m_current = nullptr;
        mark->setState(3);
    }
}

void MarkGesture::returnToArrow()
{
    if (PriceGraph *chart = m_plot->getChart())
        chart->SetCursorType(3);
    else
        m_plot->setCursorStyle(3);
}
