#include "qwtplotpannerx.h"

#include "plotnavigator.h"

#include <QMouseEvent>
#include <QPixmap>

namespace {

Qt::MouseButton panButton(const QwtPanner *panner)
{
    Qt::MouseButton button;
    Qt::KeyboardModifiers modifiers;
    panner->getMouseButton(button, modifiers);
    return button;
}

} // namespace

QwtPlotPannerX::QwtPlotPannerX(QWidget *canvas, PlotNavigator *navigator)
    : QwtPlotPanner(canvas)
    , m_navigator(navigator)
{
}

void QwtPlotPannerX::widgetMousePressEvent(QMouseEvent *event)
{
    if (m_suspended || event->button() != panButton(this))
        return;
    m_pressed = true;
    m_last = event->pos();
}

void QwtPlotPannerX::widgetMouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressed || m_suspended)
        return;
    // The release may have gone elsewhere (another tool took the mouse, or
    // the pointer left the window): a move without the button ends the drag.
    if (!(event->buttons() & panButton(this))) {
        m_pressed = false;
        return;
    }
    const QPoint d = event->pos() - m_last;
    m_last = event->pos();
    if (d.x() != 0 || d.y() != 0)
        Q_EMIT panned(d.x(), d.y());
}

void QwtPlotPannerX::widgetMouseReleaseEvent(QMouseEvent *)
{
    if (!m_suspended)
        m_pressed = false;
}

QPixmap QwtPlotPannerX::grab() const
{
    // Panning redraws live; there is no snapshot to drag.
    return QPixmap();
}

void QwtPlotPannerX::moveCanvas(int dx, int)
{
    // A pixel of mouse travel pans three zoom-weighted pixels.
    m_navigator->moveX(dx * 3);
}
