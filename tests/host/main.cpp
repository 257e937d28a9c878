// Builds a chart through the installed header and library, feeds it, and
// checks the answers a host relies on. Exits non-zero on the first mismatch.
#include <pricegraph.h>

#include <QApplication>
#include <QFile>
#include <QPixmap>

#include <cstdio>

#define CHECK(cond)                                                      \
    do {                                                                 \
        if (!(cond)) {                                                   \
            std::fprintf(stderr, "host check failed: %s\n", #cond);      \
            return 1;                                                    \
        }                                                                \
    } while (0)

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    PriceGraph chart;
    chart.resize(640, 400);

    long changes = 0;
    QObject::connect(&chart, &PriceGraph::cursorTypeChanged, [&changes](long) { ++changes; });

    CHECK(chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false) == 0);
    CHECK(chart.AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false) == 1);
    for (int i = 0; i < 100; ++i)
        chart.AppendOHLC("OHLC", 2451545.0 + i, i == 99, 10 + i, 12 + i, 9 + i, 11 + i, 1000);
    chart.Update();
    CHECK(chart.GetPanelCount() == 2);

    chart.SetCursorType(2);
    chart.SetCursorType(2);
    CHECK(changes == 1);
    CHECK(chart.GetCursorType() == 0);

    // The library's images are reachable by their resource names.
    CHECK(QFile::exists(QStringLiteral(":/Icons/Resources/icon_point.png")));
    CHECK(QFile::exists(QStringLiteral(":/Icon/Resources/icom_close_blue_1.png")));

    chart.show();
    app.processEvents();
    CHECK(!chart.grab().isNull());
    std::printf("host: %ld panels, drawn\n", chart.GetPanelCount());
    return 0;
}
