#ifndef POSITIONLINE_H
#define POSITIONLINE_H

#include "priceline.h"

#include <QPointer>

class OrderLineButton;

// An open position: a blue line whose box (text and close button) shows
// while the mouse is within 12 px. Never grouped with orders.
class PositionLine : public PriceLine
{
    Q_OBJECT

public:
    PositionLine();
    ~PositionLine() override;

    void attach(QwtPlot *plot) override;
    void setEditable(bool on) override;
    void setValue(double x, double y) override;
    void setCount(long count) override;
    void updateLabel() override;
    void retire() override;

    OrderLineButton *button() const { return m_button; }

Q_SIGNALS:
    void onPositionCancel(QString orderid);

public Q_SLOTS:
    void onCancel();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void updateText();
    void placeButton();

    QPointer<OrderLineButton> m_button;
};

#endif // POSITIONLINE_H
