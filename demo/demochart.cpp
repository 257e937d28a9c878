#include "demochart.h"

#include <QChildEvent>
#include <QSplitter>

DemoChart::DemoChart(QWidget *parent)
    : PriceGraph(parent)
{
    splitter = findChild<QSplitter *>(QString(), Qt::FindDirectChildrenOnly);
    if (splitter)
        splitter->installEventFilter(this);
}

bool DemoChart::closePanel(long index)
{
    const QList<Plot *> all = GetAllPanel();
    if (index <= 0 || index >= all.size())
        return false;
    QList<Plot *> doomed{all.at(int(index))};
    removePannels(doomed);
    return true;
}

bool DemoChart::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == splitter && event->type() == QEvent::ChildRemoved) {
        // Seen before the splitter drops it from its list: its index is
        // still the panel's. Only the pointer is compared; the panel is
        // being destroyed.
        const QObject *child = static_cast<QChildEvent *>(event)->child();
        for (int i = 0; i < splitter->count(); ++i) {
            if (splitter->widget(i) == child) {
                Q_EMIT panelClosed(i);
                break;
            }
        }
    }
    return PriceGraph::eventFilter(watched, event);
}
