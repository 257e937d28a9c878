#include "orderlinebutton.h"

#include "chartevents.h"
#include "priceline.h"

#include <QHBoxLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

namespace {

const int ButtonSize = 14; // the icons' size, so their images do not tile
const int TextHeight = 16;
const int Margin = 2;      // frame to content; the box is 20 px high
const qreal Radius = 3.0;

QPushButton *makeButton(const QString &styleSheet, QWidget *parent)
{
    QPushButton *b = new QPushButton(parent);
    b->setFixedSize(ButtonSize, ButtonSize);
    b->setFocusPolicy(Qt::NoFocus);
    b->setCursor(Qt::PointingHandCursor);
    b->setStyleSheet(styleSheet);
    return b;
}

} // namespace

OrderLineButton::OrderLineButton(Kind kind, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
{
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    // Children inherit this: only the frame painted below and the text show.
    setStyleSheet(QStringLiteral("background-color:transparent;"));

    m_text = new QLabel(QString::fromLatin1(placeholderText()), this);
    m_text->setFixedHeight(TextHeight);
    m_text->setAlignment(Qt::AlignVCenter | Qt::AlignLeft);
    m_text->setContentsMargins(0, 0, 3, 0);
    if (kind == Order) {
        m_text->setStyleSheet(QStringLiteral("background-color : rgba(0x06,0x7e,0x82,255);") +
                              QStringLiteral("color : rgba(255,255,255,201);") +
                              QStringLiteral("font-size : 10px;"));
    } else {
        m_text->setStyleSheet(PriceLine::labelStyleSheet(1));
    }

    QHBoxLayout *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addWidget(m_text);
    if (kind == Order) {
        m_modify = makeButton(QStringLiteral(
            "*{background-image:url(:/Icon/Resources/icon_pen_0.bmp);} "
            ":hover{background-image:url(:/Icon/Resources/icon_pen_1.bmp);}"), this);
        m_cancel = makeButton(QStringLiteral(
            "*{background-image:url(:/Icon/Resources/icon_close_0.bmp);} "
            ":hover{background-image:url(:/Icon/Resources/icon_close_1.bmp);}"), this);
        layout->addWidget(m_modify);
    } else {
        m_cancel = makeButton(QStringLiteral(
            "*{background-image:url(:/Icon/Resources/icom_close_blue_0.bmp);} "
            ":hover{background-image:url(:/Icon/Resources/icom_close_blue_1.png);}"), this);
    }
    layout->addWidget(m_cancel);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
}

void OrderLineButton::setText(const QString &text)
{
    if (m_text->text() == text)
        return;
    m_text->setText(text);
    adjustSize();
}

QString OrderLineButton::text() const
{
    return m_text->text();
}

void OrderLineButton::hideAndTell()
{
    hide();
    ChartEvents::send(this, ChartEvents::buttonHidden());
}

bool OrderLineButton::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        // Moves over the box never reach the canvas below.
        event->accept();
        return true;
    case QEvent::HoverLeave:
        if (isVisible() && m_hidesOnLeave)
            hideAndTell();
        event->accept();
        return true;
    case QEvent::HoverMove: {
        const QHoverEvent *he = static_cast<QHoverEvent *>(event);
        if (!m_inside.contains(he->posF())) {
            if (isVisible() && m_hidesOnLeave)
                hideAndTell();
            event->accept();
            return false;
        }
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        // Clicks beside the painted shape fall through to the canvas.
        const QMouseEvent *me = static_cast<QMouseEvent *>(event);
        event->setAccepted(m_inside.contains(me->localPos()));
        return event->isAccepted();
    }
    default:
        break;
    }
    return QWidget::event(event);
}

void OrderLineButton::resizeEvent(QResizeEvent *event)
{
    const QRectF r(rect());
    m_inside = QPainterPath();
    m_inside.addRoundedRect(r, Radius, Radius);
    m_outline = QPainterPath();
    m_outline.addRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    QWidget::resizeEvent(event);
}

void OrderLineButton::paintEvent(QPaintEvent *)
{
    // A dark body keeps the light icons readable on the #0c0c0c canvas; the
    // frame takes the line's colour so the box reads as part of its line.
    const QColor accent = m_kind == Order ? QColor(0x06, 0x7e, 0x82) : QColor(0x00, 0x7f, 0xff);
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillPath(m_outline, QColor(0x1e, 0x24, 0x26));
    // Qt's style sheets do not read the hex components of the text part's
    // rgba(); the same colour is painted behind the (transparent) label.
    if (m_kind == Order)
        p.fillRect(m_text->geometry(), accent);
    p.setPen(QPen(accent, 1.0));
    p.drawPath(m_outline);
}
