// The demo terminal's panels (compiled from demo/): closing by the close
// button is reported like closing from the menu, a data set without volume
// gets no volume panel, and closed panels come back with their data.
#include <QtTest>

#include "demochart.h"
#include "marketfeed.h"
#include "panelset.h"

#include <QAbstractButton>
#include <QSplitter>

namespace {

// Daily bars; `volume` false gives a currency-like set without volume.
QVector<Bar> days(int n, bool volume)
{
    QVector<Bar> bars;
    for (int i = 0; i < n; ++i) {
        Bar b;
        b.time = 2459000.5 + i;
        b.open = 100 + i % 5;
        b.close = 101 + i % 3;
        b.high = 105;
        b.low = 99;
        b.volume = volume ? 1000 + i : 0;
        bars << b;
    }
    return bars;
}

// The close button of panel `index` (the widgets of the chart's splitter,
// top to bottom).
QAbstractButton *closeButton(DemoChart &chart, int index)
{
    QSplitter *splitter = chart.findChild<QSplitter *>();
    const auto buttons = splitter->widget(index)->findChildren<QAbstractButton *>();
    for (QAbstractButton *b : buttons) {
        if (b->isVisible())
            return b;
    }
    return nullptr;
}

} // namespace

class tst_DemoPanels : public QObject
{
    Q_OBJECT

    DemoChart *chart = nullptr;
    MarketFeed *feed = nullptr;
    PanelSet *panels = nullptr;
    QStringList messages;

private Q_SLOTS:
    void init()
    {
        chart = new DemoChart;
        chart->resize(900, 600);
        feed = new MarketFeed(chart, chart);
        panels = new PanelSet(chart, feed, chart);
        connect(panels, &PanelSet::message, this, [this](const QString &m) { messages << m; });
        panels->build();
        feed->load(days(200, true), 86400000.0, 2);
        panels->dataLoaded();
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        messages.clear();
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void closeButtonIsLoggedLikeTheMenu()
    {
        QCOMPARE(chart->GetPanelCount(), 3L);
        QVERIFY(panels->closeLowest());
        QCOMPARE(messages, QStringList{QStringLiteral("averages panel (panel 2) closed")});
        QVERIFY(!panels->has(PanelSet::Averages));
        messages.clear();
        QAbstractButton *button = closeButton(*chart, 1);
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_COMPARE(chart->GetPanelCount(), 1L);
        QCOMPARE(messages, QStringList{QStringLiteral("volume panel (panel 1) closed")});
        QVERIFY(!panels->has(PanelSet::Volume));
    }

    void dataWithoutVolumeHasNoVolumePanel()
    {
        feed->load(days(200, false), 86400000.0, 2);
        panels->dataLoaded();
        QCOMPARE(chart->GetPanelCount(), 2L);
        QVERIFY(!panels->has(PanelSet::Volume));
        // Volume again: the panel comes back under the prices.
        feed->load(days(200, true), 86400000.0, 2);
        panels->dataLoaded();
        QCOMPARE(chart->GetPanelCount(), 3L);
        QVERIFY(panels->has(PanelSet::Volume));
        // Closed by the user, it stays closed for the next data set...
        QVERIFY(chart->closePanel(1));
        feed->load(days(200, true), 86400000.0, 2);
        panels->dataLoaded();
        QVERIFY(!panels->has(PanelSet::Volume));
        // ...until the menu brings it back.
        panels->showVolume();
        QVERIFY(panels->has(PanelSet::Volume));
        QCOMPARE(chart->GetPanelCount(), 3L);
    }

    // A panel brought back shows its data at once: compare what it draws
    // with the panel as it was before it was closed.
    void closedPanelsComeBackWithTheirData()
    {
        QSplitter *splitter = chart->findChild<QSplitter *>();
        QCoreApplication::processEvents();
        const QImage averages = splitter->widget(2)->grab().toImage();
        QVERIFY(panels->closeLowest());
        panels->showAverages();
        QCOMPARE(chart->GetPanelCount(), 3L);
        QTRY_COMPARE(splitter->widget(2)->grab().toImage(), averages);
    }
};

QTEST_MAIN(tst_DemoPanels)
#include "tst_demopanels.moc"
