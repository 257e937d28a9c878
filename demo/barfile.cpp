#include "barfile.h"

#include <QDateTime>
#include <QFile>
#include <QMap>
#include <QTextStream>

#include <algorithm>
#include <cmath>

const char *const BarFile::Columns[6] = {"time", "open", "high", "low", "close", "volume"};

namespace {

// The chart refuses prices beyond this and times outside these years.
const double MaxPrice = 1e15;
const int FirstYear = 1900;
const int LastYear = 2200;

struct Row
{
    Bar bar;
    int line;
};

} // namespace

QString BarFile::count(int n, const char *one, const char *many)
{
    return QStringLiteral("%1 %2").arg(n).arg(QLatin1String(n == 1 ? one : many));
}

void BarFile::skip(const QString &reason)
{
    for (auto &entry : m_skipped) {
        if (entry.first == reason) {
            ++entry.second;
            return;
        }
    }
    m_skipped.append(qMakePair(reason, 1));
}

int BarFile::skippedCount() const
{
    int n = 0;
    for (const auto &entry : m_skipped)
        n += entry.second;
    return n;
}

bool BarFile::hasVolume() const
{
    return std::any_of(m_bars.cbegin(), m_bars.cend(), [](const Bar &b) { return b.volume > 0; });
}

bool BarFile::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *this = BarFile();
        m_error = QStringLiteral("cannot open %1: %2").arg(path, file.errorString());
        return false;
    }
    return read(file);
}

bool BarFile::read(QIODevice &device)
{
    *this = BarFile();
    QTextStream in(&device);
    QString header;
    while (!in.atEnd() && header.isEmpty())
        header = in.readLine().trimmed();
    // Where each column stands in a row.
    QStringList names = header.split(QLatin1Char(','));
    for (QString &n : names)
        n = n.trimmed().toLower();
    int at[6];
    QStringList missing;
    for (int c = 0; c < 6; ++c) {
        at[c] = names.indexOf(QLatin1String(Columns[c]));
        if (at[c] < 0)
            missing << QLatin1String(Columns[c]);
    }
    if (missing.size() == 6) {
        m_error = QStringLiteral("no header line (time,open,high,low,close,volume)");
        return false;
    }
    if (!missing.isEmpty()) {
        m_error = QStringLiteral("missing column%1: %2")
                      .arg(QLatin1String(missing.size() == 1 ? "" : "s"),
                           missing.join(QStringLiteral(", ")));
        return false;
    }
    const int needed = *std::max_element(at, at + 6) + 1;

    QVector<Row> rows;
    int line = 0;
    while (!in.atEnd()) {
        const QString text = in.readLine().trimmed();
        if (text.isEmpty())
            continue;
        ++m_rows;
        ++line;
        const QStringList f = text.split(QLatin1Char(','));
        if (f.size() < needed) {
            skip(QStringLiteral("too few fields"));
            continue;
        }
        QDateTime t = QDateTime::fromString(f.at(at[0]).trimmed(), Qt::ISODate);
        if (!t.isValid()) {
            skip(QStringLiteral("time not readable"));
            continue;
        }
        if (t.timeSpec() == Qt::LocalTime)
            t.setTimeSpec(Qt::UTC); // a time without a zone is UTC, as in the data sets
        double v[5];
        bool readable = true;
        for (int c = 1; c < 6 && readable; ++c)
            v[c - 1] = f.at(at[c]).trimmed().toDouble(&readable);
        if (!readable) {
            skip(QStringLiteral("number not readable"));
            continue;
        }
        if (!std::all_of(v, v + 4, [](double p) { return std::isfinite(p); })) {
            skip(QStringLiteral("price not finite"));
            continue;
        }
        if (!std::all_of(v, v + 4, [](double p) { return std::fabs(p) <= MaxPrice; })) {
            skip(QStringLiteral("price beyond 1e15"));
            continue;
        }
        if (!std::isfinite(v[4]) || v[4] < 0.0 || v[4] > 9.2e18) {
            skip(QStringLiteral("negative or unreadable volume"));
            continue;
        }
        const int year = t.toUTC().date().year();
        if (year < FirstYear || year > LastYear) {
            skip(QStringLiteral("time outside the years 1900 to 2200"));
            continue;
        }
        Row r;
        r.bar.time = julianDate(t.toMSecsSinceEpoch());
        r.bar.open = v[0];
        r.bar.high = v[1];
        r.bar.low = v[2];
        r.bar.close = v[3];
        r.bar.volume = qint64(v[4]);
        r.line = line;
        rows.append(r);
    }
    // In time order; of equal times the last row of the file wins.
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row &a, const Row &b) { return a.bar.time < b.bar.time; });
    m_bars.reserve(rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        if (i + 1 < rows.size() && rows[i + 1].bar.time == rows[i].bar.time) {
            skip(QStringLiteral("same time as a later row"));
            continue;
        }
        m_bars.append(rows[i].bar);
    }
    if (m_bars.isEmpty()) {
        m_error = QStringLiteral("no bars");
        return false;
    }
    return true;
}

double BarFile::julianDate(qint64 unixMs)
{
    return double(unixMs) / 86400000.0 + 2440587.5;
}

qint64 BarFile::unixMs(double julianDate)
{
    return qRound64((julianDate - 2440587.5) * 86400000.0);
}

double BarFile::typicalInterval(const QVector<Bar> &bars)
{
    QMap<qint64, int> steps;
    for (int i = 1; i < bars.size() && i < 500; ++i)
        ++steps[unixMs(bars[i].time) - unixMs(bars[i - 1].time)];
    qint64 best = 86400000;
    int seen = 0;
    for (auto it = steps.cbegin(); it != steps.cend(); ++it) {
        if (it.value() > seen) {
            seen = it.value();
            best = it.key();
        }
    }
    return double(best);
}

int BarFile::priceDecimals(const QVector<Bar> &bars)
{
    // Quotes carry about five significant digits: 1455.22, 24.900, 1.7235.
    const double price = bars.isEmpty() ? 1.0 : std::fabs(bars.last().close);
    return price >= 100.0 ? 2 : price >= 10.0 ? 3 : 4;
}
