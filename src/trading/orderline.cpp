#include "orderline.h"

#include "chartevents.h"
#include "linelabeltext.h"
#include "orderlinebutton.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <qwt_plot.h>

#include <cmath>

namespace {

const double Reach = 6.0;
const int RightGap = 8; // a box nobody has moved sits this far from the axis

} // namespace

OrderLine::OrderLine()
    : m_button(new OrderLineButton(OrderLineButton::Order))
{
    setLabelKind(2);
    m_widgets.append(this);
    connect(m_button->modifyButton(), SIGNAL(released()), this, SLOT(onModify()));
    connect(m_button->cancelButton(), SIGNAL(released()), this, SLOT(onCancel()));
}

OrderLine::~OrderLine()
{
    retire();
    delete m_button;
}

void OrderLine::attach(QwtPlot *plot)
{
    if (!plot || this->plot())
        return;
    PriceLine::attach(plot);
    if (m_button) {
        m_button->setParent(canvasWidget());
        m_button->hide();
        m_button->installEventFilter(this);
    }
    updateText();
}

void OrderLine::setEditable(bool on)
{
    m_editable = on;
    installCanvasFilter(on);
    if (!on && m_button)
        m_button->hide();
}

void OrderLine::setValue(double x, double y)
{
    QwtPlotMarker::setValue(x, y);
    updateText();
    updateLabel();
}

void OrderLine::setCount(long count)
{
    PriceLine::setCount(count);
    updateText();
    placeButton();
}

void OrderLine::updateText()
{
    if (m_button)
        m_button->setText(LineLabelText::build(m_count, yValue(), priceDecimals()));
}

void OrderLine::setButtonFollowsMouse(bool on)
{
    m_buttonFollowsMouse = on;
    if (on)
        m_stackHeight = -1;
}

void OrderLine::setStackSlot(int offset, int stackHeight)
{
    m_stackOffset = offset;
    m_stackHeight = stackHeight;
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
    const int centreX = m_mouseX >= 0 ? m_mouseX
                                      : canvas->width() - RightGap - m_button->width() / 2;
    if (!m_buttonFollowsMouse && m_stackHeight >= 0) {
        const int top = (canvas->height() - m_stackHeight) / 2 + m_stackOffset;
        m_button->move(centreX - m_button->width() / 2, top);
        return;
    }
    const double y = linePixelY();
    moveButtonCentre(centreX, qRound(qBound(-1.0e6, y, 1.0e6)));
}

void OrderLine::updateLabel()
{
    placeButton();
    PriceLine::updateLabel();
}

void OrderLine::retire()
{
    if (m_button) {
        m_button->removeEventFilter(this);
        m_button->hide();
    }
    PriceLine::retire();
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
    if (canvasWidget() && watched == canvasWidget() && event->type() == QEvent::MouseMove
        && m_button) {
        const QMouseEvent *me = static_cast<QMouseEvent *>(event);
        const double lineY = linePixelY();
        const double distance = std::abs(me->localPos().y() - lineY);
        const bool under = distance < Reach && distance < m_button->height() / 2.0;
        if (under && m_buttonFollowsMouse) {
            m_mouseX = me->pos().x();
            moveButtonCentre(m_mouseX, qRound(lineY));
            if (m_button->isHidden())
                m_button->show();
        } else {
            for (const QPointer<OrderLine> &line : qAsConst(m_widgets)) {
                // Lines already taken off the panel keep no box on it.
                OrderLineButton *b = line && line->plot() ? line->button() : nullptr;
                if (!b)
                    continue;
                if (under && b->isHidden())
                    b->show();
                else if (!under && !b->isHidden())
                    b->hide();
            }
        }
    }
    return PriceLine::eventFilter(watched, event);
}
