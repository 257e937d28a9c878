// Order and position boxes as a trader reaches them: the mouse walked
// through the window in small steps (the window system's path, so the boxes
// get their enter, leave and hover events), clicks on the boxes' buttons,
// drags that pan the chart near the lines.
#include <QtTest>

#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>
#include <qwt_plot_canvas.h>

#include "charttesthelpers.h"
#include "navtesthelpers.h"
#include "orderline.h"
#include "orderlinebutton.h"
#include "plotpricelinesdata.h"
#include "positionline.h"

#include <functional>

using namespace navtest;

class Entry : public QObject
{
    Q_OBJECT
public:
    QStringList modified, cancelled, closed;
public Q_SLOTS:
    void onOrderModify(QString id) { modified << id; }
    void onOrderCancel(QString id) { cancelled << id; }
    void onPositionCancel(QString id) { closed << id; }
};

class tst_OrderBoxes : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    Entry *entry = nullptr;
    int timestamp = 0;

    Plot *panel() const { return chart->GetAllPanel().first(); }
    QWidget *canvas() const { return panel()->canvas(); }
    PlotPriceLinesData *lines() const { return panel()->getPriceLines(); }
    template <class T> T *line(const char *id) const
    {
        return qobject_cast<T *>(lines()->line(QString::fromLatin1(id)));
    }
    OrderLineButton *box(const char *id) const { return lines()->line(QString::fromLatin1(id))->button(); }
    void draw(const char *id, double price)
    {
        chart->DrawPositionLine(0, price, 1000, id, 0, "", "", "");
    }
    // The price at a canvas height.
    double priceAt(int y) const { return panel()->canvasMap(QwtPlot::yRight).invTransform(y); }
    int lineY(const char *id) const { return qRound(lines()->line(QString::fromLatin1(id))->linePixelY()); }

    // The mouse as the window system reports it, at a point of `w`.
    void mouse(QEvent::Type type, QWidget *w, QPoint at, Qt::MouseButtons held,
               Qt::MouseButton button = Qt::NoButton)
    {
        QWindow *window = chart->windowHandle();
        const QPoint global = w->mapToGlobal(at);
        qt_handleMouseEvent(window, window->mapFromGlobal(global), global, held, button, type,
                            Qt::NoModifier, ++timestamp);
    }
    // Walks the mouse over the canvas from `a` to `b` in steps of at most
    // `step` pixels, calling `each` after every step.
    void walk(QPoint a, QPoint b, int step, Qt::MouseButtons held = Qt::NoButton,
              const std::function<void(QPoint)> &each = nullptr)
    {
        const QPoint d = b - a;
        const int n = qMax(1, (qMax(qAbs(d.x()), qAbs(d.y())) + step - 1) / step);
        for (int i = 1; i <= n; ++i) {
            const QPoint p = a + d * i / n;
            mouse(QEvent::MouseMove, canvas(), p, held);
            if (each)
                each(p);
        }
    }
    void click(QWidget *w)
    {
        const QPoint at = w->rect().center();
        mouse(QEvent::MouseButtonPress, w, at, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, w, at, Qt::NoButton, Qt::LeftButton);
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        entry = new Entry;
        chart->setOrderEntry(entry);
        chart->resize(1000, 700);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        // Prices rising from 1.0 to 2.0, so a scroll moves the price scale.
        for (int i = 0; i < 200; ++i) {
            const double base = 1.0 + i * 0.005;
            chart->AppendOHLC("OHLC", 2459000.5 + i, i == 199, base, base + 0.004, base - 0.004,
                              base + 0.002, 100);
        }
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        QTRY_VERIFY(nav(panel())->hasView());
        QCoreApplication::processEvents();
        QVERIFY(canvas()->height() > 300);
        mouse(QEvent::MouseMove, canvas(), QPoint(300, 5), Qt::NoButton); // the mouse enters
    }
    void cleanup()
    {
        delete chart;
        delete entry;
        chart = nullptr;
        entry = nullptr;
    }

    // Two orders at one price: the trader goes from the line into the
    // stack and to either box, and both buttons of both boxes answer.
    void stackedBoxesCanBeReached_data()
    {
        QTest::addColumn<double>("height"); // of the line, as a fraction of the canvas
        QTest::newRow("line in the upper half") << 0.3;
        QTest::newRow("line in the lower half") << 0.7;
    }
    void stackedBoxesCanBeReached()
    {
        QFETCH(double, height);
        const double price = priceAt(int(canvas()->height() * height));
        draw("Buy-1", price);
        draw("Sell-1", price);
        OrderLineButton *first = box("Buy-1"), *second = box("Sell-1");
        const int y = lineY("Buy-1");
        // The first box sits on the line; the second beside it, away from
        // the nearer edge.
        QVERIFY(first->geometry().contains(first->x() + 5, y));
        QVERIFY(height < 0.5 ? second->y() > first->y() : second->y() < first->y());

        const int x = first->geometry().center().x();
        walk(QPoint(x, y - 60), QPoint(x, y), 2); // from above onto the line
        QVERIFY(first->isVisible() && second->isVisible());
        // Over the first box, through the gap, onto the second.
        const int target = second->geometry().center().y();
        int hiddenAt = -1;
        walk(QPoint(x, y), QPoint(x, target), 2, Qt::NoButton, [&](QPoint p) {
            if (hiddenAt < 0 && !(first->isVisible() && second->isVisible()))
                hiddenAt = p.y();
        });
        QCOMPARE(hiddenAt, -1);
        click(second->modifyButton());
        click(second->cancelButton());
        walk(QPoint(x, target), QPoint(x, y), 2);
        click(first->modifyButton());
        QCOMPARE(entry->modified, (QStringList{QStringLiteral("Sell-1"), QStringLiteral("Buy-1")}));
        QCOMPARE(entry->cancelled, QStringList(QStringLiteral("Sell-1")));

        // Leaving the stack sideways, away from the line: both go.
        walk(QPoint(x, target), QPoint(x - 200, target), 3);
        QVERIFY(first->isHidden() && second->isHidden());
    }

    // A drag that starts or passes near a line pans the chart; the boxes
    // keep out of its way.
    void dragNearALinePans_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<int>("startOffset"); // from the line, in pixels
        QTest::addColumn<int>("dy");          // vertical travel of the drag
        QTest::newRow("along a position line") << QByteArray("Position-1") << 3 << 0;
        QTest::newRow("across an order line") << QByteArray("Sell-1") << -30 << 60;
    }
    void dragNearALinePans()
    {
        QFETCH(QByteArray, id);
        QFETCH(int, startOffset);
        QFETCH(int, dy);
        draw(id.constData(), priceAt(canvas()->height() / 2));
        const QPoint start(300, lineY(id.constData()) + startOffset);
        walk(QPoint(300, canvas()->height() - 5), start, 4); // from below
        const double before = shown(panel()).minValue();
        mouse(QEvent::MouseButtonPress, canvas(), start, Qt::LeftButton, Qt::LeftButton);
        bool boxShown = false;
        walk(start, start + QPoint(120, dy), 3, Qt::LeftButton,
             [&](QPoint) { boxShown = boxShown || box(id.constData())->isVisible(); });
        QVERIFY(!boxShown);
        mouse(QEvent::MouseButtonRelease, canvas(), start + QPoint(120, dy), Qt::NoButton,
              Qt::LeftButton);
        // 120 px at three zoom-weighted pixels each: 22.5 bars older (each
        // step lands on whole bars).
        QVERIFY2(shown(panel()).minValue() < before - 15.0,
                 qPrintable(QStringLiteral("%1 -> %2").arg(before).arg(shown(panel()).minValue())));
    }

    // ---- no box left stranded ----------------------------------------------

    // A quick mouse reaches a line in one move (the box shows under it but
    // was never entered) and goes straight on.
    void boxHidesWhenTheMouseLeavesTheCanvasFromItsLine_data()
    {
        QTest::addColumn<int>("orders");
        QTest::newRow("lone order") << 1;
        QTest::newRow("two orders at one price") << 2;
    }
    void boxHidesWhenTheMouseLeavesTheCanvasFromItsLine()
    {
        QFETCH(int, orders);
        draw("Buy-1", priceAt(200));
        if (orders > 1)
            draw("Buy-2", priceAt(200));
        const int y = lineY("Buy-1");
        mouse(QEvent::MouseMove, canvas(), QPoint(300, y - 30), Qt::NoButton);
        mouse(QEvent::MouseMove, canvas(), QPoint(300, y), Qt::NoButton);
        QVERIFY(box("Buy-1")->isVisible());
        // Straight out to the price axis.
        mouse(QEvent::MouseMove, canvas(), QPoint(canvas()->width() + 20, y), Qt::NoButton);
        QVERIFY(box("Buy-1")->isHidden());
        if (orders > 1)
            QVERIFY(box("Buy-2")->isHidden());
    }

    void moveFromOneLineOntoAnother()
    {
        draw("Sell-1", priceAt(200));
        draw("Position-1", priceAt(214)); // just below the Sell box
        const int sellY = lineY("Sell-1");
        mouse(QEvent::MouseMove, canvas(), QPoint(300, sellY - 30), Qt::NoButton);
        mouse(QEvent::MouseMove, canvas(), QPoint(300, sellY), Qt::NoButton);
        QVERIFY(box("Sell-1")->isVisible());
        mouse(QEvent::MouseMove, canvas(), QPoint(300, lineY("Position-1")), Qt::NoButton);
        QVERIFY(box("Sell-1")->isHidden());
        QVERIFY(line<OrderLine>("Sell-1")->label()->isHidden());
        QVERIFY(box("Position-1")->isVisible());
    }

    // The mouse rests on a line and the chart moves under it (the wheel, a
    // scroll by the host, a line drawn elsewhere): a box whose line went
    // away from the mouse does not stay behind.
    void boxLeavesWhenTheLineMovesAway_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("the trader's wheel") << "wheel";
        QTest::newRow("the host scrolls") << "scroll";
        QTest::newRow("the host moves the order") << "redraw";
    }
    void boxLeavesWhenTheLineMovesAway()
    {
        QFETCH(QString, how);
        draw("Buy-1", priceAt(150));
        const int y = lineY("Buy-1");
        walk(QPoint(300, y - 20), QPoint(300, y), 2);
        QVERIFY(box("Buy-1")->isVisible());
        if (how == QLatin1String("wheel")) {
            QWheelEvent e(QPointF(300, y), canvas()->mapToGlobal(QPoint(300, y)), QPoint(),
                          QPoint(0, -1200), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
            QSpontaneKeyEvent::setSpontaneous(&e);
            qApp->notify(canvas(), &e);
        } else if (how == QLatin1String("scroll")) {
            chart->ScrollLeft(100);
        } else {
            draw("Buy-1", priceAt(400));
        }
        QVERIFY(qAbs(lineY("Buy-1") - y) > 10);
        QVERIFY(box("Buy-1")->isHidden());
    }
};

QTEST_MAIN(tst_OrderBoxes)
#include "tst_orderboxes.moc"
