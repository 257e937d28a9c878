#include "plotgrid.h"

#include <QPainter>

#include <qwt_painter.h>
#include <qwt_scale_map.h>

namespace {

// The lines QwtPlotGrid::drawLines draws, as rectangles: positions rounded
// to pixels, lines on the canvas's last row or column left out, and a line
// running from the canvas edge up to, not including, its last pixel (flat
// cap).
void fillLines(QPainter *painter, const QRectF &canvasRect, Qt::Orientation orientation,
               const QwtScaleMap &map, const QList<double> &values, const QColor &color)
{
    const int x1 = qRound(canvasRect.left());
    const int x2 = qRound(canvasRect.right() - 1.0);
    const int y1 = qRound(canvasRect.top());
    const int y2 = qRound(canvasRect.bottom() - 1.0);
    for (double v : values) {
        const int p = qRound(map.transform(v));
        if (orientation == Qt::Horizontal) {
            if (p >= y1 && p <= y2)
                painter->fillRect(QRect(x1, p, x2 - x1, 1), color);
        } else if (p >= x1 && p <= x2) {
            painter->fillRect(QRect(p, y1, 1, y2 - y1), color);
        }
    }
}

} // namespace

void PlotGrid::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                    const QRectF &canvasRect) const
{
    const QPen &pen = majorPen();
    const bool plain = !xMinEnabled() && !yMinEnabled() && pen.style() == Qt::SolidLine
        && pen.brush().style() == Qt::SolidPattern && pen.color().alpha() == 255
        && (pen.widthF() == 0.0 || (pen.widthF() == 1.0 && !pen.isCosmetic()))
        && !painter->testRenderHint(QPainter::Antialiasing)
        && painter->transform().type() <= QTransform::TxTranslate
        && QwtPainter::roundingAlignment(painter) && canvasRect == canvasRect.toAlignedRect();
    if (!plain) {
        QwtPlotGrid::draw(painter, xMap, yMap, canvasRect);
        return;
    }
    if (xEnabled())
        fillLines(painter, canvasRect, Qt::Vertical, xMap, xScaleDiv().ticks(QwtScaleDiv::MajorTick),
                  pen.color());
    if (yEnabled())
        fillLines(painter, canvasRect, Qt::Horizontal, yMap,
                  yScaleDiv().ticks(QwtScaleDiv::MajorTick), pen.color());
}
