#include "makedrag.h"

#include "chartevents.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

MakeDrag::MakeDrag(QObject *parent)
    : QObject(parent)
{
}

void MakeDrag::attachTo(QObject *widget)
{
    if (!widget)
        return;
    setParent(widget);
    widget->installEventFilter(this);
}

void MakeDrag::setAxisLock(int mode)
{
    axisLock = mode;
}

// A press is handled like a move, so it too reports where the widget is.
// Releases are not handled: the drag stops when the button is no longer
// held. The widget may be dragged anywhere, also out of its parent's view.
bool MakeDrag::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != parent())
        return QObject::eventFilter(watched, event);
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (!press && event->type() != QEvent::MouseMove)
        return QObject::eventFilter(watched, event);
    auto *mouse = static_cast<QMouseEvent *>(event);
    if (press && mouse->button() == Qt::LeftButton) {
        pressX = mouse->pos().x();
        pressY = mouse->pos().y();
    }
    auto *widget = qobject_cast<QWidget *>(parent());
    if (!(mouse->buttons() & Qt::LeftButton) || !widget)
        return QObject::eventFilter(watched, event);
    QPoint topLeft = widget->mapToParent(mouse->pos()) - QPoint(pressX, pressY);
    if (axisLock == HorizontalOnly)
        topLeft.setY(widget->y());
    else if (axisLock == VerticalOnly)
        topLeft.setX(widget->x());
    widget->move(topLeft);
    if (QCoreApplication::instance()) {
        QEvent moved(ChartEvents::handleDrag()); // constructed events are not spontaneous
        QCoreApplication::sendEvent(widget, &moved);
    }
    mouse->accept();
    return true;
}
