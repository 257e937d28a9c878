// Whatever a host passes, the exported members neither crash nor hang, and
// what was already there survives.
#include <QtTest>

#include "pricegraph.h"

#include <climits>
#include <cmath>
#include <functional>
#include <limits>

using Call = std::function<void(PriceGraph &)>;
Q_DECLARE_METATYPE(Call)

namespace {
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();
const long kHuge = LONG_MAX;
const long kNeg = LONG_MIN;
} // namespace

class tst_BadInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart.reset(new PriceGraph);
        chart->resize(600, 400);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        chart->AddSeries(QStringLiteral("MA*255"), 0, 2, 0, 0, false);
        for (int i = 0; i < 30; ++i)
            chart->AppendOHLC("OHLC", 2451545.0 + i, i == 29, 10, 12, 9, 11, 100);
    }
    void cleanup() { chart.reset(); }

    void survives_data()
    {
        QTest::addColumn<Call>("call");
        auto row = [](const char *name, Call c) { QTest::newRow(name) << c; };
        row("null names", [](PriceGraph &c) {
            c.RemoveSeries(nullptr);
            c.AppendOHLC(nullptr, 2451600.0, true, 1, 2, 0.5, 1.5, 10);
            c.AppendValue(nullptr, 2451600.0, 1.0, true);
            c.EditOHLC(nullptr, 2451600.0, true, 1, 2, 0.5, 1.5, 10);
            c.EditValue(nullptr, 2451600.0, 1.0, true);
            c.ClearValues(nullptr);
            c.DrawPositionLine(0, 10.0, 1, nullptr, 0, nullptr, nullptr, nullptr);
            c.DeletePositionLine(0, nullptr);
            c.DeleteOrderPoint(nullptr);
            c.updateUserScriptComment(nullptr, true);
            c.AddBuyPoint(0, 2451600.0, 1.0, 1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        });
        row("null order texts", [](PriceGraph &c) {
            c.DrawPositionLine(0, 10.0, 1, "Buy-1", 0, nullptr, nullptr, nullptr);
        });
        row("unknown names", [](PriceGraph &c) {
            c.AppendOHLC("nope", 2451600.0, true, 1, 2, 0.5, 1.5, 10);
            c.AppendValue("nope", 2451600.0, 1.0, true);
            c.ClearValues("nope");
            c.RemoveSeries("nope");
            c.DeletePositionLine(0, "nope");
        });
        row("non-finite samples", [](PriceGraph &c) {
            c.AppendOHLC("OHLC", kNaN, true, 1, 2, 0.5, 1.5, 10);
            c.AppendOHLC("OHLC", 2451600.0, true, kNaN, kInf, -kInf, kNaN, 10);
            c.EditOHLC("OHLC", kInf, true, kNaN, kNaN, kNaN, kNaN, kNeg);
            c.AppendValue("MA", kNaN, kInf, true);
            c.EditValue("MA", 2451600.0, kNaN, true);
        });
        row("panel indices", [](PriceGraph &c) {
            c.MoveChartPanel(-1, 99);
            c.MoveChartPanel(kHuge, kNeg);
            c.SetChartPanelType(kHuge, 0);
            c.DrawPositionLine(kHuge, 10.0, 1, "Buy-9", 0, "", "", "");
            c.DrawPositionLine(-1, 10.0, 1, "Buy-9", 0, "", "", "");
            c.DeletePositionLine(kNeg, "Buy-9");
        });
        row("non-finite prices", [](PriceGraph &c) {
            c.DrawPositionLine(0, kNaN, 1, "Buy-1", 0, "", "", "");
            c.DrawPositionLine(0, kInf, kHuge, "Sell-1", 0, "", "", "");
            c.DrawTickLine(kNaN, 0);
            c.DrawTickLine(-kInf, 0);
            c.updateL1(kNaN, kInf, 4, 0);
        });
        row("wild decimals", [](PriceGraph &c) {
            c.updateL1(1.0, 1.0, INT_MAX, INT_MIN);
            c.DrawPositionLine(0, 10.0, 1, "Buy-1", 0, "", "", "");
            c.DrawTickLine(10.5, 0);
            c.updateL1(1.0, 1.0, INT_MIN, 0);
            c.DrawPositionLine(0, 10.0, LONG_MIN, "Position-1", 0, "", "", "");
        });
        row("empty names", [](PriceGraph &c) {
            c.AddSeries(QString(), 0, 0, 0, 0, false);
            c.AppendOHLC("", 2451600.0, true, 1, 2, 0.5, 1.5, 10);
            c.AppendValue("", 2451600.0, 1.0, true);
            c.DrawPositionLine(0, 10.0, 1, "", 0, "", "", "");
            c.DeletePositionLine(0, "");
            c.RemoveSeries("");
        });
        row("display options", [](PriceGraph &c) {
            c.SetcandleChart(kHuge);
            c.SetcandleChart(-1);
            c.SetChartColor(INT_MAX, 0xffffffff);
            c.SetChartColor(INT_MIN, 0);
            c.GetChartColor(-3);
            c.SetInterval(kNaN);
            c.SetInterval(-kInf);
            c.ShowVolume(kNeg);
            c.SetCursorType(kNeg);
        });
        row("navigation", [](PriceGraph &c) {
            c.ScrollLeft(kHuge);
            c.ScrollRight(kNeg);
            c.ZoomIn(kNeg);
            c.ZoomOut(kHuge);
            c.ResetZoom();
        });
        row("stubs", [](PriceGraph &c) {
            c.PanelFromY(kNeg);
            c.IndexFromX(kHuge, kNeg);
            c.ValueFromY(kHuge, kHuge);
            c.DrawBuyTag(kHuge, kNeg, kNaN, true, true, nullptr, nullptr, INT_MIN);
        });
    }
    void survives()
    {
        QFETCH(Call, call);
        call(*chart);
        chart->Update();
        // Paint once so that nothing bad waits in the items.
        QImage img(chart->size(), QImage::Format_ARGB32);
        chart->render(&img);
        QCoreApplication::processEvents();
        QCOMPARE(chart->GetPanelCount(), 3L);
    }

private:
    QScopedPointer<PriceGraph> chart;
};

QTEST_MAIN(tst_BadInput)
#include "tst_badinput.moc"
