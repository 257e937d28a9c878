#include "visibleintervalcurve.h"

#include "visiblerange.h"

#include <qwt_interval_symbol.h>

VisibleIntervalCurve::VisibleIntervalCurve(const QColor &color)
{
    setOrientation(Qt::Vertical);
    setStyle(QwtPlotIntervalCurve::NoCurve);
    setPen(color, 0, Qt::SolidLine);
    setBrush(color);
    QwtIntervalSymbol *symbol = new QwtIntervalSymbol(QwtIntervalSymbol::Box);
    symbol->setWidth(5);
    symbol->setPen(QPen(color, 0));
    symbol->setBrush(color);
    setSymbol(symbol);
}

void VisibleIntervalCurve::drawSeries(QPainter *painter, const QwtScaleMap &xMap,
                                      const QwtScaleMap &yMap, const QRectF &canvasRect,
                                      int from, int to) const
{
    const auto x = [](const QwtIntervalSample &s) { return s.value; };
    if (VisibleRange::narrow(data(), xMap, x, from, to))
        QwtPlotIntervalCurve::drawSeries(painter, xMap, yMap, canvasRect, from, to);
}
