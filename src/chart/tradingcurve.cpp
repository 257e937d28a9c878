#include "tradingcurve.h"

#include "barseries.h"
#include "ohlcseriesview.h"
#include "plot.h"

#include <QPainter>
#include <qwt_painter.h>
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

QRectF TradingCurve::barArea(const QwtPlot *plot, const QRectF &canvasRect)
{
    const Plot *panel = dynamic_cast<const Plot *>(plot);
    const int k = panel ? panel->getLeftInset() : 10;
    return QRectF(canvasRect.left() + k, canvasRect.top(), canvasRect.width() - 25 - k,
                  canvasRect.height());
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
    painter->save();
    painter->setClipRect(barArea(plot(), canvasRect), Qt::IntersectClip);
    QwtPlotTradingCurve::drawSymbols(painter, xMap, yMap, canvasRect, from, to);
    painter->restore();
}

void TradingCurve::drawUserSymbol(QPainter *painter, SymbolStyle, const QwtOHLCSample &sample,
                                  Qt::Orientation orientation, bool inverted,
                                  double width) const
{
    Q_UNUSED(inverted)
    const QBrush &brush = painter->brush();
    // On a pixel device the sample arrives rounded to whole pixels and the
    // width as an even number, so a candle outlined in its own opaque colour
    // is two solid rectangles: the wick column from high to low and the body
    // one pixel wider and higher than its rectangle (what the one-pixel
    // outline adds). Filling them skips the line rasteriser that stroking
    // the outline and wicks goes through, with the same pixels.
    if (orientation == Qt::Vertical && brush.style() == Qt::SolidPattern
        && brush.color().alpha() == 255 && !painter->testRenderHint(QPainter::Antialiasing)
        && painter->transform().type() <= QTransform::TxTranslate
        && QwtPainter::roundingAlignment(painter)) {
        const int t = qRound(sample.time);
        const int high = qRound(std::min(sample.low, sample.high));
        const int low = qRound(std::max(sample.low, sample.high));
        const int bodyTop = qRound(std::min(sample.open, sample.close));
        const int bodyBottom = qRound(std::max(sample.open, sample.close));
        const int half = qRound(0.5 * width);
        painter->fillRect(QRect(t, high, 1, low - high + 1), brush.color());
        painter->fillRect(QRect(t - half, bodyTop, 2 * half + 1, bodyBottom - bodyTop + 1),
                          brush.color());
        return;
    }
    painter->setPen(brush.color());
    drawCandleStick(painter, sample, orientation, width);
}
