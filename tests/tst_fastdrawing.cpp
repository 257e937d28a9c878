// The drawing shortcuts (filled candles and grid lines, cached label
// texts, the plainly filled canvas) must put the same pixels on screen as the
// Qwt drawing they replace, at every bar width.
#include <QtTest>

#include "colorscaledraw.h"
#include "plotcanvas.h"
#include "plotgrid.h"
#include "tradingcurve.h"

#include <qwt_plot.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_map.h>

#include <cmath>

namespace {

const QRectF Canvas(0, 0, 640, 360);

// Deterministic bars with dojis, gaps and tall wicks.
QVector<QwtOHLCSample> bars(int n)
{
    QVector<QwtOHLCSample> out;
    double price = 100.0;
    for (int i = 0; i < n; ++i) {
        const double open = price;
        price += std::sin(i * 0.7) * 2.0 + (i % 5 == 0 ? 0.0 : std::cos(i * 1.3));
        const double close = i % 7 == 0 ? open : price;
        out.append(QwtOHLCSample(i, open, std::max(open, close) + (i % 3) * 1.5,
                                 std::min(open, close) - (i % 4), close));
    }
    return out;
}

QImage blank()
{
    QImage image(Canvas.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(12, 12, 12));
    return image;
}

// x shows `visible` bars ending at the last one, y the prices.
void maps(int visible, int n, QwtScaleMap &xMap, QwtScaleMap &yMap)
{
    xMap.setPaintInterval(Canvas.left(), Canvas.right());
    xMap.setScaleInterval(n - visible - 0.5, n + 0.5);
    yMap.setPaintInterval(Canvas.bottom(), Canvas.top());
    yMap.setScaleInterval(80.0, 120.0);
}

// Candles as they were drawn before: wicks and outline stroked.
class StrokedCandles : public TradingCurve
{
protected:
    void drawUserSymbol(QPainter *painter, SymbolStyle, const QwtOHLCSample &sample,
                        Qt::Orientation orientation, bool, double width) const override
    {
        painter->setPen(painter->brush().color());
        drawCandleStick(painter, sample, orientation, width);
    }
};

// Labels as they were drawn before: through QwtText.
class TextLabels : public ColorScaleDraw
{
protected:
    void drawLabel(QPainter *painter, double value) const override
    {
        painter->save();
        painter->setPen(labelColor);
        QFont f = painter->font();
        f.setPixelSize(10);
        painter->setFont(f);
        QwtScaleDraw::drawLabel(painter, value);
        painter->restore();
    }
};

} // namespace

class tst_FastDrawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void items_data()
    {
        QTest::addColumn<int>("visible");
        QTest::newRow("1 px a bar") << 600;
        QTest::newRow("2 px a bar") << 320;
        QTest::newRow("8 px a bar") << 80;
        QTest::newRow("16 px a bar") << 40;
        QTest::newRow("64 px a bar") << 10;
    }

    void items()
    {
        QFETCH(int, visible);
        const QVector<QwtOHLCSample> samples = bars(700);
        QwtScaleMap xMap, yMap;
        maps(visible, samples.size(), xMap, yMap);

        // Candles against stroked candles.
        QImage a, b;
        TradingCurve fast;
        StrokedCandles slow;
        for (TradingCurve *c : {&fast, static_cast<TradingCurve *>(&slow)}) {
            c->setSamples(samples);
            c->setSymbolBrush(QwtPlotTradingCurve::Increasing, QColor(0x1d, 0xff, 0x00));
            c->setSymbolBrush(QwtPlotTradingCurve::Decreasing, QColor(0xd9, 0x12, 0x00));
        }
        a = blank();
        b = blank();
        { QPainter p(&a); fast.draw(&p, xMap, yMap, Canvas); }
        { QPainter p(&b); slow.draw(&p, xMap, yMap, Canvas); }
        QCOMPARE(a, b);

        // Grid lines against Qwt's grid, ticks on and next to the edges.
        PlotGrid grid;
        QwtPlotGrid plain;
        QwtLinearScaleEngine engine;
        const QwtScaleDiv xDiv = engine.divideScale(xMap.s1(), xMap.s2(), 8, 0);
        const QwtScaleDiv yDiv(80.0, 120.0, QList<double>(), QList<double>(),
                               {80.0, 80.1, 95.0, 119.9, 120.0});
        for (QwtPlotGrid *g : {static_cast<QwtPlotGrid *>(&grid), &plain}) {
            g->setMajorPen(QColor(34, 34, 34), 0, Qt::SolidLine);
            g->updateScaleDiv(xDiv, yDiv);
        }
        a = blank();
        b = blank();
        { QPainter p(&a); grid.draw(&p, xMap, yMap, Canvas); }
        { QPainter p(&b); plain.draw(&p, xMap, yMap, Canvas); }
        QCOMPARE(a, b);
    }

    void labels_data()
    {
        QTest::addColumn<int>("alignment");
        QTest::addColumn<double>("lo");
        QTest::addColumn<double>("hi");
        QTest::newRow("prices on the right") << int(QwtScaleDraw::RightScale) << 1470.25 << 1512.5;
        QTest::newRow("small prices") << int(QwtScaleDraw::RightScale) << 0.00012 << 0.00031;
        QTest::newRow("bars at the bottom") << int(QwtScaleDraw::BottomScale) << -3.0 << 997.0;
    }

    void labels()
    {
        QFETCH(int, alignment);
        QFETCH(double, lo);
        QFETCH(double, hi);
        ColorScaleDraw fast;
        TextLabels slow;
        const QwtScaleDiv div = QwtLinearScaleEngine().divideScale(lo, hi, 8, 5);
        for (ColorScaleDraw *d : {&fast, static_cast<ColorScaleDraw *>(&slow)}) {
            d->setAlignment(QwtScaleDraw::Alignment(alignment));
            d->setScaleDiv(div);
            d->move(alignment == QwtScaleDraw::RightScale ? 10 : 20, 10);
            d->setLength(alignment == QwtScaleDraw::RightScale ? 320 : 580);
            d->setColors(QColor(187, 187, 188));
        }
        QImage a = blank(), b = blank();
        for (int pass = 0; pass < 2; ++pass) { // the second pass draws from the cache
            a = blank();
            { QPainter p(&a); fast.draw(&p, QPalette()); }
        }
        { QPainter p(&b); slow.draw(&p, QPalette()); }
        QCOMPARE(a, b);
    }

    // The panels' canvas against Qwt's own canvas under the panel's style
    // sheet, for the first colour and after the host changes it.
    void canvas_data()
    {
        QTest::addColumn<QColor>("background");
        QTest::newRow("panel default") << QColor(12, 12, 12);
        QTest::newRow("host colour") << QColor(0x20, 0x30, 0x40);
    }

    void canvas()
    {
        QFETCH(QColor, background);
        const QString sheet = QStringLiteral("background-color: rgb(%1,%2,%3); color: rgb(0,0,0);");
        QImage images[2];
        for (int variant = 0; variant < 2; ++variant) {
            QwtPlot plot;
            plot.setAttribute(Qt::WA_DontShowOnScreen);
            if (variant == 0)
                plot.setCanvas(new PlotCanvas(&plot));
            plot.setStyleSheet(sheet.arg(12).arg(12).arg(12));
            plot.resize(640, 400);
            auto *grid = new PlotGrid;
            grid->setMajorPen(QColor(34, 34, 34), 0, Qt::SolidLine);
            grid->attach(&plot);
            auto *candles = new TradingCurve;
            candles->setSamples(bars(60));
            candles->attach(&plot);
            plot.setAxisScale(QwtPlot::xBottom, -0.5, 60.5);
            plot.setAxisScale(QwtPlot::yLeft, 80.0, 120.0);
            plot.show();
            plot.setStyleSheet(sheet.arg(background.red()).arg(background.green())
                                   .arg(background.blue()));
            plot.replot();
            QCoreApplication::processEvents();
            images[variant] = plot.grab().toImage();
        }
        QCOMPARE(images[0], images[1]);
    }
};

QTEST_MAIN(tst_FastDrawing)
#include "tst_fastdrawing.moc"
