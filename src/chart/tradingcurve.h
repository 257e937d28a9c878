#ifndef TRADINGCURVE_H
#define TRADINGCURVE_H

#include <qwt_plot_tradingcurve.h>

class BarSeries;

// The price series: bars or candles. Candles take their outline and wick
// from their fill colour; nothing is drawn into the left inset or the 25
// pixels at the right edge of the canvas, where the price tags stand. Only
// the bars inside the visible x range are visited.
class TradingCurve : public QwtPlotTradingCurve
{
public:
    TradingCurve();

    // Reads the bars in place through a view; the bars outlive the curve.
    void setBars(const BarSeries *bars);

    // Candle width in pixels for the given maps (public for the navigation).
    double symbolWidth(const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                       const QRectF &canvasRect) const;

    // The part of the canvas where bars are drawn: all of it but the left
    // inset of `plot` (10 px when it is no panel) and 25 px at the right.
    // Every item that draws one shape a bar clips to it, so a bar at either
    // edge shows in every panel or in none.
    static QRectF barArea(const QwtPlot *plot, const QRectF &canvasRect);

protected:
    void drawSeries(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect, int from, int to) const override;
    void drawSymbols(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                     const QRectF &canvasRect, int from, int to) const override;
    void drawUserSymbol(QPainter *painter, SymbolStyle style, const QwtOHLCSample &sample,
                        Qt::Orientation orientation, bool inverted,
                        double symbolWidth) const override;

private:
    using QwtAbstractSeriesStore::dataSize;
    size_t sampleCount() const;

    const BarSeries *m_bars = nullptr;
};

#endif // TRADINGCURVE_H
