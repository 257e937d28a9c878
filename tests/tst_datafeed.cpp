// The data feed as a host drives it: series kinds by name, where samples are
// placed, what bad input does, and how replots are coalesced.
#include <QtTest>

#include "barseries.h"
#include "charttesthelpers.h"
#include "indicatorseries.h"
#include "seriesrecord.h"
#include "tradingcurve.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_plot_tradingcurve.h>

#include <cmath>

using charttest::Day;
using charttest::julian;

namespace {
const double T0 = 1577836800000.0; // 2020-01-01 00:00 UTC

int itemCount(Plot *p, int rtti)
{
    int n = 0;
    for (QwtPlotItem *item : p->itemList())
        n += item->rtti() == rtti;
    return n;
}
} // namespace

class tst_DataFeed : public QObject, protected charttest::ChartFixture<>
{
    Q_OBJECT

private:
    // Bars at T0 + k days with close = 10 + k.
    void feedDays(int count, const char *name = "OHLC")
    {
        for (int k = 0; k < count; ++k)
            chart->AppendOHLC(name, julian(T0 + k * Day), false, 10 + k, 11 + k, 9 + k, 10 + k,
                              100 + k);
    }

    // Appends `count` bars with show = true; returns the replots they cost
    // once the event loop has run, and in *deferred those made at once.
    quint64 burst(int count, int offset, quint64 *deferred)
    {
        const quint64 before = main()->replotCount();
        for (int k = 0; k < count; ++k)
            chart->AppendOHLC("OHLC", julian(T0 + (offset + k) * Day), true, 1, 2, 0, 1, 1);
        *deferred = main()->replotCount() - before;
        if (!QTest::qWaitFor([&] { return main()->replotCount() > before; }))
            return 0;
        QCoreApplication::processEvents();
        return main()->replotCount() - before;
    }

private Q_SLOTS:
    void init() { makeChart(); }
    void cleanup() { dropChart(); }

    void indicatorNames_data()
    {
        QTest::addColumn<QString>("added");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QColor>("color");
        QTest::addColumn<bool>("intervals");
        QTest::newRow("colour then tag") << "MA*255#x" << "MA" << QColor(0, 0, 255) << false;
        QTest::newRow("zero is red") << "MA*0" << "MA" << QColor(255, 0, 0) << false;
        QTest::newRow("garbage is red") << "MA*abc" << "MA" << QColor(255, 0, 0) << false;
        QTest::newRow("no colour is blue") << "RSI" << "RSI" << QColor(Qt::blue) << false;
        QTest::newRow("green, no tag") << "RSI*65280" << "RSI" << QColor(0, 255, 0) << false;
        QTest::newRow("intervals") << "MACD.end*16711680" << "MACD.end" << QColor(255, 0, 0)
                                   << true;
        QTest::newRow(".end after the colour is no interval")
            << "BAND*255.end" << "BAND" << QColor(255, 0, 0) << false; // "255.end" is no number
    }
    void indicatorNames()
    {
        QFETCH(QString, added);
        QFETCH(QString, name);
        QFETCH(QColor, color);
        QFETCH(bool, intervals);
        chart->AddSeries(added, 0, 1, 0, 0, false);
        Plot *panel = PriceGraphPrivate::allPanels(chart).at(1);
        SeriesRecord *record = panel->seriesByName.value(name);
        QVERIFY(record);
        QCOMPARE(record->name, name);
        QCOMPARE(bool(record->intervalCurve), intervals);
        QCOMPARE(bool(record->curve), !intervals);
        QCOMPARE(intervals ? record->intervalCurve->pen().color() : record->curve->pen().color(),
                 color);
        QVERIFY(!panel->seriesByName.contains(added) || added == name);
        // The series answers to its name only, not to the name it was added with.
        chart->AppendValue(added.toLatin1().constData(), julian(T0), 1.0, false);
        QCOMPARE(record->points.size(), added == name ? 1 : 0);
        chart->AppendValue(name.toLatin1().constData(), julian(T0 + Day), 2.0, false);
        QCOMPARE(record->points.size(), added == name ? 2 : 1);
        chart->RemoveSeries(added.toLatin1().constData());
        QCOMPARE(panel->seriesByName.value(name), added == name ? nullptr : record);
    }

    void itemsAreCreatedOnce()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        QCOMPARE(itemCount(main(), QwtPlotItem::Rtti_PlotTradingCurve), 1);
        QCOMPARE(itemCount(main(), QwtPlotItem::Rtti_PlotCurve), 1); // the close line
        Plot *volume = PriceGraphPrivate::allPanels(chart).at(1);
        QCOMPARE(itemCount(volume, QwtPlotItem::Rtti_PlotHistogram), 1);
        QCOMPARE(volume->volumeHistogram->brush().color(), QColor(Qt::red));
        // An indicator added again replaces the old one and its points.
        chart->AddSeries(QStringLiteral("MA*255"), 0, 0, 0, 0, false);
        chart->AppendValue("MA", julian(T0), 5.0, false);
        chart->AddSeries(QStringLiteral("MA*65280"), 0, 0, 0, 0, false);
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.size(), 0);
        QCOMPARE(main()->series(QStringLiteral("MA"))->curve->pen().color(), QColor(0, 255, 0));
        QCOMPARE(itemCount(main(), QwtPlotItem::Rtti_PlotCurve), 2);
    }

    void boundsOfEveryItemArePositionsByValues()
    {
        // What autoscale sees before the view is set: x the bar positions,
        // y the values, for every kind of item.
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("H.end"), 0, 1, 0, 0, false);
        feedDays(4); // lows 9..12, highs 11..14, volumes 100..103
        for (int k = 0; k < 4; ++k) {
            chart->AppendValue("MA", julian(T0 + k * Day), 20 + k, false);
            chart->AppendValue("H.end", julian(T0 + k * Day), -k, false);
        }
        Plot *second = PriceGraphPrivate::allPanels(chart).at(1);
        QCOMPARE(main()->tradingCurve->boundingRect(), QRectF(0, 9, 3, 5));
        QCOMPARE(main()->lineCurve->boundingRect(), QRectF(0, 9, 3, 5));
        const QRectF volume = second->volumeHistogram->boundingRect();
        QCOMPARE(volume.top(), 0.0);
        QCOMPARE(volume.bottom(), 103.0);
        QVERIFY(volume.left() < 0.0 && volume.right() > 3.0);
        QCOMPARE(second->series(QStringLiteral("MA"))->curve->boundingRect(), QRectF(0, 20, 3, 3));
        QCOMPARE(second->series(QStringLiteral("H.end"))->intervalCurve->boundingRect(),
                 QRectF(0, -3, 3, 3));
    }

    void barsArePlacedByTime()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        for (int k : {0, 2, 4, 3, 1}) // out of order
            chart->AppendOHLC("OHLC", julian(T0 + k * Day), false, 1, 2, 0.5, 1 + k, 10);
        chart->AppendOHLC("OHLC", julian(T0 + 2 * Day), false, 1, 50, 0.5, 42, 10); // same time
        const BarSeries *bars = main()->barSeries();
        QCOMPARE(bars->size(), 5);
        const double closes[] = {1, 2, 42, 4, 5};
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(bars->close(i), closes[i]);
            QVERIFY(i == 0 || bars->time(i) > bars->time(i - 1));
        }
        QCOMPARE(bars->high(2), 50.0);
        double low, high; // the range index follows inserts and replaces
        QVERIFY(main()->valueRange(-1, 10, low, high));
        QCOMPARE(QPointF(low, high), QPointF(0.5, 50.0));
        chart->AppendOHLC("OHLC", julian(T0 + 2 * Day), false, 1, 3, 0.5, 2, 10);
        QVERIFY(main()->valueRange(-1, 10, low, high));
        QCOMPARE(high, 5.0); // the close of the newest bar
    }

    void badInputLeavesTheDataIntact_data()
    {
        QTest::addColumn<double>("julianTime");
        QTest::addColumn<double>("close");
        QTest::newRow("NaN close") << julian(T0 + 9 * Day) << double(NAN);
        QTest::newRow("infinite close") << julian(T0 + 9 * Day) << double(INFINITY);
        QTest::newRow("absurd close") << julian(T0 + 9 * Day) << 1e200;
        QTest::newRow("NaN time") << double(NAN) << 5.0;
        QTest::newRow("Julian day 0") << 0.0 << 5.0;
    }
    void badInputLeavesTheDataIntact()
    {
        QFETCH(double, julianTime);
        QFETCH(double, close);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 0, 0, 0, false);
        feedDays(3);
        chart->AppendValue("MA", julian(T0), 1.0, false);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("rejected")));
        chart->AppendOHLC("OHLC", julianTime, true, 1, 2, 0, close, 1);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("rejected")));
        chart->AppendValue("MA", julianTime, close, true);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("rejected")));
        chart->EditOHLC("OHLC", julianTime, true, close, close, close, close, 1);
        QCOMPARE(main()->barSeries()->size(), 3);
        QCOMPARE(main()->barSeries()->close(2), 12.0);
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.size(), 1);
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.value(0), 1.0);
        // Unknown and null names are ignored.
        chart->AppendOHLC("nothing", julian(T0), true, 1, 1, 1, 1, 1);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("null series name")));
        chart->AppendValue(nullptr, julian(T0), 1.0, true);
        QCOMPARE(main()->barSeries()->size(), 3);
    }

    void editChangesTheNewestSample()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 0, 0, 0, false);
        chart->EditOHLC("OHLC", julian(T0), false, 1, 2, 0.5, 1.5, 7); // empty: appends
        chart->EditValue("MA", julian(T0), 3.0, false);
        feedDays(3); // replaces T0, appends two
        chart->EditOHLC("OHLC", julian(T0 + 99 * Day), false, 20, 30, 19, 25, 9);
        chart->EditValue("MA", julian(T0 + 99 * Day), 4.0, false);
        const BarSeries *bars = main()->barSeries();
        QCOMPARE(bars->size(), 3);
        QCOMPARE(bars->close(2), 25.0);
        QCOMPARE(bars->time(2), T0 + 2 * Day); // the newest bar keeps its time
        QCOMPARE(bars->volume(2), 9.0);
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.size(), 1);
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.value(0), 4.0);
    }

    void volumeFollowsTheBarOfItsTime()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        Plot *volume = PriceGraphPrivate::allPanels(chart).at(1);
        feedDays(3);
        chart->AppendOHLC("volume", julian(T0 + Day), false, 0, 0, 0, 0, 555);
        chart->EditOHLC("volume", julian(T0 + 2 * Day), false, 0, 0, 0, 0, -8);
        QCOMPARE(main()->barSeries()->volume(1), 555.0);
        QCOMPARE(main()->barSeries()->volume(2), 0.0); // never negative
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no price bar")));
        chart->AppendOHLC("volume", julian(T0 + 50 * Day), false, 0, 0, 0, 0, 9);
        QCOMPARE(volume->barCount(), 3);
        QCOMPARE(volume->volumeHistogram->sample(1).value, 555.0);
        double low, high;
        QVERIFY(volume->valueRange(-0.5, 2.5, low, high));
        QCOMPARE(QPointF(low, high), QPointF(0.0, 555.0));
        chart->ClearValues("volume");
        QCOMPARE(main()->barSeries()->volume(1), 0.0);
        QCOMPARE(main()->barSeries()->size(), 3);
        // A market without volume keeps its axis on zero, never below.
        QVERIFY(volume->valueRange(-0.5, 2.5, low, high));
        QCOMPARE(low, 0.0);
        QVERIFY(high > 0.0);
        // Beside prices, volume draws the panel's own bars on the hidden
        // left axis and leaves the right axis to the prices.
        chart->AddSeries(QStringLiteral("volume"), 0, 0, 0, 0, false);
        chart->AppendOHLC("volume", julian(T0), false, 0, 0, 0, 0, 77);
        QCOMPARE(main()->barSeries()->volume(0), 77.0);
        QCOMPARE(main()->volumeHistogram->yAxis(), int(QwtPlot::yLeft));
        QVERIFY(main()->valueRange(-0.5, 1.5, low, high));
        QCOMPARE(QPointF(low, high), QPointF(9.0, 12.0));
        // Bar 0's candle still shows at x 0.2: its low scales the view.
        QVERIFY(main()->valueRange(0.2, 1.5, low, high));
        QCOMPARE(low, 9.0);
    }

    void indicatorPointsSitOnTheBarsOfTheirTime()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA*255"), 0, 1, 0, 0, false);
        Plot *panel = PriceGraphPrivate::allPanels(chart).at(1);
        feedDays(3, "OHLC");
        for (double k : {1.0, 1.5, 2.0, 4.0})
            chart->AppendValue("MA", julian(T0 + k * Day), k, false);
        const QwtPlotCurve *curve = panel->series(QStringLiteral("MA"))->curve;
        QCOMPARE(curve->sample(0).x(), 1.0);                // exact hit
        QVERIFY(qAbs(curve->sample(1).x() - 1.5) < 1e-6);   // between bars
        QCOMPARE(curve->sample(2).x(), 2.0);
        QVERIFY(qAbs(curve->sample(3).x() - 4.0) < 1e-6);   // beyond the last bar
        // An older bar shifts the newer bars, and the points move with them.
        chart->AppendOHLC("OHLC", julian(T0 - Day), false, 1, 1, 1, 1, 1);
        QCOMPARE(curve->sample(0).x(), 2.0);
        QCOMPARE(curve->sample(2).x(), 3.0);
        double low, high;
        QVERIFY(panel->valueRange(1.5, 3.5, low, high));
        QCOMPARE(low, 1.0);
        QCOMPARE(high, 2.0);
    }

    void indicatorsWithoutBarsUseTheirOwnIndex()
    {
        chart->AddSeries(QStringLiteral("RSI"), 0, 0, 0, 0, false);
        for (int k = 0; k < 3; ++k)
            chart->AppendValue("RSI", julian(T0 + k * Day), 52, false);
        QCOMPARE(main()->series(QStringLiteral("RSI"))->curve->sample(2), QPointF(2.0, 52.0));
        double low, high; // a flat range still gets a span
        QVERIFY(main()->valueRange(-0.5, 2.5, low, high));
        QVERIFY(low < 52.0 && high > 52.0);
    }

    void clearAndRemove()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 0, 0, 0, false);
        feedDays(4);
        chart->AppendValue("MA", julian(T0), 1.0, false);
        chart->ClearValues("OHLC");
        QwtOHLCSample sample;
        QVERIFY(!main()->getYFromX(0.0, sample));
        QCOMPARE(main()->series(QStringLiteral("MA"))->points.size(), 1);
        chart->RemoveSeries("MA*255"); // not its name
        QVERIFY(main()->series(QStringLiteral("MA")));
        chart->RemoveSeries("MA");
        QVERIFY(!main()->series(QStringLiteral("MA")));
        QCOMPARE(itemCount(main(), QwtPlotItem::Rtti_PlotCurve), 1);
        chart->RemoveSeries("OHLC");
        QVERIFY(!main()->tradingCurve);
        QCOMPARE(itemCount(main(), QwtPlotItem::Rtti_PlotTradingCurve), 0);
        chart->RemoveSeries("not there");
        feedDays(1); // no longer a price series of this panel
        QCOMPARE(main()->barSeries()->size(), 0);
    }

    void burstsCostOneFlush()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        feedDays(50); // show = false: nothing is drawn
        const quint64 quiet = main()->replotCount();
        QCoreApplication::processEvents();
        QCOMPARE(main()->replotCount(), quiet);

        quint64 deferred = 0;
        const quint64 one = burst(1, 100, &deferred);
        QCOMPARE(deferred, quint64(0));
        QVERIFY(one >= 1);
        QCOMPARE(burst(200, 200, &deferred), one);
        QCOMPARE(deferred, quint64(0));
    }

    void timeToIndex_data()
    {
        QTest::addColumn<double>("time");
        QTest::addColumn<double>("index");
        QTest::newRow("exact") << 2000.0 << 1.0;
        QTest::newRow("between") << 2500.0 << 1.5;
        QTest::newRow("after") << 4000.0 << 3.0;
        QTest::newRow("before") << 0.0 << -1.0;
    }
    void timeToIndex()
    {
        QFETCH(double, time);
        QFETCH(double, index);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        QTest::ignoreMessage(QtWarningMsg, "Plot::TimeToIndexSuitable() data sample is not ready.\n");
        QCOMPARE(main()->TimeToIndexSuitable(time), 0.0);
        main()->AppendOHLC(QStringLiteral("OHLC"), 1000.0, false, 1, 1, 1, 1, 1);
        if (time != 1000.0) {
            QTest::ignoreMessage(QtWarningMsg, "Plot::TimeToIndexSuitable() no enough data sample|1.\n");
            QCOMPARE(main()->TimeToIndexSuitable(time), 0.0);
        }
        for (double t : {3000.0, 2000.0})
            main()->AppendOHLC(QStringLiteral("OHLC"), t, false, 1, 1, 1, 1, 1);
        QCOMPARE(main()->TimeToIndexSuitable(time), index);
    }

    void getYFromXTiesGoToTheEarlierBar_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("close");
        QTest::newRow("midpoint") << 0.5 << 10.0;
        QTest::newRow("just past") << 1.5000001 << 12.0;
        QTest::newRow("left of data") << -7.0 << 10.0;
        QTest::newRow("right of data") << 99.0 << 12.0;
        QTest::newRow("on a bar") << 1.0 << 11.0;
    }
    void getYFromXTiesGoToTheEarlierBar()
    {
        QFETCH(double, x);
        QFETCH(double, close);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        QwtOHLCSample sample(-1, -1, -1, -1, -1);
        QVERIFY(!main()->getYFromX(x, sample));
        QCOMPARE(sample.close, -1.0); // untouched
        feedDays(3);
        QVERIFY(main()->getYFromX(x, sample));
        QCOMPARE(sample.close, close);
    }
};

QTEST_MAIN(tst_DataFeed)
#include "tst_datafeed.moc"
