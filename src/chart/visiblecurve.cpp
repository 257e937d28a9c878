#include "visiblecurve.h"

#include "visiblerange.h"

VisibleCurve::VisibleCurve(const QString &title)
    : QwtPlotCurve(title)
{
}

void VisibleCurve::drawSeries(QPainter *painter, const QwtScaleMap &xMap,
                              const QwtScaleMap &yMap, const QRectF &canvasRect, int from,
                              int to) const
{
    if (VisibleRange::narrow(data(), xMap, [](const QPointF &p) { return p.x(); }, from, to))
        QwtPlotCurve::drawSeries(painter, xMap, yMap, canvasRect, from, to);
}
