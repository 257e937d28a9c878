#ifndef BARFILE_H
#define BARFILE_H

#include <QPair>
#include <QString>
#include <QVector>

class QIODevice;

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

// Reads a CSV of bars: a header naming the columns time, open, high, low,
// close and volume (any order, other columns ignored), then one bar a row
// with an ISO-8601 time (UTC unless it says otherwise).
//
// The bars come out sorted by time (newest-first exports are common); of
// rows with equal times the last one in the file is kept. Rows the chart
// would refuse are left out and counted by reason: unreadable fields, a
// price that is not finite or beyond +-1e15, a negative volume, a time
// outside the years 1900 to 2200. So bars() is exactly what reaches the
// chart.
class BarFile
{
public:
    // False, with error() saying why, when the file cannot be read, has no
    // header or the header lacks a column (named in the error).
    bool load(const QString &path);
    bool read(QIODevice &device);

    const QVector<Bar> &bars() const { return m_bars; }
    // Data rows read (lines after the header that are not empty).
    int rows() const { return m_rows; }
    // Rows left out: (reason, count) in the order the reasons were met.
    const QVector<QPair<QString, int>> &skipped() const { return m_skipped; }
    int skippedCount() const;
    QString error() const { return m_error; }
    // Whether any bar traded (the currency files carry no volume).
    bool hasVolume() const;

    // "1 bar", "2 bars": `count` with the word for it.
    static QString count(int n, const char *one, const char *many);
    // Julian date of a moment given in milliseconds since 1970-01-01 UTC.
    static double julianDate(qint64 unixMs);
    // Milliseconds since 1970-01-01 UTC of a Julian date, to the millisecond.
    static qint64 unixMs(double julianDate);
    // Bar interval in milliseconds: the most common step between bars.
    static double typicalInterval(const QVector<Bar> &bars);
    // Decimals to show prices with (2 to 4), judged from their size.
    static int priceDecimals(const QVector<Bar> &bars);

    static const char *const Columns[6];

private:
    void skip(const QString &reason);

    QVector<Bar> m_bars;
    int m_rows = 0;
    QVector<QPair<QString, int>> m_skipped;
    QString m_error;
};

#endif // BARFILE_H
