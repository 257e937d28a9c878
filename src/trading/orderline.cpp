#include "orderline.h"

#include "chartevents.h"
#include "orderlinebutton.h"

#include <QLabel>
#include <QPushButton>
#include <qwt_plot.h>

#include <cmath>

namespace {

const double Reach = 6.0;

} // namespace

OrderLine::OrderLine()
{
    setButton(new OrderLineButton(OrderLineButton::Order));
    setLabelKind(2);
    m_widgets.append(this);
    connect(m_button->modifyButton(), SIGNAL(released()), this, SLOT(onModify()));
    connect(m_button->cancelButton(), SIGNAL(released()), this, SLOT(onCancel()));
}

void OrderLine::attach(QwtPlot *plot)
{
    if (!plot || this->plot())
        return;
    PriceLine::attach(plot);
    // The box tells its line when it hides itself (see eventFilter).
    if (m_button)
        m_button->installEventFilter(this);
}

void OrderLine::setButtonFollowsMouse(bool on)
{
    m_buttonFollowsMouse = on;
    if (on)
        m_stackHeight = -1;
    // A lone box hides as the mouse leaves it; in a stack the line decides,
    // as the mouse crosses the gaps between the boxes.
    if (m_button)
        m_button->setHidesOnLeave(on);
    placeButton(); // back on its line when its group broke up
}

void OrderLine::setStackSlot(int offset, int stackHeight, int firstHeight)
{
    m_stackOffset = offset;
    m_stackHeight = stackHeight;
    m_firstHeight = firstHeight;
    placeButton();
}

void OrderLine::moveButtonCentre(int x, int y)
{
    m_button->move(x - m_button->width() / 2, y - m_button->height() / 2);
}

void OrderLine::placeButton()
{
    QWidget *canvas = canvasWidget();
    if (!canvas || !m_button)
        return;
    const int lineY = qRound(qBound(-1.0e6, linePixelY(), 1.0e6));
    if (!m_buttonFollowsMouse && m_stackHeight >= 0) {
        // The first box sits on the line; the stack grows away from the
        // nearer edge and is kept inside the canvas. The boxes stand at the
        // right end, where the line's price is read.
        const int h = canvas->height();
        const bool down = lineY < h / 2;
        const int firstTop = lineY - m_firstHeight / 2;
        int stackTop = down ? firstTop : firstTop + m_firstHeight - m_stackHeight;
        stackTop = qMax(0, qMin(stackTop, h - m_stackHeight));
        const int top = down ? stackTop + m_stackOffset
                             : stackTop + m_stackHeight - m_stackOffset - m_button->height();
        m_button->move(canvas->width() - ButtonRightGap - m_button->width(), top);
        return;
    }
    const int centreX = m_mouseX >= 0 ? m_mouseX
                                      : canvas->width() - ButtonRightGap - m_button->width() / 2;
    moveButtonCentre(centreX, lineY);
}

QRect OrderLine::stackRect() const
{
    QRect r;
    if (m_buttonFollowsMouse)
        return r;
    for (const QPointer<OrderLine> &line : m_widgets) {
        if (line && line->plot() && line->button())
            r |= line->button()->geometry();
    }
    return r;
}

void OrderLine::showGroup(bool on)
{
    for (const QPointer<OrderLine> &line : qAsConst(m_widgets)) {
        // Lines already taken off the panel keep no box on it.
        OrderLineButton *b = line && line->plot() ? line->button() : nullptr;
        if (!b)
            continue;
        if (on && b->isHidden())
            b->show();
        else if (!on && !b->isHidden())
            b->hide();
    }
}

bool OrderLine::hoverMove(const QPointF &pos)
{
    if (m_button) {
        const double lineY = linePixelY();
        const double distance = std::abs(pos.y() - lineY);
        const bool under = distance < Reach && distance < m_button->height() / 2.0;
        if (m_buttonFollowsMouse) {
            if (under) {
                m_mouseX = qRound(pos.x());
                moveButtonCentre(m_mouseX, qRound(lineY));
            }
            showGroup(under);
        } else {
            showGroup(under || stackRect().contains(pos.toPoint()));
        }
    }
    return PriceLine::hoverMove(pos);
}

void OrderLine::mouseLeft()
{
    showGroup(false);
    PriceLine::mouseLeft();
}

void OrderLine::onModify()
{
    EmitGuard guard(this);
    Q_EMIT onOrderModify(id());
}

void OrderLine::onCancel()
{
    EmitGuard guard(this);
    Q_EMIT onOrderCancel(id());
}

bool OrderLine::eventFilter(QObject *watched, QEvent *event)
{
    if (m_button && watched == m_button && event->type() == ChartEvents::buttonHidden()) {
        if (!m_button->isHidden())
            m_button->hide();
        if (m_label && !m_label->isHidden())
            m_label->hide();
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}
