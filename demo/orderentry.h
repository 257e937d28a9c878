#ifndef ORDERENTRY_H
#define ORDERENTRY_H

#include <QMap>
#include <QObject>
#include <QString>

class PriceGraph;
class QPlainTextEdit;
class QWidget;

// The terminal's side of order and position lines: the chart calls these
// slots when the user presses a line's buttons; the terminal decides and
// answers by drawing or deleting the line. Every request is logged.
class OrderEntry : public QObject
{
    Q_OBJECT

public:
    OrderEntry(PriceGraph *chart, QPlainTextEdit *log, QWidget *dialogParent);

    // Shows (or moves) the line `id` on the price panel.
    void place(const QString &id, double price, long count);
    // Removes every line this object placed.
    void clear();
    void log(const QString &text);

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
    QPlainTextEdit *logView;
    QWidget *dialogParent;
    QMap<QString, Line> lines;
};

#endif // ORDERENTRY_H
