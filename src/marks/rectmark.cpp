#include "rectmark.h"

#include "chartevents.h"
#include "makedrag.h"
#include "markgeometry.h"
#include "markselfdraw.h"
#include "shapegeometry.h"

#include <QMouseEvent>
#include <QWidget>

namespace {

const Qt::CursorShape GripCursors[ShapeGeometry::GripCount] = {
    Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor,
    Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor};

int lockOf(int grip)
{
    if (grip == 1 || grip == 5)
        return MakeDrag::VerticalOnly;
    if (grip == 3 || grip == 7)
        return MakeDrag::HorizontalOnly;
    return MakeDrag::Free;
}

} // namespace

RectMark::RectMark(QObject *parent)
    : QObject(parent)
{
    for (int i = 0; i < ShapeGeometry::GripCount; ++i) {
        QWidget *g = new QWidget;
        g->setGeometry(0, 0, MarkSelfDraw::HandleSize, MarkSelfDraw::HandleSize);
        g->setStyleSheet(QString::fromLatin1(MarkSelfDraw::ShownHandleStyle));
        g->setCursor(GripCursors[i]);
        g->hide();
        MakeDrag *drag = new MakeDrag(g);
        drag->attachTo(g);
        drag->setAxisLock(lockOf(i));
        g->installEventFilter(this);
        grips.append(g);
    }
    // A zero-size rectangle keeps all its grips on one point: the corner
    // that pulls it out both ways lies on top.
    grips.at(4)->raise();
}

RectMark::~RectMark()
{
    for (const QPointer<QWidget> &g : qAsConst(grips))
        delete g.data();
}

void RectMark::attachTo(QWidget *canvas)
{
    if (!canvas)
        return;
    for (const QPointer<QWidget> &g : qAsConst(grips)) {
        if (g)
            g->setParent(canvas);
    }
    if (grips.at(4))
        grips.at(4)->raise();
    placeGrips();
}

QRect RectMark::rect() const
{
    return MarkGeometry::spanned(
        QPoint(MarkGeometry::toPixel(cornerA.x()), MarkGeometry::toPixel(cornerA.y())),
        QPoint(MarkGeometry::toPixel(cornerB.x()), MarkGeometry::toPixel(cornerB.y())));
}

void RectMark::setRect(const QRect &r)
{
    cornerA = r.topLeft();
    cornerB = r.bottomRight();
    placeGrips();
}

void RectMark::moveBy(const QPoint &step)
{
    cornerA += step;
    cornerB += step;
    placeGrips();
    emit rectChanged(rect());
}

void RectMark::setGripsShown(bool on)
{
    shown = on;
    placeGrips();
}

void RectMark::setInteractive(bool on)
{
    for (const QPointer<QWidget> &g : qAsConst(grips)) {
        if (g)
            g->setAttribute(Qt::WA_TransparentForMouseEvents, !on);
    }
}

bool RectMark::hitTest(QPoint p) const
{
    return ShapeGeometry::boxHit(rect(), p);
}

bool RectMark::eventFilter(QObject *watched, QEvent *event)
{
    const int i = grips.indexOf(qobject_cast<QWidget *>(watched));
    if (i < 0)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress) {
        emit setSelected(true);
        return false; // the grip's drag helper takes the press
    }
    if (event->type() != ChartEvents::handleDrag())
        return false;
    const QRect g = grips.at(i)->geometry();
    const QPointF centre((g.left() + g.right()) / 2, (g.top() + g.bottom()) / 2);
    const QRect before = rect();
    ShapeGeometry::moveGrip(cornerA, cornerB, i, centre);
    placeGrips();
    if (rect() != before) // a press reports the grip where it is
        emit rectChanged(rect());
    event->accept();
    return true;
}

// A grip is a widget only where it can be seen: shown, and on the canvas.
void RectMark::placeGrips()
{
    for (int i = 0; i < grips.size(); ++i) {
        QWidget *g = grips.at(i);
        if (!g)
            continue;
        const QPointF at = ShapeGeometry::gripPoint(cornerA, cornerB, i);
        QRect area(QPoint(), g->size());
        area.moveCenter(QPoint(MarkGeometry::toPixel(at.x()), MarkGeometry::toPixel(at.y())));
        const QWidget *canvas = g->parentWidget();
        const bool inside = shown && canvas && canvas->rect().intersects(area);
        if (!inside && !g->isHidden())
            g->hide();
        if (g->pos() != area.topLeft()) {
            g->move(area.topLeft());
            if (!inside)
                g->setAttribute(Qt::WA_PendingMoveEvent, false);
        }
        if (inside && g->isHidden())
            g->show();
    }
}
