// The Fibonacci tools as a trader sees them: their label texts, where
// their levels and lines land on the canvas, and the fan's and the
// expansion's hit test.
#include "marktesthelpers.h"

#include "plotfibonacciexpansion.h"
#include "plotfibonaccifan.h"
#include "plotfibonacciretracementmark.h"
#include "plotfibonaccitimezonesmark.h"

using namespace marktest;

namespace {

QStringList labelsOf(MarkSelfDraw *m)
{
    if (auto *r = dynamic_cast<PlotFibonacciRetracementMark *>(m))
        return r->labels();
    if (auto *t = dynamic_cast<PlotFibonacciTimeZonesMark *>(m))
        return t->labels();
    if (auto *f = dynamic_cast<PlotFibonacciFan *>(m))
        return f->labels();
    if (auto *e = dynamic_cast<PlotFibonacciExpansion *>(m))
        return e->labels();
    return {};
}

} // namespace

class tst_FibonacciMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart = shownChart();
        main = chart->GetMainPanel();
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void labels_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<QPointF>("p0");
        QTest::addColumn<QPointF>("p1");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("retracement, high to low")
            << 5L << QPointF(10, 1.3) << QPointF(40, 1.2) << 5
            << QStringList{"0.00%(1.30000)", "23.60%(1.27640)", "38.20%(1.26180)",
                           "50.00%(1.25000)", "61.80%(1.23820)", "100.00%(1.20000)"};
        QTest::newRow("retracement, low to high")
            << 5L << QPointF(10, 1.2) << QPointF(40, 1.3) << 5
            << QStringList{"0.00%(1.20000)", "23.60%(1.22360)", "38.20%(1.23820)",
                           "50.00%(1.25000)", "61.80%(1.26180)", "100.00%(1.30000)"};
        QTest::newRow("retracement, equal prices")
            << 5L << QPointF(10, 2841.5) << QPointF(40, 2841.5) << 2
            << QStringList{"0.00%(2841.50)", "23.60%(2841.50)", "38.20%(2841.50)",
                           "50.00%(2841.50)", "61.80%(2841.50)", "100.00%(2841.50)"};
        // The ratios are floats: 0.618 is 0.61799997..., as 12 decimals show.
        QTest::newRow("retracement, float ratios")
            << 5L << QPointF(10, 0.0) << QPointF(40, 1.0) << 12
            << QStringList{"0.00%(0.000000000000)", "23.60%(0.236000001431)",
                           "38.20%(0.381999999285)", "50.00%(0.500000000000)",
                           "61.80%(0.617999970913)", "100.00%(1.000000000000)"};
        QTest::newRow("time zones, bars rounded")
            << 4L << QPointF(10, 1.0) << QPointF(30.6, 1.0) << 5
            << QStringList{"21", "0.382", "0.618", "1.000", "1.382", "1.618"};
        QTest::newRow("time zones, right to left")
            << 4L << QPointF(30, 1.0) << QPointF(10.6, 1.0) << 5
            << QStringList{"19", "0.382", "0.618", "1.000", "1.382", "1.618"};
        QTest::newRow("fan") << 25L << QPointF(10, 1.0) << QPointF(40, 2.0) << 5
                             << QStringList{"38.20%(1.38200)", "50.00%(1.50000)",
                                            "61.80%(1.61800)"};
        // Anchor 2 at 1.5: the 0 to 1 move projected from there.
        QTest::newRow("expansion") << 26L << QPointF(10, 1.0) << QPointF(40, 2.0) << 3
                                   << QStringList{"23.60%(1.736)", "38.20%(1.882)", "50.00%(2.000)",
                                                  "61.80%(2.118)", "161.80%(3.118)",
                                                  "261.80%(4.118)"};
    }
    void labels()
    {
        QFETCH(long, type);
        QFETCH(QPointF, p0);
        QFETCH(QPointF, p1);
        QFETCH(int, decimals);
        QFETCH(QStringList, texts);
        chart->updateL1(0.0, 0.0, decimals, 0);
        MarkSelfDraw *m = draw(chart, main, type, QPoint(100, 100), QPoint(300, 200));
        QVERIFY(m);
        m->setPoint(0, p0);
        m->setPoint(1, p1);
        m->setPoint(2, QPointF(50, 1.5));
        QCOMPARE(labelsOf(m), texts);
    }

    void timeZonesOfAPressWithoutMovement()
    {
        MarkSelfDraw *m = draw(chart, main, 4, QPoint(200, 100), QPoint(200, 100));
        QVERIFY(m);
        QCOMPARE(labelsOf(m).value(0), QStringLiteral("0"));
        const QImage image = paintedMagenta(m);
        QVERIFY(!markAt(image, QPointF(240, 100))); // every line on one x, of no height
    }

    void retracementLevelsLandBetweenTheAnchors()
    {
        MarkSelfDraw *m = draw(chart, main, 5, QPoint(100, 50), QPoint(400, 250));
        const QImage image = paintedMagenta(m);
        for (float r : {0.0f, 0.236f, 0.382f, 0.5f, 0.618f, 1.0f}) {
            const double y = 50 + r * 200.0;
            QVERIFY2(markAt(image, QPointF(370, y)), qPrintable(QString::number(r)));
            QVERIFY2(!markAt(image, QPointF(370, y + 6)), qPrintable(QString::number(r)));
            QVERIFY2(!markAt(image, QPointF(80, y)), "a level reaches beyond anchor 0");
        }
    }

    void timeZoneLinesLand_data()
    {
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        QTest::newRow("left to right") << QPoint(100, 60) << QPoint(300, 200);
        QTest::newRow("right to left") << QPoint(420, 60) << QPoint(220, 200);
    }
    void timeZoneLinesLand()
    {
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        MarkSelfDraw *m = draw(chart, main, 4, from, to);
        const QImage image = paintedMagenta(m);
        for (double r : {0.0, 0.382, 0.618, 1.0, 1.382, 1.618}) {
            const double x = from.x() + r * (to.x() - from.x());
            QVERIFY2(markAt(image, QPointF(x, 190)), qPrintable(QString::number(r)));
            QVERIFY2(!markAt(image, QPointF(x, 40)), "a line reaches above the anchors");
            QVERIFY2(!markAt(image, QPointF(x + 9, 190)), qPrintable(QString::number(r)));
        }
    }

    void fanAndExpansionLines()
    {
        // Fan from (100, 250) through (300, 250 - r * 100), on to the edge.
        MarkSelfDraw *fan = draw(chart, main, 25, QPoint(100, 250), QPoint(300, 150));
        QImage image = paintedMagenta(fan);
        for (double r : {0.382, 0.5, 0.618}) {
            QVERIFY(markAt(image, QPointF(500, 250 - r * 200)));
            QVERIFY(!markAt(image, QPointF(500, 250 - r * 200 + 6)));
        }
        delete fan;
        // Expansion 0 at (100, 250), 1 at (200, 150), 2 taken to (250, 200):
        // levels at 200 - r * 100 from x = 250 to the right edge.
        MarkSelfDraw *expansion = draw(chart, main, 26, QPoint(100, 250), QPoint(200, 150));
        dragHandle(expansion->handle(2), QPoint(50, 50));
        image = paintedMagenta(expansion);
        for (double r : {0.236, 0.382, 0.5, 0.618, 1.618}) {
            QVERIFY(markAt(image, QPointF(canvasOf(main)->width() - 30, 200 - r * 100)));
            QVERIFY(!markAt(image, QPointF(230, 200 - r * 100)));
        }
    }

    // Within 3 pixels of any drawn line, its ends and its extension
    // included (unlike the trend line's strict test).
    void fanAndExpansionHitTest_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<QPoint>("probe");
        QTest::addColumn<bool>("hit");
        QTest::newRow("fan ray beyond anchor 1") << 25L << QPoint(500, 150) << true;
        QTest::newRow("fan ray, 2 px off") << 25L << QPoint(500, 152) << true;
        QTest::newRow("fan ray, 5 px off") << 25L << QPoint(500, 155) << false;
        QTest::newRow("fan move line") << 25L << QPoint(150, 225) << true;
        QTest::newRow("fan anchor 0") << 25L << QPoint(100, 250) << true;
        QTest::newRow("expansion level far right") << 26L << QPoint(600, 150) << true;
        QTest::newRow("expansion level before anchor 2") << 26L << QPoint(150, 150) << false;
        QTest::newRow("expansion move line") << 26L << QPoint(150, 225) << true;
        QTest::newRow("between two levels") << 26L << QPoint(600, 170) << false;
    }
    void fanAndExpansionHitTest()
    {
        QFETCH(long, type);
        QFETCH(QPoint, probe);
        QFETCH(bool, hit);
        MarkSelfDraw *m = draw(chart, main, type, QPoint(100, 250), QPoint(300, 150));
        if (type == 26)
            dragHandle(m->handle(2), QPoint(0, 50)); // anchor 2 at (300, 200)
        // The fan's 50% ray passes (300, 200) and (500, 150); the
        // expansion's 50% level lies at y = 150 from x = 300.
        QCOMPARE(m->hitTest(probe.x(), probe.y()), hit);
    }

private:
    TestChart *chart = nullptr;
    Plot *main = nullptr;
};

QTEST_MAIN(tst_FibonacciMarks)
#include "tst_fibonaccimarks.moc"
