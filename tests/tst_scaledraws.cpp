// Axis labels: dates from the bars of the chart's time axis, prices by the
// fixed-width truncation rule.
#include <QtTest>

#include "datescaledraw.h"
#include "plot.h"
#include "plotnavigator.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "pricelabeltext.h"
#include "scaledrawwithprecision.h"
#include "timescale.h"

#include <qwt_scale_widget.h>

#include <climits>
#include <memory>

namespace {

const double Jan2020 = 2458849.5; // 2020-01-01 as a Julian date
const double Jun2005 = 2453536.5; // 2005-06-15

// A shown chart: prices in panel 0, a line in panel 1 (the lowest, which
// prints the dates of the main panel's bars).
std::unique_ptr<PriceGraph> newChart(const char *price = "OHLC")
{
    std::unique_ptr<PriceGraph> chart(new PriceGraph);
    chart->resize(800, 400);
    chart->AddSeries(QString::fromLatin1(price), 0, 0, 0, 0, false);
    chart->AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
    chart->show();
    return chart;
}

// Daily bars `first`..`first + count - 1` from `start`; the prices follow
// the bar's number only, so charts of other dates have the same price axis.
void feedDays(PriceGraph &chart, const char *name, double start, int first, int count)
{
    for (int i = first; i < first + count; ++i) {
        const double p = 100.0 + i % 10;
        chart.AppendOHLC(name, start + i, false, p, p + 1.0, p - 1.0, p, 1000);
        chart.AppendValue("MA", start + i, p, false);
    }
    chart.Update();
}

Plot *lowest(PriceGraph &chart) { return PriceGraphPrivate::allPanels(&chart).last(); }

// The date axis as drawn, once the other chart shows the same bars.
QImage drawnDates(PriceGraph &chart, PriceGraph *sameView = nullptr)
{
    Plot *main = PriceGraphPrivate::mainPanel(&chart);
    if (sameView) {
        Plot *other = PriceGraphPrivate::mainPanel(sameView);
        double x1, x2;
        other->getX(x1, x2);
        main->setX(x1, x2, other->getNavigator()->zoom());
        main->SyncAllPannel();
    }
    QCoreApplication::processEvents();
    return lowest(chart)->axisWidget(QwtPlot::xBottom)->grab().toImage();
}

} // namespace

class tst_ScaleDraws : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The dates drawn after a change of data, interval or main panel are
    // those of a chart that was given the new state from the start.
    void drawnDatesFollowTheData_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("interval") << "interval";
        QTest::newRow("same number of bars fed again") << "refeed";
        QTest::newRow("fed again while scrolled back") << "refeed back";
        QTest::newRow("older bars inserted") << "older";
        QTest::newRow("another panel becomes the main panel") << "move";
    }
    void drawnDatesFollowTheData()
    {
        QFETCH(QString, change);
        const bool move = change == QLatin1String("move");
        std::unique_ptr<PriceGraph> chart = newChart();
        std::unique_ptr<PriceGraph> expected = newChart(move ? "OHLC2" : "OHLC");
        if (move) {
            chart->AddSeries(QStringLiteral("OHLC2"), 0, 1, 0, 0, false);
            chart->MoveChartPanel(1, 2); // the line stays the lowest panel
            expected->AddSeries(QStringLiteral("OHLC"), 0, 1, 0, 0, false);
            expected->MoveChartPanel(1, 2);
        }
        QVERIFY(QTest::qWaitForWindowExposed(chart.get()));
        QVERIFY(QTest::qWaitForWindowExposed(expected.get()));
        chart->SetInterval(86400000.0);
        expected->SetInterval(change == QLatin1String("interval") ? 60000.0 : 86400000.0);
        const int older = change == QLatin1String("older") ? 100 : 0;
        feedDays(*chart, "OHLC", Jan2020, older, 300 - older);
        if (move)
            feedDays(*chart, "OHLC2", Jun2005, 0, 300);
        if (change == QLatin1String("refeed back") || older)
            chart->ScrollLeft(LONG_MAX);
        const QImage before = drawnDates(*chart);

        if (change == QLatin1String("interval")) {
            chart->SetInterval(60000.0);
            feedDays(*expected, "OHLC", Jan2020, 0, 300);
        } else if (change.startsWith(QLatin1String("refeed"))) {
            chart->ClearValues("OHLC");
            chart->ClearValues("MA");
            feedDays(*chart, "OHLC", Jun2005, 0, 300);
            feedDays(*expected, "OHLC", Jun2005, 0, 300);
        } else if (older) {
            feedDays(*chart, "OHLC", Jan2020, 0, older);
            feedDays(*expected, "OHLC", Jan2020, 0, 300);
        } else {
            chart->MoveChartPanel(1, 0);
            feedDays(*expected, "OHLC2", Jun2005, 0, 300);
            feedDays(*expected, "OHLC", Jan2020, 0, 300);
        }
        const QImage want = drawnDates(*expected, chart.get());
        // Older history moves the view with its bars: the same dates stay.
        if (!older)
            QVERIFY(want != before); // the dates shown do change
        QCOMPARE(drawnDates(*chart), want);
    }


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
