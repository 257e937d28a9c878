// Order, position and tick lines, driven as a host (the exported calls) and
// as a user (hand-built mouse and hover events on the canvas and the boxes).
#include <QtTest>

#include <QLabel>
#include <QPushButton>
#include <qwt_plot_canvas.h>
#include <qwt_scale_widget.h>

#include "chartevents.h"
#include "charttesthelpers.h"
#include "linelabeltext.h"
#include "orderline.h"
#include "orderlinebutton.h"
#include "plot.h"
#include "plotpricelinesdata.h"
#include "positionline.h"
#include "pricegraph.h"
#include "pricelabeltext.h"

#include <climits>
#include <limits>

// The host terminal's order-entry object.
class OrderEntry : public QObject
{
    Q_OBJECT
public:
    QStringList modified, cancelled, closed;
    PriceGraph *chart = nullptr; // when set, cancels answer with DeletePositionLine

public Q_SLOTS:
    void onOrderModify(QString id) { modified << id; }
    void onOrderCancel(QString id)
    {
        cancelled << id;
        if (chart)
            chart->DeletePositionLine(0, id.toLatin1().constData());
    }
    void onPositionCancel(QString id)
    {
        closed << id;
        if (chart)
            chart->DeletePositionLine(0, id.toLatin1().constData());
    }
};

// Reaches the protected L1 accessors.
class Chart : public PriceGraph
{
public:
    using PriceGraph::getL1Decimal;
    using PriceGraph::getL1DecimalFix;
    using PriceGraph::GetMainPanel;
    using PriceGraph::GetAllPanel;
};

// Counts the mouse moves that get past the lines to the canvas.
class MoveCounter : public QObject
{
public:
    int moves = 0;
    bool eventFilter(QObject *, QEvent *e) override
    {
        if (e->type() == QEvent::MouseMove)
            ++moves;
        return false;
    }
};

class tst_TradingLines : public QObject, protected charttest::ChartFixture<Chart>
{
    Q_OBJECT

private:
    OrderEntry *entry = nullptr;

    Plot *panel() const { return chart->GetMainPanel(); }
    QWidget *canvas() const { return panel()->canvas(); }
    PlotPriceLinesData *lines() const { return panel()->getPriceLines(); }
    void draw(const char *id, double price, long count = 1500)
    {
        chart->DrawPositionLine(0, price, count, id, 7, "t1", "t2", "t3");
    }
    template <class T> T *line(const char *id) const
    {
        return qobject_cast<T *>(lines()->line(QString::fromLatin1(id)));
    }
    void moveTo(double y, int x = 200)
    {
        const QPoint p(x, qRound(y));
        QMouseEvent ev(QEvent::MouseMove, p, canvas()->mapToGlobal(p), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(canvas(), &ev);
    }
    // Canvas of an exact height, as the stacking rule is stated for one.
    void setCanvasHeight(int h) { canvas()->resize(canvas()->width(), h); }

private Q_SLOTS:
    void init()
    {
        makeChart();
        entry = new OrderEntry;
        chart->setOrderEntry(entry);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        for (int i = 0; i < 60; ++i) {
            const double base = 1.20 + 0.001 * (i % 50);
            chart->AppendOHLC("OHLC", 2459000.5 + i, i == 59, base, base + 0.05, base - 0.02,
                              base + 0.01, 100);
        }
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        chart->Update();
        QCoreApplication::processEvents();
        QVERIFY(canvas()->height() > 100);
    }

    void cleanup()
    {
        dropChart(); // with its lines still on the panel
        delete entry;
        entry = nullptr;
    }

    // ---- identifier -> type, and the signals reaching the host ----------

    void typeFromIdentifier_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<bool>("position");
        QTest::addColumn<bool>("connected");
        QTest::newRow("buy stop") << QByteArray("buyStop-17") << false << true;
        QTest::newRow("sell") << QByteArray("SELL-2") << false << true;
        QTest::newRow("position") << QByteArray("MyPOSITION") << true << true;
        QTest::newRow("position before buy") << QByteArray("PositionBuy-3") << true << true;
        QTest::newRow("neither") << QByteArray("X1") << false << false;
    }

    void typeFromIdentifier()
    {
        QFETCH(QByteArray, id);
        QFETCH(bool, position);
        QFETCH(bool, connected);
        draw(id.constData(), 1.25);
        const QString name = QString::fromLatin1(id);
        PriceLine *l = lines()->line(name);
        QVERIFY(l);
        QVERIFY(l->isVisible());
        QCOMPARE(l->yValue(), 1.25);
        const QStringList expected = connected ? QStringList(name) : QStringList();

        moveTo(l->linePixelY() + 2); // the user points at the line: its box shows
        if (position) {
            PositionLine *p = qobject_cast<PositionLine *>(l);
            QVERIFY(p);
            QCOMPARE(p->labelKind(), 1);
            QVERIFY(p->button()->isVisible());
            QTest::mouseClick(p->button()->cancelButton(), Qt::LeftButton);
            QCOMPARE(entry->closed, expected);
        } else {
            OrderLine *o = qobject_cast<OrderLine *>(l);
            QVERIFY(o);
            QCOMPARE(o->labelKind(), 2);
            QVERIFY(o->button()->isVisible());
            QTest::mouseClick(o->button()->modifyButton(), Qt::LeftButton);
            QTest::mouseClick(o->button()->cancelButton(), Qt::LeftButton);
            QCOMPARE(entry->modified, expected);
            QCOMPARE(entry->cancelled, expected);
        }
    }

    void hostWithoutSlotsIsHarmless()
    {
        QObject bare;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no slot")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no slot")));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no slot")));
        chart->setOrderEntry(&bare);
        static int warnings;
        warnings = 0;
        const QtMessageHandler previous = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &, const QString &msg) {
                warnings += type == QtWarningMsg && msg.contains(QLatin1String("connect"));
            });
        draw("Buy-1", 1.25);
        draw("Position-1", 1.22);
        qInstallMessageHandler(previous);
        QCOMPARE(warnings, 0); // no connect() complaints per line
        QVERIFY(lines()->line(QStringLiteral("Buy-1")));
    }

    void hostSlotMayDeleteItsLine()
    {
        entry->chart = chart;
        draw("Buy-9", 1.24);
        QPointer<OrderLine> o = line<OrderLine>("Buy-9");
        moveTo(o->linePixelY());
        QTest::mouseClick(o->button()->cancelButton(), Qt::LeftButton);
        QCOMPARE(entry->cancelled, QStringList(QStringLiteral("Buy-9")));
        QVERIFY(!lines()->line(QStringLiteral("Buy-9")));
        QTRY_VERIFY(o.isNull());
    }

    // ---- record and texts ------------------------------------------------

    void labelText_data()
    {
        QTest::addColumn<qlonglong>("count");
        QTest::addColumn<double>("price");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::newRow("no suffix") << 999LL << 2801.5 << 2 << "  999 @ 2801.50";
        QTest::newRow("K") << 1000LL << 1.2345 << 5 << "  1K @ 1.23450";
        QTest::newRow("K with fraction") << 1500LL << 1.2345 << 5 << "  1.5K @ 1.23450";
        QTest::newRow("M") << 2500000LL << 0.9 << 4 << "  2.5M @ 0.9000";
        QTest::newRow("B") << 2000000000LL << 0.9 << 4 << "  2B @ 0.9000";
        QTest::newRow("three letters at most") << 5000000000000LL << 1.0 << 1 << "  5000B @ 1.0";
        QTest::newRow("negative, zero decimals") << -2500000LL << 0.5 << 0 << "  -2.5M @ 0.5";
        QTest::newRow("not a chart panel") << 0LL << 100.0 << -1 << "  0 @ 100";
    }

    void labelText()
    {
        QFETCH(qlonglong, count);
        QFETCH(double, price);
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QCOMPARE(LineLabelText::build(long(count), price, decimals), text);
    }

    void boxTextFollowsL1Decimals()
    {
        chart->updateL1(1.2345, 1.2346, 5, 0);
        draw("Buy-1", 1.2345, 1500);
        draw("Position-1", 1.2, 2000000);
        OrderLine *o = line<OrderLine>("Buy-1");
        QCOMPARE(o->button()->text(), QStringLiteral("  1.5K @ 1.23450"));
        chart->updateL1(1.23, 1.24, 2, 0);
        QCOMPARE(o->button()->text(), QStringLiteral("  1.5K @ 1.23"));
        QCOMPARE(line<PositionLine>("Position-1")->button()->text(),
                 QStringLiteral("  2M @ 1.20"));
    }

    void secondCallKeepsTexts()
    {
        draw("Sell-4", 1.25, 10);
        chart->DrawPositionLine(0, 1.27, 20, "Sell-4", 99, "a", "b", "c");
        PriceLine *l = lines()->line(QStringLiteral("Sell-4"));
        QCOMPARE(lines()->lines().count(), 1);
        QCOMPARE(l->yValue(), 1.27);
        QCOMPARE(l->price(), 1.27);
        QCOMPARE(l->count(), 20L);
        QCOMPARE(l->flag(), 7);
        QCOMPARE(l->text1(), QStringLiteral("t1"));
        QCOMPARE(l->text2(), QStringLiteral("t2"));
        QCOMPARE(l->text3(), QStringLiteral("t3"));
    }

    // ---- bad input -------------------------------------------------------

    void badInputIsIgnored_data()
    {
        QTest::addColumn<qlonglong>("panel");
        QTest::addColumn<QByteArray>("id");
        QTest::newRow("panel -1") << -1LL << QByteArray("Buy-1");
        QTest::newRow("panel == count") << 1LL << QByteArray("Buy-1");
        QTest::newRow("huge panel") << qlonglong(LONG_MAX) << QByteArray("Buy-1");
        QTest::newRow("unknown id") << 0LL << QByteArray("Buy-2");
    }

    void badInputIsIgnored()
    {
        QFETCH(qlonglong, panel);
        QFETCH(QByteArray, id);
        draw("Buy-1", 1.25);
        chart->DeletePositionLine(long(panel), id.constData());
        chart->DrawPositionLine(long(panel), 1.3, 1, panel == 0 ? nullptr : id.constData(), 0,
                                nullptr, nullptr, nullptr);
        QCOMPARE(lines()->lines().keys(), QStringList(QStringLiteral("Buy-1")));
        QCOMPARE(lines()->line(QStringLiteral("Buy-1"))->yValue(), 1.25);
    }

    void nonFinitePriceIsIgnored()
    {
        draw("Buy-1", 1.25);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("non-finite")));
        draw("Buy-1", qQNaN());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("non-finite")));
        chart->DrawTickLine(qInf(), 0);
        QCOMPARE(lines()->line(QStringLiteral("Buy-1"))->yValue(), 1.25);

        // Finite but far off the scale: drawn (clipped) and painted without harm.
        draw("Buy-2", 1e300);
        draw("Position-2", -std::numeric_limits<double>::max());
        chart->DrawTickLine(1e-300, 0);
        QVERIFY(!chart->grab().isNull());
        QCOMPARE(line<OrderLine>("Buy-2")->label()->height(), 17);
    }

    void deleteRemovesLineAndWidgets()
    {
        draw("Buy-1", 1.25);
        QPointer<OrderLine> o = line<OrderLine>("Buy-1");
        QPointer<OrderLineButton> box = o->button();
        QPointer<QLabel> label = o->label();
        chart->DeletePositionLine(0, "Buy-1");
        QVERIFY(o.isNull());
        QVERIFY(box.isNull());
        QVERIFY(label.isNull());
        QVERIFY(lines()->lines().isEmpty());
    }

    // ---- merging boxes at one price -------------------------------------

    // Orders at one price: their boxes stack beside their line, the first
    // on the line, the others away from the nearer canvas edge, all inside
    // the canvas (20 px boxes, 12 px apart: 84 px for three).
    void stackBesideItsLine_data()
    {
        QTest::addColumn<int>("lineY");
        QTest::addColumn<QList<int>>("tops"); // Buy-1, Buy-2, Sell-3
        QTest::newRow("upper half: downwards") << 60 << QList<int>{50, 82, 114};
        QTest::newRow("lower half: upwards") << 240 << QList<int>{230, 198, 166};
        QTest::newRow("at the top edge") << 3 << QList<int>{0, 32, 64};
        QTest::newRow("at the bottom edge") << 295 << QList<int>{280, 248, 216};
    }
    void stackBesideItsLine()
    {
        QFETCH(int, lineY);
        QFETCH(QList<int>, tops);
        setCanvasHeight(300);
        const double price = panel()->canvasMap(QwtPlot::yRight).invTransform(lineY);
        draw("Buy-1", price);
        OrderLine *first = line<OrderLine>("Buy-1");
        QVERIFY(first->buttonFollowsMouse());
        QCOMPARE(first->widgets().size(), 1);
        QCOMPARE(first->widgets().first().data(), first);

        draw("Buy-2", price);
        draw("Sell-3", price);
        QList<int> actual;
        for (const char *id : {"Buy-1", "Buy-2", "Sell-3"}) {
            OrderLine *o = line<OrderLine>(id);
            QCOMPARE(o->button()->height(), 20);
            QVERIFY(!o->buttonFollowsMouse());
            QCOMPARE(o->widgets().size(), 3);
            actual << o->button()->y();
        }
        QCOMPARE(actual, tops);
    }

    void stackFollowsItsLine()
    {
        setCanvasHeight(300);
        const double price = panel()->canvasMap(QwtPlot::yRight).invTransform(100);
        for (const char *id : {"Buy-1", "Buy-2", "Sell-3"})
            draw(id, price);
        OrderLine *first = line<OrderLine>("Buy-1");
        const auto onLine = [&](OrderLine *o) {
            return o->button()->geometry().center().y() == qRound(o->linePixelY())
                   || o->button()->y() + 10 == qRound(o->linePixelY());
        };
        QVERIFY(onLine(first));
        // A new price scale, a view that rescales the prices, a taller canvas.
        panel()->setAxisScale(QwtPlot::yRight, 1.0, 1.5);
        panel()->replot();
        QVERIFY(onLine(first));
        chart->ScrollLeft(20);
        QVERIFY(onLine(first));
        setCanvasHeight(420);
        QVERIFY(onLine(first));
        QCOMPARE(line<OrderLine>("Buy-2")->button()->y(), first->button()->y() + 32);

        // Orders leave one by one: the last one's box is back on its line
        // and follows the mouse again.
        chart->DeletePositionLine(0, "Buy-2");
        QCOMPARE(line<OrderLine>("Sell-3")->button()->y(), first->button()->y() + 32);
        chart->DeletePositionLine(0, "Sell-3");
        QVERIFY(first->buttonFollowsMouse());
        QVERIFY(onLine(first));
        // A line that moves away from its group leaves it.
        draw("Buy-4", first->yValue());
        QVERIFY(!first->buttonFollowsMouse());
        draw("Buy-4", first->yValue() + 0.01);
        QVERIFY(first->buttonFollowsMouse());
        QVERIFY(line<OrderLine>("Buy-4")->buttonFollowsMouse());
        QVERIFY(onLine(first));
    }

    void notGrouped_data()
    {
        QTest::addColumn<QByteArray>("other");
        QTest::addColumn<double>("price");
        QTest::newRow("position at the same price") << QByteArray("Position-1") << 0.3;
        QTest::newRow("last binary digit differs") << QByteArray("Buy-B") << 0.1 + 0.2;
    }

    void notGrouped()
    {
        QFETCH(QByteArray, other);
        QFETCH(double, price);
        draw("Buy-A", 0.3);
        draw(other.constData(), price);
        QVERIFY(line<OrderLine>("Buy-A")->buttonFollowsMouse());
        QCOMPARE(line<OrderLine>("Buy-A")->widgets().size(), 1);
    }

    // ---- the user's mouse ------------------------------------------------

    void loneBoxFollowsMouse()
    {
        MoveCounter counter;
        canvas()->installEventFilter(&counter); // before the line: sees what it lets by
        draw("Buy-1", 1.25);
        OrderLine *o = line<OrderLine>("Buy-1");
        const double y = o->linePixelY();

        moveTo(y + 3, 300);
        QVERIFY(o->button()->isVisible());
        QCOMPARE(o->button()->geometry().center().x(), 300 - (o->button()->width() + 1) % 2);
        QCOMPARE(o->linePen(), o->hoverPen());
        QVERIFY(o->label()->isVisible());
        QCOMPARE(counter.moves, 0); // consumed near the line

        moveTo(y + 7, 300); // beyond reach
        QVERIFY(o->button()->isHidden());
        QVERIFY(o->label()->isHidden());
        QCOMPARE(o->linePen(), o->normalPen());
        QCOMPARE(counter.moves, 1);
        canvas()->removeEventFilter(&counter);
    }

    void positionCloseButtonReach()
    {
        draw("Position-1", 1.25);
        PositionLine *p = line<PositionLine>("Position-1");
        const double y = p->linePixelY();
        moveTo(y - 9); // within 12 px: close button, no label yet (6 px)
        QVERIFY(p->button()->isVisible());
        QVERIFY(p->label()->isHidden());
        moveTo(y - 2);
        QVERIFY(p->label()->isVisible());
        QCOMPARE(p->linePen(), p->hoverPen());

        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(canvas(), &leave);
        QVERIFY(p->button()->isHidden());
        QVERIFY(p->label()->isHidden());
        QCOMPARE(p->linePen(), p->hoverPen()); // kept until the mouse moves away
        moveTo(y + 30);
        QCOMPARE(p->linePen(), p->normalPen());
    }

    void drawingToolMakesLinesDeaf()
    {
        draw("Buy-1", 1.25);
        OrderLine *o = line<OrderLine>("Buy-1");
        chart->SetCursorType(1);
        moveTo(o->linePixelY());
        QVERIFY(o->button()->isHidden());
        chart->SetCursorType(3);
        moveTo(o->linePixelY());
        QVERIFY(o->button()->isVisible());
    }

    void boxEventRules()
    {
        draw("Buy-1", 1.25);
        OrderLine *o = line<OrderLine>("Buy-1");
        moveTo(o->linePixelY());
        OrderLineButton *box = o->button();
        QVERIFY(box->isVisible());
        QVERIFY(o->label()->isVisible());

        const QPointF inside = QRectF(box->rect()).center();
        QMouseEvent pressIn(QEvent::MouseButtonPress, inside, Qt::LeftButton, Qt::LeftButton,
                            Qt::NoModifier);
        QApplication::sendEvent(box, &pressIn);
        QVERIFY(pressIn.isAccepted());
        QMouseEvent pressOut(QEvent::MouseButtonPress, QPointF(0, 0), Qt::LeftButton,
                             Qt::LeftButton, Qt::NoModifier); // the rounded corner
        QApplication::sendEvent(box, &pressOut);
        QVERIFY(!pressOut.isAccepted());

        QHoverEvent moveIn(QEvent::HoverMove, inside, inside);
        QApplication::sendEvent(box, &moveIn);
        QVERIFY(box->isVisible());
        // Out through the corner: the box hides and its line drops the label.
        QHoverEvent moveOut(QEvent::HoverMove, QPointF(0, 0), inside);
        QApplication::sendEvent(box, &moveOut);
        QVERIFY(box->isHidden());
        QVERIFY(o->label()->isHidden());

        moveTo(o->linePixelY());
        QVERIFY(box->isVisible());
        QHoverEvent leave(QEvent::HoverLeave, QPointF(-1, -1), inside);
        QApplication::sendEvent(box, &leave);
        QVERIFY(box->isHidden());
        QVERIFY(o->label()->isHidden());
    }

    // ---- price labels on the axis ----------------------------------------

    void labelSitsOnTheLine()
    {
        draw("Position-1", 1.23);
        PositionLine *p = line<PositionLine>("Position-1");
        QwtScaleWidget *axis = panel()->axisWidget(QwtPlot::yRight);
        QLabel *label = p->label();
        QCOMPARE(label->parentWidget(), axis);
        QCOMPARE(label->text(), PriceLabelText::format(1.23));
        QCOMPARE(label->height(), 17);
        QCOMPARE(label->x(), 0);
        QCOMPARE(label->width(), axis->width());
        const int lineInAxis = qRound(p->linePixelY()) + canvas()->y() - axis->y();
        QCOMPARE(label->y() + 8, lineInAxis);

        // A new price scale moves the label with it.
        panel()->setAxisScale(QwtPlot::yRight, 1.0, 1.5);
        panel()->replot();
        const int moved = qRound(p->linePixelY()) + canvas()->y() - axis->y();
        QVERIFY(moved != lineInAxis);
        QCOMPARE(label->y() + 8, moved);
    }

    // ---- tick line and L1 ------------------------------------------------

    void tickLineOnFirstPanelOnly()
    {
        chart->AddChartPanel();
        PriceLine *second = chart->GetAllPanel().at(1)->getPriceLines()->tickLine();
        PriceLine *tick = lines()->tickLine();
        QCOMPARE(tick->labelKind(), 0);
        QVERIFY(!tick->isVisible());

        chart->DrawTickLine(1.26, 0);
        chart->DrawTickLine(1.27, 0);
        QVERIFY(tick->isVisible());
        QVERIFY(tick->label()->isVisible());
        QCOMPARE(tick->yValue(), 1.27);
        QVERIFY(!second->isVisible());
        QVERIFY(second->label()->isHidden());

        chart->RemoveTickLine();
        QVERIFY(!tick->isVisible());
        QVERIFY(tick->label()->isHidden());

        Chart empty; // no panel yet: nothing to draw on, nothing happens
        empty.DrawTickLine(1.0, 0);
        empty.RemoveTickLine();
        QCOMPARE(empty.GetPanelCount(), 0L);
    }

    void updateL1Rule()
    {
        QCOMPARE(chart->getL1Decimal(), 4);
        QCOMPARE(chart->getL1DecimalFix(), 1e-6);
        chart->updateL1(1.0, 1.1, 4, 0); // equal decimals: nothing recomputed
        QCOMPARE(chart->getL1DecimalFix(), 1e-6);
        chart->updateL1(1.0, 1.1, 5, 0);
        QCOMPARE(chart->getL1DecimalFix(), 1.0 / std::pow(10.0, 7));
        chart->updateL1(1.0, 1.1, 0, 3); // stored, fix kept
        QCOMPARE(chart->getL1Decimal(), 0);
        QCOMPARE(chart->getL1DecimalFix(), 1.0 / std::pow(10.0, 7));
        QCOMPARE(panel()->priceDecimals(), 0);
    }
};

QTEST_MAIN(tst_TradingLines)
#include "tst_tradinglines.moc"
