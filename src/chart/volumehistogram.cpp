#include "volumehistogram.h"

#include "barseries.h"
#include "plot.h"
#include "pricegraphprivate.h"
#include "tradingcurve.h"
#include "visiblerange.h"

#include <QPainter>

#include <qwt_column_symbol.h>
#include <qwt_painter.h>

#include <cmath>

VolumeHistogram::VolumeHistogram()
{
    setStyle(QwtPlotHistogram::Columns);
    setBaseline(0.0);
    // Above the grid, under the price curves when they share a panel.
    setZ(15.0);
}

const BarSeries *VolumeHistogram::bars(QColor &up, QColor &down) const
{
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    if (!panel)
        return nullptr;
    const BarSeries *bars = panel->axisBars();
    // The candles these bars belong to are the main panel's when the panel
    // borrows its bars; the host sets the same colours on every panel, but
    // a panel made before the price series missed their defaults.
    const Plot *owner = panel;
    if (bars != panel->barSeries() && panel->getChart())
        owner = PriceGraphPrivate::mainPanel(panel->getChart());
    if (!owner)
        owner = panel;
    up = owner->getUpColor().isValid() ? owner->getUpColor() : brush().color();
    down = owner->getDownColor().isValid() ? owner->getDownColor() : brush().color();
    // 60% of the colour over the panel's plain background, mixed here:
    // the same pixels as a translucent fill, at the cost of an opaque one
    // (blending every column's pixels doubles the cost of a frame).
    const QColor back = panel->getBackgroundColor().isValid() ? panel->getBackgroundColor()
                                                              : QColor(Qt::black);
    const auto mix = [&back](const QColor &c) {
        const auto channel = [](int fg, int bg) { return (fg * Opacity + bg * (255 - Opacity)) / 255; };
        return QColor(channel(c.red(), back.red()), channel(c.green(), back.green()),
                      channel(c.blue(), back.blue()));
    };
    up = mix(up);
    down = mix(down);
    return bars;
}

void VolumeHistogram::drawSeries(QPainter *painter, const QwtScaleMap &xMap,
                                 const QwtScaleMap &yMap, const QRectF &canvasRect, int from,
                                 int to) const
{
    const auto centre = [](const QwtIntervalSample &s) {
        return 0.5 * (s.interval.minValue() + s.interval.maxValue());
    };
    if (!VisibleRange::narrow(data(), xMap, centre, from, to))
        return;
    QColor up, down;
    const BarSeries *series = bars(up, down);
    const bool pixels = QwtPainter::roundingAlignment(painter);
    painter->save();
    // Columns end where the candles do.
    painter->setClipRect(TradingCurve::barArea(plot(), canvasRect), Qt::IntersectClip);
    for (int i = from; i <= to; ++i) {
        const QwtIntervalSample s = sample(size_t(i));
        if (!(s.value > 0.0))
            continue;
        // Rising as the candle is: only a close above the open.
        const int bar = int(std::lround(centre(s)));
        const bool rising = series && bar >= 0 && bar < series->size()
            && series->close(bar) > series->open(bar);
        const QColor &color = rising ? up : down;
        const QRectF r = columnRect(s, xMap, yMap).toRect();
        if (pixels) {
            // Whole pixels, as wide as a candle's body (one wider than its
            // rectangle), so a column sits exactly under its candle.
            const int left = qRound(r.left()), right = qRound(r.right());
            const int top = qRound(r.top()), bottom = qRound(r.bottom());
            painter->fillRect(QRect(left, top, right - left + 1, bottom - top + 1), color);
        } else {
            painter->fillRect(r.normalized(), color);
        }
    }
    painter->restore();
}
