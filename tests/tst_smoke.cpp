// Temporary smoke test: the skeleton constructs, takes bars and paints.
#include <QtTest>
#include "pricegraph.h"

class tst_Smoke : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void constructFeedPaint()
    {
        PriceGraph chart;
        chart.resize(800, 600);
        QCOMPARE(chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false), 0L);
        for (int i = 0; i < 500; ++i)
            chart.AppendOHLC("OHLC", 2459000.5 + i, i == 499, 10 + i % 7, 12 + i % 7, 9 + i % 7, 11, 100);
        chart.show();
        QImage img(chart.size(), QImage::Format_ARGB32);
        chart.render(&img);
        QCOMPARE(chart.GetPanelCount(), 1L);
    }
};
QTEST_MAIN(tst_Smoke)
#include "tst_smoke.moc"
