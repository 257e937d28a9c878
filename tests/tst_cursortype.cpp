// The chart-wide cursor type: every panel gets it, the signal fires only on
// a real change.
#include <QtTest>

#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <climits>

class tst_CursorType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart.reset(new PriceGraph);
        chart->AddChartPanel();
        chart->AddChartPanel();
        spy.reset(new QSignalSpy(chart.data(), &PriceGraph::cursorTypeChanged));
    }
    void cleanup()
    {
        spy.reset();
        chart.reset();
    }

    void newPanelsStartWithTheCurrentType()
    {
        // The constructor chose 3; panels added later were handed it.
        for (Plot *p : panels())
            QCOMPARE(p->getCursorStyle(), 3);
    }

    void changeReachesEveryPanelAndSignalsOnce_data()
    {
        QTest::addColumn<long>("type");
        QTest::newRow("crosshair") << 1L;
        QTest::newRow("trend line") << 2L;
        QTest::newRow("pan") << 6L;
        QTest::newRow("above the tool range") << 31L;
        QTest::newRow("negative") << -7L;
    }
    void changeReachesEveryPanelAndSignalsOnce()
    {
        QFETCH(long, type);
        chart->SetCursorType(type);
        QCOMPARE(spy->count(), 1);
        QCOMPARE(spy->at(0).at(0).value<long>(), type);
        for (Plot *p : panels())
            QCOMPARE(p->getCursorStyle(), int(type));
    }

    void sameTypeStillReachesPanelsButIsSilent()
    {
        chart->SetCursorType(2);
        spy->clear();
        // A panel that drifted (e.g. its own gesture ended) is put back.
        panels().at(1)->setCursorStyle(5);
        chart->SetCursorType(2);
        QCOMPARE(spy->count(), 0);
        for (Plot *p : panels())
            QCOMPARE(p->getCursorStyle(), 2);
    }

    void laterPanelGetsTheCurrentType()
    {
        chart->SetCursorType(1);
        spy->clear();
        chart->AddChartPanel();
        QCOMPARE(spy->count(), 0);
        QCOMPARE(panels().last()->getCursorStyle(), 1);
    }

    void hostMayCallBackFromTheSignal()
    {
        // The signal is emitted with the chart's lock held; a host that feeds
        // the chart from its slot must not deadlock.
        connect(chart.data(), &PriceGraph::cursorTypeChanged, this, [this](long type) {
            if (type == 2)
                chart->AddSeries(QStringLiteral("MA*255"), 0, 3, 0, 0, false);
            chart->Update();
        });
        chart->SetCursorType(2);
        QCOMPARE(chart->GetPanelCount(), 4L);
        // The new panel was handed the type that was current when it was made.
        QCOMPARE(panels().last()->getCursorStyle(), 2);
    }

    void outOfIntRangeDoesNotWrap()
    {
        chart->SetCursorType(long(INT_MAX) + 10);
        QCOMPARE(spy->count(), 1);
        for (Plot *p : panels())
            QCOMPARE(p->getCursorStyle(), INT_MAX);
    }

private:
    QList<Plot *> panels() const { return PriceGraphPrivate::allPanels(chart.data()); }

    QScopedPointer<PriceGraph> chart;
    QScopedPointer<QSignalSpy> spy;
};

QTEST_MAIN(tst_CursorType)
#include "tst_cursortype.moc"
