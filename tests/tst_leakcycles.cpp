// Builds and destroys a fully used chart many times: every cycle feeds a real
// data set, navigates, drags on the canvas, draws marks, order, position
// and tick lines, renders and deletes the chart. Memory must not grow from
// cycle to cycle. Run natively for the resident-size check and under valgrind (few
// cycles, see scripts/ci-robustness.sh) for exact leak accounting.
//
//   PRICEGRAPH_LEAK_CYCLES  cycles to run (default 100)
//   PRICEGRAPH_LEAK_BARS    bars fed per cycle, 0 for the whole data set
#include <QtTest>

#include "pricegraph.h"

#include <cstdio>
#include <unistd.h>

namespace {

struct Bar
{
    double time, open, high, low, close;
    long volume;
};

// Julian date of an ISO-8601 UTC time stamp.
double julian(const QString &iso)
{
    const QDateTime t = QDateTime::fromString(iso, Qt::ISODate);
    return t.toMSecsSinceEpoch() / 86400000.0 + 2440587.5;
}

QVector<Bar> loadCsv(const QString &path, int limit)
{
    QVector<Bar> bars;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return bars;
    file.readLine(); // header
    while (!file.atEnd() && (limit <= 0 || bars.size() < limit)) {
        const QList<QByteArray> f = file.readLine().trimmed().split(',');
        if (f.size() < 6)
            continue;
        bars.append({julian(QString::fromLatin1(f[0])), f[1].toDouble(), f[2].toDouble(),
                     f[3].toDouble(), f[4].toDouble(), long(f[5].toDouble())});
    }
    return bars;
}

long residentKiB()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> f = statm.readAll().split(' ');
    return f.size() > 1 ? f[1].toLong() * (sysconf(_SC_PAGESIZE) / 1024) : 0;
}

int envInt(const char *name, int fallback)
{
    bool ok = false;
    const int v = qEnvironmentVariableIntValue(name, &ok);
    return ok ? v : fallback;
}

void drag(QWidget *w, Qt::MouseButton button, QPoint from, QPoint to)
{
    QMouseEvent press(QEvent::MouseButtonPress, from, w->mapToGlobal(from), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    for (int i = 1; i <= 4; ++i) {
        const QPoint p = from + (to - from) * i / 4;
        QMouseEvent move(QEvent::MouseMove, p, w->mapToGlobal(p), Qt::NoButton, button,
                         Qt::NoModifier);
        QApplication::sendEvent(w, &move);
    }
    QMouseEvent release(QEvent::MouseButtonRelease, to, w->mapToGlobal(to), button,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

} // namespace

// The host's order-entry object, with the slots the order lines call.
class OrderEntry : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void onOrderModify(QString) {}
    void onOrderCancel(QString) {}
    void onPositionCancel(QString) {}
};

class tst_LeakCycles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cyclesKeepMemoryFlat();

private:
    void runCycle(const QVector<Bar> &bars, int cycle);
    QVector<QVector<Bar>> m_sets;
};

void tst_LeakCycles::initTestCase()
{
    const int limit = envInt("PRICEGRAPH_LEAK_BARS", 0);
    const QDir data(QStringLiteral(PRICEGRAPH_TEST_DATA));
    for (const QString &name : data.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name))
        m_sets.append(loadCsv(data.filePath(name), limit));
    QVERIFY2(m_sets.size() >= 3, "the data sets are missing");
    for (const QVector<Bar> &set : qAsConst(m_sets))
        QVERIFY(!set.isEmpty());
}

void tst_LeakCycles::runCycle(const QVector<Bar> &bars, int cycle)
{
    OrderEntry orderEntry;
    auto *chart = new PriceGraph;
    chart->resize(900, 600);
    chart->show();
    chart->setOrderEntry(&orderEntry);
    chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
    chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
    chart->AddSeries(QStringLiteral("MA*255#x"), 0, 0, 0, 0, false);
    chart->SetInterval(60000.0);
    double ma = bars.first().close;
    for (int i = 0; i < bars.size(); ++i) {
        const Bar &b = bars.at(i);
        const bool last = i == bars.size() - 1;
        chart->AppendOHLC("OHLC", b.time, last, b.open, b.high, b.low, b.close, b.volume);
        chart->AppendValue("volume", b.time, double(b.volume), last);
        ma += (b.close - ma) / 20.0;
        chart->AppendValue("MA", b.time, ma, last);
    }
    chart->EditOHLC("OHLC", bars.last().time, true, bars.last().open, bars.last().high * 1.01,
                    bars.last().low, bars.last().close, bars.last().volume);
    QCoreApplication::processEvents();

    chart->ZoomIn(1);
    chart->ZoomIn(1);
    chart->ScrollLeft(50);
    chart->ZoomOut(1);
    chart->ScrollRight(20);
    chart->SetcandleChart(cycle % 3);
    const QList<QWidget *> widgets = chart->findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        if (QString::fromLatin1(w->metaObject()->className()) == QLatin1String("QwtPlotCanvas")
            && w->isVisible()) {
            const QPoint c = w->rect().center();
            drag(w, Qt::LeftButton, c, c + QPoint(-120, 10));
            QWheelEvent wheel(QPointF(c), QPointF(w->mapToGlobal(c)), QPoint(), QPoint(0, 120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(w, &wheel);
            // One of each tool, side by side so that no press lands on a
            // mark drawn before; the last drawn (selected) is deleted.
            int left = -150;
            for (long tool : {2L, 30L, 28L, 29L, 4L, 5L, 7L, 8L, 10L, 22L, 25L, 26L, 23L}) {
                chart->SetCursorType(tool);
                drag(w, Qt::LeftButton, c + QPoint(left, -60), c + QPoint(left + 20, -20));
                left += 25;
            }
            QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
            QApplication::sendEvent(w, &del);
            break;
        }
    }
    chart->ResetZoom();

    const double price = bars.last().close;
    chart->updateL1(price, price * 1.001, 4, 0);
    chart->DrawPositionLine(0, price, 2, "Position-1", 0, "2 Lots", "+12.5", "");
    chart->DrawPositionLine(0, price * 1.01, 1, "Buy-1", 0, "1 Lot", "", "");
    chart->DrawPositionLine(0, price * 0.99, 1, "Sell-1", 0, "1 Lot", "", "");
    chart->DrawPositionLine(0, price * 1.01, 3, "Buy-1", 0, "3 Lots", "", "");
    chart->DrawTickLine(price, 0);
    chart->updateUserScriptComment("cycle", false);
    QImage image(chart->size(), QImage::Format_ARGB32_Premultiplied);
    chart->render(&image);
    chart->DeletePositionLine(0, "Sell-1");
    chart->RemoveTickLine();
    chart->Update();
    QCoreApplication::processEvents();

    delete chart;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_LeakCycles::cyclesKeepMemoryFlat()
{
    const int cycles = envInt("PRICEGRAPH_LEAK_CYCLES", 100);
    long atTen = 0;
    long last = 0;
    for (int cycle = 1; cycle <= cycles; ++cycle) {
        runCycle(m_sets.at(cycle % m_sets.size()), cycle);
        last = residentKiB();
        if (cycle == 10)
            atTen = last;
        if (cycle % 10 == 0)
            std::printf("cycle %d: resident %ld KiB\n", cycle, last);
    }
    if (cycles < 20)
        QSKIP("too few cycles for the resident-size check (leak accounting only)");
    // After ten cycles every cache the platform keeps (fonts, glyphs, style)
    // is warm; what remains is allocator slack, well under a megabyte. A
    // chart leaking even one data set per cycle grows by several megabytes.
    const long growth = last - atTen;
    std::printf("resident growth from cycle 10 to %d: %ld KiB\n", cycles, growth);
    QVERIFY2(growth < 1024, qPrintable(QStringLiteral("grew by %1 KiB").arg(growth)));
}

QTEST_MAIN(tst_LeakCycles)
#include "tst_leakcycles.moc"
