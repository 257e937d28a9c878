// A freshly built chart: private data, widget tree, event types, stubs.
#include <QtTest>

#include "chartevents.h"
#include "overlaywidget.h"
#include "plot.h"
#include "plotscrollbar.h"
#include "eventsync.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <QSplitter>

#include <climits>
#include <cmath>

// Reaches the protected members the way a host subclass would.
class Chart : public PriceGraph
{
public:
    using PriceGraph::GetAllPanel;
    using PriceGraph::GetMainPanel;
    using PriceGraph::getL1Decimal;
    using PriceGraph::getL1DecimalFix;
    using PriceGraph::getOverlayWidget;
    using PriceGraph::ValmorTimeToQwtTime;
};

class tst_Construction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { chart.reset(new Chart); }
    void cleanup() { chart.reset(); }

    void startsWithoutPanels()
    {
        QCOMPARE(chart->GetPanelCount(), 0L);
        QVERIFY(chart->GetMainPanel() == nullptr);
        QVERIFY(chart->GetAllPanel().isEmpty());
    }

    void privateDataInitialValues()
    {
        PriceGraphPrivate *d = PriceGraphPrivate::get(chart.data());
        QVERIFY(d->mutex);
        QVERIFY(d->splitter);
        QVERIFY(d->overlay);
        QVERIFY(d->scrollBar);
        QVERIFY(d->eventSync);
        QVERIFY(d->orderEntry == nullptr);
        QVERIFY(d->pending == nullptr);
        QCOMPARE(d->seriesReset, 256);
        QCOMPARE(d->cursorType, 3L);   // the constructor's SetCursorType(3)
        QCOMPARE(d->l1A, 0.0);
        QCOMPARE(d->l1B, 0.0);
        QCOMPARE(chart->getL1Decimal(), 4);
        QCOMPARE(d->l1Extra, 0);
        QCOMPARE(chart->getL1DecimalFix(), 1e-6);
        QCOMPARE(chart->getOverlayWidget(), static_cast<QWidget *>(d->overlay));
    }

    void widgetTreeIsLaidOut()
    {
        // With no panels the constructor rebuilt the splitter and layouts:
        // splitter and overlay stacked, the scroll bar underneath.
        PriceGraphPrivate *d = PriceGraphPrivate::get(chart.data());
        QVERIFY(chart->layout());
        QCOMPARE(d->splitter->orientation(), Qt::Vertical);
        QCOMPARE(d->splitter->count(), 0);
        QVERIFY(chart->isAncestorOf(d->splitter));
        QVERIFY(chart->isAncestorOf(d->overlay));
        QVERIFY(chart->isAncestorOf(d->scrollBar));
        QVERIFY(d->overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
        QCOMPARE(d->scrollBar->orientation(), Qt::Horizontal);
        QCOMPARE(d->scrollBar->height(), 29);
    }

    void customEventTypes()
    {
        // Registered once at load: the hinted numbers were free in this process.
        QCOMPARE(int(ChartEvents::sync()), 1100);
        QCOMPARE(int(ChartEvents::pan()), 1101);
        QCOMPARE(int(ChartEvents::pick()), 1200);
        const QList<QEvent::Type> all = {ChartEvents::sync(), ChartEvents::pan(),
                                         ChartEvents::pick(), ChartEvents::scroll(),
                                         ChartEvents::freeze(), ChartEvents::handleDrag(),
                                         ChartEvents::buttonHidden()};
        for (int i = 0; i < all.size(); ++i) {
            QVERIFY(all[i] >= QEvent::User && all[i] <= QEvent::MaxUser);
            QCOMPARE(all.count(all[i]), 1);
        }
        // Asking again registers nothing new.
        QCOMPARE(ChartEvents::scroll(), all[3]);
        QCOMPARE(ChartEvents::buttonHidden(), all[6]);
    }

    void julianDateConversion_data()
    {
        QTest::addColumn<double>("julian");
        QTest::addColumn<double>("ms");
        QTest::newRow("epoch") << 2440587.5 << 0.0;
        QTest::newRow("2000-01-03") << 2451546.5 << 946857600000.0;
        QTest::newRow("noon") << 2440588.0 << 43200000.0;
    }
    void julianDateConversion()
    {
        QFETCH(double, julian);
        QFETCH(double, ms);
        QCOMPARE(chart->ValmorTimeToQwtTime(julian), ms);
    }

    void stubsReturnZeroAndChangeNothing()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->SetCursorType(2);
        QCOMPARE(chart->GetCursorType(), 0L);
        QCOMPARE(chart->getOriginalStartIndexDiff(), 0L);
        QCOMPARE(chart->PanelFromY(120), 0L);
        QCOMPARE(chart->IndexFromX(10, 20), 0L);
        QCOMPARE(chart->ValueFromY(0, 50), 0.0);
        chart->Print();
        chart->PrintPreview();
        chart->Reset();
        chart->LineDelete();
        chart->UseGradient(true);
        chart->DrawBuyTag(0, 1, 1.0, true, true, "a", "b", 1);
        chart->DrawSellTag(0, 1, 1.0, false, false, nullptr, nullptr, 0);
        chart->DeleteTagByCategory(0, "a");
        chart->DeleteTagByNameIndex(0, nullptr);
        QCOMPARE(chart->GetPanelCount(), 1L);
        QCOMPARE(PriceGraphPrivate::get(chart.data())->cursorType, 2L);
    }

private:
    QScopedPointer<Chart> chart;
};

QTEST_MAIN(tst_Construction)
#include "tst_construction.moc"
