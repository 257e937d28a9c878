// Axis labels: dates from the bars of the chart's time axis, prices by the
// fixed-width truncation rule.
#include <QtTest>

#include "datescaledraw.h"
#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "pricelabeltext.h"
#include "scaledrawwithprecision.h"
#include "timescale.h"

class tst_ScaleDraws : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dateLabels_data()
    {
        QTest::addColumn<double>("interval");
        QTest::addColumn<QString>("label");
        QTest::newRow("minute") << 60000.0 << "09:30";
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
        DateScaleDraw orphan(nullptr);
        QVERIFY(orphan.label(0.0).isEmpty()); // no time axis
        chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart.AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
        chart.SetInterval(interval);
        // 2020-03-15 09:29:59.5 as a Julian date: shown as 09:30.
        const double t = 1584264600000.0 - 500.0;
        chart.AppendOHLC("OHLC", 2440587.5 + t / 86400000.0, false, 1, 1, 1, 1, 1);
        chart.AppendOHLC("OHLC", 2440587.5 + t / 86400000.0 + 40, false, 1, 1, 1, 1, 1);
        // The lower panel draws the dates, taken from the main panel.
        const QwtScaleDraw *draw =
            PriceGraphPrivate::allPanels(&chart).at(1)->axisScaleDraw(QwtPlot::xBottom);
        QCOMPARE(draw->label(0.0).text(), label);
        QCOMPARE(draw->label(0.9).text(), label); // truncated to bar 0
        QVERIFY(draw->label(2.0).isEmpty());      // beyond the data
        QVERIFY(draw->label(-3.0).isEmpty());
    }

    void nudgeOnlyInTheLastSecond()
    {
        QCOMPARE(DateScaleDraw::nudge(120000.0), 120000.0);
        QCOMPARE(DateScaleDraw::nudge(179000.0), 179000.0);
        QCOMPARE(DateScaleDraw::nudge(179500.0), 180500.0);
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
    }
    void priceLabels()
    {
        QFETCH(double, price);
        QFETCH(QString, text);
        ScaleDrawWithPrecision draw(nullptr);
        QCOMPARE(draw.label(price).text(), text);
        QCOMPARE(PriceLabelText::truncate(QStringLiteral("12345678")), QStringLiteral("12345678"));
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
        QCOMPARE(prices->spacing(), 7.0);
        QCOMPARE(prices->minimumExtent(), 60.0);
        for (const QwtScaleDraw *d : {dates, prices}) {
            QCOMPARE(d->tickLength(QwtScaleDiv::MinorTick), 0.0);
            QCOMPARE(d->tickLength(QwtScaleDiv::MediumTick), 0.0);
        }
        QCOMPARE(prices->tickLength(QwtScaleDiv::MajorTick), 3.0);
    }
};

QTEST_MAIN(tst_ScaleDraws)
#include "tst_scaledraws.moc"
