#include "chartevents.h"

#include <QCoreApplication>

namespace {

// Registered at load time, in this order, so every panel of every chart
// agrees on the numbers.
struct Registry
{
    QEvent::Type sync = QEvent::Type(QEvent::registerEventType(1100));
    QEvent::Type pan = QEvent::Type(QEvent::registerEventType(1101));
    QEvent::Type pick = QEvent::Type(QEvent::registerEventType(1000 + 200));
    QEvent::Type scroll = QEvent::Type(QEvent::registerEventType());
    QEvent::Type freeze = QEvent::Type(QEvent::registerEventType());
    QEvent::Type handleDrag = QEvent::Type(QEvent::registerEventType());
    QEvent::Type buttonHidden = QEvent::Type(QEvent::registerEventType());
};

const Registry &registry()
{
    static const Registry r;
    return r;
}

// Forces registration when the library is loaded rather than on first use.
const Registry &loadTimeRegistration = registry();

} // namespace

QEvent::Type ChartEvents::sync() { return registry().sync; }
QEvent::Type ChartEvents::pan() { return registry().pan; }
QEvent::Type ChartEvents::pick() { return registry().pick; }
QEvent::Type ChartEvents::scroll() { return registry().scroll; }
QEvent::Type ChartEvents::freeze() { return registry().freeze; }
QEvent::Type ChartEvents::handleDrag() { return registry().handleDrag; }
QEvent::Type ChartEvents::buttonHidden() { return registry().buttonHidden; }

void ChartEvents::send(QObject *receiver, QEvent::Type type)
{
    if (!receiver)
        return;
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}
