// Zoom, scroll and pan of a chart with several panels, driven as a host (the
// facade) and as a user (wheel, drags, keys). After every movement all
// visible panels must show the same x interval.
#include "navtesthelpers.h"

#include "plotscrollbar.h"
#include "zoombuttons.h"

#include <QPushButton>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

using namespace navtest;

class tst_Navigation : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    Plot *main = nullptr;
    QList<Plot *> panels;

    double lower() const { return shown(main).minValue(); }
    double upper() const { return shown(main).maxValue(); }
    const ScrollLimits &limits() const { return nav(main)->limits(); }

    // "min" the oldest bar at the left edge, "max" the newest at the right
    // edge, else the left edge moved by that many bars from `before`; the
    // view keeps its width and every panel follows.
    void verifyLanding(const QString &expect, double before)
    {
        if (expect == QLatin1String("min"))
            QCOMPARE(lower(), limits().minX());
        else if (expect == QLatin1String("max"))
            QCOMPARE(upper(), limits().maxX());
        else
            QCOMPARE(lower(), before + expect.toDouble());
        QCOMPARE(upper() - lower(), 50.0);
        VERIFY_IN_STEP(*chart);
    }

    // As from the window system, so it propagates from canvas to panel.
    static bool sendWheel(QWidget *canvas, QPoint delta)
    {
        QWheelEvent e(QPointF(400, 50), canvas->mapToGlobal(QPoint(400, 50)), QPoint(), delta,
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&e);
        qApp->notify(canvas, &e);
        return e.isAccepted();
    }

private Q_SLOTS:
    // Panel 0 prices, 1 an indicator, 2 a second price panel; 300 bars on an
    // 800 px canvas at zoom 1 (50 bars in view), newest at the right edge.
    void init()
    {
        chart = new TestChart;
        chart->resize(1000, 700);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("SMA"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 2, 0, 0, false);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        main = mainPanel(*chart);
        panels = chart->GetAllPanel();
        QVERIFY(setCanvasWidth(*chart, 800));
        feedBars(*chart, 0, 300);
        QTRY_VERIFY(nav(main)->hasView());
        QTRY_VERIFY(panelsInStep(*chart));
        QCOMPARE(upper(), limits().maxX());
        QCOMPARE(upper() - lower(), 50.0);
    }
    void cleanup()
    {
        delete chart;
    }

    void dataBeforeShowKeepsBarWidthWhenShown()
    {
        TestChart hidden;
        hidden.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        hidden.AddSeries(QStringLiteral("SMA"), 0, 1, 0, 0, false);
        feedBars(hidden, 0, 300);
        Plot *p = mainPanel(hidden);
        QTRY_VERIFY(nav(p)->hasView());
        hidden.resize(1200, 600);
        hidden.show();
        QTRY_COMPARE(shown(p).width(), p->canvas()->width() / 16.0);
        QCOMPARE(shown(p).maxValue(), nav(p)->limits().maxX());
        VERIFY_IN_STEP(hidden);
    }

    void newBarsFollowOnlyAtTheEnd_data()
    {
        QTest::addColumn<long>("scrollBack");
        QTest::newRow("at the end: follows") << 0L;
        QTest::newRow("scrolled back: stays") << 100L;
    }
    void newBarsFollowOnlyAtTheEnd()
    {
        QFETCH(long, scrollBack);
        chart->ScrollLeft(scrollBack);
        const double before = lower();
        feedBars(*chart, 300, 5);
        QTRY_VERIFY(limits().maxX() > 304.0);
        if (scrollBack == 0)
            QTRY_COMPARE(upper(), limits().maxX());
        else
            QCOMPARE(lower(), before);
        VERIFY_IN_STEP(*chart);
    }

    // Samples fed with show = false are drawn by Update: each panel once,
    // all of them left on the main panel's range.
    void updateReplotsEachPanelOnce_data()
    {
        QTest::addColumn<long>("scrollBack");
        QTest::newRow("at the end") << 0L;
        QTest::newRow("scrolled back") << 100L;
    }
    void updateReplotsEachPanelOnce()
    {
        QFETCH(long, scrollBack);
        chart->ScrollLeft(scrollBack);
        const double before = lower();
        for (int i = 300; i < 305; ++i) {
            chart->AppendOHLC("OHLC", 2459000.5 + i, false, 100, 102, 99, 101, 1000);
            chart->AppendValue("SMA", 2459000.5 + i, 100.5, false);
        }
        QCoreApplication::processEvents();
        QVector<quint64> replots;
        for (Plot *p : panels)
            replots.append(p->replotCount());
        chart->Update();
        for (int i = 0; i < panels.size(); ++i)
            QCOMPARE(panels[i]->replotCount(), replots[i] + 1);
        if (scrollBack == 0)
            QCOMPARE(upper(), limits().maxX());
        else
            QCOMPARE(lower(), before);
        VERIFY_IN_STEP(*chart);
    }

    void scroll_data()
    {
        QTest::addColumn<int>("panel");
        QTest::addColumn<QVector<long>>("moves"); // ScrollRight arguments in turn
        QTest::addColumn<QString>("expect");
        QTest::newRow("one bar right") << 0 << QVector<long>{1} << "+1";
        QTest::newRow("one bar left") << 0 << QVector<long>{-1} << "-1";
        QTest::newRow("sent to a sub-panel, moves the main one") << 1 << QVector<long>{-5} << "-5";
        QTest::newRow("far left stops at the oldest bar") << 0 << QVector<long>{-10000} << "min";
        QTest::newRow("and stays there") << 0 << QVector<long>{-10000, -3} << "min";
        QTest::newRow("far right stops at the newest bar") << 0 << QVector<long>{10000} << "max";
        QTest::newRow("LONG_MAX lands on the newest bar") << 0 << QVector<long>{LONG_MAX} << "max";
        QTest::newRow("INT_MAX lands on the newest bar") << 0 << QVector<long>{INT_MAX} << "max";
        QTest::newRow("-LONG_MAX lands on the oldest bar") << 0 << QVector<long>{-LONG_MAX} << "min";
        QTest::newRow("LONG_MIN lands on the oldest bar") << 0 << QVector<long>{LONG_MIN} << "min";
        QTest::newRow("INT_MIN, then back by INT_MAX") << 1 << QVector<long>{INT_MIN, INT_MAX} << "max";
    }
    void scroll()
    {
        QFETCH(int, panel);
        QFETCH(QVector<long>, moves);
        QFETCH(QString, expect);
        chart->ScrollLeft(100);
        const double before = lower();
        for (long m : moves)
            panel ? panels[panel]->ScrollRight(m) : chart->ScrollRight(m);
        verifyLanding(expect, before);
    }

    // When every bar fits the canvas, scrolling has nothing to show: the bars
    // stay where they are (they used to jump from one side to the other).
    void allBarsFitNothingMoves_data()
    {
        QTest::addColumn<int>("bars");
        QTest::addColumn<int>("zoomOuts");
        QTest::addColumn<QString>("move");
        QTest::newRow("20 bars, ScrollLeft") << 20 << 0 << "left";
        QTest::newRow("20 bars, ScrollRight") << 20 << 0 << "right";
        QTest::newRow("20 bars, arrow keys") << 20 << 0 << "keys";
        QTest::newRow("300 bars zoomed out, ScrollLeft") << 300 << 3 << "left";
        QTest::newRow("300 bars zoomed out, arrow keys") << 300 << 3 << "keys";
    }
    void allBarsFitNothingMoves()
    {
        QFETCH(int, bars);
        QFETCH(int, zoomOuts);
        QFETCH(QString, move);
        TestChart small;
        small.resize(1000, 600);
        small.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        small.show();
        QVERIFY(QTest::qWaitForWindowExposed(&small));
        QVERIFY(setCanvasWidth(small, 800));
        feedBars(small, 0, bars);
        Plot *p = mainPanel(small);
        QTRY_VERIFY(nav(p)->hasView());
        for (int i = 0; i < zoomOuts; ++i)
            small.ZoomOut(1);
        QVERIFY(nav(p)->limits().span() < nav(p)->visibleSpan()); // everything fits
        const QwtInterval before = shown(p);
        for (int i = 0; i < 3; ++i) {
            if (move == QLatin1String("left")) {
                small.ScrollLeft(5);
            } else if (move == QLatin1String("right")) {
                small.ScrollRight(5);
            } else {
                QTest::keyClick(p->canvas(), Qt::Key_Left);
                QCOMPARE(shown(p), before);
                QTest::keyClick(p->canvas(), Qt::Key_Right);
            }
            QCOMPARE(shown(p), before);
        }
    }

    void zoomSteps_data()
    {
        QTest::addColumn<bool>("in");
        QTest::addColumn<QVector<double>>("zooms");
        QTest::newRow("in") << true << QVector<double>{0.5, 0.25, 0.125, 0.125};
        QTest::newRow("out") << false << QVector<double>{2, 4, 8, 8};
    }
    void zoomSteps()
    {
        QFETCH(bool, in);
        QFETCH(QVector<double>, zooms);
        long records = 0; // the argument is ignored
        for (double expected : zooms) {
            in ? chart->ZoomIn(records++) : chart->ZoomOut(records++);
            QCOMPARE(nav(main)->zoom(), expected);
            QCOMPARE(upper() - lower(), nav(main)->visibleSpan());
            // At the newest bars it stays there, unless everything fits:
            // then it shows from the left limit.
            if (limits().span() <= nav(main)->visibleSpan())
                QCOMPARE(lower(), limits().minX());
            else
                QCOMPARE(upper(), limits().maxX());
            VERIFY_IN_STEP(*chart);
        }
        ZoomButtons *buttons = PriceGraphPrivate::zoomButtonsOf(chart);
        const QLatin1String hover(":hover");
        QVERIFY(!buttons->button(in ? 0 : 1)->styleSheet().contains(hover));
        QVERIFY(buttons->button(in ? 1 : 0)->styleSheet().contains(hover));
        chart->ResetZoom();
        QCOMPARE(nav(main)->zoom(), 1.0);
        QCOMPARE(upper() - lower(), 50.0);
        VERIFY_IN_STEP(*chart);
    }

    void zoomOutStopsAtOnePixelABar()
    {
        main->setX(0.0, 600.0);
        main->SyncAllPannel();
        chart->ZoomOut(1); // 1200 bars would not fit 800 pixels
        QCOMPARE(nav(main)->zoom(), 1.0);
        QCOMPARE(upper(), 600.0);
        VERIFY_IN_STEP(*chart);
    }

    void verticalZoomAndSetX()
    {
        const double h = main->canvas()->height();
        main->ZoomOutY(100);
        QCOMPARE(nav(main)->yZoom(), h / (h - 100));
        double low, high;
        main->valueRange(lower(), upper(), low, high);
        QCOMPARE(main->axisScaleDiv(QwtPlot::yRight).interval().width(), (high - low) * h / (h - 100));
        main->ZoomInY(-100); // only the magnitude counts
        QCOMPARE(nav(main)->yZoom(), 1.0);
        main->ZoomOutY(1e6);
        QCOMPARE(nav(main)->yZoom(), h / 8.0); // never below 8 pixels
        chart->ZoomIn(1);
        main->setX(0.0, 0.0); // ignored
        main->setX(qQNaN(), 1.0); // refused
        QCOMPARE(upper(), limits().maxX());
        main->setX(10.0, 60.0); // keeps the zoom
        QCOMPARE(lower(), 22.5);
        QCOMPARE(upper(), 47.5);
    }

    void recordAndRestoreChartCentre()
    {
        chart->ScrollLeft(120);
        double x1, x2;
        main->getX(x1, x2);
        PlotScrollBar *bar = PriceGraphPrivate::scrollBarOf(chart);
        main->recordChartCenter();
        QVERIFY(!bar->isEnabled()); // frozen while the bars reload
        chart->ScrollRight(10000);
        main->restoreChartCenter();
        QVERIFY(bar->isEnabled());
        QVERIFY(qAbs((lower() + upper()) * 0.5 - int((x1 + x2) * 0.5)) <= 1.0);
        VERIFY_IN_STEP(*chart);
    }

    void wheel_data()
    {
        QTest::addColumn<QPoint>("delta");
        QTest::addColumn<int>("panel");
        QTest::addColumn<int>("direction"); // +1 newer bars, -1 older
        QTest::newRow("away from the user: newer bars") << QPoint(0, 120) << 0 << 1;
        QTest::newRow("toward the user: older bars") << QPoint(0, -120) << 0 << -1;
        QTest::newRow("on the indicator panel") << QPoint(0, 120) << 1 << 1;
        QTest::newRow("swipe to the left: older bars") << QPoint(120, 0) << 0 << -1;
        QTest::newRow("swipe to the right: newer bars") << QPoint(-120, 0) << 1 << 1;
        QTest::newRow("mostly sideways") << QPoint(120, -20) << 0 << -1;
    }
    void wheel()
    {
        QFETCH(QPoint, delta);
        QFETCH(int, panel);
        QFETCH(int, direction);
        chart->ScrollLeft(100);
        double x1, x2;
        main->getX(x1, x2);
        const double before = lower();
        QWidget *canvas = panels[panel]->canvas();
        QVERIFY(sendWheel(canvas, delta));
        // 120 of 800 pixels: 0.15 of the range, snapped to whole bars.
        QVERIFY(qAbs(lower() - before - 0.15 * (x2 - x1) * direction) <= 0.5);
        VERIFY_IN_STEP(*chart);
    }

    void wheelWithoutDeltaDoesNothing()
    {
        chart->ScrollLeft(100);
        const double before = lower();
        QVector<quint64> replots;
        for (Plot *p : panels)
            replots << p->replotCount();
        QVERIFY(sendWheel(panels[0]->canvas(), QPoint(0, 0)));
        QVERIFY(sendWheel(panels[1]->canvas(), QPoint(0, 0)));
        QCOMPARE(lower(), before);
        for (int i = 0; i < panels.size(); ++i)
            QCOMPARE(panels[i]->replotCount(), replots[i]);
    }

    void canvasDrag_data()
    {
        QTest::addColumn<int>("panel");
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("steps");
        QTest::addColumn<long>("cursor");
        QTest::addColumn<double>("shift");
        // a pixel pans 3 zoom-weighted pixels: 100 px -> 300 of 800 -> 18.75 bars
        QTest::newRow("right shows older bars") << 0 << 100 << 1 << 3L << -18.75;
        QTest::newRow("left shows newer bars, in steps") << 0 << -100 << 4 << 3L << 18.75;
        QTest::newRow("a tiny motion waits") << 0 << 2 << 1 << 3L << 0.0;
        QTest::newRow("indicator panel pans the main one") << 1 << 100 << 4 << 3L << -18.75;
        QTest::newRow("second price panel spreads its view") << 2 << -100 << 4 << 3L << 18.75;
        QTest::newRow("hand cursor pans") << 0 << 100 << 1 << 6L << -18.75;
        QTest::newRow("a drawing tool owns the mouse") << 0 << 100 << 1 << 2L << 0.0;
    }
    void canvasDrag()
    {
        QFETCH(int, panel);
        QFETCH(int, dx);
        QFETCH(int, steps);
        QFETCH(long, cursor);
        QFETCH(double, shift);
        chart->SetCursorType(cursor);
        chart->ScrollLeft(100);
        const double before = lower();
        dragCanvas(panels[panel]->canvas(), QPoint(400, 50), dx, steps);
        QVERIFY2(qAbs(lower() - before - shift) <= 0.5 * steps, // each step snaps
                 qPrintable(QString::number(lower() - before)));
        VERIFY_IN_STEP(*chart);
    }

    void keys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("panel");
        QTest::addColumn<QString>("expect");
        QTest::newRow("left") << int(Qt::Key_Left) << 0 << "-1";
        QTest::newRow("up") << int(Qt::Key_Up) << 0 << "-1";
        QTest::newRow("right") << int(Qt::Key_Right) << 0 << "1";
        QTest::newRow("down on a sub-panel") << int(Qt::Key_Down) << 1 << "1";
        QTest::newRow("other keys do nothing") << int(Qt::Key_A) << 0 << "0";
        QTest::newRow("home: the oldest bar") << int(Qt::Key_Home) << 0 << "min";
        QTest::newRow("end on a sub-panel: the newest bar") << int(Qt::Key_End) << 1 << "max";
        QTest::newRow("page up: one screen older") << int(Qt::Key_PageUp) << 0 << "-50";
        QTest::newRow("page down: one screen newer") << int(Qt::Key_PageDown) << 1 << "50";
    }
    void keys()
    {
        QFETCH(int, key);
        QFETCH(int, panel);
        QFETCH(QString, expect);
        chart->ScrollLeft(100);
        const double before = lower();
        QTest::keyClick(panels[panel]->canvas(), Qt::Key(key));
        verifyLanding(expect, before);
    }

    void hiddenPanelSkippedThenResynchronised()
    {
        Plot *hidden = panels[1];
        hidden->hide();
        const double old = shown(hidden).minValue();
        chart->ScrollLeft(20);
        QCOMPARE(shown(hidden).minValue(), old);
        VERIFY_IN_STEP(*chart); // the visible ones
        hidden->show();
        QTRY_COMPARE(shown(hidden).minValue(), lower());
        chart->ScrollRight(1);
        VERIFY_IN_STEP(*chart);
    }
};

QTEST_MAIN(tst_Navigation)
#include "tst_navigation.moc"
