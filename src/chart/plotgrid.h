#ifndef PLOTGRID_H
#define PLOTGRID_H

#include <qwt_plot_grid.h>

// The panel's grid. Its lines are one pixel wide, solid and axis-parallel,
// so on a pixel device they are filled as one-pixel rectangles: stroking
// them through the line rasteriser cost more than all candles of a frame.
class PlotGrid : public QwtPlotGrid
{
public:
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;
};

#endif // PLOTGRID_H
