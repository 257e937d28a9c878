// The demo terminal's data handling (compiled from demo/): how a CSV of bars
// is read and what the simulated feed takes for trading hours.
#include <QtTest>

#include "barfile.h"
#include "sessioncalendar.h"

#include <QBuffer>

namespace {

QString utc(double julian)
{
    return QDateTime::fromMSecsSinceEpoch(BarFile::unixMs(julian), Qt::UTC)
        .toString(Qt::ISODate);
}

QString skippedText(const BarFile &file)
{
    QStringList parts;
    for (const auto &s : file.skipped())
        parts << QStringLiteral("%1: %2").arg(s.first).arg(s.second);
    return parts.join(QStringLiteral("; "));
}

// Bars every 30 minutes from 09:30 to 15:30 UTC, Monday to Friday, for two
// weeks from Monday 2021-03-01.
QVector<Bar> sessionBars()
{
    QVector<Bar> bars;
    const QDateTime monday(QDate(2021, 3, 1), QTime(0, 0), Qt::UTC);
    for (int day = 0; day < 14; ++day) {
        const QDateTime d = monday.addDays(day);
        if (d.date().dayOfWeek() > 5)
            continue;
        for (int m = 9 * 60 + 30; m <= 15 * 60 + 30; m += 30) {
            Bar b;
            b.time = BarFile::julianDate(d.addSecs(m * 60).toMSecsSinceEpoch());
            bars << b;
        }
    }
    return bars;
}

} // namespace

class tst_DemoData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readRules_data()
    {
        QTest::addColumn<QString>("csv");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QStringList>("times"); // of the bars read, in order
        QTest::addColumn<QString>("skipped");
        const QString h = QStringLiteral("time,open,high,low,close,volume\n");
        QTest::newRow("in order")
            << h + "2020-01-01T00:00:00Z,1,2,0.5,1.5,10\n2020-01-02T00:00:00Z,1,2,0.5,1.5,0\n"
            << "" << QStringList{"2020-01-01T00:00:00Z", "2020-01-02T00:00:00Z"} << "";
        QTest::newRow("newest first is sorted")
            << h + "2020-01-03T00:00:00Z,1,2,0.5,1.5,1\n2020-01-02T00:00:00Z,1,2,0.5,1.5,1\n"
                   "2020-01-01T00:00:00Z,1,2,0.5,1.5,1\n"
            << ""
            << QStringList{"2020-01-01T00:00:00Z", "2020-01-02T00:00:00Z", "2020-01-03T00:00:00Z"}
            << "";
        QTest::newRow("equal times keep the last row")
            << h + "2020-01-01T00:00:00Z,1,2,0.5,1.5,1\n2020-01-02T00:00:00Z,1,2,0.5,1.5,1\n"
                   "2020-01-01T00:00:00Z,1,2,0.5,1.9,1\n"
            << "" << QStringList{"2020-01-01T00:00:00Z", "2020-01-02T00:00:00Z"}
            << "same time as a later row: 1";
        QTest::newRow("bad rows counted by reason")
            << h + "2020-01-01T00:00:00Z,1,2,0.5,nan,1\n2020-01-02T00:00:00Z,1,2,0.5,1.5,-4\n"
                   "2020-01-03T00:00:00Z,1,inf,0.5,1.5,1\n2020-01-04T00:00:00Z,1,2,0.5,1.5,1\n"
                   "yesterday,1,2,0.5,1.5,1\n2020-01-05T00:00:00Z,1,2\n"
                   "2020-01-06T00:00:00Z,1,two,0.5,1.5,1\n1850-01-01T00:00:00Z,1,2,0.5,1.5,1\n"
                   "2020-01-07T00:00:00Z,1,2,0.5,1e16,1\n\n"
            << "" << QStringList{"2020-01-04T00:00:00Z"}
            << "price not finite: 2; negative or unreadable volume: 1; time not readable: 1; "
               "too few fields: 1; number not readable: 1; time outside the years 1900 to "
               "2200: 1; price beyond 1e15: 1";
        QTest::newRow("columns in any order, others ignored, no zone is UTC")
            << "Volume, Close,low,high,open,adj,time\n5,1.5,0.5,2,1,9,2020-01-01T10:00:00\n"
            << "" << QStringList{"2020-01-01T10:00:00Z"} << "";
        QTest::newRow("a missing column is named")
            << "time,open,high,low,close\n2020-01-01T00:00:00Z,1,2,0.5,1.5\n"
            << "missing column: volume" << QStringList() << "";
        QTest::newRow("two missing columns")
            << "date,open,high,close,volume\n" << "missing columns: time, low" << QStringList()
            << "";
        QTest::newRow("no header") << "2020-01-01T00:00:00Z,1,2,0.5,1.5,1\n"
                                   << "no header line (time,open,high,low,close,volume)"
                                   << QStringList() << "";
        QTest::newRow("empty") << "" << "no header line (time,open,high,low,close,volume)"
                               << QStringList() << "";
        QTest::newRow("no usable row") << h + "2020-01-01T00:00:00Z,1,2,0.5,nan,1\n"
                                       << "no bars" << QStringList() << "price not finite: 1";
    }
    void readRules()
    {
        QFETCH(QString, csv);
        QFETCH(QString, error);
        QFETCH(QStringList, times);
        QFETCH(QString, skipped);
        QByteArray bytes = csv.toUtf8();
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        BarFile file;
        QCOMPARE(file.read(buffer), error.isEmpty());
        QCOMPARE(file.error(), error);
        QStringList read;
        for (const Bar &b : file.bars())
            read << utc(b.time);
        QCOMPARE(read, times);
        QCOMPARE(skippedText(file), skipped);
        QCOMPARE(file.rows() - file.skippedCount(), times.size());
        if (csv.contains(QLatin1String("1.9")))
            QCOMPARE(file.bars().first().close, 1.9); // the later row of a time
    }

    void bundledDataSets_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("bars");
        QTest::addColumn<bool>("volume");
        QTest::newRow("S&P 500") << "sp500_daily_2000-2020.csv" << 5105 << true;
        QTest::newRow("USD/CHF") << "usdchf_30min_2000-10_2001-03.csv" << 6214 << false;
        QTest::newRow("USD/THB") << "usdthb_5min_1997-06.csv" << 1713 << true;
    }
    void bundledDataSets()
    {
        QFETCH(QString, name);
        QFETCH(int, bars);
        QFETCH(bool, volume);
        BarFile file;
        QVERIFY2(file.load(QStringLiteral(PRICEGRAPH_TEST_DATA "/") + name),
                 qPrintable(file.error()));
        QCOMPARE(file.bars().size(), bars);
        QCOMPARE(file.skippedCount(), 0);
        QCOMPARE(file.hasVolume(), volume);
    }

    void liveBarsOnTradingTimes_data()
    {
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("next");
        QTest::newRow("daily: Thursday, Friday")
            << "sp500" << "2020-04-16T00:00:00Z" << "2020-04-17T00:00:00Z";
        QTest::newRow("daily: Friday, then Monday")
            << "sp500" << "2020-04-17T00:00:00Z" << "2020-04-20T00:00:00Z";
        QTest::newRow("intraday: within the session")
            << "session" << "2021-03-09T12:00:00Z" << "2021-03-09T12:30:00Z";
        QTest::newRow("intraday: close, then the next morning")
            << "session" << "2021-03-09T15:30:00Z" << "2021-03-10T09:30:00Z";
        QTest::newRow("intraday: Friday close, then Monday")
            << "session" << "2021-03-12T15:30:00Z" << "2021-03-15T09:30:00Z";
        QTest::newRow("currency: Friday night, then the week's first bar")
            << "usdchf" << "2001-03-30T23:00:00Z" << "";
    }
    void liveBarsOnTradingTimes()
    {
        QFETCH(QString, set);
        QFETCH(QString, last);
        QFETCH(QString, next);
        QVector<Bar> bars;
        double interval = 1800000.0;
        if (set == QLatin1String("session")) {
            bars = sessionBars();
        } else {
            BarFile file;
            QVERIFY(file.load(QStringLiteral(PRICEGRAPH_TEST_DATA "/%1")
                                  .arg(set == QLatin1String("sp500")
                                           ? "sp500_daily_2000-2020.csv"
                                           : "usdchf_30min_2000-10_2001-03.csv")));
            bars = file.bars();
            interval = BarFile::typicalInterval(bars);
        }
        const SessionCalendar calendar(bars, interval);
        const QDateTime from = QDateTime::fromString(last, Qt::ISODate);
        const double t = calendar.nextBarTime(BarFile::julianDate(from.toMSecsSinceEpoch()));
        if (!next.isEmpty()) {
            QCOMPARE(utc(t), next);
            return;
        }
        // The first bar of the data's weeks: the earliest minute of the
        // week it has, reached without a weekend bar.
        int first = 7 * 1440;
        for (const Bar &b : bars)
            first = qMin(first, SessionCalendar::minuteOfWeek(BarFile::unixMs(b.time)));
        QCOMPARE(SessionCalendar::minuteOfWeek(BarFile::unixMs(t)), first);
        QVERIFY(BarFile::unixMs(t) - from.toMSecsSinceEpoch() < 3 * 86400000LL);
    }
};

QTEST_MAIN(tst_DemoData)
#include "tst_demodata.moc"
