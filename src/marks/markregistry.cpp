#include "markregistry.h"

#include <algorithm>

void MarkRegistry::add(Kind kind, MarkSelfDraw *mark)
{
    if (kind < 0 || kind >= KindCount || !mark)
        return;
    QVector<QPointer<MarkSelfDraw>> &list = m_lists[kind];
    // Deleted marks leave null entries: drop them as the list grows.
    list.erase(std::remove_if(list.begin(), list.end(),
                              [](const QPointer<MarkSelfDraw> &m) { return m.isNull(); }),
               list.end());
    list.append(mark);
}

QList<MarkSelfDraw *> MarkRegistry::marks(Kind kind) const
{
    QList<MarkSelfDraw *> live;
    if (kind < 0 || kind >= KindCount)
        return live;
    for (const QPointer<MarkSelfDraw> &m : m_lists[kind]) {
        if (m)
            live.append(m.data());
    }
    return live;
}

QList<MarkSelfDraw *> MarkRegistry::all(const QwtPlot *plot) const
{
    QList<MarkSelfDraw *> live;
    for (const QVector<QPointer<MarkSelfDraw>> &list : m_lists) {
        for (const QPointer<MarkSelfDraw> &m : list) {
            if (m && (!plot || m->plot() == plot))
                live.append(m.data());
        }
    }
    return live;
}

void MarkRegistry::barsInserted(int index, int count)
{
    for (MarkSelfDraw *m : all())
        m->shiftBars(index, count);
}

void MarkRegistry::paintOverlay(QPainter *painter, QWidget *overlay) const
{
    for (const QPointer<MarkSelfDraw> &m : m_lists[VerticalLine]) {
        if (m)
            m->paintOverlay(painter, overlay);
    }
}
