#include "qwtplotpannerx.h"

#include "plot.h"

#include <QMouseEvent>
#include <QPixmap>

QwtPlotPannerX::QwtPlotPannerX(QWidget *canvas, Plot *plot)
    : QwtPlotPanner(canvas)
    , m_plot(plot)
{
}

void QwtPlotPannerX::widgetMousePressEvent(QMouseEvent *event)
{
    if (m_suspended)
        return;
    m_pressed = true;
    m_last = event->pos();
}

void QwtPlotPannerX::widgetMouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressed || m_suspended)
        return;
    const QPoint d = event->pos() - m_last;
    m_last = event->pos();
    Q_EMIT panned(d.x(), d.y());
}

void QwtPlotPannerX::widgetMouseReleaseEvent(QMouseEvent *)
{
    if (!m_suspended)
        m_pressed = false;
}

QPixmap QwtPlotPannerX::grab() const
{
    return QPixmap();
}

void QwtPlotPannerX::moveCanvas(int dx, int)
{
    m_plot->moveX(dx * 3);
}
