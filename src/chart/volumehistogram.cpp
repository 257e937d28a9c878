#include "volumehistogram.h"

#include "tradingcurve.h"
#include "visiblerange.h"

#include <QPainter>

#include <qwt_column_symbol.h>
#include <qwt_painter.h>

VolumeHistogram::VolumeHistogram()
{
    setStyle(QwtPlotHistogram::Columns);
    setBaseline(0.0);
    // Above the grid, under the price curves when they share a panel.
    setZ(15.0);
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
    // Columns end where the candles do.
    painter->save();
    painter->setClipRect(TradingCurve::barArea(plot(), canvasRect), Qt::IntersectClip);
    QwtPlotHistogram::drawSeries(painter, xMap, yMap, canvasRect, from, to);
    painter->restore();
}

void VolumeHistogram::drawColumn(QPainter *painter, const QwtColumnRect &rect,
                                 const QwtIntervalSample &sample) const
{
    // Stroking the outline costs several times the fill on tall columns. An
    // aliased one-pixel outline in the opaque fill colour covers exactly
    // the rectangle one pixel wider and higher, so that is filled instead;
    // any other pen, brush or device goes the general way.
    const QPen &pen = painter->pen();
    const QBrush &brush = painter->brush();
    const bool solidOutline = pen.style() == Qt::SolidLine && pen.brush().style() == Qt::SolidPattern
        && (pen.widthF() == 0.0 || (pen.widthF() == 1.0 && !pen.isCosmetic()))
        && pen.color() == brush.color();
    if (!solidOutline || brush.style() != Qt::SolidPattern || brush.color().alpha() != 255
        || painter->testRenderHint(QPainter::Antialiasing)
        || painter->transform().type() > QTransform::TxTranslate
        || !QwtPainter::roundingAlignment(painter) || (symbol() && symbol()->style() != QwtColumnSymbol::NoStyle)) {
        QwtPlotHistogram::drawColumn(painter, rect, sample);
        return;
    }
    const QRectF r = rect.toRect();
    const int left = qRound(r.left());
    const int top = qRound(r.top());
    const int right = qRound(r.right());
    const int bottom = qRound(r.bottom());
    painter->fillRect(QRect(left, top, right - left + 1, bottom - top + 1), brush.color());
}
