#include "orderentry.h"

#include <pricegraph.h>

#include <QInputDialog>
#include <QPlainTextEdit>
#include <QTime>

OrderEntry::OrderEntry(PriceGraph *c, QPlainTextEdit *logWidget, QWidget *parentWidget)
    : QObject(parentWidget)
    , chart(c)
    , logView(logWidget)
    , dialogParent(parentWidget)
{
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

void OrderEntry::log(const QString &text)
{
    if (logView)
        logView->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss  ")) + text);
}

void OrderEntry::onOrderModify(QString orderid)
{
    log(QStringLiteral("modify requested for %1").arg(orderid));
    const Line current = lines.value(orderid, Line{0.0, 1});
    bool ok = false;
    const double price = QInputDialog::getDouble(dialogParent, tr("Modify order"),
                                                 tr("New price for %1:").arg(orderid),
                                                 current.price, 0.0, 1e9, 5, &ok);
    if (!ok) {
        log(QStringLiteral("%1 left unchanged").arg(orderid));
        return;
    }
    place(orderid, price, current.count);
    log(QStringLiteral("%1 moved to %2").arg(orderid).arg(price));
}

void OrderEntry::onOrderCancel(QString orderid)
{
    chart->DeletePositionLine(0, orderid.toLatin1().constData());
    lines.remove(orderid);
    log(QStringLiteral("%1 cancelled").arg(orderid));
}

void OrderEntry::onPositionCancel(QString orderid)
{
    chart->DeletePositionLine(0, orderid.toLatin1().constData());
    lines.remove(orderid);
    log(QStringLiteral("%1 closed").arg(orderid));
}
