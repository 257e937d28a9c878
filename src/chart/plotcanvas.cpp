#include "plotcanvas.h"

#include <QEvent>

PlotCanvas::PlotCanvas(QwtPlot *plot)
    : QwtPlotCanvas(plot)
{
}

bool PlotCanvas::event(QEvent *event)
{
    const bool handled = QwtPlotCanvas::event(event);
    // Style sheets are applied while these are handled.
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        setAttribute(Qt::WA_StyledBackground, false);
    return handled;
}

void PlotCanvas::drawBorder(QPainter *)
{
    // The backing store already filled the frame with the background.
}
