// What a feed does to the view, as a host sees it: a feed with show = true
// takes effect when it returns (the repaint may wait for the event loop),
// whichever series asks for the redraw the main panel's view leads, and a
// symbol switch opens on the newest bars.
#include "navtesthelpers.h"

#include "plotscrollbar.h"

using namespace navtest;

class tst_FeedView : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;

    Plot *panel(int i) const { return PriceGraphPrivate::allPanels(chart).value(i); }
    double upper(Plot *p) const { return shown(p).maxValue(); }

    // `count` daily bars with show = true on each, as a live history load.
    void load(int first, int count, const char *name = "OHLC")
    {
        for (int i = first; i < first + count; ++i) {
            const double base = 50.0 + (i % 11);
            chart->AppendOHLC(name, 2459000.5 + i, true, base, base + 1, base - 1, base, 10);
        }
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(1000, 700);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 2, 0, 0, false);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        QVERIFY(setCanvasWidth(*chart, 800)); // 50 bars in view at zoom 1
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    // No event loop between the feed and the next call.
    void navigationRightAfterAFeed_data()
    {
        QTest::addColumn<QString>("call");
        QTest::newRow("ScrollLeft(100)") << "scroll";
        QTest::newRow("the main panel's ranges") << "ranges";
        QTest::newRow("the main panel's getX") << "getX";
        QTest::newRow("the scroll bar") << "bar";
        QTest::newRow("ZoomOut(1)") << "zoom";
    }
    void navigationRightAfterAFeed()
    {
        QFETCH(QString, call);
        load(0, 500);
        Plot *main = nullptr;
        if (call == QLatin1String("scroll")) {
            chart->ScrollLeft(100);
            main = panel(0);
            QCOMPARE(upper(main), nav(main)->limits().maxX() - 100.0);
            QCOMPARE(shown(main).width(), 50.0);
        } else if (call == QLatin1String("ranges")) {
            main = chart->GetMainPanel();
            QCOMPARE(upper(main), nav(main)->limits().maxX());
            const QwtInterval prices = main->axisScaleDiv(QwtPlot::yRight).interval();
            QVERIFY(prices.minValue() <= 49.0 && prices.maxValue() >= 61.0);
        } else if (call == QLatin1String("getX")) {
            double x1 = 0, x2 = 0;
            panel(0)->getX(x1, x2);
            QVERIFY2(x2 > 495.0 && x2 - x1 == 50.0, qPrintable(QStringLiteral("%1 %2").arg(x1).arg(x2)));
            main = panel(0);
        } else if (call == QLatin1String("bar")) {
            PlotScrollBar *bar = PriceGraphPrivate::scrollBarOf(chart);
            QTest::keyClick(bar, Qt::Key_Home); // the user takes the bar to its start
            main = panel(0);
            QCOMPARE(shown(main).minValue(), nav(main)->limits().minX());
            QVERIFY(bar->maximum() >= 450);
        } else {
            chart->ZoomOut(1);
            main = panel(0);
            QCOMPARE(nav(main)->zoom(), 2.0);
            QCOMPARE(upper(main), nav(main)->limits().maxX()); // at the newest bars, wider
            QCOMPARE(shown(main).width(), 100.0);
        }
        VERIFY_IN_STEP(*chart);
    }

    // The host loads quietly and asks for the redraw on its last point of a
    // series outside the main panel: the main panel's view leads.
    void quietLoadRedrawnByAnyPanel_data()
    {
        QTest::addColumn<int>("asking"); // the panel whose series asks
        QTest::newRow("the average asks") << 2;
        QTest::newRow("the volume asks") << 1;
    }
    void quietLoadRedrawnByAnyPanel()
    {
        QFETCH(int, asking);
        for (int i = 0; i < 300; ++i) {
            const bool last = i == 299;
            chart->AppendOHLC("OHLC", 2459000.5 + i, false, 50, 51, 49, 50, 10 + i);
            chart->AppendOHLC("volume", 2459000.5 + i, last && asking == 1, 50, 51, 49, 50, 10 + i);
            chart->AppendValue("MA", 2459000.5 + i, 50.5, last && asking == 2);
        }
        Plot *main = panel(0);
        QTRY_VERIFY(nav(main)->hasView());
        QCOMPARE(upper(main), nav(main)->limits().maxX());
        VERIFY_IN_STEP(*chart);
        // The price scale is the one of the newest bars, not a blank 0..1000.
        QVERIFY(main->axisScaleDiv(QwtPlot::yRight).interval().contains(50.0));
    }

    // Another symbol: the price series is cleared and fed again.
    void symbolSwitchOpensOnTheNewestBars_data()
    {
        QTest::addColumn<int>("bars");
        QTest::addColumn<long>("scrollBack");
        QTest::addColumn<bool>("tickFirst"); // a live tick of the old symbol before the switch
        QTest::newRow("as many bars, scrolled back") << 500 << 300L << false;
        QTest::newRow("fewer bars, scrolled back") << 120 << 300L << false;
        QTest::newRow("more bars, at the oldest") << 800 << 100000L << true;
    }
    void symbolSwitchOpensOnTheNewestBars()
    {
        QFETCH(int, bars);
        QFETCH(long, scrollBack);
        QFETCH(bool, tickFirst);
        load(0, 500);
        QCoreApplication::processEvents();
        chart->ScrollLeft(scrollBack);
        QVERIFY(upper(panel(0)) < nav(panel(0))->limits().maxX() - 90.0);
        if (tickFirst)
            chart->EditOHLC("OHLC", 2459000.5 + 499, true, 50, 52, 49, 51, 10);
        chart->ClearValues("OHLC");
        chart->ClearValues("MA");
        load(1000, bars);
        QCoreApplication::processEvents();
        Plot *main = panel(0);
        QCOMPARE(upper(main), nav(main)->limits().maxX());
        VERIFY_IN_STEP(*chart);
    }
};

QTEST_MAIN(tst_FeedView)
#include "tst_feedview.moc"
