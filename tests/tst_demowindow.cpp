// The demo terminal's window (compiled from demo/): what it says about the
// data it loaded, and how it shares a small screen.
#include <QtTest>

#include "demochart.h"
#include "mainwindow.h"
#include "orderentry.h"
#include "orderlog.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QInputDialog>
#include <functional>

#include <QStatusBar>
#include <QTemporaryDir>

class tst_DemoWindow : public QObject
{
    Q_OBJECT

    // Answers the modify dialog the order `id` opens: `answer` sees the
    // dialog and decides; returns the price text the dialog first showed.
    static QString modify(OrderEntry *orders, const QString &id,
                          const std::function<void(QInputDialog *)> &answer)
    {
        QString shown;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            shown = dialog->findChild<QDoubleSpinBox *>()->text();
            answer(dialog);
        });
        orders->onOrderModify(id);
        return shown;
    }

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

    // The modify dialog speaks the chart's decimals, takes no price at or
    // below zero, and an unchanged price leaves no trace in the log.
    void modifyDialog()
    {
        MainWindow window; // the S&P 500: two decimals
        auto *orders = window.findChild<OrderEntry *>();
        auto *log = window.findChild<OrderLog *>();
        const QString before = log->text();
        double minimum = -1.0;
        const QString shown = modify(orders, QStringLiteral("Sell-1"), [&](QInputDialog *d) {
            minimum = d->doubleMinimum();
            d->accept();
        });
        QVERIFY2(QRegularExpression(QStringLiteral("^\\d+\\.\\d\\d$")).match(shown).hasMatch(),
                 qPrintable(shown));
        QVERIFY(minimum > 0.0);
        QCOMPARE(log->text(), before); // unchanged: nothing logged
        modify(orders, QStringLiteral("Sell-1"), [](QInputDialog *d) {
            d->setDoubleValue(d->doubleValue() + 1.25);
            d->accept();
        });
        const double old = shown.toDouble();
        QVERIFY2(log->text().endsWith(QStringLiteral("Sell-1 moved from %1 to %2")
                                          .arg(shown, QString::number(old + 1.25, 'f', 2))),
                 qPrintable(log->text()));
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
