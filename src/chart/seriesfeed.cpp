#include "seriesfeed.h"

#include "axisbars.h"
#include "barseries.h"
#include "closelineview.h"
#include "datescaledraw.h"
#include "indicatorintervalview.h"
#include "indicatorlineview.h"
#include "panelbars.h"
#include "plot.h"
#include "pricegraphprivate.h"
#include "seriesrecord.h"
#include "tradingcurve.h"
#include "visiblecurve.h"
#include "visibleintervalcurve.h"
#include "volumehistogram.h"
#include "volumeseriesview.h"

#include <QDebug>

#include <qwt_plot_histogram.h>

// How the data-feed calls find their series (the facade hands every call to
// every panel):
// - a price series answers to the exact names containing "OHLC" that were
//   added to this panel; all of them feed the panel's one set of bars;
// - the volume series answers to "volume" on a panel that added it;
// - an indicator answers to its name, the text before any '*': "MA" feeds
//   the series added as "MA*255#x", and "MA*255#x" itself feeds nothing.
// Anything else is not this panel's and is ignored.
//
// How samples are stored (BarSeries and IndicatorSeries hold the details):
// - one copy of every sample; the items read it through views;
// - bars sit at x = 0, 1, 2, ... in time order; a time already present
//   replaces its bar, an older time is inserted in order and the bars after
//   it move one to the right;
// - EditOHLC/EditValue change the newest sample (its time is kept) and
//   append on an empty series;
// - non-finite or absurd values and times are rejected with a warning and
//   leave the data as it was;
// - indicator points are kept by time and drawn at the x of the bar of
//   their time (interpolated between bars);
// - "volume" writes the volume of the bar of its time in the bars this
//   panel's x axis counts (PanelBars): its own price bars, else those of
//   the chart's time axis; with no price bars at all the volume samples
//   become bars of their own. A volume for a time without a bar is dropped with a debug
//   line (the price call carries the same volume);
// - a call with show = true asks for one flush of the whole chart, so a
//   burst of samples costs one replot; any navigation before that flush
//   runs it first. show = false only stores.

SeriesFeed::SeriesFeed(Plot *plot)
    : m_plot(plot)
{
}

QString SeriesFeed::baseName(const QString &name)
{
    const int star = name.indexOf(QLatin1Char('*'));
    return star < 0 ? name : name.left(star);
}

QColor SeriesFeed::color(const QString &name)
{
    const int star = name.indexOf(QLatin1Char('*'));
    if (star < 0)
        return QColor(Qt::blue);
    const int hash = name.indexOf(QLatin1Char('#'), star + 1);
    const QString digits = name.mid(star + 1, hash < 0 ? -1 : hash - star - 1);
    bool ok = false;
    qlonglong v = digits.toLongLong(&ok, 10);
    if (!ok || v == 0)
        v = 0xFFFF0000;
    return QColor(int((v >> 16) & 0xFF), int((v >> 8) & 0xFF), int(v & 0xFF));
}

void SeriesFeed::addSeries(const QString &name)
{
    Plot *p = m_plot;
    BarSeries *bars = p->barSeries();
    if (name.contains(QLatin1String("OHLC"))) {
        m_priceNames.insert(name);
        if (!p->tradingCurve) {
            p->tradingCurve = new TradingCurve;
            p->tradingCurve->setTitle(QString());
            p->tradingCurve->setOrientation(Qt::Vertical);
            p->tradingCurve->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
            p->candleOutlineColor = QColor(QStringLiteral("#b2b200"));
            p->tradingCurve->setSymbolPen(p->candleOutlineColor, 0, Qt::SolidLine);
            p->setUpColor(QColor(QStringLiteral("#1dff00")));
            p->setDownColor(QColor(QStringLiteral("#d91200")));
            p->tradingCurve->setBars(bars);
            p->tradingCurve->attach(p);
            p->tradingCurve->setVisible(true);
            p->panelBars()->setHoldsPrice(true);
        }
        if (!p->lineCurve) {
            p->lineCurve = new VisibleCurve;
            p->lineCurve->setPen(Qt::white);
            p->lineColor = QColor(QStringLiteral("#b2b200"));
            p->lineCurve->setPen(p->lineColor, 1.5, Qt::SolidLine);
            p->lineCurve->setData(new CloseLineView(bars));
            p->lineCurve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
            p->lineCurve->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
            p->lineCurve->attach(p);
            p->lineCurve->setVisible(false);
        }
        // A style chosen before the price series existed is applied the
        // next time it is set; the new curve starts as candles.
        if (p->volumeHistogram)
            p->volumeHistogram->setAxes(QwtPlot::xBottom, QwtPlot::yLeft);
        return;
    }
    if (name == QLatin1String("volume")) {
        if (p->volumeHistogram) {
            qDebug("Plot::AddSeries() this panel already holds a volume series.");
            return;
        }
        auto *histogram = new VolumeHistogram;
        histogram->setPen(QPen(Qt::red, 0));
        histogram->setBrush(QBrush(Qt::red));
        histogram->setData(new VolumeSeriesView(p->panelBars()));
        // Beside a price series the volume stands on the hidden left axis,
        // scaled into the lower part of the panel (updateVolumeScale).
        histogram->setAxes(QwtPlot::xBottom, p->tradingCurve ? QwtPlot::yLeft : QwtPlot::yRight);
        p->volumeHistogram = histogram;
        p->volumeHistogram->attach(p);
        p->volumeHistogram->setVisible(true);
        if (!p->m_showVolume)
            p->showVolume(false); // follows the chart's volume switch
        return;
    }

    const QColor lineColor = color(name);
    const QString base = baseName(name);
    delete p->seriesByName.take(base); // adding a name again replaces the series
    // Only the name says ".end": "BAND*255.end" is a line named "BAND".
    const bool intervals = base.contains(QLatin1String(".end"));
    auto *record = new SeriesRecord(base, lineColor, intervals);
    QwtPlotItem *item;
    if (intervals) {
        auto *curve = new VisibleIntervalCurve(lineColor);
        curve->setData(new IndicatorIntervalView(p->panelBars(), &record->points));
        record->intervalCurve = curve;
        item = curve;
    } else {
        auto *curve = new VisibleCurve(base);
        curve->setPen(lineColor, 0, Qt::SolidLine);
        curve->setData(new IndicatorLineView(p->panelBars(), &record->points));
        record->curve = curve;
        item = curve;
    }
    item->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    item->attach(p);
    item->setVisible(true);
    p->seriesByName.insert(base, record);
    p->replot();
}

void SeriesFeed::removeSeries(const QString &name)
{
    Plot *p = m_plot;
    BarSeries *bars = p->barSeries();
    if (isPriceName(name)) {
        m_priceNames.remove(name);
        if (!m_priceNames.isEmpty())
            return; // another name still feeds the price series
        delete p->tradingCurve;
        p->tradingCurve = nullptr;
        delete p->lineCurve;
        p->lineCurve = nullptr;
        p->panelBars()->setHoldsPrice(false);
        bars->clear();
        barTimesChanged();
        if (p->volumeHistogram)
            p->volumeHistogram->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    } else if (name == QLatin1String("volume") && p->volumeHistogram) {
        delete p->volumeHistogram;
        p->volumeHistogram = nullptr;
        if (!p->tradingCurve) {
            bars->clear(); // bars that only carried volume
            barTimesChanged();
        }
    } else if (SeriesRecord *record = p->series(name)) {
        p->seriesByName.remove(record->name);
        delete record;
    } else {
        return;
    }
    p->scheduleReplot();
}

void SeriesFeed::barTimesChanged()
{
    if (!DateScaleDraw::anyLabels())
        return; // no dates shown yet: nothing to forget
    // Only the bars the chart's time axis stands on give the dates.
    PriceGraph *chart = m_plot->getChart();
    const AxisBars *axis = PriceGraphPrivate::axisBarsOf(chart);
    if (axis && axis->source() == m_plot->barSeries())
        DateScaleDraw::datesChanged(chart);
}

bool SeriesFeed::stored(int result)
{
    // A replaced bar keeps its time; a new one changes what the dates say.
    if (result == BarSeries::Appended || result == BarSeries::Inserted)
        barTimesChanged();
    return result != BarSeries::Rejected;
}

bool SeriesFeed::feedVolume(double time, bool edit, double open, double high, double low,
                            double close, double volume)
{
    Plot *p = m_plot;
    BarSeries *bars = p->barSeries();
    BarSeries *target = p->axisBars();
    if (target == bars && !p->tradingCurve) {
        // No price bars to stand on: the volume samples are this panel's
        // own bars, placed by their own times.
        return stored(edit ? bars->editLast(time, open, high, low, close, volume)
                           : bars->add(time, open, high, low, close, volume));
    }
    if (edit) {
        if (target->isEmpty()) {
            qDebug("Plot::EditOHLC() no price bar for the volume yet; ignored.");
            return false;
        }
        return target->setVolume(target->size() - 1, volume);
    }
    const int i = target->timeTable().indexOf(time);
    if (i < 0) {
        // The price call carries the same volume, so nothing is lost when
        // the host feeds the price bar afterwards.
        qDebug("Plot::AppendOHLC() no price bar at time %.0f for the volume; ignored.", time);
        return false;
    }
    return target->setVolume(i, volume);
}

bool SeriesFeed::feed(const QString &name, double time, bool edit, double open, double high,
                      double low, double close, double volume, bool valueOnly)
{
    Plot *p = m_plot;
    BarSeries *bars = p->barSeries();
    if (isPriceName(name)) {
        return stored(edit ? bars->editLast(time, open, high, low, close, volume)
                           : bars->add(time, open, high, low, close, volume));
    }
    if (p->volumeHistogram && name == QLatin1String("volume"))
        return feedVolume(time, edit, open, high, low, close, volume);
    SeriesRecord *record = p->series(name);
    if (!record)
        return false;
    // A line shows the close; intervals run from low to high, or from 0 to
    // the value for AppendValue.
    double from = close, to = close;
    if (record->points.isInterval()) {
        from = valueOnly ? 0.0 : low;
        to = valueOnly ? close : high;
    }
    return (edit ? record->points.editLast(time, from, to) : record->points.add(time, from, to))
           != IndicatorSeries::Rejected;
}

bool SeriesFeed::feedValue(const QString &name, double time, bool edit, double value)
{
    const double volume = name == QLatin1String("volume") ? value : 0.0;
    return feed(name, time, edit, value, value, value, value, volume, true);
}

bool SeriesFeed::clearValues(const QString &name)
{
    Plot *p = m_plot;
    BarSeries *bars = p->barSeries();
    if (isPriceName(name)) {
        bars->clear(); // the volumes of these bars go with them
        barTimesChanged();
    } else if (p->volumeHistogram && name == QLatin1String("volume")) {
        BarSeries *target = p->axisBars();
        if (target == bars && !p->tradingCurve) {
            bars->clear();
            barTimesChanged();
        } else
            target->clearVolumes();
    } else if (SeriesRecord *record = p->series(name)) {
        record->points.clear();
    } else {
        return false;
    }
    return true;
}
