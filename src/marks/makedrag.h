#ifndef MAKEDRAG_H
#define MAKEDRAG_H

#include <QObject>

// Makes a small child widget draggable with the left button inside its
// parent, optionally along one axis only, and tells the widget after every
// move with a bare event of type ChartEvents::handleDrag(). It knows nothing
// of marks or plots: it only moves a widget in its parent's pixels.
class MakeDrag : public QObject
{
    Q_OBJECT

public:
    enum AxisLock { Free = 0, VerticalOnly = 1, HorizontalOnly = 2 };

    explicit MakeDrag(QObject *parent = nullptr);

    // Becomes the child and the event filter of `widget` (null: nothing).
    void attachTo(QObject *widget);
    void setAxisLock(int mode);
    int getAxisLock() const { return axisLock; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int pressX = 0; // last left press, in the dragged widget's coordinates
    int pressY = 0;
    int axisLock = Free;
};

#endif // MAKEDRAG_H
