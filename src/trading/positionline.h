#ifndef POSITIONLINE_H
#define POSITIONLINE_H

#include "priceline.h"

// An open position: a blue line whose box (text and close button) shows
// while the mouse is within 12 px. Never grouped with orders.
class PositionLine : public PriceLine
{
    Q_OBJECT

public:
    PositionLine();

    bool hoverMove(const QPointF &pos) override;
    void mouseLeft() override;

Q_SIGNALS:
    void onPositionCancel(QString orderid);

public Q_SLOTS:
    void onCancel();

protected:
    void placeButton() override;
};

#endif // POSITIONLINE_H
