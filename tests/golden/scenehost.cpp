#include "scenehost.h"

#include "pricegraph.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QMouseEvent>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

const double DayMs = 86400000.0;

double julian(qint64 unixMs)
{
    return 2440587.5 + double(unixMs) / DayMs;
}

struct DataSetInfo
{
    const char *file;
    double intervalMs;
    int decimals;
};

const DataSetInfo kDataSets[] = {
    {"sp500_daily_2000-2020.csv", DayMs, 2},
    {"usdchf_30min_2000-10_2001-03.csv", 1800000.0, 4},
    {"usdthb_5min_1997-06.csv", 300000.0, 4},
};

// Nowhere near any window the scenes show.
const QPoint ParkedPointer(-500, -500);

QString dataDir()
{
    const QString env = qEnvironmentVariable("PRICEGRAPH_GOLDEN_DATA");
    return env.isEmpty() ? QStringLiteral(PRICEGRAPH_TEST_DATA) : env;
}

// True while an object of the chart still has a zero-interval timer: the
// chart defers its replots that way.
bool replotPending(QObject *root)
{
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    QList<QObject *> objects = root->findChildren<QObject *>();
    objects.prepend(root);
    for (QObject *o : qAsConst(objects)) {
        for (const QAbstractEventDispatcher::TimerInfo &t : dispatcher->registeredTimers(o)) {
            if (t.interval == 0)
                return true;
        }
    }
    return false;
}

} // namespace

SceneHost::SceneHost(QSize size)
    : m_size(size)
    , m_chart(new PriceGraph)
{
    // The pointer of the scene before must not hover this one.
    QCursor::setPos(ParkedPointer);
    m_chart->move(40, 40);
    m_chart->resize(size);
}

SceneHost::~SceneHost()
{
    m_chart.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QVector<SceneBar> SceneHost::load(const QString &fileName, QString *error)
{
    static QHash<QString, QVector<SceneBar>> cache;
    const QString path = QDir(dataDir()).filePath(fileName);
    auto hit = cache.constFind(path);
    if (hit != cache.constEnd())
        return *hit;

    QVector<SceneBar> bars;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *error = QStringLiteral("cannot open data file %1: %2").arg(path, file.errorString());
        return bars;
    }
    file.readLine(); // header
    int line = 1;
    while (!file.atEnd()) {
        ++line;
        const QList<QByteArray> f = file.readLine().trimmed().split(',');
        if (f.size() == 1 && f[0].isEmpty())
            continue;
        const QDateTime t = QDateTime::fromString(QString::fromLatin1(f[0]), Qt::ISODate);
        bool ok[5] = {};
        SceneBar b{};
        if (f.size() == 6) {
            b.open = f[1].toDouble(&ok[0]);
            b.high = f[2].toDouble(&ok[1]);
            b.low = f[3].toDouble(&ok[2]);
            b.close = f[4].toDouble(&ok[3]);
            b.volume = f[5].toLongLong(&ok[4]);
        }
        if (!t.isValid() || !(ok[0] && ok[1] && ok[2] && ok[3] && ok[4])) {
            *error = QStringLiteral("%1 line %2 is not time,open,high,low,close,volume")
                         .arg(path).arg(line);
            return {};
        }
        b.time = julian(t.toMSecsSinceEpoch());
        bars.append(b);
    }
    if (bars.isEmpty()) {
        *error = QStringLiteral("no bars in data file %1").arg(path);
        return bars;
    }
    cache.insert(path, bars);
    return bars;
}

void SceneHost::feedDataSet(DataSet set, Style style, long volumePanel)
{
    const DataSetInfo &info = kDataSets[set];
    feedFile(QString::fromLatin1(info.file), info.intervalMs, info.decimals, style, volumePanel);
}

void SceneHost::feedFile(const QString &fileName, double intervalMs, int decimals, Style style,
                         long volumePanel)
{
    QString error;
    const QVector<SceneBar> bars = load(fileName, &error);
    if (bars.isEmpty())
        fail(error);
    else
        feedBars(bars, intervalMs, decimals, style, volumePanel);
}

void SceneHost::feedBars(const QVector<SceneBar> &bars, double intervalMs, int decimals,
                         Style style, long volumePanel)
{
    m_bars = bars;
    m_decimals = decimals;
    PriceGraph &c = chart();
    c.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
    if (volumePanel >= 0)
        c.AddSeries(QStringLiteral("volume"), 0, volumePanel, 0, 0, false);
    c.SetInterval(intervalMs);
    c.SetcandleChart(style);
    for (const SceneBar &b : bars) {
        c.AppendOHLC("OHLC", b.time, false, b.open, b.high, b.low, b.close, long(b.volume));
        if (volumePanel >= 0)
            c.AppendOHLC("volume", b.time, false, b.open, b.high, b.low, b.close, long(b.volume));
    }
    if (!bars.isEmpty())
        c.updateL1(bars.last().close, bars.last().close, decimals, 0);
    c.Update();
}

QVector<SceneBar> SceneHost::madeBars(int count, double price, double step, qint64 volume)
{
    // Whole steps only: the same numbers on every machine.
    static const int wave[] = {0, 2, 3, 5, 4, 6, 8, 7, 5, 6, 4, 2, 3, 1, -1, 0};
    QVector<SceneBar> bars;
    double previous = price;
    for (int i = 0; i < count; ++i) {
        const double close = price + step * (wave[i % 16] + (i / 16) * 3);
        const double open = previous;
        SceneBar b{2459001.5 + i, open, std::max(open, close) + step,
                   std::min(open, close) - step, close, volume + volume * wave[(i + 5) % 16] / 8};
        bars.append(b);
        previous = close;
    }
    return bars;
}

void SceneHost::addAverage(long panel, const char *name, int length)
{
    PriceGraph &c = chart();
    const QString added = QString::fromLatin1(name);
    const QByteArray fed = added.section(QLatin1Char('*'), 0, 0).toLatin1();
    c.AddSeries(added, 0, panel, 0, 0, false);
    double sum = 0.0;
    for (int i = 0; i < m_bars.size(); ++i) {
        sum += m_bars[i].close;
        if (i >= length)
            sum -= m_bars[i - length].close;
        if (i + 1 >= length)
            c.AppendValue(fed.constData(), m_bars[i].time, sum / length, false);
    }
    c.Update();
}

void SceneHost::addBand(long panel, const char *name, int length, double width)
{
    PriceGraph &c = chart();
    const QString added = QString::fromLatin1(name);
    const QByteArray fed = added.section(QLatin1Char('*'), 0, 0).toLatin1();
    c.AddSeries(added, 0, panel, 0, 0, false);
    for (int i = length - 1; i < m_bars.size(); ++i) {
        double sum = 0.0, squares = 0.0;
        for (int k = i - length + 1; k <= i; ++k) {
            sum += m_bars[k].close;
            squares += m_bars[k].close * m_bars[k].close;
        }
        const double mean = sum / length;
        const double deviation = std::sqrt(std::max(0.0, squares / length - mean * mean));
        // An interval runs from the low to the high of AppendOHLC.
        c.AppendOHLC(fed.constData(), m_bars[i].time, false, mean, mean + width * deviation,
                     mean - width * deviation, mean, 0);
    }
    c.Update();
}

void SceneHost::addMomentum(long panel, const char *name, int length)
{
    PriceGraph &c = chart();
    const QString added = QString::fromLatin1(name);
    const QByteArray fed = added.section(QLatin1Char('*'), 0, 0).toLatin1();
    c.AddSeries(added, 0, panel, 0, 0, false);
    for (int i = length; i < m_bars.size(); ++i)
        c.AppendValue(fed.constData(), m_bars[i].time, m_bars[i].close - m_bars[i - length].close,
                      false);
    c.Update();
}

double SceneHost::lastPrice(double factor) const
{
    if (m_bars.isEmpty())
        return 0.0;
    const double unit = std::pow(10.0, m_decimals);
    return std::round(m_bars.last().close * factor * unit) / unit;
}

void SceneHost::hover(QPoint pos)
{
    render(); // shown and laid out, so the pointer meets what a user would see
    QCursor::setPos(m_chart->mapToGlobal(pos));
    settle();
}

void SceneHost::click(QPoint pos)
{
    drag(pos, pos);
}

void SceneHost::drag(QPoint from, QPoint to)
{
    render();
    QWidget *target = m_chart->childAt(from);
    if (!target)
        target = m_chart.get();
    auto send = [&](QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons held) {
        const QPoint local = target->mapFrom(m_chart.get(), pos);
        QMouseEvent event(type, local, target->mapToGlobal(local), button, held, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int step = 1; from != to && step <= 4; ++step)
        send(QEvent::MouseMove, from + (to - from) * step / 4, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    settle();
}

void SceneHost::draw(long type, QPoint from, QPoint to)
{
    m_chart->SetCursorType(type);
    drag(from, to);
}

QPoint SceneHost::centreOf(const QString &objectName, int index)
{
    render();
    QList<QWidget *> found;
    for (QWidget *w : m_chart->findChildren<QWidget *>(objectName)) {
        if (w->isVisible())
            found.append(w);
    }
    const auto top = [this](QWidget *w) { return w->mapTo(m_chart.get(), QPoint()); };
    std::stable_sort(found.begin(), found.end(), [&](QWidget *a, QWidget *b) {
        const QPoint pa = top(a), pb = top(b);
        return pa.y() != pb.y() ? pa.y() < pb.y() : pa.x() < pb.x();
    });
    if (index < 0 || index >= found.size()) {
        fail(QStringLiteral("no visible widget number %1 named %2 (%3 found)")
                 .arg(index).arg(objectName).arg(found.size()));
        return QPoint(-1, -1);
    }
    QWidget *w = found[index];
    return w->mapTo(m_chart.get(), w->rect().center());
}

int SceneHost::rowDrawnBy(const std::function<void()> &change)
{
    const QImage before = render();
    change();
    const QImage after = render();
    int bestRow = -1, best = 0;
    for (int y = 0; y < before.height() && y < after.height(); ++y) {
        const QRgb *a = reinterpret_cast<const QRgb *>(before.constScanLine(y));
        const QRgb *b = reinterpret_cast<const QRgb *>(after.constScanLine(y));
        int changed = 0;
        for (int x = 0; x < before.width() && x < after.width(); ++x)
            changed += a[x] != b[x];
        if (changed > best) {
            best = changed;
            bestRow = y;
        }
    }
    if (best < before.width() / 3) {
        fail(QStringLiteral("the change drew no line across the chart (at most %1 pixels in a row)")
                 .arg(best));
        return -1;
    }
    return bestRow;
}

void SceneHost::settle()
{
    // Replots wait on zero-timers, layouts on posted requests, a closed
    // panel on a queued call: run them all, draw what was fed with
    // show = false, and run what that posted in turn.
    for (int pass = 0; pass < 2; ++pass) {
        int rounds = 0;
        do {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        } while (replotPending(m_chart.get()) && ++rounds < 50);
        if (rounds == 50) {
            fail(QStringLiteral("the chart never settles: a replot keeps scheduling another"));
            return;
        }
        if (pass == 0)
            m_chart->Update();
    }
}

QImage SceneHost::render()
{
    if (!m_chart->isVisible()) {
        m_chart->show();
        if (!QTest::qWaitForWindowExposed(m_chart.get()))
            fail(QStringLiteral("the chart window was never exposed"));
    }
    // Settled means a second round of pending work changes no pixel: a
    // closed panel, for one, is laid out over several rounds of events.
    QImage image;
    for (int round = 0; round < 5; ++round) {
        settle();
        const QImage next = m_chart->grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (next == image)
            break;
        image = next;
        if (round == 4)
            fail(QStringLiteral("the chart still changes after five rounds of pending work"));
    }
    if (image.size() != m_size) {
        fail(QStringLiteral("the chart is %1 x %2 pixels, not %3 x %4")
                 .arg(image.width()).arg(image.height()).arg(m_size.width()).arg(m_size.height()));
    }
    return image;
}

void SceneHost::fail(const QString &why)
{
    if (m_error.isEmpty()) // the first cause; what follows from it is noise
        m_error = why;
}
