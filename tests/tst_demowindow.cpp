// The demo terminal's window (compiled from demo/): what it says about the
// data it loaded, and how it shares a small screen.
#include <QtTest>

#include "demochart.h"
#include "mainwindow.h"
#include "orderlog.h"

#include <QStatusBar>
#include <QTemporaryDir>

class tst_DemoWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsAreWordedForOne()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("one.csv"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("time,open,high,low,close,volume\n"
                   "2020-01-02T00:00:00Z,1,2,0.5,1.5,3\n"
                   "2020-01-03T00:00:00Z,1,2,0.5,nan,3\n");
        file.close();
        MainWindow window(path);
        QCOMPARE(window.statusBar()->currentMessage(),
                 QStringLiteral("one: 1 bar from %1").arg(path));
        const QString log = window.findChild<OrderLog *>()->text();
        QVERIFY2(log.contains(QLatin1String("one.csv: 1 bar read of 2 rows; 1 row skipped: "
                                            "1 price not finite")),
                 qPrintable(log));
    }

    // A small window: the chart keeps most of the height, the log a few
    // lines.
    void smallWindowsKeepTheChart()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (QSize size : {QSize(1280, 820), QSize(800, 480), QSize(640, 400)}) {
            window.resize(size);
            QTRY_COMPARE(window.size(), size);
            QWidget *chart = window.findChild<DemoChart *>();
            OrderLog *log = window.findChild<OrderLog *>();
            QVERIFY2(chart->height() >= 3 * log->height() && log->height() > 0,
                     qPrintable(QStringLiteral("%1 px high: chart %2, log %3")
                                    .arg(size.height()).arg(chart->height())
                                    .arg(log->height())));
        }
    }
};

QTEST_MAIN(tst_DemoWindow)
#include "tst_demowindow.moc"
