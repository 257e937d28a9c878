#include "plot.h"

#include "barseries.h"
#include "chartevents.h"
#include "datescaledraw.h"
#include "plotnavigator.h"
#include "plotpricelinesdata.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "qwtplotpannerx.h"
#include "scaledrawwithprecision.h"
#include "seriesrecord.h"
#include "tradingcurve.h"

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
    // Colours start invalid; setup gives the panel its defaults.
    priceLines = new PlotPriceLinesData(this);
    bars = new BarSeries;
    navigator = new PlotNavigator(this);
    leftInset = 10;
    cursorStyle = -1;
    canvas()->setFocusPolicy(Qt::ClickFocus);
    setup();
}

Plot::~Plot()
{
    delete priceLines;
    priceLines = nullptr;
    if (chart)
        PriceGraphPrivate::plotClosed(chart, this);
    qDeleteAll(seriesByName);
    seriesByName.clear();
    delete tradingCurve;
    delete lineCurve;
    delete volumeHistogram;
    qDeleteAll(daySeparators);
    delete navigator;
    delete bars;
}

void Plot::setup()
{
    DateScaleDraw *dateDraw = new DateScaleDraw(chart, this);
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

    grid = new QwtPlotGrid;
    grid->attach(this);
    grid->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    gridColor = QColor(34, 34, 34);
    grid->setMajorPen(gridColor, 0, Qt::SolidLine);

    chartType = 0;
    panner = new QwtPlotPannerX(canvas(), this);
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
    auto *bottom = static_cast<ColorScaleDraw *>(axisScaleDraw(QwtPlot::xBottom));
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

int Plot::priceDecimals() const
{
    return chart ? PriceGraphPrivate::decimals(chart) : -1;
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
    panner->setSuspended(!(style == 0 || style == 1 || style == 3 || style == 6));
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

void Plot::setOHLCSample(QwtPlotTradingCurve *pOhlc, QVector<QwtOHLCSample> data)
{
    if (pOhlc)
        pOhlc->setSamples(data);
}

void Plot::setLineSample(QwtPlotCurve *pCurve, QVector<QPointF> data)
{
    if (!pCurve)
        return;
    pCurve->setSamples(data);
    ChartEvents::send(this, ChartEvents::sync());
}

void Plot::setVolumeSample(QwtPlotHistogram *pVolume, QVector<QwtIntervalSample> data)
{
    if (!pVolume)
        return;
    pVolume->setData(new QwtIntervalSeriesData(data));
    ChartEvents::send(this, ChartEvents::sync());
}

void Plot::setBarSample(QwtPlotIntervalCurve *pBar, QVector<QwtIntervalSample> data)
{
    if (pBar)
        pBar->setSamples(data);
}

// ---- series ----------------------------------------------------------------

void Plot::AddSeries(QString name, long)
{
    if (name.contains(QLatin1String("OHLC"))) {
        if (!tradingCurve) {
            tradingCurve = new TradingCurve;
            tradingCurve->setTitle(QString());
            tradingCurve->setOrientation(Qt::Vertical);
            tradingCurve->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
            candleOutlineColor = QColor(QStringLiteral("#b2b200"));
            tradingCurve->setSymbolPen(candleOutlineColor, 0, Qt::SolidLine);
            setUpColor(QColor(QStringLiteral("#1dff00")));
            setDownColor(QColor(QStringLiteral("#d91200")));
            tradingCurve->setBars(bars);
            tradingCurve->attach(this);
            tradingCurve->setVisible(true);
        }
        if (!lineCurve) {
            lineCurve = new QwtPlotCurve;
            lineCurve->setPen(Qt::white);
            lineColor = QColor(QStringLiteral("#b2b200"));
            lineCurve->setPen(lineColor, 1.5, Qt::SolidLine);
            lineCurve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
            lineCurve->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
            lineCurve->attach(this);
            lineCurve->setVisible(false);
        }
    }
}

void Plot::RemoveSeries(QString) {}

void Plot::AppendOHLC(QString name, double time, bool show, double open, double high,
                      double low, double close, long volume)
{
    if (!tradingCurve || !name.contains(QLatin1String("OHLC")))
        return;
    if (bars->add(time, open, high, low, close, double(volume)) == BarSeries::Rejected)
        return;
    if (show)
        scheduleReplot();
}

void Plot::AppendValue(QString, double, double, bool) {}

void Plot::EditOHLC(QString name, double time, bool show, double open, double high, double low,
                    double close, long volume)
{
    if (!tradingCurve || !name.contains(QLatin1String("OHLC")))
        return;
    if (bars->editLast(time, open, high, low, close, double(volume)) == BarSeries::Rejected)
        return;
    if (show)
        scheduleReplot();
}

void Plot::EditValue(QString, double, double, bool) {}
void Plot::ClearValues(QString) {}

void Plot::FlushTa()
{
    navigator->dataChanged();
    updateDaySeparators();
    replot();
}

void Plot::scheduleReplot()
{
    if (!replotTimer)
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

void Plot::updateDaySeparators() {}

bool Plot::hasSeries()
{
    return tradingCurve || volumeHistogram || !seriesByName.isEmpty();
}

void Plot::showVolume(bool bShow)
{
    m_showVolume = bShow;
    if (volumeHistogram)
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
    return bars->timeTable().suitableIndex(time);
}

double Plot::indexToTime(double index) const
{
    const int n = bars->size();
    if (n == 0)
        return -1.0;
    if (!(index >= 0.0))
        return bars->time(0);
    if (index >= n)
        return bars->time(n - 1);
    return bars->time(int(index));
}

double Plot::timeAtIndex(long index) const
{
    return (index >= 0 && index < bars->size()) ? bars->time(int(index)) : 0.0;
}

int Plot::barCount() const
{
    return bars->size();
}

bool Plot::valueRange(double x1, double x2, double &low, double &high) const
{
    if (!std::isfinite(x1) || !std::isfinite(x2))
        return false;
    const double first = std::max(std::ceil(std::min(x1, x2)), -1.0);
    const double last = std::min(std::floor(std::max(x1, x2)), double(bars->size()));
    if (tradingCurve)
        return bars->priceRange(int(first), int(last), low, high);
    return false;
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

bool Plot::getYFromX(double x, QwtOHLCSample &y)
{
    const int n = bars->size();
    if (n == 0)
        return false;
    if (!(x >= 0.0)) {
        y = bars->sample(0);
        return true;
    }
    if (x >= n - 1) {
        y = bars->sample(n - 1);
        return true;
    }
    // Bars sit at whole x positions: the lower neighbour is floor(x). A tie
    // goes to the earlier bar.
    const int lower = int(std::floor(x));
    const bool upperNearer = (lower + 1 - x) < (x - lower);
    y = bars->sample(upperNearer ? lower + 1 : lower);
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

void Plot::wheelEvent(QWheelEvent *event)
{
    moveX(-event->angleDelta().y());
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
    default:
        QwtPlot::keyPressEvent(event);
    }
}

void Plot::updateLayout()
{
    QwtPlot::updateLayout();
    if (priceLines)
        priceLines->updateLabels();
}

bool Plot::eventFilter(QObject *watched, QEvent *event)
{
    return QwtPlot::eventFilter(watched, event);
}

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
