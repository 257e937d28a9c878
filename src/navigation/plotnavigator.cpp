#include "plotnavigator.h"

#include "chartevents.h"
#include "eventsync.h"
#include "plotfreezeevent.h"
#include "plotscrollevent.h"
#include "timescale.h"
#include "viewcontent.h"

#include <QCoreApplication>
#include <QDebug>
#include <QResizeEvent>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>

#include <algorithm>
#include <cmath>

namespace {

// Bar positions beyond this are nonsense from the host; Qwt must never see
// them (it allocates without bound on huge ranges).
constexpr double MaxPosition = 1e9;

bool usable(double x)
{
    return std::isfinite(x) && std::fabs(x) <= MaxPosition;
}

} // namespace

PlotNavigator::PlotNavigator(QwtPlot *plot, const ViewContent *content, TimeScale *times)
    : m_plot(plot)
    , m_content(content)
    , m_times(times)
{
    m_plot->canvas()->installEventFilter(this);
    connect(m_times, &TimeScale::barsInserted, this, &PlotNavigator::barsInserted);
    connect(m_times, &TimeScale::barsReset, this, &PlotNavigator::barsReset);
}

void PlotNavigator::catchUp() const
{
    if (m_group)
        m_group->flushPending();
}

void PlotNavigator::getX(double &x1, double &x2) const
{
    catchUp();
    x1 = m_viewX1;
    x2 = m_viewX2;
}

void PlotNavigator::setX(double x1, double x2, double zoom)
{
    catchUp();
    applyView(x1, x2, zoom, true);
}

void PlotNavigator::applyView(double x1, double x2, double zoom, bool replot)
{
    if (x1 == 0.0 && x2 == 0.0)
        return;
    if (!usable(x1) || !usable(x2)) {
        qWarning("Plot::setX() ignored the range (%g, %g).", x1, x2);
        return;
    }
    if (x1 > x2)
        std::swap(x1, x2);
    bool zoomChanged = false;
    if (zoom != -1.0) {
        if (std::isfinite(zoom) && zoom > 0.0) {
            zoomChanged = zoom != m_zoom;
            m_zoom = zoom;
        } else {
            qWarning("Plot::setX() ignored the zoom %g.", zoom);
        }
    }
    const bool autoReplot = m_plot->autoReplot();
    m_plot->setAutoReplot(false);
    m_viewX1 = x1;
    m_viewX2 = x2;
    if (zoomChanged)
        updateScrollLimits(); // margins are in bars and follow the zoom
    applyScales();
    if (replot)
        m_plot->replot();
    m_plot->setAutoReplot(autoReplot);
}

void PlotNavigator::applyScales()
{
    ViewRange d = ViewRange::fromLogical(m_viewX1, m_viewX2, m_zoom);
    if (!(d.width() > 0.0))
        d = ViewRange(d.lower() - 0.5, d.lower() + 0.5); // a degenerate range shows one bar
    m_plot->setAxisScale(QwtPlot::xBottom, d.lower(), d.upper(), 0);
    double low, high;
    if (!m_content->valueRange(d.lower(), d.upper(), low, high) || !std::isfinite(low)
        || !std::isfinite(high))
        return;
    const double mid = (low + high) * 0.5;
    double span = (high - low) * m_yZoom;
    if (!(span > 0.0)) // flat prices: give them some room around the centre
        span = std::max(std::fabs(mid) * 0.02, 1e-6);
    if (!std::isfinite(span))
        return;
    m_plot->setAxisScale(QwtPlot::yRight, mid - span * 0.5, mid + span * 0.5, 0);
}

void PlotNavigator::adjustX(double &min, double &max)
{
    catchUp();
    if (!usable(min) || !usable(max)) {
        qWarning("Plot::AdjustX() left the range (%g, %g) as it is.", min, max);
        return;
    }
    ViewRange d = m_limits.clamp(ViewRange::fromLogical(min, max, m_zoom));
    if (m_content->hasCandles())
        d = m_limits.snap(d, m_content->candleWidth(d.lower(), d.upper()));
    d.toLogical(m_zoom, min, max);
}

void PlotNavigator::updateScrollLimits()
{
    double dataMinX, dataMaxX;
    dataExtent(dataMinX, dataMaxX);
    const double v = visibleSpan();
    const double w = m_content->candleWidth(dataMaxX - v, dataMaxX);
    m_limits.update(dataMinX, dataMaxX, v, w, m_content->getLeftInset(), m_zoom);
    const ViewRange d = displayedRange();
    PlotScrollEvent event(m_limits.minX(), m_limits.maxX(), d.lower(), d.width());
    QCoreApplication::sendEvent(m_plot, &event);
}

// ---- scrolling ---------------------------------------------------------------

void PlotNavigator::scrollRight(long records)
{
    // A scroll sent to any panel moves the leading panel; the others follow
    // it through the synchronisation event.
    catchUp();
    leader()->scrollBy(records);
}

void PlotNavigator::scrollBy(long records)
{
    // When every bar fits, nothing moves: clamping the range would throw
    // the bars from one side of the canvas to the other.
    if (!hasView() || m_limits.span() < visibleSpan())
        return;
    // A scroll past either end lands on it: no move needs to be longer than
    // the data and a screen, and a longer one would leave the positions that
    // the scale can take.
    const double reach = m_limits.span() + visibleSpan() + 1.0;
    const double shift = std::max(-reach, std::min(double(records), reach));
    double x1 = m_viewX1 + shift, x2 = m_viewX2 + shift;
    adjustX(x1, x2);
    setX(x1, x2, -1.0);
    sync();
}

long PlotNavigator::screenBars() const
{
    return std::max(1L, long(std::floor(visibleSpan())));
}

void PlotNavigator::scrollToEnd()
{
    catchUp();
    const double v = visibleSpan();
    double x1, x2;
    ViewRange(m_limits.maxX() - v, m_limits.maxX()).toLogical(m_zoom, x1, x2);
    setX(x1, x2, -1.0);
}

bool PlotNavigator::isAtEnd() const
{
    // An empty view follows the newest bars.
    if (m_viewX1 == m_viewX2)
        return true;
    return m_limits.isAtEnd(displayedRange().upper());
}

void PlotNavigator::moveX(double dx)
{
    if (!std::isfinite(dx))
        return;
    catchUp();
    if (!m_content->hasCandles()) {
        PlotNavigator *lead = leader();
        if (lead != this) {
            lead->moveX(dx);
            return;
        }
    }
    if (!hasView())
        return;
    if (!m_pan.add(m_zoom * dx))
        return;
    const double pending = m_pan.take();
    const double width = canvasWidth();
    const double shift = width > 0.0 ? (m_viewX2 - m_viewX1) * pending / width : 0.0;
    if (visibleSpan() < m_limits.span()) {
        // Dragging to the right brings older bars into view.
        double x1 = m_viewX1 - shift, x2 = m_viewX2 - shift;
        adjustX(x1, x2);
        setX(x1, x2, -1.0);
    }
    ChartEvents::send(m_plot, ChartEvents::pan());
}

// ---- zoom --------------------------------------------------------------------

void PlotNavigator::zoomIn()
{
    catchUp();
    const bool atEnd = isAtEnd();
    const double zoom = std::max(m_zoom * 0.5, MinZoom);
    if (zoom == m_zoom)
        return;
    m_zoom = zoom;
    if (m_zoom <= MinZoom)
        Q_EMIT zoomButtonHighlight(0, false);
    if (m_zoom < MaxZoom)
        Q_EMIT zoomButtonHighlight(1, true);
    finishZoom(atEnd);
    ChartEvents::send(m_plot, ChartEvents::sync());
    m_plot->canvas()->setFocus(Qt::OtherFocusReason);
}

void PlotNavigator::zoomOut()
{
    catchUp();
    const bool atEnd = isAtEnd();
    const double old = m_zoom;
    const double zoom = std::min(m_zoom * 2.0, MaxZoom);
    if (zoom == m_zoom)
        return;
    m_zoom = zoom;
    if (m_zoom > MinZoom)
        Q_EMIT zoomButtonHighlight(0, true);
    if (m_zoom >= MaxZoom)
        Q_EMIT zoomButtonHighlight(1, false);
    // Stop before a bar would get less than a pixel (the highlights stay).
    if ((m_viewX2 - m_viewX1) * m_zoom > canvasWidth()) {
        m_zoom = old;
        return;
    }
    finishZoom(atEnd);
    sync();
    m_plot->canvas()->setFocus(Qt::OtherFocusReason);
}

void PlotNavigator::finishZoom(bool wasAtEnd)
{
    updateScrollLimits();
    if (!hasView())
        return;
    const double v = visibleSpan();
    double x1, x2;
    if (m_limits.span() <= v) {
        // Everything fits: show it from the left limit.
        ViewRange(m_limits.minX(), m_limits.minX() + v).toLogical(m_zoom, x1, x2);
        setX(x1, x2, m_zoom);
        return;
    }
    if (wasAtEnd) {
        // Where the adjusted range would land does not matter: go straight
        // to the newest bars (one replot instead of two).
        scrollToEnd();
        return;
    }
    x1 = m_viewX1;
    x2 = m_viewX2;
    adjustX(x1, x2);
    setX(x1, x2, m_zoom);
}

void PlotNavigator::resetZoom()
{
    catchUp();
    const bool atEnd = isAtEnd();
    m_zoom = 1.0;
    Q_EMIT zoomButtonHighlight(0, true);
    Q_EMIT zoomButtonHighlight(1, true);
    updateScrollLimits();
    if (hasView()) {
        double x1 = m_viewX1, x2 = m_viewX2;
        adjustX(x1, x2);
        setX(x1, x2, -1.0);
        // Like the zoom steps, a view at the newest bars stays there.
        if (atEnd && m_limits.span() > visibleSpan())
            scrollToEnd();
    }
    ChartEvents::send(m_plot, ChartEvents::sync());
}

void PlotNavigator::zoomInY(double dy)
{
    if (!std::isfinite(dy))
        return;
    catchUp();
    const double h = m_plot->canvas()->height();
    const double p = h / m_yZoom; // pixels the prices fill
    if (p < h)
        m_yZoom = std::max(h / (p + std::fabs(dy)), 1.0);
    setX(m_viewX1, m_viewX2, -1.0);
}

void PlotNavigator::zoomOutY(double dy)
{
    if (!std::isfinite(dy))
        return;
    catchUp();
    const double h = m_plot->canvas()->height();
    const double p = h / m_yZoom;
    if (p <= 8.0)
        return;
    // Prices never shrink below 8 pixels of height.
    m_yZoom = h / std::max(p - std::fabs(dy), 8.0);
    setX(m_viewX1, m_viewX2, -1.0);
}

// ---- reload ------------------------------------------------------------------

void PlotNavigator::recordChartCenter()
{
    catchUp();
    const double centre = (m_viewX1 + m_viewX2) * 0.5;
    m_recordedCenterTime = m_times->indexToTime(std::trunc(centre));
    double dataMinX, dataMaxX;
    dataExtent(dataMinX, dataMaxX);
    qDebug("recordChartCenter::(%f,%f) (%f,%f) (%f)", dataMinX, dataMaxX, m_viewX1, m_viewX2,
           centre);
    // The bars are about to be reloaded: the scroll bar has nothing to show.
    PlotFreezeEvent freeze(true);
    QCoreApplication::sendEvent(m_plot, &freeze);
}

void PlotNavigator::restoreChartCenter()
{
    catchUp();
    const double t = m_recordedCenterTime;
    const int n = m_times->size();
    if (t >= 0.0 && n > 0) {
        const int index = m_times->indexOf(t);
        if (index >= 0) {
            updateScrollLimits();
            const double v = visibleSpan();
            const double lower = index - v * 0.5;
            double x1, x2;
            ViewRange(lower, lower + v).toLogical(m_zoom, x1, x2);
            adjustX(x1, x2);
            setX(x1, x2, -1.0);
            double dataMinX, dataMaxX;
            dataExtent(dataMinX, dataMaxX);
            qDebug("restoreChartCenter::(%f,%f) (%f,%f) (%f)", dataMinX, dataMaxX, m_viewX1,
                   m_viewX2, double(index));
            sync();
        }
    }
    PlotFreezeEvent thaw(false);
    QCoreApplication::sendEvent(m_plot, &thaw);
}

// ---- data and canvas changes -------------------------------------------------

bool PlotNavigator::dataChanged(bool sync)
{
    double dataMinX, dataMaxX;
    dataExtent(dataMinX, dataMaxX);
    const bool hasBars = dataMaxX >= dataMinX;
    // Judged against the limits of the bars we had before this change.
    const bool follow = hasBars && (!m_hadBars || isAtEnd());
    m_hadBars = hasBars;
    updateScrollLimits();
    if (!hasBars)
        return false;
    const bool autoReplot = m_plot->autoReplot();
    m_plot->setAutoReplot(false);
    if (follow) {
        // The newest bars at the right edge; the panel replots after this.
        const double v = visibleSpan();
        double x1, x2;
        ViewRange(m_limits.maxX() - v, m_limits.maxX()).toLogical(m_zoom, x1, x2);
        applyView(x1, x2, -1.0, false);
    } else if (hasView()) {
        applyScales(); // an edited bar in view may change the price range
    }
    m_plot->setAutoReplot(autoReplot);
    if (follow && sync)
        this->sync();
    return follow;
}

void PlotNavigator::canvasResized()
{
    // Only the leading panel decides; the others take its view.
    if (leader() != this)
        return;
    if (!hasView()) {
        updateScrollLimits();
        return;
    }
    // Bars keep their width in pixels; the newest side stays where it was.
    const bool atEnd = isAtEnd();
    const double upper = displayedRange().upper();
    updateScrollLimits();
    if (atEnd) {
        scrollToEnd();
    } else {
        double x1, x2;
        ViewRange(upper - visibleSpan(), upper).toLogical(m_zoom, x1, x2);
        adjustX(x1, x2);
        setX(x1, x2, -1.0);
    }
    sync();
}

void PlotNavigator::barsInserted(int index, int count)
{
    // Older history arrived: the bars in view moved right, and so does the
    // view, so that it keeps showing them. A view at the newest bars stays
    // there anyway.
    if (!hasView() || index > std::ceil(displayedRange().lower()))
        return;
    m_viewX1 += count;
    m_viewX2 += count;
}

void PlotNavigator::barsReset()
{
    // New bars wholesale (another symbol): they open on the newest ones.
    m_hadBars = false;
}

bool PlotNavigator::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == m_plot->canvas()) {
        const int width = static_cast<QResizeEvent *>(event)->size().width();
        if (width != m_canvasWidth) {
            m_canvasWidth = width;
            canvasResized();
        }
    }
    return false;
}

// ---- helpers -----------------------------------------------------------------

double PlotNavigator::visibleSpan() const
{
    return ScrollLimits::visibleSpan(canvasWidth(), m_zoom);
}

ViewRange PlotNavigator::displayedRange() const
{
    return ViewRange::fromLogical(m_viewX1, m_viewX2, m_zoom);
}

double PlotNavigator::canvasWidth() const
{
    return m_plot->canvas()->width();
}

PlotNavigator *PlotNavigator::leader() const
{
    PlotNavigator *lead = m_group ? m_group->leader() : nullptr;
    return lead ? lead : const_cast<PlotNavigator *>(this);
}

void PlotNavigator::sync()
{
    ChartEvents::send(m_plot, ChartEvents::sync());
}

void PlotNavigator::dataExtent(double &minX, double &maxX) const
{
    // Every panel scrolls over the bars of the chart's time axis.
    minX = 0.0;
    maxX = m_times->size() - 1.0;
}
