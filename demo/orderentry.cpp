#include "orderentry.h"

#include "orderlog.h"

#include <pricegraph.h>

#include <QInputDialog>

#include <algorithm>
#include <cmath>

OrderEntry::OrderEntry(PriceGraph *c, OrderLog *log, QWidget *parentWidget)
    : QObject(parentWidget)
    , chart(c)
    , orderLog(log)
    , dialogParent(parentWidget)
{
}

QString OrderEntry::formatPrice(double price) const
{
    return QString::number(price, 'f', priceDecimals);
}

void OrderEntry::place(const QString &id, double price, long count)
{
    const QByteArray name = id.toLatin1();
    const char *side = id.contains(QLatin1String("Sell")) ? "sell" : "buy";
    chart->DrawPositionLine(0, price, count, name.constData(), 0, side, "", "");
    lines.insert(id, Line{price, count});
}

void OrderEntry::clear()
{
    for (auto it = lines.cbegin(); it != lines.cend(); ++it)
        chart->DeletePositionLine(0, it.key().toLatin1().constData());
    lines.clear();
}

void OrderEntry::onOrderModify(QString orderid)
{
    const Line current = lines.value(orderid, Line{0.0, 1});
    // The smallest price the chart's decimals can write; nothing at or
    // below zero is a price.
    const double tick = std::pow(10.0, -priceDecimals);
    bool ok = false;
    const double entered = QInputDialog::getDouble(
        dialogParent, tr("Modify order"), tr("New price for %1:").arg(orderid),
        std::max(current.price, tick), tick, 1e9, priceDecimals, &ok);
    // The dialog already rounds to the decimals; an unchanged price is no
    // modification, so nothing is logged.
    if (!ok || formatPrice(entered) == formatPrice(current.price))
        return;
    place(orderid, entered, current.count);
    orderLog->log(tr("%1 moved from %2 to %3")
                      .arg(orderid, formatPrice(current.price), formatPrice(entered)));
}

void OrderEntry::onOrderCancel(QString orderid)
{
    chart->DeletePositionLine(0, orderid.toLatin1().constData());
    lines.remove(orderid);
    orderLog->log(tr("%1 cancelled").arg(orderid));
}

void OrderEntry::onPositionCancel(QString orderid)
{
    chart->DeletePositionLine(0, orderid.toLatin1().constData());
    lines.remove(orderid);
    orderLog->log(tr("%1 closed").arg(orderid));
}
