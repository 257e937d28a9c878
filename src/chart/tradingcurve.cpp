#include "tradingcurve.h"

#include "barseries.h"
#include "ohlcseriesview.h"
#include "plot.h"

#include <QPainter>
#include <qwt_scale_map.h>

#include <algorithm>
#include <cmath>

TradingCurve::TradingCurve()
{
    setSymbolStyle(QwtPlotTradingCurve::UserSymbol);
    setSymbolExtent(0.6875);
    setMinSymbolWidth(1.0);
    setMaxSymbolWidth(49.0);
}

void TradingCurve::setBars(const BarSeries *bars)
{
    m_bars = bars;
    setSamples(new OhlcSeriesView(bars));
}

size_t TradingCurve::sampleCount() const
{
    // QwtPlotTradingCurve keeps its store as a private base; the size is
    // reached through the abstract store (see the using-declaration).
    return dataSize();
}

double TradingCurve::symbolWidth(const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                                 const QRectF &canvasRect) const
{
    return scaledSymbolWidth(xMap, yMap, canvasRect);
}

void TradingCurve::drawSeries(QPainter *painter, const QwtScaleMap &xMap,
                              const QwtScaleMap &yMap, const QRectF &canvasRect, int from,
                              int to) const
{
    // Bars sit at whole x positions: only those within the scale (plus one
    // on each side for partly visible candles) are drawn.
    const double lo = std::min(xMap.s1(), xMap.s2());
    const double hi = std::max(xMap.s1(), xMap.s2());
    const int n = int(sampleCount());
    if (to < 0 || to >= n)
        to = n - 1;
    from = std::max(from, 0);
    if (std::isfinite(lo) && std::isfinite(hi)) {
        from = std::max(from, int(std::min(std::max(std::floor(lo) - 1.0, 0.0), double(n))));
        to = std::min(to, int(std::max(std::min(std::ceil(hi) + 1.0, double(to)), -1.0)));
    }
    if (from > to)
        return;
    QwtPlotTradingCurve::drawSeries(painter, xMap, yMap, canvasRect, from, to);
}

void TradingCurve::drawSymbols(QPainter *painter, const QwtScaleMap &xMap,
                               const QwtScaleMap &yMap, const QRectF &canvasRect, int from,
                               int to) const
{
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    const int k = panel ? panel->getLeftInset() : 10;
    painter->save();
    painter->setClipRect(QRectF(canvasRect.left() + k, canvasRect.top(),
                                canvasRect.width() - 25 - k, canvasRect.height()),
                         Qt::IntersectClip);
    QwtPlotTradingCurve::drawSymbols(painter, xMap, yMap, canvasRect, from, to);
    painter->restore();
}

void TradingCurve::drawUserSymbol(QPainter *painter, SymbolStyle, const QwtOHLCSample &sample,
                                  Qt::Orientation orientation, bool inverted,
                                  double width) const
{
    painter->setPen(painter->brush().color());
    drawCandleStick(painter, sample, orientation, width);
    Q_UNUSED(inverted)
}
