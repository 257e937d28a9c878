#include "zoombuttons.h"

#include <QPushButton>

namespace {

const char *const BaseSheet = "*{border: none;background-color:transparent;}";
const char *const IconSheet[2] = {
    "*{background-image:url(:/Icons/Resources/icon-zoomin-1.png);}\n",
    "*{background-image:url(:/Icons/Resources/icon-zoomout-1.png);}\n",
};
const char *const HoverSheet[2] = {
    ":hover{background-image:url(:/Icons/Resources/icon-zoomin.png);}\n",
    ":hover{background-image:url(:/Icons/Resources/icon-zoomout.png);}\n",
};

QString sheet(int button, bool canHighlight)
{
    return QString::fromLatin1(BaseSheet) + QString::fromLatin1(IconSheet[button])
           + (canHighlight ? QString::fromLatin1(HoverSheet[button]) : QString());
}

} // namespace

ZoomButtons::ZoomButtons(QObject *parent)
    : QObject(parent)
{
    const char *const tips[2] = {"Zoom in", "Zoom out"};
    for (int i = 0; i < 2; ++i) {
        QPushButton *b = new QPushButton;
        b->setGeometry(0, 0, 14, 14);
        b->setFixedSize(14, 14); // layouts must not stretch the icons
        b->setFocusPolicy(Qt::NoFocus);
        b->setToolTip(QString::fromLatin1(tips[i]));
        b->setStyleSheet(sheet(i, true));
        m_buttons[i] = b;
    }
    connect(m_buttons[0].data(), &QPushButton::clicked, this, &ZoomButtons::ZoomIn);
    connect(m_buttons[1].data(), &QPushButton::clicked, this, &ZoomButtons::ZoomOut);
}

ZoomButtons::~ZoomButtons()
{
    delete m_buttons[0];
    delete m_buttons[1];
}

QPushButton *ZoomButtons::button(int index) const
{
    return (index == 0 || index == 1) ? m_buttons[index].data() : nullptr;
}

void ZoomButtons::ZoomIn()
{
    Q_EMIT zoomInRequested();
}

void ZoomButtons::ZoomOut()
{
    Q_EMIT zoomOutRequested();
}

void ZoomButtons::setZoomButtonHighlight(int button, bool canHighlight)
{
    // A button at its zoom limit no longer lights up under the mouse.
    if (QPushButton *b = this->button(button))
        b->setStyleSheet(sheet(button, canHighlight));
}
