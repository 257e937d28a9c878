#include "plotscrollbar.h"

#include "chartevents.h"
#include "plotfreezeevent.h"
#include "plotnavigator.h"
#include "plotscrollevent.h"
#include "viewrange.h"

#include <QDebug>

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>

#include <cmath>

namespace {

const char StyleSheet[] =
    "QScrollBar:horizontal                  {                  background: #111111;          "
    "        border: none;                  margin: 0px 26px 0px 26px;                  }    "
    "              QScrollBar::handle:horizontal                  {                  min-widt"
    "h:10px;                  background: #414141;                  margin: 9px 0px 10px 0px;"
    "                  }                  QScrollBar::add-line:horizontal                  { "
    "                 background: #111111;                  border:none;                  wid"
    "th: 26px;                  subcontrol-position: right;                  subcontrol-origi"
    "n: margin;                  }                  QScrollBar::sub-line:horizontal          "
    "        {                  background: #111111;                  border:none;           "
    "       width: 26px;                  subcontrol-position: left;                  subcont"
    "rol-origin: margin;                  }                  QScrollBar:left-arrow:horizontal"
    ", QScrollBar::right-arrow:horizontal                  {                  border:none;   "
    "               width: 12px;                  height: 12px;                  background: "
    "#ff0000;                  background-image: url(:/Icons/Resources/icon-left-arrow.png); "
    "                 }                  QScrollBar::right-arrow:horizontal                  "
    "{                  background-image: url(:/Icons/Resources/icon-right-arrow.png);       "
    "           }                  QScrollBar::add-page:horizontal, QScrollBar::sub-page:hori"
    "zontal                  {                  background: #111111;                  }";

// Slider values are whole bars; positions are truncated toward zero.
int toSlider(double x)
{
    if (!std::isfinite(x))
        return 0;
    return int(std::max(-2e9, std::min(2e9, x)));
}

} // namespace

PlotScrollBar::PlotScrollBar(Qt::Orientation orientation, QWidget *parent)
    : QScrollBar(orientation, parent)
{
    setStyleSheet(QString::fromLatin1(StyleSheet));
    connect(this, &QScrollBar::valueChanged, this, &PlotScrollBar::onSliderMoved);
}

void PlotScrollBar::setNavigator(PlotNavigator *navigator)
{
    if (m_navigator == navigator && m_plot)
        return;
    if (m_plot)
        m_plot->removeEventFilter(this);
    disconnect(m_scaleConnection);
    m_navigator = navigator;
    m_plot = navigator ? navigator->plot() : nullptr;
    m_watched = m_plot.data();
    if (!m_plot)
        return;
    m_plot->installEventFilter(this);
    m_scaleConnection = connect(m_plot->axisWidget(QwtPlot::xBottom),
                                &QwtScaleWidget::scaleDivChanged, this,
                                &PlotScrollBar::onScaleDivChanged);
    // Take the new panel's limits and view at once (it answers with a
    // scroll event).
    m_navigator->updateScrollLimits();
}

void PlotScrollBar::applyValues()
{
    const bool blocked = blockSignals(true); // not a slider move: don't come back as one
    setPageStep(toSlider(m_page));
    setRange(toSlider(m_minX), toSlider(m_maxX - m_page));
    setValue(toSlider(m_value));
    blockSignals(blocked);
}

void PlotScrollBar::onScaleDivChanged()
{
    if (!m_plot || !m_navigator || !m_navigator->hasView())
        return;
    const QwtInterval x = m_plot->axisScaleDiv(QwtPlot::xBottom).interval();
    m_page = x.width();
    m_value = x.minValue();
    applyValues();
}

void PlotScrollBar::onSliderMoved(int newValue)
{
    if (!m_plot || !m_navigator)
        return;
    m_navigator->catchUp();
    if (!m_navigator->hasView())
        return;
    double lower = newValue;
    double upper = newValue + m_page;
    // The ends come from the exact limits, not the truncated slider values,
    // so the first and the last bar are reached exactly.
    if (newValue == maximum()) {
        upper = m_maxX;
        lower = m_maxX - m_page;
        qDebug("PlotScrollBar::onSliderMoved -- scroll to end.\n");
    }
    if (newValue == minimum()) {
        lower = m_minX;
        upper = m_minX + m_page;
        qDebug("PlotScrollBar::onSliderMoved -- scroll to begin.\n");
    }
    double x1, x2;
    ViewRange(lower, upper).toLogical(m_navigator->zoom(), x1, x2);
    m_navigator->adjustX(x1, x2);
    m_navigator->setX(x1, x2, -1.0);
    ChartEvents::send(m_plot, ChartEvents::sync());
}

bool PlotScrollBar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::KeyPress:
        // Bars fed since the last flush count before the bar acts on its
        // range (the flush updates it).
        if (m_navigator)
            m_navigator->catchUp();
        break;
    default:
        break;
    }
    return QScrollBar::event(event);
}

void PlotScrollBar::freeze(bool on)
{
    if (!isEnabled()) {
        ++m_freezeCount;
    } else {
        m_freezeCount = 0;
        qDebug("PlotScrollBar::freeze()-start\n");
    }
    setEnabled(!on);
    qDebug() << "PlotScrollBar::setEnabled()" << " m_count_test:" << m_freezeCount;
    qDebug("PlotScrollBar::freeze()-end()");
}

bool PlotScrollBar::eventFilter(QObject *watched, QEvent *event)
{
    // Compared as objects: the panel may be half destroyed when its last
    // events pass here.
    if (m_plot.isNull() || watched != m_watched)
        return QScrollBar::eventFilter(watched, event);
    if (event->type() == ChartEvents::scroll()) {
        const auto *e = static_cast<PlotScrollEvent *>(event);
        const bool changed = e->minX() != m_minX || e->maxX() != m_maxX
                             || e->lower() != m_value || e->width() != m_page;
        m_minX = e->minX();
        m_maxX = e->maxX();
        m_value = e->lower();
        m_page = e->width();
        if (changed)
            applyValues();
        event->accept();
        return true;
    }
    if (event->type() == ChartEvents::freeze()) {
        freeze(static_cast<PlotFreezeEvent *>(event)->freeze());
        event->accept();
        return true;
    }
    return QScrollBar::eventFilter(watched, event);
}
