#ifndef VISIBLECURVE_H
#define VISIBLECURVE_H

#include <qwt_plot_curve.h>

// A line that draws only the points inside the x scale (plus one either
// side). Used for the close line and for indicator lines, whose views keep x
// growing with the index.
class VisibleCurve : public QwtPlotCurve
{
public:
    explicit VisibleCurve(const QString &title = QString());

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect, int from, int to) const override;
};

#endif // VISIBLECURVE_H
