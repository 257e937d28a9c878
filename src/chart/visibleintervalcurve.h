#ifndef VISIBLEINTERVALCURVE_H
#define VISIBLEINTERVALCURVE_H

#include <qwt_plot_intervalcurve.h>

// An interval indicator (a name with ".end"): one box from low to value at
// each point, only for the points inside the x scale.
class VisibleIntervalCurve : public QwtPlotIntervalCurve
{
public:
    explicit VisibleIntervalCurve(const QColor &color);

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect, int from, int to) const override;
};

#endif // VISIBLEINTERVALCURVE_H
