#include "plotverticallinemark.h"

#include "barseries.h"
#include "datescaledraw.h"
#include "makedrag.h"
#include "markgeometry.h"
#include "plot.h"
#include "plotraymark.h"
#include "pricegraphprivate.h"

#include <QFontMetrics>
#include <QPainter>

#include <qwt_date.h>
#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

namespace {
const int StripHalfWidth = 80; // half the widest time label, and the highlight
}

PlotVerticalLineMark::PlotVerticalLineMark()
{
    addHandle(MakeDrag::HorizontalOnly);
    setHandlesShown(selected);
    setState(state);
}

PlotVerticalLineMark::~PlotVerticalLineMark()
{
    if (QWidget *o = overlay())
        o->update(painted);
}

bool PlotVerticalLineMark::hitTest(double x, double)
{
    if (!plot() || !validHandle(0))
        return false;
    QPoint centre;
    handleCenter(0, centre);
    return MarkGeometry::nearLine(centre.x(), MarkGeometry::toPixel(x));
}

void PlotVerticalLineMark::setHovered(bool on)
{
    MarkSelfDraw::setHovered(on);
    refreshOverlay(true);
}

void PlotVerticalLineMark::setColor(QColor c)
{
    MarkSelfDraw::setColor(c);
    refreshOverlay(true);
}

void PlotVerticalLineMark::updateHandleFromPoint(int i)
{
    // The anchor's price is kept at mid-canvas, so the handle stays in view.
    if (i == 0 && plot() && !dragging) {
        const double y = plot()->canvasMap(yAxis()).invTransform(int(plot()->canvas()->height() * 0.5));
        if (std::isfinite(y))
            points[0].setY(y);
    }
    MarkSelfDraw::updateHandleFromPoint(i);
    refreshOverlay(false);
}

void PlotVerticalLineMark::updatePointFromHandle(int i)
{
    MarkSelfDraw::updatePointFromHandle(i);
    refreshOverlay(false);
}

void PlotVerticalLineMark::paintOverlay(QPainter *painter, QWidget *on)
{
    int x = 0;
    if (!painter || !on || !overlayX(on, x))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    QPen pen(color);
    pen.setCosmetic(true); // one pixel whatever the painter's scale: the fast stroker
    pen.setStyle(Qt::PenStyle(lineStyle));
    painter->setPen(pen);
    const QLine line(x, 0, x, on->height() - 1);
    painter->drawLine(line);
    if (hovered && !dragging) {
        painter->setPen(QPen(QColor(255, 255, 255, 127), 7.0, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(line);
    }
    const QString text = timeText();
    if (!text.isEmpty()) {
        const QFont font = PlotRayMark::labelFont();
        const QFontMetrics metrics(font);
        QRect box(0, 0, metrics.horizontalAdvance(text) + 8, metrics.height() + 4);
        box.moveCenter(QPoint(x, 0));
        box.moveBottom(on->height() - 1);
        if (box.right() >= on->width())
            box.moveRight(on->width() - 1);
        if (box.left() < 0)
            box.moveLeft(0);
        painter->fillRect(box, color);
        painter->setFont(font);
        painter->setPen(Qt::white);
        painter->drawText(box, Qt::AlignCenter, text);
    }
    painter->restore();
}

QString PlotVerticalLineMark::timeText() const
{
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    const BarSeries *bars = panel ? panel->axisBars() : nullptr;
    const int n = bars ? bars->size() : 0;
    const double x = std::floor(points.value(0).x() + 0.5);
    if (n == 0 || !std::isfinite(x))
        return QString();
    double time;
    if (x >= 0.0 && x < n) {
        time = bars->time(int(x));
    } else {
        double step = panel->getInterval();
        if (!(step > 0.0))
            step = n > 1 ? bars->time(n - 1) - bars->time(n - 2) : 0.0;
        time = x < 0.0 ? bars->time(0) + x * step : bars->time(n - 1) + (x - (n - 1)) * step;
    }
    if (!BarSeries::isSaneTime(time))
        return QString();
    return QwtDate::toDateTime(DateScaleDraw::nudge(time), Qt::UTC)
        .toString(QStringLiteral("yyyy-MM-dd hh:mm"));
}

QWidget *PlotVerticalLineMark::overlay() const
{
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    return panel && panel->getChart() ? PriceGraphPrivate::overlayWidget(panel->getChart())
                                      : nullptr;
}

bool PlotVerticalLineMark::overlayX(QWidget *on, int &x) const
{
    const QwtPlot *p = plot();
    if (!p || p->isHidden())
        return false;
    const QWidget *canvas = p->canvas();
    const int px = MarkGeometry::toPixel(p->transform(xAxis(), points.value(0).x()));
    const QRect area = canvas->contentsRect();
    if (px < area.left() || px > area.right())
        return false;
    x = on->mapFromGlobal(canvas->mapToGlobal(QPoint(px, 0))).x();
    return true;
}

void PlotVerticalLineMark::refreshOverlay(bool force)
{
    QWidget *o = overlay();
    if (!o)
        return;
    int x = 0;
    const QRect now = overlayX(o, x) ? QRect(x - StripHalfWidth, 0, 2 * StripHalfWidth + 1, o->height())
                                     : QRect();
    if (now == painted && !force)
        return;
    o->update(painted);
    o->update(now);
    painted = now;
}
