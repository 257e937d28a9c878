#include "markgesture.h"

#include "plot.h"
#include "plothorizontalmark.h"
#include "plotlinemark.h"
#include "plotraymark.h"
#include "plotverticallinemark.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

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
    default:
        mark->setPoint(0, press);
        mark->setPoint(1, press);
        break;
    }
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
    default:
        mark->setPoint(1, toPlot(m_plot, pos));
        mark->updateHandleFromPoint(1);
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
