#ifndef ORDERENTRY_H
#define ORDERENTRY_H

#include <QMap>
#include <QObject>
#include <QString>

class OrderLog;
class PriceGraph;
class QWidget;

// The terminal's side of order and position lines: the chart calls these
// slots when the user presses a line's buttons; the terminal decides and
// answers by drawing or deleting the line. Every change is logged.
class OrderEntry : public QObject
{
    Q_OBJECT

public:
    OrderEntry(PriceGraph *chart, OrderLog *log, QWidget *dialogParent);

    // Shows (or moves) the line `id` on the price panel.
    void place(const QString &id, double price, long count);
    // Removes every line this object placed.
    void clear();
    // Prices are shown and entered with the chart's decimals.
    void setDecimals(int decimals) { priceDecimals = decimals; }
    QString formatPrice(double price) const;

public Q_SLOTS:
    void onOrderModify(QString orderid);
    void onOrderCancel(QString orderid);
    void onPositionCancel(QString orderid);

private:
    struct Line
    {
        double price;
        long count;
    };

    PriceGraph *chart;
    OrderLog *orderLog;
    QWidget *dialogParent;
    QMap<QString, Line> lines;
    int priceDecimals = 2;
};

#endif // ORDERENTRY_H
