#include "overlaylayout.h"

#include <QWidget>

OverlayLayout::OverlayLayout(QWidget *parent)
    : QLayout(parent)
{
}

OverlayLayout::~OverlayLayout()
{
    while (QLayoutItem *item = takeAt(0))
        delete item;
}

void OverlayLayout::addItem(QLayoutItem *item)
{
    m_items.append(item);
}

int OverlayLayout::count() const
{
    return m_items.size();
}

QLayoutItem *OverlayLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *OverlayLayout::takeAt(int index)
{
    return (index >= 0 && index < m_items.size()) ? m_items.takeAt(index) : nullptr;
}

QSize OverlayLayout::sizeHint() const
{
    // The first item (the splitter) decides; the overlay has no size of its own.
    return m_items.isEmpty() ? QSize() : m_items.first()->sizeHint();
}

QSize OverlayLayout::minimumSize() const
{
    return m_items.isEmpty() ? QSize() : m_items.first()->minimumSize();
}

void OverlayLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect r = contentsRect();
    for (QLayoutItem *item : qAsConst(m_items)) {
        item->setGeometry(r);
        if (QWidget *w = item->widget())
            w->raise(); // keep later items on top
    }
}
