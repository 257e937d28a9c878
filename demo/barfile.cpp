#include "barfile.h"

#include <QDateTime>
#include <QFile>
#include <QMap>
#include <QTextStream>

#include <cmath>

QVector<Bar> BarFile::load(const QString &path, QString *error)
{
    QVector<Bar> bars;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (error)
            *error = QStringLiteral("cannot open %1: %2").arg(path, file.errorString());
        return bars;
    }
    QTextStream in(&file);
    int skipped = 0;
    bool header = true;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (header) {
            header = false;
            if (line.startsWith(QLatin1String("time")))
                continue;
        }
        if (line.isEmpty())
            continue;
        const QStringList f = line.split(QLatin1Char(','));
        if (f.size() < 6) {
            ++skipped;
            continue;
        }
        const QDateTime t = QDateTime::fromString(f.at(0), Qt::ISODate);
        bool ok[5];
        Bar b;
        b.open = f.at(1).toDouble(&ok[0]);
        b.high = f.at(2).toDouble(&ok[1]);
        b.low = f.at(3).toDouble(&ok[2]);
        b.close = f.at(4).toDouble(&ok[3]);
        b.volume = f.at(5).toLongLong(&ok[4]);
        if (!t.isValid() || !(ok[0] && ok[1] && ok[2] && ok[3] && ok[4])) {
            ++skipped;
            continue;
        }
        b.time = julianDate(t.toMSecsSinceEpoch());
        // The chart wants bars in time order; the files are sorted, but a
        // hand-made file may not be.
        if (!bars.isEmpty() && b.time <= bars.last().time) {
            ++skipped;
            continue;
        }
        bars.append(b);
    }
    if (error)
        *error = skipped ? QStringLiteral("%1 rows of %2 skipped").arg(skipped).arg(path)
                         : QString();
    if (bars.isEmpty() && error)
        *error = QStringLiteral("no bars in %1").arg(path);
    return bars;
}

double BarFile::julianDate(qint64 unixMs)
{
    return double(unixMs) / 86400000.0 + 2440587.5;
}

double BarFile::typicalInterval(const QVector<Bar> &bars)
{
    QMap<qint64, int> steps;
    for (int i = 1; i < bars.size() && i < 500; ++i)
        ++steps[qRound64((bars[i].time - bars[i - 1].time) * 86400000.0)];
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
