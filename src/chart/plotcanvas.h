#ifndef PLOTCANVAS_H
#define PLOTCANVAS_H

#include <qwt_plot_canvas.h>

// The canvas of a panel, plainly filled.
//
// The panel's style sheet gives every child its background colour, which
// makes Qt mark the canvas as styled. For a styled canvas Qwt rebuilds the
// backing store on each replot by rendering the style sheet into a scratch
// pixmap and copying it over: a sixth of a frame for a plain dark colour.
// The colour reaches the canvas's palette as well, so the canvas drops the
// styled flag after each style update and Qwt fills with the palette. The
// frame keeps its width (the layout stays) but is not drawn: the style
// sheet draws no border, only the background colour.
class PlotCanvas : public QwtPlotCanvas
{
public:
    explicit PlotCanvas(QwtPlot *plot);

protected:
    bool event(QEvent *event) override;
    void drawBorder(QPainter *painter) override;
};

#endif // PLOTCANVAS_H
