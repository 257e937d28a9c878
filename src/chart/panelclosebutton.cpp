#include "panelclosebutton.h"

#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>

#include <qwt_plot_canvas.h>

namespace {

constexpr int Size = 12;
// Kept clear of the 25 pixels at the canvas's right edge where price tags stand.
constexpr int RightGap = 27;
constexpr int TopGap = 3;

} // namespace

PanelCloseButton::PanelCloseButton(Plot *plot)
    : QAbstractButton(plot->canvas())
    , m_plot(plot)
{
    setObjectName(QStringLiteral("panelCloseButton"));
    setFixedSize(Size, Size);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::NoFocus);
    setToolTip(QStringLiteral("Close panel"));
    plot->canvas()->installEventFilter(this);
    connect(this, &QAbstractButton::clicked, this, &PanelCloseButton::requestClose);
    place();
}

PanelCloseButton *PanelCloseButton::of(Plot *plot)
{
    return plot ? plot->canvas()->findChild<PanelCloseButton *>(QString(), Qt::FindDirectChildrenOnly)
                : nullptr;
}

void PanelCloseButton::showFor(Plot *plot, bool show)
{
    PanelCloseButton *button = of(plot);
    if (!button) {
        if (!show)
            return;
        button = new PanelCloseButton(plot);
    }
    button->setVisible(show);
    if (show)
        button->raise();
}

QSize PanelCloseButton::sizeHint() const
{
    return QSize(Size, Size);
}

void PanelCloseButton::place()
{
    move(parentWidget()->width() - RightGap - Size, TopGap);
}

void PanelCloseButton::requestClose()
{
    // Destroying the panel here would delete this button inside its own
    // click: let the event loop do it.
    QPointer<PriceGraph> chart = m_plot->getChart();
    QPointer<Plot> plot = m_plot;
    if (!chart)
        return;
    QMetaObject::invokeMethod(
        chart.data(),
        [chart, plot]() {
            if (chart && plot)
                PriceGraphPrivate::closePanel(chart, plot);
        },
        Qt::QueuedConnection);
}

bool PanelCloseButton::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        place();
    return false;
}

void PanelCloseButton::enterEvent(QEvent *)
{
    m_hover = true;
    update();
}

void PanelCloseButton::leaveEvent(QEvent *)
{
    m_hover = false;
    update();
}

void PanelCloseButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor text = m_plot->getTextColor().isValid() ? m_plot->getTextColor()
                                                         : QColor(0xbb, 0xbb, 0xbb);
    if (m_hover || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x41, 0x41, 0x41));
        painter.drawRect(rect());
    }
    painter.setPen(QPen(m_hover ? text.lighter(130) : text, 1.4));
    const QRectF r = QRectF(rect()).adjusted(3, 3, -3, -3);
    painter.drawLine(r.topLeft(), r.bottomRight());
    painter.drawLine(r.topRight(), r.bottomLeft());
}
