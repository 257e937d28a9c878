#include "plotscrollbar.h"

#include "plot.h"

PlotScrollBar::PlotScrollBar(Qt::Orientation orientation, QWidget *parent)
    : QScrollBar(orientation, parent)
{
    connect(this, &QScrollBar::valueChanged, this, &PlotScrollBar::onSliderMoved);
}

void PlotScrollBar::setPlot(Plot *plot)
{
    if (m_plot == plot)
        return;
    if (m_plot)
        m_plot->removeEventFilter(this);
    m_plot = plot;
    if (m_plot)
        m_plot->installEventFilter(this);
}

void PlotScrollBar::onSliderMoved(int) {}
void PlotScrollBar::onScaleDivChanged() {}

bool PlotScrollBar::eventFilter(QObject *watched, QEvent *event)
{
    return QScrollBar::eventFilter(watched, event);
}
