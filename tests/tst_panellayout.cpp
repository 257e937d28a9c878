// The chart's panel layout: stretch and date axis, moving, closing and
// removing panels, the overlay over the splitter, and volume panels.
#include "navtesthelpers.h"

#include "eventsync.h"
#include "panelclosebutton.h"
#include "plotscrollbar.h"

#include <QSplitter>

using namespace navtest;

class tst_PanelLayout : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;

    static int stretch(Plot *p) { return p->sizePolicy().verticalStretch(); }
    static bool showsDates(Plot *p) { return p->axisEnabled(QwtPlot::xBottom); }

    // The facade, EventSync and the scroll bar agree on the panels.
    void verifyBookkeeping()
    {
        const QList<Plot *> panels = chart->GetAllPanel();
        QCOMPARE(PriceGraphPrivate::eventSyncOf(chart)->panels(), panels);
        QCOMPARE(PriceGraphPrivate::scrollBarOf(chart)->plot(), panels.value(0));
        for (int i = 0; i < panels.size(); ++i) {
            QCOMPARE(stretch(panels[i]), i == 0 ? 2 : 1);
            QCOMPARE(showsDates(panels[i]), i == panels.size() - 1);
            QCOMPARE(panels[i]->parentWidget()->metaObject()->className(), "QSplitter");
            QCOMPARE(static_cast<QSplitter *>(panels[i]->parentWidget())->widget(i), panels[i]);
            PanelCloseButton *close = PanelCloseButton::of(panels[i]);
            QCOMPARE(close && close->isVisible(), i > 0);
        }
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(900, 700);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void emptyChart()
    {
        QCOMPARE(chart->GetPanelCount(), 0L);
        QVERIFY(!chart->GetMainPanel());
        chart->MoveChartPanel(0, 0);
        chart->SetChartPanelType(5, 0);
        chart->ScrollLeft(3);
        chart->ZoomIn(1);
        QCOMPARE(chart->GetPanelCount(), 0L);
    }

    void addingPanels()
    {
        QCOMPARE(chart->AddChartPanel(), 0L);
        verifyBookkeeping();
        QCOMPARE(chart->AddChartPanel(), 1L);
        QCOMPARE(chart->AddSeries(QStringLiteral("RSI"), 0, 3, 0, 0, false), 3L);
        QCOMPARE(chart->GetPanelCount(), 4L);
        QTRY_VERIFY(chart->GetAllPanel().last()->isVisible());
        verifyBookkeeping();
    }

    void moveChartPanel_data()
    {
        QTest::addColumn<long>("from");
        QTest::addColumn<long>("to");
        QTest::addColumn<QVector<int>>("order"); // old indices, new order
        QTest::newRow("main down one") << 0L << 1L << QVector<int>{1, 0, 2};
        QTest::newRow("last to the top") << 2L << 0L << QVector<int>{2, 0, 1};
        QTest::newRow("same place") << 1L << 1L << QVector<int>{0, 1, 2};
    }
    void moveChartPanel()
    {
        QFETCH(long, from);
        QFETCH(long, to);
        QFETCH(QVector<int>, order);
        for (int i = 0; i < 3; ++i)
            chart->AddChartPanel();
        const QList<Plot *> before = chart->GetAllPanel();
        chart->MoveChartPanel(from, to);
        const QList<Plot *> after = chart->GetAllPanel();
        for (int i = 0; i < 3; ++i)
            QCOMPARE(after[i], before[order[i]]);
        verifyBookkeeping();
    }

    void moveChartPanelOutOfRange()
    {
        chart->AddChartPanel();
        chart->AddChartPanel();
        const QList<Plot *> before = chart->GetAllPanel();
        QTest::ignoreMessage(QtWarningMsg, "PriceGraph::MoveChartPanel(0, 7) ignored: 2 panels.");
        chart->MoveChartPanel(0, 7);
        QCOMPARE(chart->GetAllPanel(), before);
        verifyBookkeeping();
    }

    void userClosesSubPanel()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddChartPanel();
        chart->AddChartPanel();
        feedBars(*chart, 0, 200);
        Plot *main = chart->GetMainPanel();
        QTRY_VERIFY(nav(main)->hasView());
        QPointer<Plot> last = chart->GetAllPanel().last();
        PanelCloseButton *close = PanelCloseButton::of(last);
        QVERIFY(close && close->isVisible());
        QVERIFY(!PanelCloseButton::of(main) || !PanelCloseButton::of(main)->isVisible());
        QTest::mouseClick(close, Qt::LeftButton);
        QTRY_VERIFY(!last);
        QCOMPARE(chart->GetPanelCount(), 2L);
        verifyBookkeeping();
        // The rest still move together.
        chart->ScrollLeft(30);
        VERIFY_IN_STEP(*chart);
    }

    void deletedPanelIsForgotten()
    {
        chart->AddChartPanel();
        chart->AddChartPanel();
        delete chart->GetAllPanel().at(1);
        QCOMPARE(chart->GetPanelCount(), 1L);
        QCOMPARE(PriceGraphPrivate::eventSyncOf(chart)->panels(), chart->GetAllPanel());
    }

    void removeAllPanelsRebuildsTheLayout()
    {
        chart->AddChartPanel();
        chart->AddChartPanel();
        QList<Plot *> all = chart->GetAllPanel();
        chart->removePannels(all);
        QCOMPARE(chart->GetPanelCount(), 0L);
        QVERIFY(PriceGraphPrivate::eventSyncOf(chart)->panels().isEmpty());
        QCOMPARE(PriceGraphPrivate::scrollBarOf(chart)->plot(), nullptr);
        // A fresh splitter takes the next panels.
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        feedBars(*chart, 0, 100);
        QTRY_VERIFY(nav(chart->GetMainPanel())->hasView());
        QTRY_VERIFY(chart->GetMainPanel()->isVisible());
        verifyBookkeeping();
    }

    void removeSomePanels()
    {
        for (int i = 0; i < 3; ++i)
            chart->AddChartPanel();
        QList<Plot *> doomed{chart->GetAllPanel().at(2)};
        chart->removePannels(doomed);
        QCOMPARE(chart->GetPanelCount(), 2L);
        verifyBookkeeping();
        QList<Plot *> none;
        chart->removePannels(none);
        QCOMPARE(chart->GetPanelCount(), 2L);
    }

    void overlayCoversThePanels()
    {
        chart->AddChartPanel();
        chart->AddChartPanel();
        QWidget *overlay = PriceGraphPrivate::overlayWidget(chart);
        QSplitter *splitter = qobject_cast<QSplitter *>(chart->GetMainPanel()->parentWidget());
        QVERIFY(splitter);
        QTRY_VERIFY(overlay->isVisible());
        QCOMPARE(overlay->parentWidget(), static_cast<QWidget *>(chart));
        QCOMPARE(overlay->geometry(), splitter->geometry());
        QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
        // Above the splitter in the stacking order.
        const QObjectList kids = chart->children();
        QVERIFY(kids.indexOf(overlay) > kids.indexOf(splitter));
    }

    void setChartPanelTypeShowsOrHidesVolumePanels()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        Plot *volume = chart->GetAllPanel().at(1);
        if (!volume->volumeHistogram)
            QSKIP("no volume series in this build");
        chart->SetChartPanelType(5, 0); // the panel number is not used
        QVERIFY(volume->isHidden());
        QVERIFY(!chart->GetMainPanel()->isHidden());
        chart->SetChartPanelType(0, 1);
        QVERIFY(!volume->isHidden());
    }
};

QTEST_MAIN(tst_PanelLayout)
#include "tst_panellayout.moc"
