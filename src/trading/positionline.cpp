#include "positionline.h"

#include "linelabeltext.h"
#include "orderlinebutton.h"

#include <QMouseEvent>
#include <QPushButton>
#include <qwt_plot.h>

#include <cmath>

namespace {

// Twice the base line's reach, so the close button is easy to get to.
const double Reach = 12.0;
const int RightGap = 8;

} // namespace

PositionLine::PositionLine()
    : m_button(new OrderLineButton(OrderLineButton::Position))
{
    setLabelKind(1);
    connect(m_button->cancelButton(), SIGNAL(released()), this, SLOT(onCancel()));
}

PositionLine::~PositionLine()
{
    retire();
    delete m_button;
}

void PositionLine::attach(QwtPlot *plot)
{
    if (!plot || this->plot())
        return;
    PriceLine::attach(plot);
    if (m_button) {
        m_button->setParent(canvasWidget());
        m_button->hide();
    }
    updateText();
}

void PositionLine::setEditable(bool on)
{
    m_editable = on;
    installCanvasFilter(on);
    if (!on && m_button)
        m_button->hide();
}

void PositionLine::setValue(double x, double y)
{
    QwtPlotMarker::setValue(x, y);
    updateText();
    updateLabel();
}

void PositionLine::setCount(long count)
{
    PriceLine::setCount(count);
    updateText();
    placeButton();
}

void PositionLine::updateText()
{
    if (m_button)
        m_button->setText(LineLabelText::build(m_count, yValue(), priceDecimals()));
}

void PositionLine::placeButton()
{
    QWidget *canvas = canvasWidget();
    if (!canvas || !m_button)
        return;
    const int y = qRound(qBound(-1.0e6, linePixelY(), 1.0e6));
    m_button->move(canvas->width() - RightGap - m_button->width(), y - m_button->height() / 2);
}

void PositionLine::updateLabel()
{
    placeButton();
    PriceLine::updateLabel();
}

void PositionLine::retire()
{
    if (m_button)
        m_button->hide();
    PriceLine::retire();
}

void PositionLine::onCancel()
{
    EmitGuard guard(this);
    Q_EMIT onPositionCancel(id());
}

bool PositionLine::eventFilter(QObject *watched, QEvent *event)
{
    if (m_button && canvasWidget() && watched == canvasWidget()) {
        if (event->type() == QEvent::MouseMove) {
            const QMouseEvent *me = static_cast<QMouseEvent *>(event);
            if (std::abs(me->localPos().y() - linePixelY()) < Reach) {
                if (m_button->isHidden())
                    m_button->show();
            } else if (!m_button->isHidden()) {
                m_button->hide();
            }
        } else if (event->type() == QEvent::Leave && !m_button->isHidden()) {
            m_button->hide();
        }
    }
    return PriceLine::eventFilter(watched, event);
}
