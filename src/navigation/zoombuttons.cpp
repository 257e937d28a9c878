#include "zoombuttons.h"

#include "pricegraph.h"

#include <QPushButton>

ZoomButtons::ZoomButtons(PriceGraph *chart)
    : m_chart(chart)
{
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

void ZoomButtons::ZoomIn() { m_chart->ZoomIn(1); }
void ZoomButtons::ZoomOut() { m_chart->ZoomOut(1); }
void ZoomButtons::setZoomButtonHighlight(int, bool) {}
