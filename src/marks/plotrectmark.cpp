#include "plotrectmark.h"

#include "markgeometry.h"
#include "markpainter.h"
#include "rectmark.h"

#include <QMouseEvent>
#include <QPainter>

#include <qwt_plot.h>
#include <qwt_scale_map.h>

#include <cmath>

PlotRectMark::PlotRectMark()
    : editor(new RectMark(this))
{
    // Two anchors whose handles are the editor's corners.
    handles.resize(2);
    points.resize(2);
    connect(editor, &RectMark::rectChanged, this, &PlotRectMark::rectEdited);
    connect(editor, &RectMark::setSelected, this, &PlotRectMark::setSelected);
    setHandlesShown(selected);
    setState(state);
}

PlotRectMark::~PlotRectMark()
{
    RectMark *doomed = editor;
    editor = nullptr;
    delete doomed;
}

bool PlotRectMark::hitTest(double x, double y)
{
    return plot() && editor
           && editor->hitTest(QPoint(MarkGeometry::toPixel(x), MarkGeometry::toPixel(y)));
}

void PlotRectMark::setState(int s)
{
    MarkSelfDraw::setState(s);
    if (editor)
        editor->setInteractive(s == 0 || s == 3);
}

void PlotRectMark::attachToPlot(QwtPlot *target)
{
    if (!target)
        return;
    MarkSelfDraw::attachToPlot(target);
    if (editor)
        editor->attachTo(target->canvas());
    syncHandles();
}

void PlotRectMark::updateHandleFromPoint(int i)
{
    if (!plot() || !editor || i < 0 || i > 1)
        return;
    const QRect now = MarkGeometry::spanned(pixelOf(0), pixelOf(1));
    if (now != editor->rect())
        editor->setRect(now);
    else
        editor->setGripsShown(editor->gripsShown()); // the canvas may have changed size
}

void PlotRectMark::updatePointFromHandle(int i)
{
    if (!plot() || !editor || i < 0 || i > 1)
        return;
    QPoint corner;
    handleCenter(i, corner);
    const QPointF p = QwtScaleMap::invTransform(plot()->canvasMap(xAxis()),
                                                plot()->canvasMap(yAxis()), QPointF(corner));
    setPoint(i, p);
}

void PlotRectMark::moveHandleTo(int i, QPoint center)
{
    if (!editor || i < 0 || i > 1)
        return;
    const QRect r = editor->rect();
    editor->setRect(MarkGeometry::spanned(center, i == 0 ? r.bottomRight() : r.topLeft()));
}

void PlotRectMark::handleCenter(int i, QPoint &center)
{
    if (!editor || i < 0 || i > 1)
        return;
    center = i == 0 ? editor->rect().topLeft() : editor->rect().bottomRight();
}

bool PlotRectMark::canvasEventFilter(QObject *watched, QEvent *event)
{
    // The whole-mark drag moves the editor; the framework then reads the
    // anchors back from its corners and replots.
    if (dragging && editor && event->type() == QEvent::MouseMove && plot()
        && watched == plot()->canvas() && (state == 0 || state == 3)) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->buttons() & Qt::LeftButton) {
            editor->setRect(editor->rect().translated(mouse->pos() - QPoint(lastX, lastY)));
            updatePointFromHandle(0);
            updatePointFromHandle(1);
        }
    }
    return MarkSelfDraw::canvasEventFilter(watched, event);
}

void PlotRectMark::setHandlesShown(bool shown)
{
    MarkSelfDraw::setHandlesShown(shown);
    if (editor)
        editor->setGripsShown(shown);
}

void PlotRectMark::setWithRectInCanvas(QRect rect)
{
    if (!plot())
        return;
    const QwtScaleMap xMap = plot()->canvasMap(xAxis()), yMap = plot()->canvasMap(yAxis());
    setPoint(0, QwtScaleMap::invTransform(xMap, yMap, QPointF(rect.topLeft())));
    setPoint(1, QwtScaleMap::invTransform(xMap, yMap, QPointF(rect.bottomRight())));
}

void PlotRectMark::rectEdited(QRect rect)
{
    setWithRectInCanvas(rect);
    replotPlot();
}

void PlotRectMark::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                        const QRectF &canvasRect) const
{
    const QRectF box = QRectF(QwtScaleMap::transform(xMap, yMap, points.value(0)),
                              QwtScaleMap::transform(xMap, yMap, points.value(1)))
                           .normalized();
    // Cut to the canvas: edges beyond it land outside the painted area.
    const QRectF area = MarkPainter::paintArea(canvasRect);
    const QRectF shown(QPointF(qMax(box.left(), area.left()), qMax(box.top(), area.top())),
                       QPointF(qMin(box.right(), area.right()), qMin(box.bottom(), area.bottom())));
    if (!(shown.width() >= 0.0 && shown.height() >= 0.0))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    QColor fill = color;
    fill.setAlpha(40);
    painter->fillRect(shown, fill);
    painter->setPen(MarkPainter::pen(color));
    painter->drawRect(shown);
    if (hovered && !dragging) {
        painter->setPen(MarkPainter::highlightPen());
        painter->drawRect(shown);
    }
    painter->restore();
}
