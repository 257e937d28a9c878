#include "plot.h"

#include "axisbars.h"
#include "barseries.h"
#include "chartevents.h"
#include "datescaledraw.h"
#include "dayseparators.h"
#include "eventsync.h"
#include "markgesture.h"
#include "panelbars.h"
#include "plotcanvas.h"
#include "plotgrid.h"
#include "plotnavigator.h"
#include "plotpricelinesdata.h"
#include "priceaxislayout.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "pricescaleengine.h"
#include "qwtplotpannerx.h"
#include "scaledrawwithprecision.h"
#include "seriesfeed.h"
#include "seriesrecord.h"
#include "timescale.h"
#include "tradingcurve.h"

#include <QCoreApplication>
#include <QDebug>
#include <QKeyEvent>
#include <QTimerEvent>
#include <QWheelEvent>

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_renderer.h>
#include <qwt_scale_widget.h>
#include <qwt_series_data.h>

#include <climits>
#include <cmath>

Plot::Plot(PriceGraph *owner, QWidget *parent)
    : QwtPlot(parent)
    , chart(owner)
{
    setCanvas(new PlotCanvas(this));
    // Colours start invalid; setup gives the panel its defaults.
    priceLines = new PlotPriceLinesData(this);
    bars = new BarSeries;
    AxisBars *axis = PriceGraphPrivate::axisBarsOf(chart);
    if (!axis) {
        // Outside a chart the panel's own bars give its time axis.
        axis = m_ownAxis = new AxisBars;
        m_ownAxis->setSource(bars);
    }
    m_times = axis->timeScale();
    m_panelBars = new PanelBars(bars, axis);
    m_separators = new DaySeparators(this);
    m_feed = new SeriesFeed(this);
    navigator = new PlotNavigator(this, this, m_times);
    m_marks = new MarkGesture(this, chart ? PriceGraphPrivate::markRegistryOf(chart) : nullptr);
    leftInset = 10;
    cursorStyle = -1;
    canvas()->setFocusPolicy(Qt::ClickFocus);
    setup();
}

Plot::~Plot()
{
    // Deleting attached items would replot from inside the teardown.
    setAutoReplot(false);
    delete m_marks; // the marks drawn on this panel go with it
    m_marks = nullptr;
    delete priceLines;
    priceLines = nullptr;
    if (chart)
        PriceGraphPrivate::plotClosed(chart, this);
    // The chart's time axis must not outlive the bars it reads.
    if (AxisBars *axis = PriceGraphPrivate::axisBarsOf(chart)) {
        if (axis->source() == bars)
            axis->setSource(nullptr);
    }
    qDeleteAll(seriesByName);
    seriesByName.clear();
    delete tradingCurve;
    delete lineCurve;
    delete volumeHistogram;
    delete m_separators;
    delete navigator;
    delete m_feed;
    delete m_panelBars;
    delete m_ownAxis;
    delete bars;
}

void Plot::setup()
{
    DateScaleDraw *dateDraw = new DateScaleDraw(m_times);
    enableAxis(QwtPlot::yLeft, false);
    enableAxis(QwtPlot::yRight, true);
    setAxisScaleDraw(QwtPlot::xBottom, dateDraw);
    setAxisLabelAlignment(QwtPlot::xBottom, Qt::AlignRight | Qt::AlignVCenter);
    setAxisLabelAlignment(QwtPlot::yRight, Qt::AlignRight | Qt::AlignVCenter);
    setAutoReplot(true);
    // Background first: the style sheet's text colour stays black until the
    // background is set again. Kept in this order on purpose.
    setBackgroundColor(QColor(QStringLiteral("#0c0c0c")));
    setTextColor(QColor(QStringLiteral("#bbbbbb")));
    setAxisScaleDraw(QwtPlot::yRight, new ScaleDrawWithPrecision(this));
    setAxisScaleEngine(QwtPlot::yRight, new PriceScaleEngine);

    grid = new PlotGrid;
    grid->attach(this);
    grid->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    gridColor = QColor(34, 34, 34);
    grid->setMajorPen(gridColor, 0, Qt::SolidLine);

    chartType = 0;
    panner = new QwtPlotPannerX(canvas(), navigator);
    canvas()->setMouseTracking(true);
    canvas()->installEventFilter(this);
    setCursorStyle(3);

    tradingCurve = nullptr;
    lineCurve = nullptr;
    volumeHistogram = nullptr;
    m_showVolume = true;

    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        if (QwtScaleWidget *w = axisWidget(axis)) {
            w->setMargin(0);
            w->setStyleSheet(
                QStringLiteral("QwtScaleWidget{font-family:\"Roboto\"; font-size:10px;}"));
        }
    }
    cursorStyle = -1; // the facade's first SetCursorType must reach the panel
    axisWidget(QwtPlot::xBottom)->installEventFilter(this);
    axisWidget(QwtPlot::yRight)->installEventFilter(this);
    plotLayout()->setCanvasMargin(0, -1);
    // The prices keep clear of the canvas's top and bottom edges: the price
    // scale ends PriceHeadroom pixels inside the canvas, so the highest high
    // and the lowest low in view are never cut, whatever the vertical zoom
    // (the scale's span is untouched; the canvas gives the room).
    plotLayout()->setCanvasMargin(PriceHeadroom, QwtPlot::xTop);
    plotLayout()->setCanvasMargin(PriceHeadroom, QwtPlot::xBottom);
}

// ---- colours ---------------------------------------------------------------

void Plot::setBackgroundColor(const QColor &c)
{
    backgroundColor = c;
    setStyleSheet(QString::asprintf("background-color: rgb(%d,%d,%d); color: rgb(%d,%d,%d);",
                                    c.red(), c.green(), c.blue(), textColor.red(),
                                    textColor.green(), textColor.blue()));
    replot();
}

void Plot::setTextColor(const QColor &c)
{
    textColor = c;
    auto *bottom = dynamic_cast<ColorScaleDraw *>(axisScaleDraw(QwtPlot::xBottom));
    auto *right = dynamic_cast<ColorScaleDraw *>(axisScaleDraw(QwtPlot::yRight));
    const bool reset = c == QColor(187, 187, 187);
    for (ColorScaleDraw *draw : {bottom, right}) {
        if (!draw)
            continue;
        if (reset)
            draw->resetColors();
        else
            draw->setColors(c);
    }
    axisWidget(QwtPlot::xBottom)->update();
    axisWidget(QwtPlot::yRight)->update();
}

void Plot::setGridColor(const QColor &c)
{
    gridColor = c;
    if (grid)
        grid->setMajorPen(c, 0, Qt::SolidLine);
}

void Plot::setCandleOutlineColor(const QColor &c)
{
    candleOutlineColor = c;
    if (tradingCurve)
        tradingCurve->setSymbolPen(c, 0, Qt::SolidLine);
}

void Plot::setLineColor(const QColor &c)
{
    lineColor = c;
    if (lineCurve)
        lineCurve->setPen(c, 0, Qt::SolidLine);
}

void Plot::setUpColor(const QColor &c)
{
    upColor = c;
    if (tradingCurve)
        tradingCurve->setSymbolBrush(QwtPlotTradingCurve::Increasing, QBrush(c, Qt::SolidPattern));
}

void Plot::setDownColor(const QColor &c)
{
    downColor = c;
    if (tradingCurve)
        tradingCurve->setSymbolBrush(QwtPlotTradingCurve::Decreasing, QBrush(c, Qt::SolidPattern));
}

void Plot::setPriceLineColor(const QColor &c)
{
    priceLineColor = c;
    priceLines->setPriceLineColor(c, 1);
    replot();
}

void Plot::setInterval(double ms)
{
    m_times->setInterval(ms);
}

double Plot::getInterval() const
{
    return m_times->interval();
}

const QVector<QwtPlotMarker *> &Plot::getDaySeparators() const
{
    return m_separators->markers();
}

int Plot::priceDecimals() const
{
    // The host's decimals are stored as given; labels never print more than
    // 12 (a double holds no more), so a wild value cannot blow up a format.
    return chart ? qMin(PriceGraphPrivate::decimals(chart), 12) : -1;
}

// ---- styles and export -----------------------------------------------------

void Plot::setLineStyle(int style)
{
    chartType = style;
    applyChartType();
}

int Plot::getLineStyle()
{
    return chartType;
}

void Plot::applyChartType()
{
    if (!tradingCurve || !lineCurve)
        return;
    if (chartType == 0 || chartType == 1) {
        tradingCurve->setSymbolStyle(QwtPlotTradingCurve::SymbolStyle(chartType));
        // Candles are always drawn by our own routine.
        if (chartType == 1)
            tradingCurve->setSymbolStyle(QwtPlotTradingCurve::UserSymbol);
    }
    tradingCurve->setVisible(chartType == 0 || chartType == 1);
    replot();
    lineCurve->setVisible(chartType == 2);
    replot();
    replot();
}

void Plot::setCursorStyle(int style)
{
    const int previous = cursorStyle;
    cursorStyle = style;
    switch (style) {
    case 1:
        canvas()->setCursor(Qt::CrossCursor);
        break;
    case 3:
    case 0:
        canvas()->setCursor(Qt::ArrowCursor);
        break;
    case 6:
        canvas()->setCursor(Qt::OpenHandCursor);
        break;
    default:
        canvas()->setCursor(Qt::CrossCursor);
        break;
    }
    // Dragging the canvas pans in the pointer modes; a drawing tool owns the
    // mouse otherwise.
    panner->setSuspended(MarkGesture::routesCanvas(style));
    m_marks->cursorTypeChanged(previous, style);
    priceLines->setCursorStyle(style);
    if (style != 1 && style != 6)
        ChartEvents::send(this, ChartEvents::pick());
}

int Plot::getCursorStyle()
{
    return cursorStyle;
}

void Plot::exportPlot()
{
    // Same size and resolution as an interactive export, written straight to
    // the file (the renderer's exportTo would open a file dialog).
    QwtPlotRenderer renderer;
    renderer.renderDocument(this, QStringLiteral("stockchart.pdf"), QSizeF(300, 200), 85);
}

// ---- sample binding --------------------------------------------------------
//
// The panel's own items read its stores through views and are never handed
// vectors. These slots remain for callers that bring samples of their own:
// the item then shows a copy of those samples (non-finite ones dropped, so
// nothing non-finite reaches Qwt) instead of the panel's store.

namespace {
template <typename T, typename Finite>
QVector<T> finiteOnly(const QVector<T> &data, Finite finite, const char *caller)
{
    QVector<T> out;
    out.reserve(data.size());
    for (const T &s : data) {
        if (finite(s))
            out.append(s);
    }
    if (out.size() != data.size())
        qWarning("Plot::%s() dropped %d non-finite samples.", caller,
                 int(data.size() - out.size()));
    return out;
}

bool finiteInterval(const QwtIntervalSample &s)
{
    return BarSeries::isFinitePrice(s.value) && BarSeries::isFinitePrice(s.interval.minValue())
           && BarSeries::isFinitePrice(s.interval.maxValue());
}
} // namespace

void Plot::setOHLCSample(QwtPlotTradingCurve *pOhlc, QVector<QwtOHLCSample> data)
{
    if (!pOhlc)
        return;
    pOhlc->setSamples(finiteOnly(data, [](const QwtOHLCSample &s) {
        return BarSeries::isFinitePrice(s.time) && BarSeries::isFinitePrice(s.open)
               && BarSeries::isFinitePrice(s.high) && BarSeries::isFinitePrice(s.low)
               && BarSeries::isFinitePrice(s.close);
    }, "setOHLCSample"));
}

void Plot::setLineSample(QwtPlotCurve *pCurve, QVector<QPointF> data)
{
    if (!pCurve)
        return;
    pCurve->setSamples(finiteOnly(data, [](const QPointF &p) {
        return BarSeries::isFinitePrice(p.x()) && BarSeries::isFinitePrice(p.y());
    }, "setLineSample"));
    ChartEvents::send(this, ChartEvents::sync());
}

void Plot::setVolumeSample(QwtPlotHistogram *pVolume, QVector<QwtIntervalSample> data)
{
    if (!pVolume)
        return;
    pVolume->setData(new QwtIntervalSeriesData(finiteOnly(data, finiteInterval,
                                                          "setVolumeSample")));
    ChartEvents::send(this, ChartEvents::sync());
}

void Plot::setBarSample(QwtPlotIntervalCurve *pBar, QVector<QwtIntervalSample> data)
{
    if (pBar)
        pBar->setSamples(finiteOnly(data, finiteInterval, "setBarSample"));
}

// ---- series (SeriesFeed does the work) -------------------------------------

SeriesRecord *Plot::series(const QString &name) const
{
    return seriesByName.value(name);
}

BarSeries *Plot::axisBars() const
{
    return m_panelBars->axis();
}

void Plot::AddSeries(QString name, long)
{
    m_feed->addSeries(name);
    PriceGraphPrivate::seriesChanged(chart); // the time axis may stand on other bars now
}

void Plot::RemoveSeries(QString name)
{
    m_feed->removeSeries(name);
    PriceGraphPrivate::seriesChanged(chart);
}

void Plot::AppendOHLC(QString name, double time, bool show, double open, double high,
                      double low, double close, long volume)
{
    if (m_feed->feed(name, time, false, open, high, low, close, double(volume), false) && show)
        scheduleReplot();
}

void Plot::AppendValue(QString name, double time, double value, bool show)
{
    if (m_feed->feedValue(name, time, false, value) && show)
        scheduleReplot();
}

void Plot::EditOHLC(QString name, double time, bool show, double open, double high, double low,
                    double close, long volume)
{
    if (m_feed->feed(name, time, true, open, high, low, close, double(volume), false) && show)
        scheduleReplot();
}

void Plot::EditValue(QString name, double time, double value, bool show)
{
    if (m_feed->feedValue(name, time, true, value) && show)
        scheduleReplot();
}

void Plot::ClearValues(QString name)
{
    // The view, the separators and the scales follow on the next flush.
    if (m_feed->clearValues(name))
        scheduleReplot();
}


void Plot::FlushTa()
{
    // The whole chart flushes at once, so that the leading panel decides
    // where the view goes whichever panel's series asked. Day separators
    // and the volume scale are brought up to date by replot().
    if (EventSync *group = navigator->group()) {
        group->flush();
        return;
    }
    const quint64 before = m_replots;
    navigator->dataChanged();
    if (m_replots == before)
        replot();
}

void Plot::scheduleReplot()
{
    if (EventSync *group = navigator->group())
        group->requestFlush();
    else if (!replotTimer)
        replotTimer = startTimer(0);
}

void Plot::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != replotTimer) {
        QwtPlot::timerEvent(event);
        return;
    }
    killTimer(replotTimer);
    replotTimer = 0;
    FlushTa();
}

void Plot::replot()
{
    ++m_replots;
    const double interval = getInterval();
    const bool separators = interval > 0.0 && interval < 86400000.0;
    const bool volumeOverlay = tradingCurve && volumeHistogram;
    if (separators || volumeOverlay || !getDaySeparators().isEmpty()) {
        const bool autoRefresh = autoReplot();
        setAutoReplot(false); // the changes below must not replot from inside
        updateAxes();         // the x scale this replot will show
        m_separators->update(m_panelBars->times(), interval,
                             axisScaleDiv(QwtPlot::xBottom).interval());
        const bool rescaled = updateVolumeScale();
        if (!rescaled) {
            // The axes are current: what QwtPlot::replot does without laying
            // out all four axes a second time (label metrics for each).
            QCoreApplication::sendPostedEvents(this, QEvent::LayoutRequest);
            if (!QMetaObject::invokeMethod(canvas(), "replot", Qt::DirectConnection))
                canvas()->update(canvas()->contentsRect());
            setAutoReplot(autoRefresh);
            return;
        }
        setAutoReplot(autoRefresh);
    }
    QwtPlot::replot();
}

// Beside a price series the volume columns take the lower quarter of the
// panel: the hidden left axis runs from 0 to four times the largest volume
// in view.
bool Plot::updateVolumeScale()
{
    if (!tradingCurve || !volumeHistogram)
        return false;
    const QwtInterval view = axisScaleDiv(QwtPlot::xBottom).interval().normalized();
    const double lo = std::max(std::ceil(view.minValue()), -1.0);
    const double hi = std::min(std::floor(view.maxValue()), double(bars->size()));
    double top = 0.0;
    if (!(std::isfinite(lo) && std::isfinite(hi) && bars->volumeRange(int(lo), int(hi), top))
        || !(top > 0.0))
        top = 1.0;
    const QwtInterval current = axisScaleDiv(QwtPlot::yLeft).interval();
    if (current.minValue() == 0.0 && current.maxValue() == top * 4.0)
        return false;
    setAxisScale(QwtPlot::yLeft, 0.0, top * 4.0);
    return true;
}

bool Plot::hasSeries()
{
    return tradingCurve || volumeHistogram || !seriesByName.isEmpty();
}

// A volume panel is shown or hidden whole; beside a price series only the
// volume columns are, so the prices never vanish with the volume.
void Plot::showVolume(bool bShow)
{
    m_showVolume = bShow;
    if (!volumeHistogram)
        return;
    if (tradingCurve)
        showItem(volumeHistogram, bShow);
    else
        setVisible(bShow);
}

void Plot::showItem(QwtPlotItem *item, bool on)
{
    if (item) {
        item->setVisible(on);
        replot();
    }
}

// ---- time mapping ----------------------------------------------------------

double Plot::TimeToIndexSuitable(double time)
{
    return m_panelBars->times().suitableIndex(time);
}

double Plot::indexToTime(double index) const
{
    const BarSeries *axis = axisBars();
    const int n = axis->size();
    if (n == 0)
        return -1.0;
    if (!(index >= 0.0))
        return axis->time(0);
    if (index >= n)
        return axis->time(n - 1);
    return axis->time(int(index));
}

double Plot::timeAtIndex(long index) const
{
    const BarSeries *axis = axisBars();
    return (index >= 0 && index < axis->size()) ? axis->time(int(index)) : 0.0;
}

int Plot::barCount() const
{
    return (tradingCurve || volumeHistogram || !seriesByName.isEmpty()) ? axisBars()->size() : 0;
}

bool Plot::valueRange(double x1, double x2, double &low, double &high) const
{
    if (!std::isfinite(x1) || !std::isfinite(x2))
        return false;
    if (x1 > x2)
        std::swap(x1, x2);
    const BarSeries *axis = axisBars();
    // A candle is drawn around its whole x: one whose centre lies just
    // outside [x1, x2] still shows partly, so it counts.
    const double reach = tradingCurve ? tradingCurve->symbolExtent() * 0.5 : 0.0;
    const double first = std::max(std::ceil(x1 - reach), -1.0);
    const double last = std::min(std::floor(x2 + reach), double(axis->size()));
    bool any = false;
    double lo = 0.0, hi = 0.0;
    const auto widen = [&](double a, double b) {
        lo = any ? std::min(lo, a) : a;
        hi = any ? std::max(hi, b) : b;
        any = true;
    };
    double a, b;
    if (tradingCurve && first <= last && bars->priceRange(int(first), int(last), a, b))
        widen(a, b);
    // Volume shares the right axis only when the panel shows no prices.
    bool volumeShown = false;
    if (volumeHistogram && !tradingCurve && first <= last
        && axis->volumeRange(int(first), int(last), b)) {
        widen(0.0, b);
        volumeShown = true;
    }
    for (const SeriesRecord *record : seriesByName) {
        if (record->points.valueRange(x1, x2, axis->timeTable(), a, b))
            widen(a, b);
    }
    if (!any)
        return false;
    if (hi - lo < 1e-12 * std::max(1.0, std::fabs(hi))) {
        // A flat range has no span to scale: open it around the value, or
        // upwards only where volume stands on zero (no negative volume on
        // the axis, e.g. a data set without volume).
        const double pad = std::max(std::fabs(hi) * 0.005, 0.5e-6);
        if (volumeShown && lo >= 0.0) {
            hi = lo + std::max(2.0 * pad, 1.0);
        } else {
            lo -= pad;
            hi += pad;
        }
    }
    low = lo;
    high = hi;
    return true;
}

double Plot::candleWidth(double x1, double x2) const
{
    if (!tradingCurve)
        return 8.0;
    QwtScaleMap xMap = canvasMap(QwtPlot::xBottom);
    xMap.setScaleInterval(x1, x2);
    const QwtScaleMap yMap = canvasMap(QwtPlot::yRight);
    return tradingCurve->symbolWidth(xMap, yMap, canvas()->contentsRect());
}

// Bars sit at whole x positions, so the neighbours of x are floor(x) and the
// bar after it; a tie goes to the earlier bar.
// On a panel without prices of its own the bars are those of the chart's
// time axis, so the read-out over a volume panel names its candle.
bool Plot::getYFromX(double x, QwtOHLCSample &y)
{
    const BarSeries *axis = axisBars();
    const int n = axis->size();
    if (n == 0)
        return false;
    if (!(x >= 0.0)) { // left of the first bar, or not a number
        y = axis->sample(0);
        return true;
    }
    if (x >= n - 1) {
        y = axis->sample(n - 1);
        return true;
    }
    const int lower = int(std::floor(x));
    const bool upperNearer = (lower + 1 - x) < (x - lower);
    y = axis->sample(upperNearer ? lower + 1 : lower);
    return true;
}

// ---- navigation (PlotNavigator does the work) ------------------------------

// LONG_MIN has no negation: scrolling left by it is scrolling left by LONG_MAX.
void Plot::ScrollLeft(long Records) { ScrollRight(Records == LONG_MIN ? LONG_MAX : -Records); }
void Plot::ScrollRight(long Records) { navigator->scrollRight(Records); }
void Plot::ScrollToEnd(double) { navigator->scrollToEnd(); }
void Plot::ZoomIn(long) { navigator->zoomIn(); }
void Plot::ZoomOut(long) { navigator->zoomOut(); }
void Plot::ResetZoom() { navigator->resetZoom(); }
void Plot::ZoomInY(double dy) { navigator->zoomInY(dy); }
void Plot::ZoomOutY(double dy) { navigator->zoomOutY(dy); }
void Plot::moveX(double dx) { navigator->moveX(dx); }
void Plot::getX(double &x1, double &x2) { navigator->getX(x1, x2); }
void Plot::setX(double x1, double x2, double zoom) { navigator->setX(x1, x2, zoom); }
void Plot::setX(double x1, double x2) { navigator->setX(x1, x2, -1.0); }
void Plot::AdjustX(double &min, double &max) { navigator->adjustX(min, max); }
void Plot::recordChartCenter() { navigator->recordChartCenter(); }
void Plot::restoreChartCenter() { navigator->restoreChartCenter(); }

void Plot::SyncAllPannel()
{
    ChartEvents::send(this, ChartEvents::sync());
}

// The wheel away from the user (positive y) brings newer bars; a sideways
// wheel or swipe to the left (positive x) older ones, by the same amount.
// The larger component decides; an event without either moves nothing.
void Plot::wheelEvent(QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    const int dx = std::abs(delta.x()) > std::abs(delta.y()) ? delta.x() : -delta.y();
    if (dx != 0)
        moveX(dx);
    event->accept();
}

void Plot::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        ScrollRight(-1);
        event->accept();
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        ScrollRight(1);
        event->accept();
        break;
    case Qt::Key_Home:
        ScrollRight(LONG_MIN);
        event->accept();
        break;
    case Qt::Key_End:
        ScrollRight(LONG_MAX);
        event->accept();
        break;
    case Qt::Key_PageUp: // towards older bars, like Left
        ScrollRight(-navigator->screenBars());
        event->accept();
        break;
    case Qt::Key_PageDown:
        ScrollRight(navigator->screenBars());
        event->accept();
        break;
    default:
        QwtPlot::keyPressEvent(event);
    }
}

void Plot::updateLayout()
{
    QwtPlot::updateLayout();
    PriceAxisLayout::panelLaidOut(this);
    if (priceLines)
        priceLines->updateLabels();
    if (m_marks)
        m_marks->layoutChanged(); // handles follow the canvas, not only the scales
}

bool Plot::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas() && m_marks && m_marks->canvasEvent(event))
        return true;
    return QwtPlot::eventFilter(watched, event);
}

bool Plot::beginMark(const QPoint &pos) { return m_marks->beginMark(pos); }
void Plot::dragMark(const QPoint &pos) { m_marks->dragMark(pos); }
void Plot::finishMark() { m_marks->finishMark(); }

// ---- user-script comments (not drawn yet) ----------------------------------

void Plot::updateUserScriptComment(const char *newComment, bool append)
{
    const QString text = newComment ? QString::fromLatin1(newComment) : QString();
    userScriptComment = append ? userScriptComment + text : text;
}

void Plot::updateUserScriptComment(const char *newComment)
{
    updateUserScriptComment(newComment, false);
}

void Plot::refreshUserScriptComment() {}
