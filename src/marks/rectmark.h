#ifndef RECTMARK_H
#define RECTMARK_H

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QRect>
#include <QVector>

class QWidget;

// Edits a rectangle in canvas pixels: eight grips (corners and the middles
// of the sides, clockwise from the top-left) resize it like a window's
// edges, and moveBy() moves it whole, as its owner does while the user
// drags its body. Every change the user makes is announced with
// rectChanged(); a press on a grip asks for the selection with
// setSelected(true). Setting the rectangle from outside is silent.
//
// The grips are small child widgets of the canvas with the look of a
// mark's handles; like those they are widgets only where they show.
class RectMark : public QObject
{
    Q_OBJECT

public:
    explicit RectMark(QObject *parent = nullptr);
    ~RectMark() override;

    // The grips become children of `canvas` (null: nothing).
    void attachTo(QWidget *canvas);
    // The rectangle, its edges on the pixels of its corners.
    QRect rect() const;
    void setRect(const QRect &rect);
    void moveBy(const QPoint &step);
    // Grips show when the owner is selected or hovered.
    void setGripsShown(bool shown);
    bool gripsShown() const { return shown; }
    // Off while the rectangle is being drawn: the grips let the mouse through.
    void setInteractive(bool on);
    QWidget *grip(int i) const { return grips.value(i); }
    // Inside the rectangle or within 3 pixels of its outline.
    bool hitTest(QPoint p) const;

Q_SIGNALS:
    void rectChanged(QRect rect);
    void setSelected(bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeGrips();

    // The corners at grips 0 and 4; they cross while a grip is dragged
    // past the opposite edge, so that edge stays where it was.
    QPointF cornerA, cornerB;
    QVector<QPointer<QWidget>> grips;
    bool shown = false;
};

#endif // RECTMARK_H
