#include "positionline.h"

#include "orderlinebutton.h"

#include <QPushButton>
#include <qwt_plot.h>

#include <cmath>

namespace {

// Twice the base line's reach, so the close button is easy to get to.
const double Reach = 12.0;

} // namespace

PositionLine::PositionLine()
{
    setButton(new OrderLineButton(OrderLineButton::Position));
    setLabelKind(1);
    connect(m_button->cancelButton(), SIGNAL(released()), this, SLOT(onCancel()));
}

void PositionLine::placeButton()
{
    QWidget *canvas = canvasWidget();
    if (!canvas || !m_button)
        return;
    const int y = qRound(qBound(-1.0e6, linePixelY(), 1.0e6));
    m_button->move(canvas->width() - ButtonRightGap - m_button->width(), y - m_button->height() / 2);
}

void PositionLine::onCancel()
{
    EmitGuard guard(this);
    Q_EMIT onPositionCancel(id());
}

bool PositionLine::hoverMove(const QPointF &pos)
{
    if (m_button) {
        if (std::abs(pos.y() - linePixelY()) < Reach) {
            if (m_button->isHidden())
                m_button->show();
        } else if (!m_button->isHidden()) {
            m_button->hide();
        }
    }
    return PriceLine::hoverMove(pos);
}

void PositionLine::mouseLeft()
{
    if (m_button && !m_button->isHidden())
        m_button->hide();
    PriceLine::mouseLeft();
}
