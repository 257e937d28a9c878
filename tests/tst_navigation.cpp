// Zoom, scroll and pan of a chart with several panels, driven as a host does
// (the facade's members) and as a user does (wheel, drags, keys). After every
// movement all visible panels must show the same x interval.
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

private Q_SLOTS:
    // Panel 0 prices, panel 1 an indicator, panel 2 a second price panel;
    // 300 daily bars on an 800 px canvas at zoom 1 (50 bars in view).
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
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void firstDataShowsNewestBarsAtRightEdge()
    {
        QCOMPARE(upper(), limits().maxX());
        QCOMPARE(upper() - lower(), 50.0);
        QVERIFY(nav(main)->isAtEnd());
        VERIFY_IN_STEP(*chart);
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
        QVERIFY(QTest::qWaitForWindowExposed(&hidden));
        // 16 pixels a bar at zoom 1 on whatever canvas the panel gets, the
        // newest bars still at the right edge.
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
        const QwtInterval before = shown(main);
        feedBars(*chart, 300, 5);
        QTRY_COMPARE(main->barCount(), 305);
        QTRY_COMPARE(limits().maxX() > 304.0, true);
        if (scrollBack == 0) {
            QTRY_COMPARE(upper(), limits().maxX());
        } else {
            QTest::qWait(20);
            QCOMPARE(shown(main).minValue(), before.minValue());
            QCOMPARE(shown(main).maxValue(), before.maxValue());
        }
        VERIFY_IN_STEP(*chart);
    }

    void hostScroll_data()
    {
        QTest::addColumn<long>("records");
        QTest::addColumn<QString>("expect");
        QTest::newRow("one bar right") << 1L << "+1";
        QTest::newRow("one bar left") << -1L << "-1";
        QTest::newRow("far left stops at the oldest bar") << -10000L << "min";
        QTest::newRow("far right stops at the newest bar") << 10000L << "max";
    }
    void hostScroll()
    {
        QFETCH(long, records);
        QFETCH(QString, expect);
        chart->ScrollLeft(100);
        const double before = lower();
        if (records < 0)
            chart->ScrollLeft(-records);
        else
            chart->ScrollRight(records);
        if (expect == QLatin1String("min"))
            QCOMPARE(lower(), limits().minX());
        else if (expect == QLatin1String("max"))
            QCOMPARE(upper(), limits().maxX());
        else
            QCOMPARE(lower(), before + records);
        QCOMPARE(upper() - lower(), 50.0);
        VERIFY_IN_STEP(*chart);
    }

    void scrollAtTheOldestBarStaysClamped()
    {
        chart->ScrollLeft(10000);
        const double oldest = lower();
        chart->ScrollLeft(3);
        QCOMPARE(lower(), oldest);
        QCOMPARE(lower(), limits().minX());
    }

    void scrollSentToSubPanelMovesMainPanel()
    {
        chart->ScrollLeft(50);
        const double before = lower();
        panels[1]->ScrollRight(-5);
        QCOMPARE(lower(), before - 5);
        VERIFY_IN_STEP(*chart);
    }

    void zoomSteps_data()
    {
        QTest::addColumn<bool>("in");
        QTest::addColumn<long>("records");
        QTest::addColumn<QVector<double>>("zooms");
        QTest::newRow("in") << true << 1L << QVector<double>{0.5, 0.25, 0.125, 0.125};
        QTest::newRow("in, records ignored") << true << 5L << QVector<double>{0.5, 0.25, 0.125};
        QTest::newRow("in, zero records") << true << 0L << QVector<double>{0.5};
        QTest::newRow("out") << false << 1L << QVector<double>{2, 4, 8, 8};
    }
    void zoomSteps()
    {
        QFETCH(bool, in);
        QFETCH(long, records);
        QFETCH(QVector<double>, zooms);
        for (double expected : zooms) {
            in ? chart->ZoomIn(records) : chart->ZoomOut(records);
            QCOMPARE(nav(main)->zoom(), expected);
            QCOMPARE(upper() - lower(), nav(main)->visibleSpan());
            // The view sat at the newest bars and stays there, unless all
            // the bars fit: then they show from the left limit.
            if (limits().span() <= nav(main)->visibleSpan())
                QCOMPARE(lower(), limits().minX());
            else
                QCOMPARE(upper(), limits().maxX());
            VERIFY_IN_STEP(*chart);
        }
        ZoomButtons *buttons = PriceGraphPrivate::zoomButtonsOf(chart);
        const bool atLimit = zooms.last() == (in ? 0.125 : 8.0);
        const int limited = in ? 0 : 1;
        QCOMPARE(buttons->button(limited)->styleSheet().contains(QLatin1String(":hover")), !atLimit);
        QVERIFY(buttons->button(1 - limited)->styleSheet().contains(QLatin1String(":hover")));
    }

    void zoomOutStopsAtOnePixelABar()
    {
        main->setX(0.0, 600.0);
        main->SyncAllPannel();
        chart->ZoomOut(1); // 1200 bars would not fit 800 pixels
        QCOMPARE(nav(main)->zoom(), 1.0);
        QCOMPARE(lower(), 0.0);
        QCOMPARE(upper(), 600.0);
        VERIFY_IN_STEP(*chart);
    }

    void resetZoom()
    {
        chart->ZoomOut(1);
        chart->ZoomOut(1);
        chart->ScrollLeft(30);
        chart->ResetZoom();
        QCOMPARE(nav(main)->zoom(), 1.0);
        QCOMPARE(upper() - lower(), 50.0);
        VERIFY_IN_STEP(*chart);
        ZoomButtons *buttons = PriceGraphPrivate::zoomButtonsOf(chart);
        QVERIFY(buttons->button(0)->styleSheet().contains(QLatin1String(":hover")));
        QVERIFY(buttons->button(1)->styleSheet().contains(QLatin1String(":hover")));
    }

    void verticalZoom()
    {
        const double h = main->canvas()->height();
        auto priceSpan = [this]() {
            double low, high;
            main->valueRange(lower(), upper(), low, high);
            return high - low;
        };
        auto axisSpan = [this]() { return main->axisScaleDiv(QwtPlot::yRight).interval().width(); };
        QVERIFY(h > 100);
        main->ZoomOutY(100);
        QCOMPARE(nav(main)->yZoom(), h / (h - 100));
        QCOMPARE(axisSpan(), priceSpan() * h / (h - 100));
        main->ZoomInY(-100); // only the magnitude counts
        QCOMPARE(nav(main)->yZoom(), 1.0);
        main->ZoomInY(50); // already at 1: nothing
        QCOMPARE(nav(main)->yZoom(), 1.0);
        main->ZoomOutY(1e6);
        QCOMPARE(nav(main)->yZoom(), h / 8.0); // never below 8 pixels
        main->ZoomOutY(10);
        QCOMPARE(nav(main)->yZoom(), h / 8.0);
    }

    void setXIgnoresZeroAndKeepsZoom()
    {
        chart->ZoomIn(1);
        const QwtInterval before = shown(main);
        main->setX(0.0, 0.0);
        QCOMPARE(shown(main).minValue(), before.minValue());
        QCOMPARE(shown(main).maxValue(), before.maxValue());
        main->setX(10.0, 60.0);
        QCOMPARE(nav(main)->zoom(), 0.5);
        QCOMPARE(lower(), 22.5);
        QCOMPARE(upper(), 47.5);
    }

    void recordAndRestoreChartCentre()
    {
        chart->ScrollLeft(120);
        double x1, x2;
        main->getX(x1, x2);
        const int centre = int((x1 + x2) * 0.5);
        PlotScrollBar *bar = PriceGraphPrivate::scrollBarOf(chart);
        main->recordChartCenter();
        QVERIFY(!bar->isEnabled()); // frozen while the bars reload
        chart->ScrollRight(10000);
        main->restoreChartCenter();
        QVERIFY(bar->isEnabled());
        QVERIFY(qAbs((lower() + upper()) * 0.5 - centre) <= 1.0);
        VERIFY_IN_STEP(*chart);
    }

    void wheel_data()
    {
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("panel");
        QTest::newRow("away from the user: newer bars") << 120 << 0;
        QTest::newRow("toward the user: older bars") << -120 << 0;
        QTest::newRow("on the indicator panel") << 120 << 1;
    }
    void wheel()
    {
        QFETCH(int, delta);
        QFETCH(int, panel);
        chart->ScrollLeft(100);
        double x1, x2;
        main->getX(x1, x2);
        const double before = lower();
        QWidget *canvas = panels[panel]->canvas();
        const QPoint pos(400, 50);
        QWheelEvent e(pos, canvas->mapToGlobal(pos), QPoint(), QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
        // Marked as coming from the window system (as QTest does for keys),
        // so it propagates from the canvas to the panel like a real wheel.
        QSpontaneKeyEvent::setSpontaneous(&e);
        qApp->notify(canvas, &e);
        QVERIFY(e.isAccepted());
        // 120 zoom-weighted pixels of 800: 0.15 of the range, then snapped
        // to whole bars.
        const double expected = 0.15 * (x2 - x1) * (delta > 0 ? 1 : -1);
        QVERIFY2(qAbs(lower() - before - expected) <= 0.5,
                 qPrintable(QString::number(lower() - before)));
        VERIFY_IN_STEP(*chart);
    }

    void canvasDrag_data()
    {
        QTest::addColumn<int>("panel");
        QTest::addColumn<int>("dx");
        QTest::addColumn<int>("steps");
        QTest::addColumn<long>("cursor");
        QTest::addColumn<double>("shift");
        // a pixel of travel pans 3 pixels: 100 px -> 300 of 800 -> 18.75 bars
        QTest::newRow("right shows older bars") << 0 << 100 << 1 << 3L << -18.75;
        QTest::newRow("left shows newer bars") << 0 << -100 << 1 << 3L << 18.75;
        QTest::newRow("in steps") << 0 << 100 << 4 << 3L << -18.75;
        QTest::newRow("tiny motion waits") << 0 << 2 << 1 << 3L << 0.0;
        QTest::newRow("indicator panel pans the main panel") << 1 << 100 << 4 << 3L << -18.75;
        QTest::newRow("second price panel spreads its view") << 2 << -100 << 4 << 3L << 18.75;
        QTest::newRow("hand cursor pans") << 0 << 100 << 1 << 6L << -18.75;
        QTest::newRow("drawing tool owns the mouse") << 0 << 100 << 1 << 2L << 0.0;
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
        // each applied step is snapped to whole bars
        QVERIFY2(qAbs(lower() - before - shift) <= 0.5 * steps,
                 qPrintable(QString::number(lower() - before)));
        VERIFY_IN_STEP(*chart);
    }

    void arrowKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("panel");
        QTest::addColumn<double>("shift");
        QTest::newRow("left") << int(Qt::Key_Left) << 0 << -1.0;
        QTest::newRow("up") << int(Qt::Key_Up) << 0 << -1.0;
        QTest::newRow("right") << int(Qt::Key_Right) << 0 << 1.0;
        QTest::newRow("down") << int(Qt::Key_Down) << 0 << 1.0;
        QTest::newRow("right on a sub-panel") << int(Qt::Key_Right) << 1 << 1.0;
        QTest::newRow("other keys do nothing") << int(Qt::Key_A) << 0 << 0.0;
    }
    void arrowKeys()
    {
        QFETCH(int, key);
        QFETCH(int, panel);
        QFETCH(double, shift);
        chart->ScrollLeft(100);
        const double before = lower();
        QTest::keyClick(panels[panel]->canvas(), Qt::Key(key));
        QCOMPARE(lower(), before + shift);
        VERIFY_IN_STEP(*chart);
    }

    void hiddenPanelSkippedThenResynchronised()
    {
        Plot *hidden = panels[1];
        hidden->hide();
        const QwtInterval old = shown(hidden);
        chart->ScrollLeft(20);
        QCOMPARE(shown(hidden).minValue(), old.minValue());
        VERIFY_IN_STEP(*chart); // the visible ones
        hidden->show();
        QTRY_COMPARE(shown(hidden).minValue(), lower());
        chart->ScrollRight(1);
        VERIFY_IN_STEP(*chart);
    }

    void badInputChangesNothing()
    {
        const QwtInterval before = shown(main);
        main->setX(qQNaN(), 10.0);
        main->setX(0.0, qInf());
        main->moveX(qQNaN());
        main->ZoomInY(qInf());
        double a = qQNaN(), b = 5.0;
        main->AdjustX(a, b);
        QCOMPARE(b, 5.0);
        QCOMPARE(shown(main).minValue(), before.minValue());
        QCOMPARE(shown(main).maxValue(), before.maxValue());
    }
};

QTEST_MAIN(tst_Navigation)
#include "tst_navigation.moc"
