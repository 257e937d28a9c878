#include "markselfdraw.h"

#include "chartevents.h"
#include "makedrag.h"
#include "markgeometry.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

namespace {
// Looked up once: every event of the application is compared with it.
const QEvent::Type DragType = ChartEvents::handleDrag();
}

const char *const MarkSelfDraw::ShownHandleStyle =
    "*{background-color:rgba(0,0,0,0);border:none;"
    "background-image:url(:/Icons/Resources/icon_point2.png);}"
    "*:hover{;background-image:url(:/Icons/Resources/icon_point.png);}";
const char *const MarkSelfDraw::HiddenHandleStyle =
    "*{background-color:rgba(0,0,0,0);border:none;}"
    "*:hover{;background-image:url(:/Icons/Resources/icon_point3.png);}";

MarkSelfDraw::MarkSelfDraw()
    : color(112, 48, 160)
{
    setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    setItemInterest(QwtPlotItem::ScaleInterest, true);
    setZ(30.0);
    if (QCoreApplication *app = QCoreApplication::instance())
        app->installEventFilter(this);
}

MarkSelfDraw::~MarkSelfDraw()
{
    for (const QPointer<QWidget> &h : qAsConst(handles))
        delete h.data();
    if (overrideCursorSet)
        QApplication::restoreOverrideCursor();
    detach();
}

// ---- tool hooks ------------------------------------------------------------

bool MarkSelfDraw::hitTest(double, double)
{
    return false;
}

void MarkSelfDraw::setSelected(bool on)
{
    selected = on;
    setHandlesShown(on);
}

void MarkSelfDraw::setHovered(bool on)
{
    hovered = on;
}

void MarkSelfDraw::setColor(QColor c)
{
    color = c;
}

void MarkSelfDraw::setState(int s)
{
    state = s;
    const bool interactive = s == 0 || s == 3;
    for (const QPointer<QWidget> &h : qAsConst(handles)) {
        if (h)
            h->setAttribute(Qt::WA_TransparentForMouseEvents, !interactive);
    }
}

void MarkSelfDraw::attachToPlot(QwtPlot *target)
{
    if (!target)
        return;
    if (QwtPlot *old = plot())
        old->canvas()->removeEventFilter(this);
    attach(target);
    for (int i = 0; i < handles.size(); ++i) {
        if (!handles.at(i))
            continue;
        handles.at(i)->setParent(target->canvas());
        handles.at(i)->show();
        updateHandleFromPoint(i);
    }
    target->replot();
}

void MarkSelfDraw::updateHandleFromPoint(int i)
{
    if (!plot() || !validHandle(i))
        return;
    const QPoint pixel = pixelOf(i);
    QPoint centre;
    handleCenter(i, centre);
    if (centre != pixel)
        moveHandleTo(i, pixel);
    else
        placeHandle(i, handles.at(i)->pos()); // the canvas may have changed size
}

void MarkSelfDraw::updatePointFromHandle(int i)
{
    if (!plot() || !validHandle(i))
        return;
    QPoint centre;
    handleCenter(i, centre);
    const double x = plot()->canvasMap(xAxis()).invTransform(double(centre.x()));
    const double y = plot()->canvasMap(yAxis()).invTransform(double(centre.y()));
    // A canvas without size has no inverse: the anchor stays where it was.
    if (std::isfinite(x) && std::isfinite(y))
        points[i] = QPointF(x, y);
}

void MarkSelfDraw::setPoint(int i, QPointF p)
{
    if (i >= 0 && i < points.size() && std::isfinite(p.x()) && std::isfinite(p.y()))
        points[i] = p;
}

void MarkSelfDraw::point(int i, QPointF &p)
{
    if (i >= 0 && i < points.size())
        p = points.at(i);
}

void MarkSelfDraw::moveHandleTo(int i, QPoint center)
{
    if (!validHandle(i))
        return;
    QRect r = handles.at(i)->geometry();
    r.moveCenter(center);
    placeHandle(i, r.topLeft());
}

void MarkSelfDraw::handleCenter(int i, QPoint &center)
{
    if (!validHandle(i))
        return;
    const QRect g = handles.at(i)->geometry();
    center = QPoint((g.left() + g.right()) / 2, (g.top() + g.bottom()) / 2);
}

void MarkSelfDraw::onHandleMoved(int)
{
}

void MarkSelfDraw::setHandlesShown(bool shown)
{
    const QString text = QString::fromLatin1(shown ? ShownHandleStyle : HiddenHandleStyle);
    for (const QPointer<QWidget> &h : qAsConst(handles)) {
        if (h && h->styleSheet() != text) // restyling costs a polish
            h->setStyleSheet(text);
    }
    handlesShown = shown;
    revealHandles();
}

void MarkSelfDraw::paintOverlay(QPainter *, QWidget *)
{
}

void MarkSelfDraw::updateScaleDiv(const QwtScaleDiv &, const QwtScaleDiv &)
{
    for (int i = 0; i < handles.size(); ++i) {
        if (dragging)
            updatePointFromHandle(i);
        else
            updateHandleFromPoint(i);
    }
}

void MarkSelfDraw::syncHandles()
{
    if (dragging)
        return;
    for (int i = 0; i < handles.size(); ++i)
        updateHandleFromPoint(i);
}

void MarkSelfDraw::shiftBars(double index, double count)
{
    for (QPointF &p : points) {
        if (p.x() >= index)
            p.rx() += count;
    }
}

// ---- events ----------------------------------------------------------------

bool MarkSelfDraw::eventFilter(QObject *watched, QEvent *event)
{
    // Every event of the application passes every mark: the ones no mark
    // handles leave at once.
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Enter:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        break;
    default:
        if (event->type() != DragType)
            return false;
    }
    // Keys go to the Delete handling wherever they are sent, the mark's
    // own canvas and handles included.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
        return appEventFilter(watched, event);
    if (handleIndex(watched) >= 0)
        return handleEventFilter(watched, event);
    if (plot() && watched == plot()->canvas())
        return canvasEventFilter(watched, event);
    return appEventFilter(watched, event);
}

bool MarkSelfDraw::handleEventFilter(QObject *watched, QEvent *event)
{
    const int i = handleIndex(watched);
    if (event->type() == DragType) {
        updatePointFromHandle(i);
        onHandleMoved(i);
        replotPlot();
        event->accept();
        return true;
    }
    switch (event->type()) {
    case QEvent::Enter:
        if (hovered) {
            setHovered(false);
            replotPlot();
        }
        break;
    case QEvent::MouseButtonPress:
        setSelected(true);
        break;
    default:
        break;
    }
    return false;
}

bool MarkSelfDraw::canvasEventFilter(QObject *watched, QEvent *event)
{
    if (!plot() || watched != plot()->canvas() || (state != 0 && state != 3))
        return false;
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonRelease
        && type != QEvent::MouseMove)
        return false;
    auto *mouse = static_cast<QMouseEvent *>(event);
    const QPoint pos = mouse->pos();
    pointer = pos;

    if (type == QEvent::MouseButtonPress) {
        if (mouse->button() == Qt::LeftButton) {
            if (hitTest(pos.x(), pos.y())) {
                dragging = true;
                lastX = pos.x();
                lastY = pos.y();
                setSelected(true);
                if (!overrideCursorSet) {
                    QApplication::setOverrideCursor(Qt::SizeAllCursor);
                    overrideCursorSet = true;
                }
                replotPlot();
                mouse->accept();
                return true;
            }
            dragging = false;
        }
        // A press off the mark deselects it; another button on it selects.
        const bool hit = hitTest(pos.x(), pos.y());
        if (hit != selected)
            setSelected(hit);
        return false;
    }

    if (type == QEvent::MouseButtonRelease) {
        if (mouse->button() == Qt::LeftButton && dragging) {
            endDrag();
            if (hovered)
                replotPlot(); // the highlight is off while dragging
        }
        return false;
    }

    if (dragging) {
        if (mouse->buttons() & Qt::LeftButton) {
            const QPoint step(pos.x() - lastX, pos.y() - lastY);
            for (int i = 0; i < handles.size(); ++i) {
                if (!handles.at(i))
                    continue;
                placeHandle(i, handles.at(i)->pos() + step);
                updatePointFromHandle(i);
            }
            replotPlot();
            lastX = pos.x();
            lastY = pos.y();
            mouse->accept();
            return true;
        }
        // The release went elsewhere (outside the window, or to another
        // widget): the drag is over, and the cursor comes back.
        endDrag();
    }

    // Hover. Only a change of the highlight is worth a replot: a mouse move
    // must not redraw the panel for every mark on it.
    const bool hit = hitTest(pos.x(), pos.y());
    const bool changed = hit != hovered;
    if (changed)
        setHovered(hit);
    if (hovered)
        setHandlesShown(true);
    else if (!selected)
        setHandlesShown(false);
    else
        revealHandles();
    if (changed)
        replotPlot();
    return false;
}

bool MarkSelfDraw::appEventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if ((type == QEvent::KeyPress || type == QEvent::ShortcutOverride) && selected
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        event->accept();
        if (type == QEvent::ShortcutOverride)
            return true; // the key comes as a key press, not as a host's shortcut
        QPointer<QwtPlot> held = plot();
        detach();
        delete this;
        if (held)
            held->replot();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

// ---- helpers ---------------------------------------------------------------

QWidget *MarkSelfDraw::addHandle(int axisLock)
{
    QWidget *h = new QWidget;
    h->setGeometry(0, 0, HandleSize, HandleSize);
    MakeDrag *drag = new MakeDrag(h);
    drag->attachTo(h);
    drag->setAxisLock(axisLock);
    handles.append(h);
    points.append(QPointF(0.0, 0.0));
    return h;
}

// A handle is a widget only where it can be seen or touched: on the canvas,
// and while the handles are not shown (they are invisible then), only
// under the pointer, where its style shows a point. Moving a hidden widget
// costs no event and painting one costs nothing, and every event passes
// every mark's filter: a scroll over a chart with many marks pays only for
// the handles that show.
void MarkSelfDraw::placeHandle(int i, QPoint topLeft)
{
    QWidget *h = handles.at(i);
    const QWidget *canvas = h->parentWidget();
    const QRect area(topLeft, h->size());
    const bool inside = canvas && plot() && canvas == plot()->canvas()
                        && canvas->rect().intersects(area)
                        && (handlesShown || area.contains(pointer));
    if (!inside && !h->isHidden())
        h->hide();
    if (h->pos() != topLeft) {
        h->move(topLeft);
        // Nobody needs to hear of a hidden handle's move; rendering the
        // chart (grab, print) would otherwise send the event late.
        if (!inside)
            h->setAttribute(Qt::WA_PendingMoveEvent, false);
    }
    if (inside && h->isHidden())
        h->show();
}

void MarkSelfDraw::revealHandles()
{
    for (int i = 0; i < handles.size(); ++i) {
        if (handles.at(i))
            placeHandle(i, handles.at(i)->pos());
    }
}

void MarkSelfDraw::replotPlot()
{
    if (QwtPlot *p = plot())
        p->replot();
}

QPoint MarkSelfDraw::pixelOf(int i) const
{
    const QPointF p = points.value(i);
    return QPoint(MarkGeometry::toPixel(plot()->transform(xAxis(), p.x())),
                  MarkGeometry::toPixel(plot()->transform(yAxis(), p.y())));
}

bool MarkSelfDraw::validHandle(int i) const
{
    return i >= 0 && i < handles.size() && handles.at(i);
}

void MarkSelfDraw::endDrag()
{
    dragging = false;
    if (overrideCursorSet) {
        QApplication::restoreOverrideCursor();
        overrideCursorSet = false;
    }
}

int MarkSelfDraw::handleIndex(const QObject *watched) const
{
    for (int i = 0; i < handles.size(); ++i) {
        if (handles.at(i).data() == watched)
            return i;
    }
    return -1;
}
