#ifndef ORDERLINE_H
#define ORDERLINE_H

#include "priceline.h"

#include <QList>
#include <QPointer>
#include <QRect>

class OrderLineButton;

// A working order: a teal line whose box (modify and cancel) appears when
// the mouse comes near. Orders at one price form a group whose boxes are
// shown together, stacked beside their line (PlotPriceLinesData decides the
// groups): the first box on the line, the others away from the nearer edge
// of the canvas, the whole stack inside it. The stack stays up while the
// mouse moves from the line into it and between its boxes, and goes when
// the mouse leaves both.
class OrderLine : public PriceLine
{
    Q_OBJECT

public:
    OrderLine();

    void attach(QwtPlot *plot) override;

    // Alone at its price, the box follows the mouse along the line.
    bool buttonFollowsMouse() const { return m_buttonFollowsMouse; }
    void setButtonFollowsMouse(bool on);
    // The lines whose boxes show and hide with this one's (itself included).
    QList<QPointer<OrderLine>> widgets() const { return m_widgets; }
    void setWidgets(const QList<QPointer<OrderLine>> &group) { m_widgets = group; }
    // Places the box in its group's stack: `offset` pixels from the first
    // box's edge, in a stack `stackHeight` high whose first box is
    // `firstHeight` high. Kept across rescales and canvas resizes while the
    // line stays in its group.
    void setStackSlot(int offset, int stackHeight, int firstHeight);
    // The canvas area the group's boxes cover (gaps included); empty alone.
    QRect stackRect() const;

    bool hoverMove(const QPointF &pos) override;
    void mouseLeft() override;

Q_SIGNALS:
    void onOrderModify(QString orderid);
    void onOrderCancel(QString orderid);

public Q_SLOTS:
    void onModify();
    void onCancel();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void placeButton() override;

private:
    void moveButtonCentre(int x, int y);
    void showGroup(bool on);

    bool m_buttonFollowsMouse = true;
    QList<QPointer<OrderLine>> m_widgets;
    int m_mouseX = -1;        // box centre x once the mouse has placed it
    int m_stackOffset = 0;
    int m_stackHeight = -1;   // -1: not stacked
    int m_firstHeight = 0;
};

#endif // ORDERLINE_H
