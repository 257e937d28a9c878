#include "plothorizontalmark.h"

#include "makedrag.h"
#include "markgeometry.h"
#include "plot.h"

#include <QLabel>
#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

PlotHorizontalMark::PlotHorizontalMark()
    : label(new QLabel)
{
    addHandle(MakeDrag::VerticalOnly);
    label->setAttribute(Qt::WA_TransparentForMouseEvents); // a press there is on the line
    label->hide();
    restyleLabel();
    setHandlesShown(selected);
    setState(state);
}

PlotHorizontalMark::~PlotHorizontalMark()
{
    delete label.data();
}

bool PlotHorizontalMark::hitTest(double, double y)
{
    if (!plot() || !validHandle(0))
        return false;
    QPoint centre;
    handleCenter(0, centre);
    return MarkGeometry::nearLine(centre.y(), MarkGeometry::toPixel(y));
}

void PlotHorizontalMark::setColor(QColor c)
{
    MarkSelfDraw::setColor(c);
    restyleLabel();
}

void PlotHorizontalMark::attachToPlot(QwtPlot *target)
{
    MarkSelfDraw::attachToPlot(target);
    if (!target || !label)
        return;
    label->setParent(target->canvas());
    label->show();
    placeLabel();
}

void PlotHorizontalMark::updateHandleFromPoint(int i)
{
    // The anchor's time is kept at mid-canvas, so the handle never scrolls
    // out of view (unless the price does).
    if (i == 0 && plot() && !dragging) {
        const double x = plot()->canvasMap(xAxis()).invTransform(int(plot()->canvas()->width() * 0.5));
        if (std::isfinite(x))
            points[0].setX(x);
    }
    MarkSelfDraw::updateHandleFromPoint(i);
    placeLabel();
}

void PlotHorizontalMark::updatePointFromHandle(int i)
{
    MarkSelfDraw::updatePointFromHandle(i);
    placeLabel();
}

void PlotHorizontalMark::draw(QPainter *painter, const QwtScaleMap &, const QwtScaleMap &yMap,
                              const QRectF &canvasRect) const
{
    const int y = MarkGeometry::toPixel(yMap.transform(points.value(0).y()));
    if (y < canvasRect.top() - 4.0 || y > canvasRect.bottom() + 4.0)
        return;
    const QLineF line(canvasRect.left(), y, canvasRect.right(), y);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    QPen pen(color);
    pen.setCosmetic(true); // one pixel whatever the painter's scale: the fast stroker
    pen.setStyle(Qt::PenStyle(lineStyle));
    painter->setPen(pen);
    painter->drawLine(line);
    if (hovered && !dragging) {
        painter->setPen(QPen(QColor(255, 255, 255, 127), 7.0, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(line);
    }
    painter->restore();
}

void PlotHorizontalMark::restyleLabel()
{
    if (!label)
        return;
    label->setStyleSheet(
        QString::asprintf("QLabel{border:none; color:rgba(255,255,255,201); "
                          "background-color:rgba(%d,%d,%d,201);}",
                          color.red(), color.green(), color.blue())
        + QStringLiteral("QLabel{font-family: \"Roboto\"; font-size: 10px;}"));
    placeLabel();
}

// On the canvas's right edge, vertically centred on the line, the price in
// the chart's decimals.
void PlotHorizontalMark::placeLabel()
{
    if (!label || !plot() || !validHandle(0))
        return;
    const Plot *panel = dynamic_cast<const Plot *>(plot());
    int decimals = panel ? panel->priceDecimals() : 4;
    if (decimals < 0)
        decimals = 4;
    label->setText(QString::number(points.at(0).y(), 'f', decimals));
    label->adjustSize();
    QPoint centre;
    handleCenter(0, centre);
    const QRect canvas = plot()->canvas()->contentsRect();
    label->move(canvas.right() + 1 - label->width(), centre.y() - label->height() / 2);
}
