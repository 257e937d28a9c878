// Panels moved, hidden, added and closed while they hold data: every panel
// keeps standing on the bars of the price series, wherever its panel stands.
// Checked on what is drawn: the tallest volume column and the highest wick
// are the same bar, an average starts over its first bar, the lowest panel
// shown prints the dates of the bars above it, the scroll bar spans the
// history, and the tick line stays on the first panel.
#include "navtesthelpers.h"

#include "barseries.h"
#include "plotpricelinesdata.h"
#include "plotscrollbar.h"
#include "priceline.h"

#include <QDate>
#include <QImage>
#include <QLabel>
#include <QPainter>

#include <qwt_scale_draw.h>

#include <climits>

using namespace navtest;

namespace {

const int Bars = 300;
const double Day0 = 2459000.5; // 2020-05-31

// Bars drawn on a canvas: anything clearly brighter than the background and
// the grid. The canvas is rendered without its child widgets (close button).
QImage render(Plot *p)
{
    QWidget *canvas = p->canvas();
    QImage img(canvas->size(), QImage::Format_ARGB32);
    img.fill(Qt::black);
    canvas->render(&img, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    return img;
}

bool drawn(QRgb c)
{
    return qMax(qMax(qRed(c), qGreen(c)), qBlue(c)) > 90;
}

double barAt(Plot *p, double px)
{
    return p->canvasMap(QwtPlot::xBottom).invTransform(px);
}

// The bar under the tallest thing drawn on the canvas (the centre of the
// pixel columns reaching highest); NaN when nothing is drawn.
double tallestBar(Plot *p)
{
    const QImage img = render(p);
    int best = img.height(), from = -1, to = -1;
    for (int x = 0; x < img.width(); ++x) {
        int top = 0;
        while (top < img.height() && !drawn(img.pixel(x, top)))
            ++top;
        if (top < best) {
            best = top;
            from = to = x;
        } else if (top == best && to == x - 1) {
            to = x;
        }
    }
    return from < 0 ? qQNaN() : barAt(p, 0.5 * (from + to));
}

// The bar under the leftmost thing drawn; NaN when nothing is.
double leftmostBar(Plot *p)
{
    const QImage img = render(p);
    for (int x = 0; x < img.width(); ++x) {
        for (int y = 0; y < img.height(); ++y) {
            if (drawn(img.pixel(x, y)))
                return barAt(p, x);
        }
    }
    return qQNaN();
}

QString dateOf(int bar)
{
    return QDate(2020, 5, 31).addDays(bar).toString(QStringLiteral("MM/dd"));
}

} // namespace

class tst_PanelMoves : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    Plot *price = nullptr, *volume = nullptr, *average = nullptr;

    // Daily bars; bar `spike` has a far higher high and volume; the
    // average starts at bar `firstAverage`.
    void feed(int spike, int firstAverage)
    {
        for (int i = 0; i < Bars; ++i) {
            const double base = 100.0 + (i % 9);
            const double high = i == spike ? base + 60.0 : base + 2.0;
            const long vol = i == spike ? 50000 : 1000 + i % 5;
            const bool last = i == Bars - 1;
            chart->AppendOHLC("OHLC", Day0 + i, last, base, high, base - 2.0, base + 1.0, vol);
            chart->AppendOHLC("volume", Day0 + i, last, base, high, base - 2.0, base + 1.0, vol);
            if (i >= firstAverage)
                chart->AppendValue("MA", Day0 + i, base, last);
        }
    }

    Plot *leader() const
    {
        for (Plot *p : chart->GetAllPanel()) {
            if (!p->isHidden())
                return p;
        }
        return nullptr;
    }

    void verifyInStep()
    {
        // Every shown panel shows the leading panel's bars.
        for (Plot *p : chart->GetAllPanel()) {
            if (!p->isHidden())
                QCOMPARE(shown(p), shown(leader()));
        }
    }

    // The spike's wick and its volume column stand on the same bar.
    void verifyColumnsUnderCandles(int spike)
    {
        chart->ScrollRight(1000000);
        QCoreApplication::processEvents();
        verifyInStep();
        const double wick = tallestBar(price);
        QVERIFY2(qAbs(wick - spike) < 0.5, qPrintable(QString::number(wick)));
        if (!volume->isHidden()) {
            const double column = tallestBar(volume);
            QVERIFY2(qAbs(column - spike) < 0.5, qPrintable(QString::number(column)));
        }
    }

    // The average's first point is drawn over the bar of its time.
    void verifyAverageStart(int firstAverage)
    {
        chart->ScrollLeft(1000000);
        QCoreApplication::processEvents();
        verifyInStep();
        const double start = leftmostBar(average);
        QVERIFY2(qAbs(start - firstAverage) < 0.6, qPrintable(QString::number(start)));
    }

    // Only the lowest panel shown prints dates: those of the price bars.
    void verifyDates()
    {
        const QList<Plot *> panels = chart->GetAllPanel();
        int lowest = panels.size() - 1;
        while (lowest > 0 && panels[lowest]->isHidden())
            --lowest;
        for (int i = 0; i < panels.size(); ++i)
            QCOMPARE(panels[i]->axisEnabled(QwtPlot::xBottom), i == lowest);
        Plot *p = panels[lowest];
        const QwtScaleDraw *draw = p->axisScaleDraw(QwtPlot::xBottom);
        int checked = 0;
        for (double tick : p->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick)) {
            if (tick < 0 || tick >= Bars)
                continue;
            QCOMPARE(draw->label(tick).text(), dateOf(int(tick)));
            ++checked;
        }
        QVERIFY(checked >= 2);
    }

    // The scroll bar serves the leading panel and spans the whole history.
    void verifyScrollBar()
    {
        PlotScrollBar *bar = PriceGraphPrivate::scrollBarOf(chart);
        QCOMPARE(bar->plot(), leader());
        QVERIFY(bar->minimum() <= 0);
        QVERIFY2(bar->maximum() + bar->pageStep() >= Bars - 2,
                 qPrintable(QStringLiteral("%1..%2 page %3")
                                .arg(bar->minimum()).arg(bar->maximum()).arg(bar->pageStep())));
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(1000, 760);
        chart->SetInterval(86400000.0);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 2, 0, 0, false);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        const QList<Plot *> panels = chart->GetAllPanel();
        price = panels[0];
        volume = panels[1];
        average = panels[2];
        feed(280, 19);
        QTRY_VERIFY(nav(price)->hasView());
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void panelsStandOnThePriceBars_data()
    {
        QTest::addColumn<QVector<QPoint>>("moves"); // MoveChartPanel(from, to) in turn
        QTest::addColumn<bool>("volumeOff");
        QTest::addColumn<bool>("refeed");
        QTest::newRow("as added") << QVector<QPoint>{} << false << false;
        QTest::newRow("price to the middle") << QVector<QPoint>{{0, 1}} << false << false;
        QTest::newRow("price to the bottom") << QVector<QPoint>{{0, 2}} << false << false;
        QTest::newRow("and back to the top")
            << QVector<QPoint>{{0, 1}, {1, 2}, {2, 0}} << false << false;
        QTest::newRow("average first") << QVector<QPoint>{{2, 0}} << false << false;
        QTest::newRow("volume first, then off") << QVector<QPoint>{{1, 0}} << true << false;
        QTest::newRow("volume last, then off") << QVector<QPoint>{{1, 2}} << true << false;
        QTest::newRow("moved, then the prices fed again")
            << QVector<QPoint>{{0, 1}} << false << true;
    }
    void panelsStandOnThePriceBars()
    {
        QFETCH(QVector<QPoint>, moves);
        QFETCH(bool, volumeOff);
        QFETCH(bool, refeed);
        for (const QPoint &m : moves)
            chart->MoveChartPanel(m.x(), m.y());
        if (volumeOff)
            chart->ShowVolume(0);
        int spike = 280, firstAverage = 19;
        if (refeed) {
            chart->ClearValues("OHLC");
            chart->ClearValues("MA");
            spike = 262;
            firstAverage = 30;
            feed(spike, firstAverage);
        }
        QCoreApplication::processEvents();
        QCOMPARE(volume->isHidden(), volumeOff);
        verifyColumnsUnderCandles(spike);
        verifyDates();
        verifyScrollBar();
        verifyAverageStart(firstAverage);
        verifyDates();
    }

    void emptyPanelShowsTheBarsAtOnce()
    {
        chart->ScrollLeft(120);
        const long added = chart->AddChartPanel();
        Plot *empty = chart->GetAllPanel().at(int(added));
        // Before the event loop runs: the new panel already shows the bars in
        // view, and prints their dates as the lowest panel.
        QCOMPARE(shown(empty), shown(price));
        verifyDates();
    }

    void tickLineStaysOnTheFirstPanel_data()
    {
        QTest::addColumn<QPoint>("move");
        QTest::newRow("first panel moved down") << QPoint(0, 2);
        QTest::newRow("last panel moved up") << QPoint(2, 0);
        QTest::newRow("not the first") << QPoint(1, 2);
    }
    void tickLineStaysOnTheFirstPanel()
    {
        QFETCH(QPoint, move);
        chart->DrawTickLine(104.5, 0);
        chart->MoveChartPanel(move.x(), move.y());
        const QList<Plot *> panels = chart->GetAllPanel();
        for (int i = 0; i < panels.size(); ++i) {
            PriceLine *tick = panels[i]->getPriceLines()->tickLine();
            QCOMPARE(tick->isVisible(), i == 0);
            QCOMPARE(tick->label()->isVisible(), i == 0);
            if (i == 0)
                QCOMPARE(tick->yValue(), 104.5);
        }
        chart->RemoveTickLine();
        chart->MoveChartPanel(move.y(), move.x());
        for (Plot *p : chart->GetAllPanel())
            QVERIFY(!p->getPriceLines()->tickLine()->isVisible());
    }

    // ---- bad input ---------------------------------------------------------

    void badMovesChangeNothing_data()
    {
        QTest::addColumn<long>("from");
        QTest::addColumn<long>("to");
        QTest::newRow("equal") << 1L << 1L;
        QTest::newRow("from negative") << -1L << 0L;
        QTest::newRow("to past the end") << 0L << 3L;
        QTest::newRow("huge") << long(LONG_MAX) << 0L;
        QTest::newRow("very negative") << 0L << long(LONG_MIN);
    }
    void badMovesChangeNothing()
    {
        QFETCH(long, from);
        QFETCH(long, to);
        const QList<Plot *> before = chart->GetAllPanel();
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("MoveChartPanel.*ignored")));
        chart->MoveChartPanel(from, to);
        QCOMPARE(chart->GetAllPanel(), before);
        QCOMPARE(price->barSeries()->size(), Bars);
        verifyDates();
        verifyScrollBar();
    }

    void movesDuringADragAndAFeed()
    {
        // The user holds the mouse on the price panel while the host moves
        // it and feeds: the drag goes on panning, nothing is lost.
        QWidget *canvas = price->canvas();
        chart->ScrollLeft(100);
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(400, 60), Qt::LeftButton,
                  Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseMove, QPoint(420, 60), Qt::NoButton, Qt::LeftButton);
        chart->MoveChartPanel(0, 2);
        chart->AppendOHLC("OHLC", Day0 + Bars, true, 100, 103, 99, 101, 1000);
        chart->EditOHLC("OHLC", Day0 + Bars, true, 100, 104, 99, 102, 1100);
        const double before = shown(price).minValue();
        for (int x = 440; x <= 520; x += 20)
            sendMouse(canvas, QEvent::MouseMove, QPoint(x, 60), Qt::NoButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(520, 60), Qt::LeftButton,
                  Qt::NoButton);
        QVERIFY(shown(price).minValue() < before); // dragged right: older bars
        QCoreApplication::processEvents();
        QCOMPARE(price->barSeries()->size(), Bars + 1);
        QCOMPARE(price->barSeries()->close(Bars), 102.0);
        verifyInStep();
        verifyDates();
    }

    void pricesRemovedThenFedToAPanelNoLongerFirst()
    {
        chart->MoveChartPanel(0, 2); // [volume, average, price]
        chart->RemoveSeries("OHLC");
        QCOMPARE(price->barSeries()->size(), 0);
        // Nothing holds the name now: the feed is ignored, nothing breaks.
        chart->AppendOHLC("OHLC", Day0 + Bars, true, 100, 103, 99, 101, 1000);
        QCOMPARE(price->barSeries()->size(), 0);
        // Added again on the panel that is no longer first, and fed.
        chart->AddSeries(QStringLiteral("OHLC"), 0, 2, 0, 0, false);
        feed(250, 40);
        QCoreApplication::processEvents();
        QCOMPARE(price->barSeries()->size(), Bars);
        QCOMPARE(shown(leader()).maxValue(), nav(leader())->limits().maxX()); // newest bars
        verifyColumnsUnderCandles(250);
        verifyDates();
        verifyScrollBar();
    }
};

QTEST_MAIN(tst_PanelMoves)
#include "tst_panelmoves.moc"
