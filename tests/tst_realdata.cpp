// One real data set end to end: the S&P 500 daily bars fed through the
// exported API, drawn as candles, and checked on the canvas.
#include <QtTest>

#include "barseries.h"
#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

namespace {
struct Bar
{
    double ms, open, high, low, close, volume;
};

QVector<Bar> loadCsv(const QString &path)
{
    QVector<Bar> bars;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return bars;
    file.readLine(); // header
    while (!file.atEnd()) {
        const QList<QByteArray> f = file.readLine().trimmed().split(',');
        if (f.size() != 6)
            continue;
        const QDateTime t = QDateTime::fromString(QString::fromLatin1(f[0]), Qt::ISODate);
        bars.append({double(t.toMSecsSinceEpoch()), f[1].toDouble(), f[2].toDouble(),
                     f[3].toDouble(), f[4].toDouble(), f[5].toDouble()});
    }
    return bars;
}

double julian(double ms) { return 2440587.5 + ms / 86400000.0; }
} // namespace

class tst_RealData : public QObject
{
    Q_OBJECT

private:
    QVector<Bar> data;
    PriceGraph *chart = nullptr;
    Plot *main() { return PriceGraphPrivate::mainPanel(chart); }

    // Shows bars [first, last] across the canvas and returns the canvas.
    QImage drawBars(double x1, double x2)
    {
        double low, high;
        main()->valueRange(x1, x2, low, high);
        main()->setAxisScale(QwtPlot::xBottom, x1, x2);
        main()->setAxisScale(QwtPlot::yRight, low, high);
        main()->replot();
        return main()->canvas()->grab().toImage();
    }
    QPoint pixelOf(double x, double y)
    {
        return QPoint(qRound(main()->canvasMap(QwtPlot::xBottom).transform(x)),
                      qRound(main()->canvasMap(QwtPlot::yRight).transform(y)));
    }

private Q_SLOTS:
    void initTestCase()
    {
        data = loadCsv(QStringLiteral(PRICEGRAPH_TEST_DATA "/sp500_daily_2000-2020.csv"));
        QCOMPARE(data.size(), 5105);
    }
    void init()
    {
        chart = new PriceGraph;
        chart->resize(1000, 700);
        chart->AddSeries(QStringLiteral("SPX.OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->SetInterval(86400000.0);
        chart->SetcandleChart(1);
        for (int i = 0; i < data.size(); ++i) {
            const Bar &b = data.at(i);
            const bool last = i == data.size() - 1;
            chart->AppendOHLC("SPX.OHLC", julian(b.ms), last, b.open, b.high, b.low, b.close,
                              long(b.volume));
            chart->AppendOHLC("volume", julian(b.ms), last, 0, 0, 0, 0, long(b.volume));
        }
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        QTRY_VERIFY(main()->replotCount() > 0);
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void everyBarIsStoredInOrder()
    {
        const BarSeries *bars = main()->barSeries();
        QCOMPARE(bars->size(), data.size());
        QCOMPARE(bars->close(0), data.first().close);
        QCOMPARE(bars->volume(data.size() - 1), data.last().volume); // above 2^31
        QCOMPARE(main()->TimeToIndexSuitable(bars->time(42)), 42.0);
        double low, high;
        QVERIFY(main()->valueRange(0, data.size() - 1, low, high));
        QCOMPARE(low, 666.789978); // the 2009 low
    }

    void candlesArePaintedInTheirColours()
    {
        const int n = data.size();
        const int first = n - 60;
        // The rising and the falling candle with the tallest bodies in view.
        int up = -1, down = -1;
        for (int i = first; i < n - 3; ++i) {
            const double body = data[i].close - data[i].open;
            if (up < 0 || body > data[up].close - data[up].open)
                up = i;
            if (down < 0 || body < data[down].close - data[down].open)
                down = i;
        }
        QVERIFY(data[up].close > data[up].open && data[down].close < data[down].open);
        const QImage canvas = drawBars(first - 0.5, n - 0.5);
        const QColor upColor = main()->getUpColor(), downColor = main()->getDownColor();
        const auto colourAt = [&](int i) {
            return canvas.pixelColor(pixelOf(i, 0.5 * (data[i].open + data[i].close)));
        };
        QCOMPARE(colourAt(up), upColor);
        QCOMPARE(colourAt(down), downColor);
        // Between two candles lies the background, not a candle.
        const QColor gap = canvas.pixelColor(pixelOf(up + 0.5, data[up].close));
        QVERIFY(gap != upColor && gap != downColor);
    }

    void candlesKeepOffTheRightMargin()
    {
        const int n = data.size();
        const int width = main()->canvas()->width();
        // Put the newest bar 10 px from the right edge.
        const double barsShown = 40.0, perPixel = barsShown / width;
        const QImage canvas = drawBars(n - 1 - (width - 10) * perPixel, n - 1 + 10 * perPixel);
        QVERIFY(pixelOf(n - 1, 0).x() > width - 25);
        const QColor upColor = main()->getUpColor(), downColor = main()->getDownColor();
        for (int x = width - 24; x < width; ++x) {
            for (int y = 0; y < canvas.height(); ++y) {
                const QColor c = canvas.pixelColor(x, y);
                QVERIFY2(c != upColor && c != downColor, qPrintable(QStringLiteral("x %1").arg(x)));
            }
        }
        // The candle one bar to the left, clear of the margin, is drawn.
        const Bar &b = data[n - 2];
        const QPoint p = pixelOf(n - 2, 0.5 * (b.open + b.close));
        if (p.x() < width - 30 && qAbs(b.close - b.open) > 0)
            QVERIFY(canvas.pixelColor(p) == upColor || canvas.pixelColor(p) == downColor);
    }
};

QTEST_MAIN(tst_RealData)
#include "tst_realdata.moc"
