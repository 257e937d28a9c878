// Panels as a host creates them: AddSeries and AddChartPanel, and what a
// new panel looks like.
#include <QtTest>

#include "eventsync.h"
#include "plot.h"
#include "plotscrollbar.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <QSplitter>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>

#include "datescaledraw.h"
#include "scaledrawwithprecision.h"

class tst_Panels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { chart.reset(new PriceGraph); }
    void cleanup() { chart.reset(); }

    void addChartPanelReturnsIndex()
    {
        QCOMPARE(chart->AddChartPanel(), 0L);
        QCOMPARE(chart->AddChartPanel(), 1L);
        QCOMPARE(chart->AddChartPanel(), 2L);
        QCOMPARE(chart->GetPanelCount(), 3L);
        PriceGraphPrivate *d = PriceGraphPrivate::get(chart.data());
        QCOMPARE(d->splitter->count(), 3);
        QCOMPARE(d->eventSync->plots(), QList<QwtPlot *>(d->panels.begin(), d->panels.end()));
        QCOMPARE(d->scrollBar->plot(), d->panels.first());
        for (Plot *p : d->panels) {
            QCOMPARE(p->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
            QCOMPARE(p->sizePolicy().verticalPolicy(), QSizePolicy::Ignored);
            QCOMPARE(p->chart, chart.data());
        }
    }

    void addSeriesCreatesPanels_data()
    {
        QTest::addColumn<int>("existing");
        QTest::addColumn<long>("panel");
        QTest::addColumn<long>("expectedCount");
        QTest::newRow("first series, no panel") << 0 << 0L << 1L;
        QTest::newRow("index 3 with one panel") << 1 << 3L << 4L;
        QTest::newRow("existing panel") << 3 << 1L << 3L;
        QTest::newRow("next panel") << 2 << 2L << 3L;
    }
    void addSeriesCreatesPanels()
    {
        QFETCH(int, existing);
        QFETCH(long, panel);
        QFETCH(long, expectedCount);
        for (int i = 0; i < existing; ++i)
            chart->AddChartPanel();
        QCOMPARE(chart->AddSeries(QStringLiteral("MA*255"), 0, panel, 7, 8, true), panel);
        QCOMPARE(chart->GetPanelCount(), expectedCount);
        Plot *p = PriceGraphPrivate::get(chart.data())->panels.at(int(panel));
        QVERIFY(!p->isHidden());
    }

    void badPanelIndexAddsNothing_data()
    {
        QTest::addColumn<long>("panel");
        QTest::newRow("negative") << -1L;
        QTest::newRow("very negative") << long(INT_MIN) - 5;
        QTest::newRow("huge") << long(INT_MAX) + 5;
    }
    void badPanelIndexAddsNothing()
    {
        QFETCH(long, panel);
        chart->AddChartPanel();
        chart->AddSeries(QStringLiteral("OHLC"), 0, panel, 0, 0, false);
        QCOMPARE(chart->GetPanelCount(), 1L);
    }

    void newPanelAxesAndStyle()
    {
        chart->AddChartPanel();
        Plot *p = PriceGraphPrivate::mainPanel(chart.data());
        QVERIFY(!p->axisEnabled(QwtPlot::yLeft));
        QVERIFY(p->axisEnabled(QwtPlot::yRight));
        QVERIFY(dynamic_cast<DateScaleDraw *>(p->axisScaleDraw(QwtPlot::xBottom)));
        QVERIFY(dynamic_cast<ScaleDrawWithPrecision *>(p->axisScaleDraw(QwtPlot::yRight)));
        for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
            QCOMPARE(p->axisWidget(axis)->margin(), 0);
            QCOMPARE(p->axisWidget(axis)->styleSheet(),
                     QStringLiteral("QwtScaleWidget{font-family:\"Roboto\"; font-size:10px;}"));
        }
        // The right axis's alignment went with the scale draw that the price
        // draw replaced; only the bottom one keeps it.
        QCOMPARE(p->axisScaleDraw(QwtPlot::xBottom)->labelAlignment(),
                 Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(p->autoReplot());
        QCOMPARE(p->canvas()->focusPolicy(), Qt::ClickFocus);
        QVERIFY(p->canvas()->hasMouseTracking());
        QCOMPARE(p->plotLayout()->canvasMargin(QwtPlot::yRight), 0);
        // No margin beside the bars; the prices' headroom above and below.
        QCOMPARE(p->plotLayout()->canvasMargin(QwtPlot::yLeft), 0);
        QCOMPARE(p->plotLayout()->canvasMargin(QwtPlot::xBottom), Plot::PriceHeadroom);
        QCOMPARE(p->plotLayout()->canvasMargin(QwtPlot::xTop), Plot::PriceHeadroom);
        QVERIFY(p->panner);
        QCOMPARE(p->chartType, 0);
        QCOMPARE(p->leftInset, 10);
        QVERIFY(!p->tradingCurve && !p->lineCurve && !p->volumeHistogram);
        QVERIFY(p->priceLines);
    }

    void panelDestructionTellsChart()
    {
        chart->AddChartPanel();
        chart->AddChartPanel();
        PriceGraphPrivate *d = PriceGraphPrivate::get(chart.data());
        Plot *second = d->panels.at(1);
        delete second;
        QCOMPARE(chart->GetPanelCount(), 1L);
        QVERIFY(!d->eventSync->plots().contains(second));
    }

private:
    QScopedPointer<PriceGraph> chart;
};

QTEST_MAIN(tst_Panels)
#include "tst_panels.moc"
