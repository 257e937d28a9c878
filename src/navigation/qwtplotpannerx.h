#ifndef QWTPLOTPANNERX_H
#define QWTPLOTPANNERX_H

#include <qwt_plot_panner.h>

class PlotNavigator;

// Pans a panel along x only, live as the mouse moves (no dragged snapshot).
// Suspended while a drawing tool owns the mouse (Plot::setCursorStyle).
// The motion goes to the panel's navigator.
class QwtPlotPannerX : public QwtPlotPanner
{
    Q_OBJECT

public:
    QwtPlotPannerX(QWidget *canvas, PlotNavigator *navigator);

    bool isSuspended() const { return m_suspended; }
    void setSuspended(bool on) { m_suspended = on; }

protected:
    void widgetMousePressEvent(QMouseEvent *event) override;
    void widgetMouseMoveEvent(QMouseEvent *event) override;
    void widgetMouseReleaseEvent(QMouseEvent *event) override;
    QPixmap grab() const override;
    void moveCanvas(int dx, int dy) override;

private:
    PlotNavigator *m_navigator;
    bool m_suspended = false;
    bool m_pressed = false;
    QPoint m_last;
};

#endif // QWTPLOTPANNERX_H
