// A panel exports itself to "stockchart.pdf" in the working directory.
#include <QtTest>

#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

class tst_Export : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QVERIFY(dir.isValid());
        previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(dir.path()));
    }
    void cleanup()
    {
        QDir::setCurrent(previous);
        QFile::remove(dir.filePath(QStringLiteral("stockchart.pdf")));
    }

    void writesPdfWithoutAsking_data()
    {
        QTest::addColumn<bool>("withBars");
        QTest::addColumn<bool>("stalePresent");
        QTest::newRow("empty panel") << false << false;
        QTest::newRow("bars, overwriting an old file") << true << true;
    }
    void writesPdfWithoutAsking()
    {
        QFETCH(bool, withBars);
        QFETCH(bool, stalePresent);
        const QString path = dir.filePath(QStringLiteral("stockchart.pdf"));
        if (stalePresent) {
            QFile stale(path);
            QVERIFY(stale.open(QIODevice::WriteOnly));
            stale.write("not a pdf");
        }
        PriceGraph chart;
        chart.resize(640, 480);
        chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        if (withBars) {
            for (int i = 0; i < 50; ++i)
                chart.AppendOHLC("OHLC", 2451545.0 + i, i == 49, 10 + i, 12 + i, 9 + i, 11 + i, 100);
        }
        // A modal dialog would block here; the call must return by itself.
        PriceGraphPrivate::mainPanel(&chart)->exportPlot();

        QFile pdf(path);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.size() > 100);
        QCOMPARE(pdf.read(5), QByteArray("%PDF-"));
    }

private:
    QTemporaryDir dir;
    QString previous;
};

QTEST_MAIN(tst_Export)
#include "tst_export.moc"
