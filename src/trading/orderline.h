#ifndef ORDERLINE_H
#define ORDERLINE_H

#include "priceline.h"

#include <QList>
#include <QPointer>

class OrderLineButton;

// A working order: a teal line whose box (modify and cancel) appears when
// the mouse comes near. Orders at one price form a group whose boxes are
// stacked and shown together (PlotPriceLinesData decides the groups).
class OrderLine : public PriceLine
{
    Q_OBJECT

public:
    OrderLine();
    ~OrderLine() override;

    void attach(QwtPlot *plot) override;
    void setEditable(bool on) override;
    void setValue(double x, double y) override;
    void setCount(long count) override;
    void updateLabel() override;
    void retire() override;

    OrderLineButton *button() const { return m_button; }

    // Alone at its price, the box follows the mouse along the line.
    bool buttonFollowsMouse() const { return m_buttonFollowsMouse; }
    void setButtonFollowsMouse(bool on);
    // The lines whose boxes show and hide with this one's (itself included).
    QList<QPointer<OrderLine>> widgets() const { return m_widgets; }
    void setWidgets(const QList<QPointer<OrderLine>> &group) { m_widgets = group; }
    // Places the box in a stack `stackHeight` high, centred on the canvas,
    // `offset` pixels below the stack's top. Kept across rescales and
    // canvas resizes while the line stays in its group.
    void setStackSlot(int offset, int stackHeight);

Q_SIGNALS:
    void onOrderModify(QString orderid);
    void onOrderCancel(QString orderid);

public Q_SLOTS:
    void onModify();
    void onCancel();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void updateText();
    void placeButton();
    void moveButtonCentre(int x, int y);

    QPointer<OrderLineButton> m_button;
    bool m_buttonFollowsMouse = true;
    QList<QPointer<OrderLine>> m_widgets;
    int m_mouseX = -1;        // box centre x once the mouse has placed it
    int m_stackOffset = 0;
    int m_stackHeight = -1;   // -1: not stacked
};

#endif // ORDERLINE_H
