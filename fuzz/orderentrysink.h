#ifndef ORDERENTRYSINK_H
#define ORDERENTRYSINK_H

#include <QObject>
#include <QString>

// Stands in for the host's order-entry object: takes the order signals and
// counts them.
class OrderEntrySink : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    int received = 0;

public Q_SLOTS:
    void onOrderModify(QString) { ++received; }
    void onOrderCancel(QString) { ++received; }
    void onPositionCancel(QString) { ++received; }
};

#endif // ORDERENTRYSINK_H
