// The panels as drawn: prices keep clear of the canvas edges, every panel
// puts bar i on the same pixel column, and the price labels never overlap.
// Everything is read from grabs of a shown chart.
#include "navtesthelpers.h"

#include <QSplitter>

#include <qwt_scale_widget.h>

#include <climits>
#include <functional>

using namespace navtest;

namespace {

const QRgb Up = 0xff1dff00;   // the default candle colours
const QRgb Down = 0xffd91200;

// Rows [first, last] of `image` holding a pixel for which `match` holds;
// false when there is none.
bool rowsWith(const QImage &image, const std::function<bool(QRgb)> &match, int &first,
              int &last)
{
    first = -1;
    last = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (match(image.pixel(x, y))) {
                if (first < 0)
                    first = y;
                last = y;
                break;
            }
        }
    }
    return first >= 0;
}

bool isCandle(QRgb c) { return c == Up || c == Down; }
bool isBackground(QRgb c) { return c == 0xff0c0c0c || c == 0xff222222; }

bool near(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= 2 && qAbs(qGreen(a) - qGreen(b)) <= 2
        && qAbs(qBlue(a) - qBlue(b)) <= 2;
}

// `drawn` is `c` at `alpha` of 255 over the background or a grid line.
bool blended(QRgb drawn, QRgb c, int alpha)
{
    for (int bg : {0x0c, 0x22}) {
        const auto mix = [alpha, bg](int fg) { return (fg * alpha + bg * (255 - alpha)) / 255; };
        if (near(drawn, qRgb(mix(qRed(c)), mix(qGreen(c)), mix(qBlue(c)))))
            return true;
    }
    return false;
}

// Centres of the runs of pixel columns of the canvas that hold anything but
// the background and the grid: one run a bar, candles and volume alike.
// Child widgets (a sub-panel's close button) are left out.
QVector<double> drawnBars(QWidget *canvas)
{
    const QImage image = canvas->grab().toImage();
    QRegion children;
    for (QWidget *w : canvas->findChildren<QWidget *>()) {
        if (w->isVisible())
            children += w->geometry();
    }
    QVector<double> centres;
    int start = -1;
    for (int x = 0; x <= image.width(); ++x) {
        bool used = false;
        for (int y = 0; x < image.width() && y < image.height() && !used; ++y) {
            const QRgb c = image.pixel(x, y);
            used = !isBackground(c) && !children.contains(QPoint(x, y));
        }
        if (used && start < 0)
            start = x;
        if (!used && start >= 0) {
            centres << 0.5 * (start + x - 1);
            start = -1;
        }
    }
    return centres;
}

} // namespace

class tst_PanelLayout : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    QList<Plot *> panels;

    // 300 daily bars: prices in panel 0, volume in billions in panel 1
    // (labels wider than the prices'), prices again in panel 2, the
    // lowest, which shows the dates.
    void makeChart(QSize size)
    {
        chart = new TestChart;
        chart->resize(size);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 2, 0, 0, false);
        chart->SetcandleChart(1);
        chart->SetInterval(86400000.0);
        for (int i = 0; i < 300; ++i) {
            const double base = 100.0 + 10.0 * std::sin(i * 0.1);
            const double open = base + (i % 2 ? 1.0 : -1.0);
            const long volume = 8000000000L + 1000000L * (i % 13);
            chart->AppendOHLC("OHLC", 2459000.5 + i, false, open, base + 3.0, base - 3.0, base,
                              volume);
            chart->AppendOHLC("volume", 2459000.5 + i, false, open, base + 3.0, base - 3.0, base,
                              volume);
        }
        chart->Update();
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        panels = chart->GetAllPanel();
        panels.at(2)->setLineStyle(1); // the facade styles the main panel only
        QTRY_VERIFY(nav(panels.first())->hasView());
    }

    // Every visible panel draws the same bars on the same pixel columns.
    void verifyBarsLineUp(const char *state)
    {
        QCoreApplication::processEvents();
        QWidget *first = panels.first()->canvas();
        const QVector<double> reference = drawnBars(first);
        QVERIFY2(reference.size() > 10, state);
        const int left = first->mapTo(chart, QPoint()).x();
        for (Plot *p : panels) {
            if (p->isHidden())
                continue;
            QWidget *canvas = p->canvas();
            const QVector<double> bars = drawnBars(canvas);
            // Both canvases start at the same x of the chart.
            QCOMPARE(canvas->mapTo(chart, QPoint()).x(), left);
            QString why = QStringLiteral("%1, panel %2: %3 bars drawn, %4 in the main panel")
                              .arg(QLatin1String(state)).arg(panels.indexOf(p))
                              .arg(bars.size()).arg(reference.size());
            QVERIFY2(bars.size() == reference.size(), qPrintable(why));
            for (int i = 0; i < bars.size(); ++i) {
                why = QStringLiteral("%1, panel %2: bar at %3, in the main panel at %4")
                          .arg(QLatin1String(state)).arg(panels.indexOf(p))
                          .arg(bars[i]).arg(reference[i]);
                QVERIFY2(qAbs(bars[i] - reference[i]) <= 1.0, qPrintable(why));
            }
        }
    }

    // The colour drawn at the middle of each volume column of panel 1,
    // and that of the candle in the main panel above it.
    void columnAndCandleColours(QVector<QRgb> &columns, QVector<QRgb> &candles)
    {
        QCoreApplication::processEvents();
        QWidget *volume = panels.at(1)->canvas();
        const QImage image = volume->grab().toImage();
        const QImage prices = panels.first()->canvas()->grab().toImage();
        for (double x : drawnBars(volume)) {
            columns << image.pixel(int(x), image.height() - 12);
            QRgb candle = 0;
            for (int y = 0; y < prices.height() && !candle; ++y) {
                if (!isBackground(prices.pixel(int(x), y)))
                    candle = prices.pixel(int(x), y);
            }
            candles << candle;
        }
    }

    // Prices in panel 0, an indicator in panel 1 (the one squeezed) and
    // another under it, so panel 1 is all canvas.
    void makeIndicatorChart()
    {
        chart = new TestChart;
        chart->resize(900, 600);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("RSI"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA"), 0, 2, 0, 0, false);
        for (int i = 0; i < 300; ++i) {
            const double p = 100.0 + 10.0 * std::sin(i * 0.1);
            chart->AppendOHLC("OHLC", 2459000.5 + i, false, p, p + 1.0, p - 1.0, p, 100);
            chart->AppendValue("RSI", 2459000.5 + i, 50.0 + 37.0 * std::sin(i * 0.07), false);
            chart->AppendValue("MA", 2459000.5 + i, p, false);
        }
        chart->Update();
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        panels = chart->GetAllPanel();
    }

    // Rows [top, bottom] of each price label drawn on the right axis of `p`:
    // runs of rows holding text, right of the ticks.
    static QVector<QPair<int, int>> drawnLabels(Plot *p)
    {
        const QImage image = p->axisWidget(QwtPlot::yRight)->grab().toImage();
        QVector<QPair<int, int>> runs;
        int start = -1;
        for (int y = 0; y <= image.height(); ++y) {
            bool text = false;
            for (int x = 8; y < image.height() && x < image.width() && !text; ++x)
                text = qGray(image.pixel(x, y)) > 40;
            if (text && start < 0)
                start = y;
            if (!text && start >= 0) {
                runs << qMakePair(start, y - 1);
                start = -1;
            }
        }
        return runs;
    }

    // Every label stands apart from the next, none taller than one line of
    // digits (two overlapping labels make one taller run).
    static void verifyLabelsApart(Plot *p, int minimum, const char *state)
    {
        QCoreApplication::processEvents();
        const QFont font = p->axisWidget(QwtPlot::yRight)->font();
        const int digits = QFontMetrics(font).tightBoundingRect(QStringLiteral("0123456789")).height();
        const QVector<QPair<int, int>> labels = drawnLabels(p);
        QString seen;
        for (const auto &l : labels)
            seen += QStringLiteral(" %1..%2").arg(l.first).arg(l.second);
        const QString why = QStringLiteral("%1, canvas %2 px high: labels on rows%3")
                                .arg(QLatin1String(state)).arg(p->canvas()->height()).arg(seen);
        QVERIFY2(labels.size() >= minimum, qPrintable(why));
        for (int i = 0; i < labels.size(); ++i) {
            QVERIFY2(labels[i].second - labels[i].first <= digits + 1, qPrintable(why));
            if (i > 0)
                QVERIFY2(labels[i].first - labels[i - 1].second >= 3, qPrintable(why));
        }
    }

private Q_SLOTS:
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    // The highest high and the lowest low in view stand at least 8 px
    // inside the canvas, while the price scale spans exactly the prices in
    // view times the vertical zoom.
    void headroom_data()
    {
        QTest::addColumn<int>("panel");
        QTest::addColumn<double>("zoomOut"); // ZoomOutY pixels
        QTest::newRow("main panel") << 0 << 0.0;
        QTest::newRow("main panel, prices squeezed") << 0 << 60.0;
        QTest::newRow("lowest panel, above the dates") << 2 << 0.0;
        QTest::newRow("lowest panel, prices squeezed") << 2 << 30.0;
    }
    void headroom()
    {
        QFETCH(int, panel);
        QFETCH(double, zoomOut);
        makeChart(QSize(900, 700));
        Plot *p = panels.at(panel);
        p->ZoomOutY(zoomOut);
        for (const char *where : {"at the newest bars", "scrolled back"}) {
            if (QByteArray(where) == "scrolled back")
                chart->ScrollLeft(37);
            const QwtInterval x = shown(p);
            double low, high;
            QVERIFY(p->valueRange(x.minValue(), x.maxValue(), low, high));
            const QwtInterval y = p->axisScaleDiv(QwtPlot::yRight).interval();
            QCOMPARE(y.width(), (high - low) * nav(p)->yZoom());
            QCOMPARE(y.minValue() + y.maxValue(), low + high);
            const QImage image = p->canvas()->grab().toImage();
            int top, bottom;
            QVERIFY(rowsWith(image, isCandle, top, bottom));
            QVERIFY2(top >= 8 && image.height() - 1 - bottom >= 8,
                     qPrintable(QStringLiteral("%1: candles on rows %2..%3 of %4")
                                    .arg(QLatin1String(where)).arg(top).arg(bottom)
                                    .arg(image.height())));
        }
    }

    // The volume panel's labels ("8000000000") are wider than the prices';
    // the panels still put bar i on one pixel column, whatever the view.
    void panelsLineUpBarForBar()
    {
        makeChart(QSize(900, 700));
        verifyBarsLineUp("at the newest bars");
        chart->ScrollLeft(37);
        verifyBarsLineUp("scrolled back");
        chart->ZoomIn(1);
        verifyBarsLineUp("zoomed in");
        chart->ZoomOut(1);
        chart->ZoomOut(1);
        verifyBarsLineUp("zoomed out");
        chart->resize(700, 650);
        QTRY_COMPARE(panels.first()->width(), 700);
        verifyBarsLineUp("narrower");
        chart->resize(1100, 650);
        QTRY_COMPARE(panels.first()->width(), 1100);
        verifyBarsLineUp("wider");
        chart->ScrollRight(LONG_MAX);
        verifyBarsLineUp("back at the newest bars");
        // A panel hidden on purpose widens no other; shown, it does again.
        const int aligned = panels.first()->canvas()->width();
        chart->ShowVolume(0);
        QTRY_VERIFY(panels.first()->canvas()->width() > aligned);
        verifyBarsLineUp("volume hidden");
        chart->ShowVolume(1);
        QTRY_COMPARE(panels.first()->canvas()->width(), aligned);
        verifyBarsLineUp("volume shown again");
    }

    // Each volume column takes the colour of its bar, rising or falling, at
    // 60% opacity, also after the host changes the colours.
    void volumeInTheColourOfItsBar()
    {
        makeChart(QSize(900, 700));
        for (int pass = 0; pass < 2; ++pass) {
            if (pass == 1) {
                chart->SetChartColor(4, 0x3399ff);
                chart->SetChartColor(5, 0xffcc00);
            }
            const QRgb up = pass ? 0xff3399ff : Up, down = pass ? 0xffffcc00 : Down;
            QVector<QRgb> columns, candles;
            columnAndCandleColours(columns, candles);
            QVERIFY(columns.size() > 10);
            int rising = 0;
            for (int i = 0; i < columns.size(); ++i) {
                QVERIFY2(candles[i] == up || candles[i] == down, qPrintable(QString::number(i)));
                rising += candles[i] == up;
                QVERIFY2(blended(columns[i], candles[i], 153),
                         qPrintable(QStringLiteral("column %1: %2, bar %3")
                                        .arg(i).arg(columns[i], 0, 16).arg(candles[i], 0, 16)));
            }
            QVERIFY(rising > 0 && rising < columns.size());
        }
    }

    // A bar whose open equals its close is drawn as falling, candle and
    // volume alike.
    void flatBarsVolumeLikeItsCandle()
    {
        makeChart(QSize(900, 700));
        for (int i = 290; i < 300; ++i) {
            chart->AppendOHLC("OHLC", 2459000.5 + i, true, 100, 103, 97, 100, 1000000000L);
            chart->AppendOHLC("volume", 2459000.5 + i, true, 100, 103, 97, 100, 1000000000L);
        }
        QTRY_VERIFY(panels.first()->replotCount() > 0);
        QCoreApplication::processEvents();
        QVector<QRgb> columns, candles;
        columnAndCandleColours(columns, candles);
        QVERIFY(columns.size() > 10);
        QCOMPARE(candles.last(), Down);
        QVERIFY(blended(columns.last(), Down, 153));
    }

    // All-zero volume (a currency pair) draws nothing: no columns, no line.
    void zeroVolumeDrawsNothing()
    {
        chart = new TestChart;
        chart->resize(900, 700);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        for (int i = 0; i < 100; ++i) {
            chart->AppendOHLC("OHLC", 2459000.5 + i, false, 1.1, 1.2, 1.0, 1.15, 0);
            chart->AppendOHLC("volume", 2459000.5 + i, false, 1.1, 1.2, 1.0, 1.15, 0);
        }
        chart->Update();
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        panels = chart->GetAllPanel();
        QCoreApplication::processEvents();
        QVERIFY(!drawnBars(panels.first()->canvas()).isEmpty());
        QCOMPARE(drawnBars(panels.at(1)->canvas()), QVector<double>());
    }

    // Thin panels show fewer labels, never overlapping ones.
    void priceLabelsNeverOverlap_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("labels"); // at least
        for (int h : {45, 48, 52, 56, 60})
            QTest::addRow("%d px", h) << h << 1;
        QTest::newRow("90 px") << 90 << 2;
        QTest::newRow("250 px") << 250 << 4;
    }
    void priceLabelsNeverOverlap()
    {
        QFETCH(int, height);
        QFETCH(int, labels);
        makeIndicatorChart();
        QSplitter *splitter = chart->findChild<QSplitter *>();
        QVERIFY(splitter);
        const int total = splitter->height() - 2 * splitter->handleWidth();
        splitter->setSizes({total - height - 120, height, 120});
        QTRY_COMPARE(panels.at(1)->height(), height);
        for (double zoomOut : {0.0, 7.0, 15.0}) {
            panels.at(1)->ZoomOutY(zoomOut);
            verifyLabelsApart(panels.at(1), labels, "fitted");
        }
        chart->ScrollLeft(77);
        verifyLabelsApart(panels.at(1), labels, "scrolled back");
    }

    // Dragged as small as it goes, a sub-panel keeps room for two labels.
    void subPanelsKeepTwoLabelsOfRoom()
    {
        makeIndicatorChart();
        QSplitter *splitter = chart->findChild<QSplitter *>();
        QWidget *handle = splitter->handle(2); // between panels 1 and 2
        const QPoint from(handle->width() / 2, 0);
        sendMouse(handle, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        sendMouse(handle, QEvent::MouseMove, from - QPoint(0, 600), Qt::NoButton, Qt::LeftButton);
        sendMouse(handle, QEvent::MouseButtonRelease, from - QPoint(0, 600), Qt::LeftButton,
                  Qt::NoButton);
        Plot *p = panels.at(1);
        QTRY_VERIFY(p->height() < 60);
        const QFont font = p->axisWidget(QwtPlot::yRight)->font();
        const int digits = QFontMetrics(font).tightBoundingRect(QStringLiteral("0123456789")).height();
        // Two lines of digits with a gap, between the headroom above and below.
        QVERIFY2(qAbs(p->canvasMap(QwtPlot::yRight).pDist()) >= 2 * (digits + 3),
                 qPrintable(QString::number(p->canvas()->height())));
        verifyLabelsApart(p, 1, "smallest");
    }
};

QTEST_MAIN(tst_PanelLayout)
#include "tst_panellayout.moc"
