// Drawing on the canvas: which cursor type makes which mark, how a gesture
// seeds and stretches it, what the chart does afterwards, and the framework
// every mark shares (select, drag, Delete, handles on their anchors).
#include "marktesthelpers.h"

#include "markgesture.h"
#include "plothorizontalmark.h"
#include "plotlinemark.h"
#include "plotraymark.h"
#include "plotverticallinemark.h"

#include <QAction>
#include <QMainWindow>
#include <QScrollBar>

using namespace marktest;

class tst_MarkDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart = shownChart();
        spy.reset(new QSignalSpy(chart, &PriceGraph::cursorTypeChanged));
    }
    void cleanup()
    {
        spy.reset();
        delete chart.data();
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void gestureCreatesAndSeeds_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<int>("panel");
        QTest::addColumn<int>("kind");
        QTest::newRow("trend line") << 2L << 0 << int(MarkRegistry::TrendLine);
        QTest::newRow("trend line, second type") << 27L << 1 << int(MarkRegistry::TrendLine);
        QTest::newRow("ray") << 30L << 0 << int(MarkRegistry::Ray);
        QTest::newRow("horizontal line") << 28L << 1 << int(MarkRegistry::HorizontalLine);
        QTest::newRow("vertical line") << 29L << 0 << int(MarkRegistry::VerticalLine);
        QTest::newRow("vertical line from a lower panel") << 29L << 1
                                                          << int(MarkRegistry::VerticalLine);
        QTest::newRow("time zones") << 4L << 0 << int(MarkRegistry::FibonacciTimeZones);
        QTest::newRow("retracement") << 5L << 1 << int(MarkRegistry::FibonacciRetracement);
        QTest::newRow("fan") << 25L << 0 << int(MarkRegistry::FibonacciFan);
        QTest::newRow("expansion") << 26L << 0 << int(MarkRegistry::FibonacciExpansion);
        QTest::newRow("price channel") << 7L << 0 << int(MarkRegistry::PriceChannel);
        QTest::newRow("pitchfork") << 8L << 0 << int(MarkRegistry::Pitchfork);
        QTest::newRow("triangle") << 23L << 0 << int(MarkRegistry::Triangle);
        QTest::newRow("ellipse") << 22L << 1 << int(MarkRegistry::Ellipse);
        QTest::newRow("rectangle") << 10L << 0 << int(MarkRegistry::Rectangle);
        QTest::newRow("rectangle, second type") << 21L << 1 << int(MarkRegistry::Rectangle);
    }
    void gestureCreatesAndSeeds()
    {
        QFETCH(long, type);
        QFETCH(int, panel);
        QFETCH(int, kind);
        Plot *p = chart->GetAllPanel().at(panel);
        const QPoint from(200, 40), to(420, 90);
        MarkSelfDraw *m = draw(chart, p, type, from, to);
        QVERIFY(m);
        QCOMPARE(registry(chart)->marks(MarkRegistry::Kind(kind)), QList<MarkSelfDraw *>{m});
        QCOMPARE(registry(chart)->all().size(), 1);
        // Finished: interactive, selected, in the drawing colour; the chart
        // is back to the arrow and said so.
        QCOMPARE(m->getState(), 3);
        QVERIFY(m->isSelected());
        QCOMPARE(m->getColor(), QColor(112, 48, 160));
        QCOMPARE(spy->count(), 2);
        QCOMPARE(spy->last().at(0).value<long>(), 3L);
        for (Plot *each : chart->GetAllPanel())
            QCOMPARE(each->getCursorStyle(), 3);

        const QPointF start = toPlot(p, from), end = toPlot(p, to);
        // A price span of n pixels, as the tools are seeded with.
        auto span = [&](int n) { return toPlot(p, QPointF(0, n)).y() - toPlot(p, QPointF()).y(); };
        switch (kind) {
        case MarkRegistry::PriceChannel:
            QCOMPARE(m->pointAt(1), end);
            QCOMPARE(m->pointAt(2), (start + end) * 0.5 + QPointF(0, span(55)));
            break;
        case MarkRegistry::Pitchfork:
            // The reaction points travelled with the centre.
            QCOMPARE(m->pointAt(0), start);
            QCOMPARE(handleCentre(m, 2), to + QPoint(0, 100));
            QCOMPARE(handleCentre(m, 3), to - QPoint(0, 100));
            break;
        case MarkRegistry::Triangle:
            QCOMPARE(handleCentre(m, 0), from);
            QCOMPARE(handleCentre(m, 1), from + QPoint(60, 0));
            QCOMPARE(handleCentre(m, 2), to);
            break;
        case MarkRegistry::Ellipse:
        case MarkRegistry::Rectangle: {
            const int far = kind == MarkRegistry::Ellipse ? 4 : 1;
            QCOMPARE(handleCentre(m, 0), QPoint(200, 40));
            QCOMPARE(handleCentre(m, far), QPoint(420, 90));
            break;
        }
        case MarkRegistry::HorizontalLine:
            // The mouse's price; the time stays mid-canvas.
            QCOMPARE(m->plot(), p);
            QCOMPARE(m->pointAt(0).y(), end.y());
            QCOMPARE(handleCentre(m, 0).x(), (canvasOf(p)->width() / 2));
            break;
        case MarkRegistry::VerticalLine:
            // On the main panel, whichever panel it was drawn on.
            QCOMPARE(m->plot(), chart->GetMainPanel());
            QCOMPARE(m->pointAt(0).x(), end.x());
            break;
        default:
            // Two anchors from the press to the mouse; the expansion's
            // third stays on its second until dragged.
            QCOMPARE(m->plot(), p);
            QCOMPARE(m->pointAt(0), start);
            QCOMPARE(m->pointAt(1), end);
            QCOMPARE(m->pointAt(2), m->count() > 2 ? end : QPointF());
            break;
        }
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void pressOutcomes_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<bool>("creates");
        QTest::addColumn<bool>("pans");
        QTest::addColumn<long>("typeAfter");
        QTest::newRow("arrow pans") << 3L << false << true << 3L;
        QTest::newRow("crosshair pans") << 1L << false << true << 1L;
        QTest::newRow("hand pans") << 6L << false << true << 6L;
        QTest::newRow("text tool acts as the arrow") << 12L << false << true << 12L;
        QTest::newRow("icon acts as the arrow") << 20L << false << true << 20L;
        QTest::newRow("9 returns to the arrow") << 9L << false << false << 3L;
        QTest::newRow("11 returns to the arrow") << 11L << false << false << 3L;
        QTest::newRow("24 returns to the arrow") << 24L << false << false << 3L;
        QTest::newRow("above 30 acts as 9") << 31L << false << false << 3L;
        QTest::newRow("far above 30") << 5000L << false << false << 3L;
        QTest::newRow("retracement never pans") << 5L << true << false << 3L;
        QTest::newRow("rectangle never pans") << 10L << true << false << 3L;
        QTest::newRow("trend line never pans") << 2L << true << false << 3L;
        QTest::newRow("ray never pans") << 30L << true << false << 3L;
    }
    void pressOutcomes()
    {
        QFETCH(long, type);
        QFETCH(bool, creates);
        QFETCH(bool, pans);
        QFETCH(long, typeAfter);
        Plot *main = chart->GetMainPanel();
        const QwtInterval before = navtest::shown(main);
        MarkSelfDraw *m = draw(chart, main, type, QPoint(300, 100), QPoint(500, 120));
        QCOMPARE(m != nullptr, creates);
        QCOMPARE(navtest::shown(main) != before, pans);
        QCOMPARE(main->getCursorStyle(), int(typeAfter));
    }

    void zeroLengthMarkShowsItsHandlesAtOnce()
    {
        Plot *main = chart->GetMainPanel();
        QWidget *canvas = canvasOf(main);
        chart->SetCursorType(2);
        const QPoint at(333, 111);
        sendMouse(canvas, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        MarkSelfDraw *m = registry(chart)->all().value(0);
        QVERIFY(m);
        QCOMPARE(handleCentre(m, 0), at);
        QCOMPARE(handleCentre(m, 1), at);
        QVERIFY(m->handle(0)->isVisible());
        QCOMPARE(m->handle(0)->styleSheet(), QString::fromLatin1(MarkSelfDraw::ShownHandleStyle));
        sendMouse(canvas, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
        QCOMPARE(registry(chart)->all(), QList<MarkSelfDraw *>{m});
        QCOMPARE(m->pointAt(0), m->pointAt(1));
        QCOMPARE(m->getState(), 3);
    }

    void selectDragAndDeselect()
    {
        Plot *main = chart->GetMainPanel();
        QWidget *canvas = canvasOf(main);
        MarkSelfDraw *m = draw(chart, main, 2, QPoint(200, 100), QPoint(400, 200));
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(500, 300), Qt::LeftButton,
                  Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(500, 300), Qt::LeftButton,
                  Qt::NoButton);
        QVERIFY(!m->isSelected()); // a press off the mark deselects it
        QCOMPARE(m->handle(0)->styleSheet(), QString::fromLatin1(MarkSelfDraw::HiddenHandleStyle));

        // A press on the body selects it and drags it whole, under the
        // size-all cursor; the panel does not pan meanwhile.
        const QwtInterval view = navtest::shown(main);
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(300, 150), Qt::LeftButton,
                  Qt::LeftButton);
        QVERIFY(m->isSelected());
        QVERIFY(m->isDragging());
        QVERIFY(QApplication::overrideCursor());
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::SizeAllCursor);
        sendMouse(canvas, QEvent::MouseMove, QPoint(330, 170), Qt::NoButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseMove, QPoint(340, 190), Qt::NoButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(340, 190), Qt::LeftButton,
                  Qt::NoButton);
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        QVERIFY(!m->isDragging());
        QCOMPARE(handleCentre(m, 0), QPoint(240, 140));
        QCOMPARE(handleCentre(m, 1), QPoint(440, 240));
        QCOMPARE(m->pointAt(0), toPlot(main, QPointF(240, 140)));
        QCOMPARE(navtest::shown(main), view);

        // A press with another button on the body selects without dragging.
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(10, 10), Qt::LeftButton,
                  Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(10, 10), Qt::LeftButton,
                  Qt::NoButton);
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(340, 190), Qt::RightButton,
                  Qt::RightButton);
        QVERIFY(m->isSelected());
        QVERIFY(!m->isDragging());
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(340, 190), Qt::RightButton,
                  Qt::NoButton);
    }

    void handleDragReshapesWithinItsLock()
    {
        Plot *main = chart->GetMainPanel();
        MarkSelfDraw *line = draw(chart, main, 2, QPoint(200, 100), QPoint(400, 200));
        MarkSelfDraw *level = draw(chart, main, 28, QPoint(300, 250), QPoint(300, 250));
        // Handle 1 of the line goes where the mouse takes it; the level's
        // handle only up and down.
        for (MarkSelfDraw *m : {line, level}) {
            QWidget *h = m->handle(m->count() - 1);
            sendMouse(h, QEvent::MouseButtonPress, QPoint(7, 7), Qt::LeftButton, Qt::LeftButton);
            sendMouse(h, QEvent::MouseMove, QPoint(7 + 25, 7 + 35), Qt::NoButton, Qt::LeftButton);
            sendMouse(h, QEvent::MouseButtonRelease, QPoint(7, 7), Qt::LeftButton, Qt::NoButton);
        }
        QCOMPARE(handleCentre(line, 1), QPoint(425, 235));
        QCOMPARE(line->pointAt(1), toPlot(main, QPointF(425, 235)));
        QCOMPARE(handleCentre(level, 0), QPoint(canvasOf(main)->width() / 2, 285));
        QCOMPARE(level->pointAt(0).y(), toPlot(main, QPointF(0, 285)).y());
    }

    void deleteRemovesTheNewestSelectedFirst_data()
    {
        QTest::addColumn<QString>("focus");
        QTest::newRow("main canvas") << QStringLiteral("canvas");
        QTest::newRow("lower canvas") << QStringLiteral("lower");
        QTest::newRow("the chart") << QStringLiteral("chart");
        QTest::newRow("scroll bar") << QStringLiteral("scrollbar");
    }
    void deleteRemovesTheNewestSelectedFirst()
    {
        QFETCH(QString, focus);
        // The host has a Delete shortcut of its own: a selected mark still
        // takes the key, whatever widget of the chart has the focus.
        QMainWindow window;
        chart->setParent(nullptr);
        window.setCentralWidget(chart);
        QAction hostDelete(QStringLiteral("Delete order"), &window);
        hostDelete.setShortcut(QKeySequence(Qt::Key_Delete));
        window.addAction(&hostDelete);
        QSignalSpy hostDeletes(&hostDelete, &QAction::triggered);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));

        const QList<Plot *> panels = chart->GetAllPanel();
        QPointer<MarkSelfDraw> unselected = draw(chart, panels[0], 28, QPoint(50, 200),
                                                 QPoint(50, 200));
        unselected->setSelected(false);
        // Drawing on one panel leaves the marks of another selected.
        MarkSelfDraw *older = draw(chart, panels[0], 2, QPoint(100, 50), QPoint(300, 80));
        QPointer<MarkSelfDraw> newer = draw(chart, panels[1], 30, QPoint(100, 50),
                                            QPoint(300, 60));
        QVERIFY(older->isSelected() && newer->isSelected());

        QWidget *target = focus == QLatin1String("canvas")  ? canvasOf(panels[0])
                          : focus == QLatin1String("lower") ? canvasOf(panels[1])
                          : focus == QLatin1String("chart") ? static_cast<QWidget *>(chart)
                                                            : chart->findChild<QScrollBar *>();
        QVERIFY(target);
        target->setFocusPolicy(Qt::StrongFocus);
        target->setFocus();
        QTest::keyClick(target, Qt::Key_Delete);
        QVERIFY(!newer);
        QCOMPARE(registry(chart)->all().size(), 2);
        QTest::keyClick(target, Qt::Key_Delete);
        QCOMPARE(registry(chart)->all(), QList<MarkSelfDraw *>{unselected.data()});
        QCOMPARE(hostDeletes.count(), 0);
        // Nothing selected: the key is the host's again.
        QTest::keyClick(target, Qt::Key_Delete);
        QVERIFY(unselected);
        QCOMPARE(hostDeletes.count(), 1);
        chart->setParent(nullptr); // the fixture deletes it
    }

    void handlesFollowTheView_data()
    {
        QTest::addColumn<QString>("change");
        QTest::newRow("zoom in") << QStringLiteral("zoom in");
        QTest::newRow("zoom out") << QStringLiteral("zoom out");
        QTest::newRow("scroll left") << QStringLiteral("scroll");
        QTest::newRow("resize") << QStringLiteral("resize");
        QTest::newRow("price axis widens") << QStringLiteral("wide prices");
        QTest::newRow("panel added") << QStringLiteral("panel");
    }
    void handlesFollowTheView()
    {
        QFETCH(QString, change);
        const QList<Plot *> panels = chart->GetAllPanel();
        draw(chart, panels[0], 2, QPoint(200, 60), QPoint(600, 160));
        draw(chart, panels[0], 30, QPoint(300, 120), QPoint(350, 60));
        draw(chart, panels[0], 28, QPoint(300, 130), QPoint(300, 130));
        draw(chart, panels[1], 29, QPoint(500, 30), QPoint(500, 30));
        draw(chart, panels[1], 27, QPoint(100, 30), QPoint(200, 60));
        const QPoint before = handleCentre(registry(chart)->all().first(), 0);
        if (change == QLatin1String("zoom in"))
            chart->ZoomIn(1);
        else if (change == QLatin1String("zoom out"))
            chart->ZoomOut(1);
        else if (change == QLatin1String("scroll"))
            chart->ScrollLeft(7);
        else if (change == QLatin1String("resize"))
            chart->resize(640, 700);
        else if (change == QLatin1String("wide prices"))
            chart->AppendOHLC("OHLC", 2459000.5 + 298, true, 100.0, 123456789.0, 99.0, 100.0, 5);
        else
            chart->AddSeries(QStringLiteral("RSI"), 0, 2, 0, 0, false);
        QTRY_VERIFY(handleCentre(registry(chart)->all().first(), 0) != before);
        QCoreApplication::processEvents();
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void marksStayOnTheirBarsWhenOlderHistoryArrives()
    {
        const QList<Plot *> panels = chart->GetAllPanel();
        MarkSelfDraw *line = draw(chart, panels[0], 2, QPoint(200, 60), QPoint(600, 160));
        MarkSelfDraw *lower = draw(chart, panels[1], 2, QPoint(100, 30), QPoint(300, 60));
        const QPointF a = line->pointAt(0), b = lower->pointAt(1);
        // One bar before the first: every bar moves one to the right.
        chart->AppendOHLC("OHLC", 2459000.5 - 1, true, 100.0, 101.0, 99.0, 100.5, 10);
        QCOMPARE(line->pointAt(0), a + QPointF(1, 0));
        QCOMPARE(lower->pointAt(1), b + QPointF(1, 0));
        // A bar in the middle moves only the anchors after it.
        const double middle = std::floor(line->pointAt(0).x()) + 0.5; // between two bars
        const double hostTime = 2459000.5 - 1 + middle;
        const QPointF a2 = line->pointAt(0), b2 = line->pointAt(1);
        chart->AppendOHLC("OHLC", hostTime, true, 100.0, 101.0, 99.0, 100.5, 10);
        QCOMPARE(line->pointAt(0), a2);
        QCOMPARE(line->pointAt(1), b2 + QPointF(1, 0));
        QTRY_VERIFY(navtest::mainPanel(*chart)->replotCount() > 0);
        QCoreApplication::processEvents();
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void marksGoWithTheirPanel()
    {
        const QList<Plot *> panels = chart->GetAllPanel();
        QPointer<MarkSelfDraw> lower = draw(chart, panels[1], 2, QPoint(100, 30), QPoint(300, 60));
        QPointer<QWidget> handle = lower->handle(0);
        QPointer<MarkSelfDraw> vertical = draw(chart, panels[1], 29, QPoint(100, 30),
                                               QPoint(100, 30));
        QList<Plot *> doomed{panels[1]};
        chart->removePannels(doomed);
        QVERIFY(!lower);
        QVERIFY(!handle);
        QVERIFY(vertical); // it lives on the main panel
        QCOMPARE(registry(chart)->all(), QList<MarkSelfDraw *>{vertical.data()});
    }

    void badGestures_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("outside the canvas") << QStringLiteral("outside");
        QTest::newRow("type switched mid-gesture") << QStringLiteral("switch");
        QTest::newRow("panel closed mid-gesture") << QStringLiteral("close");
        QTest::newRow("second press before the release") << QStringLiteral("second press");
        QTest::newRow("Delete mid-gesture") << QStringLiteral("delete");
        QTest::newRow("Delete while dragged") << QStringLiteral("delete dragged");
        QTest::newRow("release lost while dragged") << QStringLiteral("lost release");
    }
    void badGestures()
    {
        QFETCH(QString, what);
        QList<Plot *> panels = chart->GetAllPanel();
        QWidget *canvas = canvasOf(panels[1]);
        auto press = [&](QPoint at) {
            sendMouse(canvas, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        };
        auto move = [&](QPoint at, Qt::MouseButtons held = Qt::LeftButton) {
            sendMouse(canvas, QEvent::MouseMove, at, Qt::NoButton, held);
        };
        auto release = [&](QPoint at) {
            sendMouse(canvas, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
        };
        auto deleteKey = [] {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
            QApplication::sendEvent(qApp, &key);
        };
        chart->SetCursorType(2);
        if (what == QLatin1String("outside")) {
            press(QPoint(-500, 9000));
            move(QPoint(-100000, 100000));
            release(QPoint(5000, -5000));
        } else if (what == QLatin1String("switch")) {
            press(QPoint(100, 30));
            move(QPoint(150, 40));
            chart->SetCursorType(28);
            move(QPoint(200, 50));
            release(QPoint(200, 50));
        } else if (what == QLatin1String("close")) {
            press(QPoint(100, 30));
            move(QPoint(150, 40));
            QList<Plot *> doomed{panels[1]};
            chart->removePannels(doomed);
            canvas = canvasOf(panels[0]);
            move(QPoint(200, 50));
            release(QPoint(200, 50));
        } else if (what == QLatin1String("second press")) {
            press(QPoint(100, 30));
            press(QPoint(300, 50));
            move(QPoint(320, 60));
            release(QPoint(320, 60));
        } else if (what == QLatin1String("delete")) {
            press(QPoint(100, 30));
            move(QPoint(150, 40));
            deleteKey();
            move(QPoint(200, 50));
            release(QPoint(200, 50));
        } else {
            press(QPoint(100, 30));
            release(QPoint(300, 60));
            press(QPoint(200, 45)); // on the body: the drag starts
            move(QPoint(210, 50));
            if (what == QLatin1String("delete dragged"))
                deleteKey();
            move(QPoint(230, 60), what == QLatin1String("lost release") ? Qt::NoButton
                                                                       : Qt::LeftButton);
            release(QPoint(230, 60));
        }
        // Whatever happened: no cursor left behind, the chart back to the
        // arrow or the host's choice, every mark finished and attached.
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        for (Plot *p : chart->GetAllPanel())
            QVERIFY(!p->markGesture()->currentMark());
        for (MarkSelfDraw *m : registry(chart)->all()) {
            QCOMPARE(m->getState(), 3);
            QVERIFY(chart->GetAllPanel().contains(static_cast<Plot *>(m->plot())));
        }
        chart->Update();
    }

private:
    QPointer<TestChart> chart;
    QScopedPointer<QSignalSpy> spy;
};

QTEST_MAIN(tst_MarkDrawing)
#include "tst_markdrawing.moc"
