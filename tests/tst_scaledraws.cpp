// Axis labels: dates from the main panel's bars, prices by the fixed-width
// truncation rule.
#include <QtTest>

#include "datescaledraw.h"
#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "pricelabeltext.h"
#include "scaledrawwithprecision.h"

namespace {
double julian(double ms) { return 2440587.5 + ms / 86400000.0; }
const double T0 = 1584264600000.0; // 2020-03-15 09:30 UTC
} // namespace

class tst_ScaleDraws : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dateLabels_data()
    {
        QTest::addColumn<double>("interval");
        QTest::addColumn<QString>("label");
        QTest::newRow("minute") << 60000.0 << "09:30";
        QTest::newRow("hour") << 3600000.0 << "09:30";
        QTest::newRow("day") << 86400000.0 << "03/15";
        QTest::newRow("week") << 7 * 86400000.0 << "03/15";
        QTest::newRow("month") << 2592000000.0 << "03";
        QTest::newRow("unset") << 0.0 << "03";
    }
    void dateLabels()
    {
        QFETCH(double, interval);
        QFETCH(QString, label);
        PriceGraph chart;
        // A second panel draws the dates, but they come from the main panel.
        chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart.AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
        chart.SetInterval(interval);
        // Julian times land a hair off the minute; the first is half a
        // second early on purpose.
        chart.AppendOHLC("OHLC", julian(T0 - 500.0), false, 1, 1, 1, 1, 1);
        chart.AppendOHLC("OHLC", julian(T0 + 1e9), false, 1, 1, 1, 1, 1);
        Plot *bottom = PriceGraphPrivate::allPanels(&chart).at(1);
        const QwtScaleDraw *draw = bottom->axisScaleDraw(QwtPlot::xBottom);
        QCOMPARE(draw->label(0.0).text(), label);
        QCOMPARE(draw->label(0.9).text(), label); // truncated to bar 0
        QVERIFY(draw->label(2.0).isEmpty());      // beyond the data
        QVERIFY(draw->label(-3.0).isEmpty());
    }

    void noPanelNoLabel()
    {
        DateScaleDraw draw(nullptr, nullptr);
        QVERIFY(draw.label(0.0).isEmpty());
        PriceGraph chart;
        DateScaleDraw empty(&chart, nullptr);
        QVERIFY(empty.label(0.0).isEmpty());
    }

    void nudge_data()
    {
        QTest::addColumn<double>("ms");
        QTest::addColumn<double>("shown");
        QTest::newRow("on the minute") << 120000.0 << 120000.0;
        QTest::newRow("59 s in") << 179000.0 << 179000.0;
        QTest::newRow("59.5 s in") << 179500.0 << 180500.0;
    }
    void nudge()
    {
        QFETCH(double, ms);
        QFETCH(double, shown);
        QCOMPARE(DateScaleDraw::nudge(ms), shown);
    }

    void priceLabels_data()
    {
        QTest::addColumn<double>("price");
        QTest::addColumn<QString>("text");
        QTest::newRow("one digit") << 1.234567 << "1.23456";
        QTest::newRow("cut, not rounded") << 1.2345679 << "1.23456";
        QTest::newRow("three digits") << 123.456789 << "123.456";
        QTest::newRow("five digits") << 12345.678 << "12345.6";
        QTest::newRow("six digits") << 123456.0 << "123456";
        QTest::newRow("nine digits") << 931800000.0 << "931800000";
        QTest::newRow("negative") << -1.5 << "-1.5000";
        QTest::newRow("zero") << 0.0 << "0.00000";
    }
    void priceLabels()
    {
        QFETCH(double, price);
        QFETCH(QString, text);
        QCOMPARE(PriceLabelText::format(price), text);
        ScaleDrawWithPrecision draw(nullptr);
        QCOMPARE(draw.label(price).text(), text);
    }

    void truncateWithoutPoint()
    {
        QCOMPARE(PriceLabelText::truncate(QStringLiteral("12345678")), QStringLiteral("12345678"));
        QCOMPARE(PriceLabelText::truncate(QStringLiteral(".1234567")), QStringLiteral(".123456"));
    }

    void scaleDrawSettings()
    {
        PriceGraph chart;
        chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        Plot *p = PriceGraphPrivate::mainPanel(&chart);
        const QwtScaleDraw *dates = p->axisScaleDraw(QwtPlot::xBottom);
        const QwtScaleDraw *prices = p->axisScaleDraw(QwtPlot::yRight);
        QVERIFY(dynamic_cast<const DateScaleDraw *>(dates));
        QVERIFY(dynamic_cast<const ScaleDrawWithPrecision *>(prices));
        QCOMPARE(dates->spacing(), 5.0);
        QCOMPARE(dates->minimumExtent(), 24.0);
        QCOMPARE(dates->tickLength(QwtScaleDiv::MinorTick), 0.0);
        QCOMPARE(dates->tickLength(QwtScaleDiv::MediumTick), 0.0);
        QCOMPARE(prices->spacing(), 7.0);
        QCOMPARE(prices->minimumExtent(), 60.0);
        QCOMPARE(prices->tickLength(QwtScaleDiv::MinorTick), 0.0);
        QCOMPARE(prices->tickLength(QwtScaleDiv::MediumTick), 0.0);
        QCOMPARE(prices->tickLength(QwtScaleDiv::MajorTick), 3.0);
    }
};

QTEST_MAIN(tst_ScaleDraws)
#include "tst_scaledraws.moc"
