// A host that uses the chart through its public header only, built with
// QT_NO_CAST_FROM_ASCII, QT_NO_CAST_TO_ASCII and QT_NO_KEYWORDS.
#include <pricegraph.h>

#include <QApplication>

#include <cstdio>

// With QT_NO_KEYWORDS these are plain identifiers; a header that relied on
// the keyword macros would not compile next to them.
static int signals = 0;
static int slots = 0;
static int emit = 0;
static int foreach = 0;

class HostChart : public PriceGraph
{
    Q_OBJECT
public:
    using PriceGraph::PriceGraph;
    long mainPanelExists() { return GetMainPanel() ? 1 : 0; }

public Q_SLOTS:
    void onCursor(long type) { last = type; }

public:
    long last = -1;
};

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    HostChart chart;
    QObject::connect(&chart, &PriceGraph::cursorTypeChanged, &chart, &HostChart::onCursor);
    chart.resize(400, 300);
    if (chart.AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false) != 0)
        return 1;
    for (int i = 0; i < 50; ++i)
        chart.AppendOHLC("OHLC", 2459000.5 + i, i == 49, 10, 12, 9, 11, 100);
    chart.SetCursorType(5);
    chart.ZoomIn(1);
    chart.Update();
    const int unused = signals + slots + emit + foreach;
    std::printf("panels %ld, main %ld, cursor %ld%s\n", chart.GetPanelCount(),
                chart.mainPanelExists(), chart.last, unused ? "" : "");
    return chart.GetPanelCount() == 1 && chart.mainPanelExists() == 1 && chart.last == 5 ? 0 : 1;
}

#include "main.moc"
