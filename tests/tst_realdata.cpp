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
} // namespace

class tst_RealData : public QObject
{
    Q_OBJECT

private:
    QVector<Bar> data;
    PriceGraph *chart = nullptr;
    Plot *main() { return PriceGraphPrivate::mainPanel(chart); }

    // Shows [x1, x2] across the canvas, prices fitted, and grabs it.
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
    bool isCandle(const QColor &c) { return c == main()->getUpColor() || c == main()->getDownColor(); }

private Q_SLOTS:
    void initTestCase()
    {
        QFile file(QStringLiteral(PRICEGRAPH_TEST_DATA "/sp500_daily_2000-2020.csv"));
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        file.readLine(); // header
        while (!file.atEnd()) {
            const QList<QByteArray> f = file.readLine().trimmed().split(',');
            const QDateTime t = QDateTime::fromString(QString::fromLatin1(f[0]), Qt::ISODate);
            data.append({double(t.toMSecsSinceEpoch()), f[1].toDouble(), f[2].toDouble(),
                         f[3].toDouble(), f[4].toDouble(), f[5].toDouble()});
        }
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
        for (const Bar &b : qAsConst(data)) {
            const double julian = 2440587.5 + b.ms / 86400000.0;
            const bool last = &b == &data.last();
            chart->AppendOHLC("SPX.OHLC", julian, last, b.open, b.high, b.low, b.close,
                              long(b.volume));
            chart->AppendOHLC("volume", julian, last, 0, 0, 0, 0, long(b.volume));
        }
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        QTRY_VERIFY(main()->replotCount() > 0);
        QCOMPARE(main()->barSeries()->size(), data.size());
        QCOMPARE(main()->barSeries()->volume(data.size() - 1), data.last().volume); // > 2^31
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void candlesArePaintedInTheirColours()
    {
        const int n = data.size(), first = n - 60;
        // The rising and the falling candle with the tallest bodies in view.
        int up = first, down = first;
        for (int i = first; i < n - 3; ++i) {
            const double body = data[i].close - data[i].open;
            if (body > data[up].close - data[up].open)
                up = i;
            if (body < data[down].close - data[down].open)
                down = i;
        }
        QVERIFY(data[up].close > data[up].open && data[down].close < data[down].open);
        const QImage canvas = drawBars(first - 0.5, n - 0.5);
        const auto bodyColour = [&](int i) {
            return canvas.pixelColor(pixelOf(i, 0.5 * (data[i].open + data[i].close)));
        };
        QCOMPARE(bodyColour(up), main()->getUpColor());
        QCOMPARE(bodyColour(down), main()->getDownColor());
        QVERIFY(!isCandle(canvas.pixelColor(pixelOf(up + 0.5, data[up].close)))); // a gap
    }

    void candlesKeepOffTheRightMargin()
    {
        const int n = data.size();
        drawBars(n - 40.0, n - 1.0); // the price axis settles its width first
        const int width = main()->canvas()->width();
        const double perPixel = 40.0 / width; // newest bar 10 px from the edge
        const QImage canvas = drawBars(n - 1 - (width - 10) * perPixel, n - 1 + 10 * perPixel);
        QVERIFY(pixelOf(n - 1, 0).x() > width - 25);
        for (int x = width - 24; x < width; ++x) {
            for (int y = 0; y < canvas.height(); ++y)
                QVERIFY2(!isCandle(canvas.pixelColor(x, y)), qPrintable(QString::number(x)));
        }
        int drawn = 0; // while the candles left of the margin are there
        for (int y = 0; y < canvas.height(); ++y)
            drawn += isCandle(canvas.pixelColor(pixelOf(n - 3, 0).x(), y));
        QVERIFY(drawn > 0);
    }
};

QTEST_MAIN(tst_RealData)
#include "tst_realdata.moc"
