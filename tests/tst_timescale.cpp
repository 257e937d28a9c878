// The chart's time axis as those who keep positions by bar index see it
// (the view, marks, trade points): which bars give it, what it reports when
// the host inserts older history or replaces the bars, and what it does not
// report (a live feed moves no bar).
#include "navtesthelpers.h"

#include "axisbars.h"
#include "barseries.h"
#include "sampletimetable.h"
#include "timescale.h"

#include <QSignalSpy>

using namespace navtest;

namespace {
const double Day0 = 2459000.5;
const double Ms0 = (Day0 - 2440587.5) * 86400000.0;
const double Day = 86400000.0;
} // namespace

class tst_TimeScale : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    TimeScale *scale = nullptr;
    QSignalSpy *inserted = nullptr;
    QSignalSpy *reset = nullptr;

    void bar(const char *name, double day, bool show = false)
    {
        chart->AppendOHLC(name, Day0 + day, show, 10, 11, 9, 10, 100);
    }
    QList<QVariant> lastInsert() const { return inserted->isEmpty() ? QList<QVariant>() : inserted->last(); }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(800, 500);
        scale = PriceGraphPrivate::axisBarsOf(chart)->timeScale();
        inserted = new QSignalSpy(scale, &TimeScale::barsInserted);
        reset = new QSignalSpy(scale, &TimeScale::barsReset);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
        for (int i = 0; i < 10; ++i)
            bar("OHLC", 2 * i); // every other day: room for bars between
        reset->clear();
    }
    void cleanup()
    {
        delete inserted;
        delete reset;
        delete chart;
    }

    void givesThePriceBarTimes()
    {
        QCOMPARE(scale->size(), 10);
        QCOMPARE(scale->timeAt(3), Ms0 + 6 * Day);
        QCOMPARE(scale->timeAt(3.7), Ms0 + 6 * Day); // the bar the index falls in
        QCOMPARE(scale->timeAt(10), 0.0);            // beyond the bars: no time
        QCOMPARE(scale->timeAt(-1), 0.0);
        QCOMPARE(scale->indexToTime(-5), Ms0);       // clamped to the first bar
        QCOMPARE(scale->indexToTime(99), Ms0 + 18 * Day);
        QCOMPARE(scale->indexOf(Ms0 + 4 * Day), 2);
        QCOMPARE(scale->indexOf(Ms0 + 5 * Day), -1);
        QCOMPARE(scale->suitableIndex(Ms0 + 5 * Day), 2.5);
        // The indicator panel maps through the same axis.
        QCOMPARE(chart->GetAllPanel().at(1)->TimeToIndexSuitable(Ms0 + 5 * Day), 2.5);
    }

    void reportsBarsThatMove_data()
    {
        QTest::addColumn<double>("day");      // the new bar's day
        QTest::addColumn<int>("insertedAt");  // -1: nothing moves
        QTest::newRow("older than all") << -3.0 << 0;
        QTest::newRow("between two bars") << 5.0 << 3;
        QTest::newRow("newer than all") << 30.0 << -1;
        QTest::newRow("a bar's own time (replaced)") << 8.0 << -1;
    }
    void reportsBarsThatMove()
    {
        QFETCH(double, day);
        QFETCH(int, insertedAt);
        bar("OHLC", day, true);
        chart->EditOHLC("OHLC", Day0 + day, true, 10, 12, 8, 11, 100); // a tick: nothing moves
        chart->AppendValue("MA", Day0 + day, 10.5, true);              // indicators move no bar
        if (insertedAt < 0) {
            QCOMPARE(inserted->count(), 0);
        } else {
            QCOMPARE(inserted->count(), 1);
            QCOMPARE(lastInsert(), (QList<QVariant>{insertedAt, 1}));
            QCOMPARE(scale->timeAt(insertedAt), Ms0 + day * Day);
        }
        QCOMPARE(reset->count(), 0);
    }

    void reportsBarsReplacedWholesale_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("cleared") << "clear";
        QTest::newRow("price series removed") << "remove";
        QTest::newRow("another price panel moved above") << "move";
    }
    void reportsBarsReplacedWholesale()
    {
        QFETCH(QString, how);
        if (how == QLatin1String("clear")) {
            chart->ClearValues("OHLC");
            chart->ClearValues("OHLC"); // already empty: nothing more to report
        } else if (how == QLatin1String("remove")) {
            chart->RemoveSeries("OHLC");
        } else {
            chart->AddSeries(QStringLiteral("OHLC2"), 0, 2, 0, 0, false);
            for (int i = 0; i < 4; ++i)
                bar("OHLC2", 100 + i);
            QCOMPARE(reset->count(), 0); // the topmost price panel still gives the axis
            chart->MoveChartPanel(2, 0);
            QCOMPARE(scale->size(), 4);
            QCOMPARE(scale->timeAt(0), Ms0 + 100 * Day);
        }
        QCOMPARE(reset->count(), 1);
        QCOMPARE(inserted->count(), 0);
        if (how != QLatin1String("move")) {
            QVERIFY(scale->isEmpty());
            QCOMPARE(scale->indexToTime(0), -1.0);
        }
    }

    void volumeWithoutPricesGivesTheAxis()
    {
        TestChart other;
        TimeScale *axis = PriceGraphPrivate::axisBarsOf(&other)->timeScale();
        other.AddSeries(QStringLiteral("MA"), 0, 0, 0, 0, false);
        other.AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        other.AppendOHLC("volume", Day0, false, 1, 1, 1, 1, 500);
        other.AppendOHLC("volume", Day0 + 1, false, 1, 1, 1, 1, 700);
        QCOMPARE(axis->size(), 2);
        // Prices added later give the axis from then on.
        other.AddSeries(QStringLiteral("OHLC"), 0, 2, 0, 0, false);
        QVERIFY(axis->isEmpty());
    }

    // The view is one of those keeping positions by index: scrolled back,
    // it keeps showing the same bars when older history arrives; at the
    // newest bars it stays there.
    void viewKeepsItsBarsWhenHistoryArrives_data()
    {
        QTest::addColumn<long>("scrollBack");
        QTest::newRow("scrolled back") << 150L;
        QTest::newRow("at the newest bars") << 0L;
    }
    void viewKeepsItsBarsWhenHistoryArrives()
    {
        QFETCH(long, scrollBack);
        chart->ClearValues("OHLC");
        feedBars(*chart, 100, 300);
        chart->ScrollLeft(scrollBack);
        Plot *main = chart->GetMainPanel();
        const double firstTime = scale->indexToTime(std::ceil(shown(main).minValue()));
        for (int i = 99; i >= 60; --i) // older bars, newest first, as a history request brings them
            chart->AppendOHLC("OHLC", 2459000.5 + i, i == 60, 100, 101, 99, 100, 10);
        QCOMPARE(inserted->count(), 40);
        main = chart->GetMainPanel();
        if (scrollBack)
            QCOMPARE(scale->indexToTime(std::ceil(shown(main).minValue())), firstTime);
        else
            QCOMPARE(shown(main).maxValue(), nav(main)->limits().maxX());
    }
};

QTEST_MAIN(tst_TimeScale)
#include "tst_timescale.moc"
