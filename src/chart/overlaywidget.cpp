#include "overlaywidget.h"

#include "markregistry.h"

#include <QPainter>

OverlayWidget::OverlayWidget(QWidget *parent)
    : QWidget(parent)
    , m_textColor(0xbb, 0xbb, 0xbb)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_TranslucentBackground);
}

void OverlayWidget::setTextColor(const QColor &color)
{
    m_textColor = color;
}

bool OverlayWidget::eventFilter(QObject *watched, QEvent *event)
{
    return QWidget::eventFilter(watched, event);
}

void OverlayWidget::paintEvent(QPaintEvent *)
{
    if (!m_marks)
        return;
    QPainter painter(this);
    m_marks->paintOverlay(&painter, this);
}
