// Display options as a host sets them: chart style, colours, volume switch,
// interval, and the day separators they lead to.
#include <QtTest>

#include "colorscaledraw.h"
#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "tradingcurve.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_marker.h>

namespace {
double julian(double ms) { return 2440587.5 + ms / 86400000.0; }
const double Minute = 60000.0;
const double Day = 86400000.0;
const double T0 = 1584057600000.0; // 2020-03-13 00:00 UTC
} // namespace

class tst_Display : public QObject
{
    Q_OBJECT

private:
    PriceGraph *chart = nullptr;
    Plot *main() { return PriceGraphPrivate::mainPanel(chart); }
    QList<double> attachedSeparators()
    {
        QList<double> xs;
        for (QwtPlotMarker *m : main()->getDaySeparators()) {
            if (m->plot())
                xs << m->xValue();
        }
        return xs;
    }

private Q_SLOTS:
    void init()
    {
        chart = new PriceGraph;
        chart->resize(800, 600);
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void chartStyle_data()
    {
        QTest::addColumn<long>("style");
        QTest::addColumn<bool>("candlesShown");
        QTest::addColumn<int>("symbol");
        QTest::addColumn<bool>("lineShown");
        QTest::newRow("bars") << 0L << true << int(QwtPlotTradingCurve::Bar) << false;
        QTest::newRow("candles") << 1L << true << int(QwtPlotTradingCurve::UserSymbol) << false;
        QTest::newRow("line") << 2L << false << int(QwtPlotTradingCurve::UserSymbol) << true;
        QTest::newRow("other") << 3L << false << int(QwtPlotTradingCurve::UserSymbol) << false;
    }
    void chartStyle()
    {
        QFETCH(long, style);
        QFETCH(bool, candlesShown);
        QFETCH(int, symbol);
        QFETCH(bool, lineShown);
        chart->AddChartPanel();
        chart->SetcandleChart(style); // no price series yet: only stored
        QCOMPARE(chart->GetcandleChart(), style);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        QVERIFY(main()->tradingCurve->isVisible());
        QCOMPARE(int(main()->tradingCurve->symbolStyle()), int(QwtPlotTradingCurve::UserSymbol));
        const quint64 before = main()->replotCount();
        chart->SetcandleChart(style);
        QVERIFY(main()->replotCount() >= before + 3);
        QCOMPARE(main()->tradingCurve->isVisible(), candlesShown);
        QCOMPARE(int(main()->tradingCurve->symbolStyle()), symbol);
        QCOMPARE(main()->lineCurve->isVisible(), lineShown);
        QCOMPARE(chart->GetcandleChart(), style);
    }

    void colourDefaultsAndTable()
    {
        const unsigned long invalid = QColor().rgba();
        QCOMPARE(chart->GetChartColor(0), invalid); // no panel yet
        chart->SetChartColor(4, 0x123456);          // replaced by the price defaults
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        const unsigned long defaults[] = {0xff0c0c0c, 0xffbbbbbb, 0xff222222, 0xffb2b200,
                                          0xff1dff00, 0xffd91200, 0xffb2b200, invalid};
        for (int i = 0; i < 8; ++i)
            QCOMPARE(chart->GetChartColor(i), defaults[i]);
        for (int i = 0; i < 8; ++i)
            chart->SetChartColor(i, 0xAA000010 + i); // the top byte is ignored
        for (int i = 0; i < 8; ++i)
            QCOMPARE(chart->GetChartColor(i), 0xff000010UL + i);
        QCOMPARE(main()->tradingCurve->symbolBrush(QwtPlotTradingCurve::Increasing).color(),
                 QColor(0, 0, 0x14));
        QCOMPARE(main()->lineCurve->pen().color(), QColor(0, 0, 0x16));
        chart->SetChartColor(8, 0xffffff);
        chart->SetChartColor(-1, 0xffffff);
        for (int i = 0; i < 8; ++i)
            QCOMPARE(chart->GetChartColor(i), 0xff000010UL + i);
        // A new panel copies the main panel's colours.
        chart->AddSeries(QStringLiteral("MA"), 0, 1, 0, 0, false);
        Plot *second = PriceGraphPrivate::allPanels(chart).at(1);
        QCOMPARE(second->getUpColor(), QColor(0, 0, 0x14));
        QCOMPARE(second->getBackgroundColor(), QColor(0, 0, 0x10));
    }

    void defaultTextColourRestoresTheScaleColours()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        auto *right = dynamic_cast<ColorScaleDraw *>(main()->axisScaleDraw(QwtPlot::yRight));
        auto *bottom = dynamic_cast<ColorScaleDraw *>(main()->axisScaleDraw(QwtPlot::xBottom));
        QVERIFY(right && bottom);
        chart->SetChartColor(1, 0x00ff00);
        QCOMPARE(right->labelColor, QColor(0, 255, 0));
        QCOMPARE(bottom->tickColor, QColor(0, 255, 0));
        chart->SetChartColor(1, 0xbbbbbb);
        for (ColorScaleDraw *draw : {right, bottom}) {
            QCOMPARE(draw->labelColor, QColor(255, 255, 255, 76));
            QCOMPARE(draw->backboneColor, QColor(51, 51, 51));
            QCOMPARE(draw->tickColor, QColor(51, 51, 51));
        }
    }

    void showVolumeHidesVolumePanels()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddChartPanel();
        chart->show();
        Plot *volume = PriceGraphPrivate::allPanels(chart).at(1);
        QVERIFY(volume->isVisible());
        chart->ShowVolume(0);
        QVERIFY(!volume->isVisible());
        QVERIFY(main()->isVisible());
        // A panel that is switched off stays hidden when it gets its volume.
        chart->AddSeries(QStringLiteral("volume"), 0, 2, 0, 0, false);
        QVERIFY(!PriceGraphPrivate::allPanels(chart).at(2)->isVisible());
        chart->ShowVolume(1);
        QVERIFY(volume->isVisible());
        // Beside prices only the columns go.
        chart->AddSeries(QStringLiteral("volume"), 0, 0, 0, 0, false);
        chart->ShowVolume(0);
        QVERIFY(main()->isVisible());
        QVERIFY(!main()->volumeHistogram->isVisible());
    }

    void daySeparatorsOnAMinuteChart()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->SetInterval(Minute);
        // 22:00 on the 13th to 01:59 on the 14th: the 14th starts at bar 120.
        const double start = T0 + 22 * 60 * Minute;
        for (int i = 0; i < 240; ++i)
            chart->AppendOHLC("OHLC", julian(start + i * Minute), i == 239, 1, 2, 0.5, 1.5, 1);
        QTRY_VERIFY(main()->replotCount() > 0 && main()->barCount() == 240);
        main()->setAxisScale(QwtPlot::xBottom, -0.5, 239.5);
        main()->replot();
        QCOMPARE(attachedSeparators(), (QList<double>{0.0, 120.0}));
        const QwtPlotMarker *second = main()->getDaySeparators().at(1);
        QCOMPARE(second->label().text(), QStringLiteral("03/14"));
        QCOMPARE(main()->getDaySeparators().at(0)->label().text(), QStringLiteral("03/13"));
        QCOMPARE(second->lineStyle(), QwtPlotMarker::VLine);
        QCOMPARE(second->linePen().style(), Qt::DotLine);
        QCOMPARE(second->linePen().color(), QColor(Qt::darkGray));
        QCOMPARE(int(second->labelAlignment()), int(Qt::AlignRight | Qt::AlignTop));
        // Only what is in view carries markers; the list is reused.
        main()->setAxisScale(QwtPlot::xBottom, 150, 239.5);
        main()->replot();
        QCOMPARE(attachedSeparators(), QList<double>());
        main()->setAxisScale(QwtPlot::xBottom, 100, 200);
        main()->replot();
        QCOMPARE(attachedSeparators(), QList<double>{120.0});
        QCOMPARE(main()->getDaySeparators().size(), 2);
        // A daily chart shows none.
        chart->SetInterval(Day);
        QCOMPARE(attachedSeparators(), QList<double>());
    }

    void noDaySeparatorsOnADailyChart()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->SetInterval(Day);
        for (int i = 0; i < 30; ++i)
            chart->AppendOHLC("OHLC", julian(T0 + i * Day), false, 1, 2, 0.5, 1.5, 1);
        chart->Update();
        main()->setAxisScale(QwtPlot::xBottom, -0.5, 29.5);
        main()->replot();
        QCOMPARE(attachedSeparators(), QList<double>());
    }
};

QTEST_MAIN(tst_Display)
#include "tst_display.moc"
