// The panel's colour set: what each setter changes at once, what a new
// panel inherits, and the chart's colour indices that are out of range.
#include <QtTest>

#include "colorscaledraw.h"
#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"
#include "tradingcurve.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>

class tst_Colors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart.reset(new PriceGraph);
        chart->AddChartPanel();
        panel = PriceGraphPrivate::mainPanel(chart.data());
    }
    void cleanup() { chart.reset(); }

    void defaults()
    {
        QCOMPARE(panel->getBackgroundColor(), QColor(0x0c, 0x0c, 0x0c));
        QCOMPARE(panel->getTextColor(), QColor(0xbb, 0xbb, 0xbb));
        QCOMPARE(panel->getGridColor(), QColor(34, 34, 34));
        QVERIFY(!panel->getCandleOutlineColor().isValid());
        QVERIFY(!panel->getUpColor().isValid());
        QVERIFY(!panel->getDownColor().isValid());
        QVERIFY(!panel->getLineColor().isValid());
        QVERIFY(!panel->getPriceLineColor().isValid());
        // The background was set while the text colour was still unset.
        QCOMPARE(panel->styleSheet(),
                 QStringLiteral("background-color: rgb(12,12,12); color: rgb(0,0,0);"));
    }

    void backgroundWritesStyleSheet_data()
    {
        QTest::addColumn<QColor>("background");
        QTest::addColumn<QColor>("text");
        QTest::addColumn<QString>("sheet");
        QTest::newRow("white on black")
            << QColor(0, 0, 0) << QColor(255, 255, 255)
            << QStringLiteral("background-color: rgb(0,0,0); color: rgb(255,255,255);");
        QTest::newRow("default text")
            << QColor(1, 2, 3) << QColor(187, 187, 187)
            << QStringLiteral("background-color: rgb(1,2,3); color: rgb(187,187,187);");
    }
    void backgroundWritesStyleSheet()
    {
        QFETCH(QColor, background);
        QFETCH(QColor, text);
        QFETCH(QString, sheet);
        panel->setTextColor(text);
        panel->setBackgroundColor(background);
        QCOMPARE(panel->styleSheet(), sheet);
        QCOMPARE(panel->getBackgroundColor(), background);
    }

    void textColourColoursBothScales()
    {
        const QColor red(255, 0, 0);
        panel->setTextColor(red);
        for (ColorScaleDraw *draw : scaleDraws()) {
            QCOMPARE(draw->labelColor, red);
            QCOMPARE(draw->tickColor, red);
            QCOMPARE(draw->backboneColor, red);
        }
        // rgb(187,187,187) means "default": the scales go back to their own
        // colouring rather than taking that grey.
        panel->setTextColor(QColor(187, 187, 187));
        const ColorScaleDraw fresh;
        for (ColorScaleDraw *draw : scaleDraws()) {
            QCOMPARE(draw->labelColor, fresh.labelColor);
            QCOMPARE(draw->tickColor, fresh.tickColor);
            QCOMPARE(draw->backboneColor, fresh.backboneColor);
        }
        QCOMPARE(panel->getTextColor(), QColor(187, 187, 187));
    }

    void gridPen()
    {
        panel->setGridColor(QColor(10, 200, 30));
        const QPen pen = panel->grid->majorPen();
        QCOMPARE(pen.color(), QColor(10, 200, 30));
        QCOMPARE(pen.widthF(), 0.0);
        QCOMPARE(pen.style(), Qt::SolidLine);
    }

    void candleColoursWaitForThePriceSeries()
    {
        panel->setUpColor(QColor(1, 1, 1));
        panel->setDownColor(QColor(2, 2, 2));
        panel->setCandleOutlineColor(QColor(3, 3, 3));
        panel->setLineColor(QColor(4, 4, 4));
        QVERIFY(!panel->tradingCurve);
        QCOMPARE(panel->getUpColor(), QColor(1, 1, 1));

        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        QVERIFY(panel->tradingCurve && panel->lineCurve);
        // The new curve is drawn in the panel's colours.
        QCOMPARE(panel->tradingCurve->symbolBrush(QwtPlotTradingCurve::Increasing).color(),
                 panel->getUpColor());
        QCOMPARE(panel->tradingCurve->symbolBrush(QwtPlotTradingCurve::Decreasing).color(),
                 panel->getDownColor());
        QCOMPARE(panel->tradingCurve->symbolPen().color(), panel->getCandleOutlineColor());
        QCOMPARE(panel->lineCurve->pen().color(), panel->getLineColor());

        // Once it exists, the setters act on it at once.
        panel->setUpColor(QColor(5, 6, 7));
        panel->setDownColor(QColor(8, 9, 10));
        panel->setCandleOutlineColor(QColor(11, 12, 13));
        panel->setLineColor(QColor(14, 15, 16));
        QCOMPARE(panel->tradingCurve->symbolBrush(QwtPlotTradingCurve::Increasing),
                 QBrush(QColor(5, 6, 7), Qt::SolidPattern));
        QCOMPARE(panel->tradingCurve->symbolBrush(QwtPlotTradingCurve::Decreasing),
                 QBrush(QColor(8, 9, 10), Qt::SolidPattern));
        QCOMPARE(panel->tradingCurve->symbolPen(), QPen(QColor(11, 12, 13), 0, Qt::SolidLine));
        QCOMPARE(panel->lineCurve->pen(), QPen(QColor(14, 15, 16), 0, Qt::SolidLine));
    }

    void newPanelCopiesMainPanelColours()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        panel->setBackgroundColor(QColor(20, 21, 22));
        panel->setTextColor(QColor(200, 201, 202));
        panel->setGridColor(QColor(40, 41, 42));
        panel->setCandleOutlineColor(QColor(50, 51, 52));
        panel->setUpColor(QColor(60, 61, 62));
        panel->setDownColor(QColor(70, 71, 72));
        panel->setLineColor(QColor(80, 81, 82));
        panel->setPriceLineColor(QColor(90, 91, 92));

        const long index = chart->AddChartPanel();
        Plot *other = PriceGraphPrivate::allPanels(chart.data()).at(int(index));
        QCOMPARE(other->getBackgroundColor(), panel->getBackgroundColor());
        QCOMPARE(other->getTextColor(), panel->getTextColor());
        QCOMPARE(other->getGridColor(), panel->getGridColor());
        QCOMPARE(other->getCandleOutlineColor(), panel->getCandleOutlineColor());
        QCOMPARE(other->getUpColor(), panel->getUpColor());
        QCOMPARE(other->getDownColor(), panel->getDownColor());
        QCOMPARE(other->getLineColor(), panel->getLineColor());
        QCOMPARE(other->getPriceLineColor(), panel->getPriceLineColor());
        QCOMPARE(other->grid->majorPen().color(), QColor(40, 41, 42));
    }

    void chartColourIndexOutOfRangeChangesNothing_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("8") << 8;
        QTest::newRow("-1") << -1;
        QTest::newRow("large") << 20;
    }
    void chartColourIndexOutOfRangeChangesNothing()
    {
        QFETCH(int, index);
        const QList<QColor> before = colours();
        const QString sheet = panel->styleSheet();
        chart->SetChartColor(index, 0x123456);
        QCOMPARE(colours(), before);
        QCOMPARE(panel->styleSheet(), sheet);
    }

private:
    QList<ColorScaleDraw *> scaleDraws() const
    {
        return {dynamic_cast<ColorScaleDraw *>(panel->axisScaleDraw(QwtPlot::xBottom)),
                dynamic_cast<ColorScaleDraw *>(panel->axisScaleDraw(QwtPlot::yRight))};
    }
    QList<QColor> colours() const
    {
        return {panel->getBackgroundColor(), panel->getTextColor(), panel->getGridColor(),
                panel->getCandleOutlineColor(), panel->getUpColor(), panel->getDownColor(),
                panel->getLineColor(), panel->getPriceLineColor()};
    }

    QScopedPointer<PriceGraph> chart;
    Plot *panel = nullptr;
};

QTEST_MAIN(tst_Colors)
#include "tst_colors.moc"
