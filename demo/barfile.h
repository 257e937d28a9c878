#ifndef BARFILE_H
#define BARFILE_H

#include <QString>
#include <QVector>

// One price bar as the demo keeps it: the time is a Julian date, the form
// the chart's host interface takes.
struct Bar
{
    double time = 0.0;
    double open = 0.0;
    double high = 0.0;
    double low = 0.0;
    double close = 0.0;
    qint64 volume = 0;
};

// Reads the bundled CSV files (time,open,high,low,close,volume with ISO-8601
// UTC bar start times). Rows that do not parse are skipped and counted.
class BarFile
{
public:
    static QVector<Bar> load(const QString &path, QString *error);

    // Julian date of a moment given in milliseconds since 1970-01-01 UTC.
    static double julianDate(qint64 unixMs);
    // Bar interval in milliseconds: the most common step between bars.
    static double typicalInterval(const QVector<Bar> &bars);
    // Decimals to show prices with (2 to 4), judged from their size.
    static int priceDecimals(const QVector<Bar> &bars);
};

#endif // BARFILE_H
