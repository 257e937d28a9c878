// The controls around the panels: the scroll bar and zoom buttons under
// them, and the panel layout (stretch, date axis, moving, closing and
// removing panels, the overlay, volume panels).
#include "navtesthelpers.h"

#include "eventsync.h"
#include "panelclosebutton.h"
#include "plotfreezeevent.h"
#include "plotscrollbar.h"
#include "plotscrollevent.h"
#include "zoombuttons.h"

#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QStyleOptionSlider>

using namespace navtest;

class tst_ChartControls : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    PlotScrollBar *bar = nullptr;

    Plot *main() const { return chart->GetMainPanel(); }

    void dragHandleTo(int x)
    {
        QStyleOptionSlider opt;
        opt.initFrom(bar);
        opt.orientation = Qt::Horizontal;
        opt.minimum = bar->minimum();
        opt.maximum = bar->maximum();
        opt.sliderPosition = opt.sliderValue = bar->value();
        opt.pageStep = bar->pageStep();
        const QPoint from = bar->style()->subControlRect(QStyle::CC_ScrollBar, &opt,
                                                         QStyle::SC_ScrollBarSlider, bar).center();
        sendMouse(bar, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        sendMouse(bar, QEvent::MouseMove, QPoint(x, from.y()), Qt::NoButton, Qt::LeftButton);
        sendMouse(bar, QEvent::MouseButtonRelease, QPoint(x, from.y()), Qt::LeftButton, Qt::NoButton);
    }

    // The facade, EventSync and the scroll bar agree on the panels; the main
    // panel is twice as tall, only the lowest shows dates, sub-panels can close.
    void verifyLayout()
    {
        const QList<Plot *> panels = chart->GetAllPanel();
        QCOMPARE(PriceGraphPrivate::eventSyncOf(chart)->plots(),
                 QList<QwtPlot *>(panels.begin(), panels.end()));
        QCOMPARE(bar->plot(), panels.value(0));
        for (int i = 0; i < panels.size(); ++i) {
            QCOMPARE(panels[i]->sizePolicy().verticalStretch(), i == 0 ? 2 : 1);
            QCOMPARE(panels[i]->axisEnabled(QwtPlot::xBottom), i == panels.size() - 1);
            QCOMPARE(qobject_cast<QSplitter *>(panels[i]->parentWidget())->widget(i), panels[i]);
            PanelCloseButton *close = PanelCloseButton::of(panels[i]);
            QCOMPARE(close && close->isVisible(), i > 0);
        }
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(1000, 600);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        bar = PriceGraphPrivate::scrollBarOf(chart);
    }
    void cleanup()
    {
        delete chart;
    }

    void scrollBarStyleSheetIsExact()
    {
        const char *const parts[] = {
            "QScrollBar:horizontal", "{", "background: #111111;", "border: none;",
            "margin: 0px 26px 0px 26px;", "}", "QScrollBar::handle:horizontal", "{",
            "min-width:10px;", "background: #414141;", "margin: 9px 0px 10px 0px;", "}",
            "QScrollBar::add-line:horizontal", "{", "background: #111111;", "border:none;",
            "width: 26px;", "subcontrol-position: right;", "subcontrol-origin: margin;", "}",
            "QScrollBar::sub-line:horizontal", "{", "background: #111111;", "border:none;",
            "width: 26px;", "subcontrol-position: left;", "subcontrol-origin: margin;", "}",
            "QScrollBar:left-arrow:horizontal, QScrollBar::right-arrow:horizontal", "{",
            "border:none;", "width: 12px;", "height: 12px;", "background: #ff0000;",
            "background-image: url(:/Icons/Resources/icon-left-arrow.png);", "}",
            "QScrollBar::right-arrow:horizontal", "{",
            "background-image: url(:/Icons/Resources/icon-right-arrow.png);", "}",
            "QScrollBar::add-page:horizontal, QScrollBar::sub-page:horizontal", "{",
            "background: #111111;", "}"};
        QStringList expected;
        for (const char *p : parts)
            expected << QString::fromLatin1(p);
        QCOMPARE(bar->styleSheet(), expected.join(QString(18, QLatin1Char(' '))));
    }

    void scrollEventSetsTheBar_data()
    {
        QTest::addColumn<QVector<double>>("event"); // minX, maxX, lower, width
        QTest::addColumn<QVector<int>>("expected"); // minimum, maximum, page, value
        QTest::newRow("fractional limits") << QVector<double>{-0.5, 100.7, 12.9, 40.2}
                                           << QVector<int>{0, 60, 40, 12};
        QTest::newRow("truncated toward zero") << QVector<double>{-10.5, 50.2, -3.7, 20.9}
                                               << QVector<int>{-10, 29, 20, -3};
    }
    void scrollEventSetsTheBar()
    {
        QFETCH(QVector<double>, event);
        QFETCH(QVector<int>, expected);
        chart->AddChartPanel();
        QSignalSpy moved(bar, &QScrollBar::valueChanged);
        PlotScrollEvent e(event[0], event[1], event[2], event[3]);
        QCoreApplication::sendEvent(main(), &e);
        QCOMPARE((QVector<int>{bar->minimum(), bar->maximum(), bar->pageStep(), bar->value()}),
                 expected);
        // Repeating the values touches nothing.
        bar->blockSignals(true);
        bar->setRange(-1, 1);
        bar->blockSignals(false);
        QCoreApplication::sendEvent(main(), &e);
        QCOMPARE(bar->minimum(), -1);
        QCOMPARE(moved.count(), 0); // updates are not slider moves
    }

    void scrollBarDragsToBothEndsAndFreezes()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddChartPanel();
        feedBars(*chart, 0, 400);
        QTRY_VERIFY(nav(main())->hasView());
        chart->ScrollLeft(150);
        QCOMPARE(bar->value(), int(shown(main()).minValue()));
        dragHandleTo(bar->width() + 100);
        QCOMPARE(shown(main()).maxValue(), nav(main())->limits().maxX());
        QCOMPARE(shown(main()).width(), nav(main())->visibleSpan());
        VERIFY_IN_STEP(*chart);
        dragHandleTo(-100);
        QCOMPARE(shown(main()).minValue(), nav(main())->limits().minX());
        VERIFY_IN_STEP(*chart);
        // Freeze requests: counted while disabled, the count restarts on an
        // enabled bar.
        const bool requests[] = {true, true, false, true};
        const int counts[] = {0, 1, 2, 0};
        for (int i = 0; i < 4; ++i) {
            PlotFreezeEvent e(requests[i]);
            QCoreApplication::sendEvent(main(), &e);
            QCOMPARE(bar->isEnabled(), !requests[i]);
            QCOMPARE(bar->freezeCount(), counts[i]);
        }
    }

    void zoomButtons()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddChartPanel();
        feedBars(*chart, 0, 400);
        QTRY_VERIFY(nav(main())->hasView());
        ZoomButtons *buttons = PriceGraphPrivate::zoomButtonsOf(chart);
        QPushButton *in = buttons->button(0);
        QPushButton *out = buttons->button(1);
        QCOMPARE(in->size(), QSize(14, 14));
        QCOMPARE(in->parentWidget(), bar->parentWidget());
        QVERIFY(in->geometry().left() >= bar->geometry().right());
        QVERIFY(out->geometry().left() > in->geometry().right());
        QTest::mouseClick(in, Qt::LeftButton);
        QCOMPARE(nav(main())->zoom(), 0.5);
        QTest::mouseClick(out, Qt::LeftButton);
        QTest::mouseClick(out, Qt::LeftButton);
        QCOMPARE(nav(main())->zoom(), 2.0);
        VERIFY_IN_STEP(*chart);

        const QString sheet = QStringLiteral("*{border: none;background-color:transparent;}"
                                             "*{background-image:url(:/Icons/Resources/icon-zoomin-1.png);}\n");
        const QString hover = QStringLiteral(":hover{background-image:url(:/Icons/Resources/icon-zoomin.png);}\n");
        QCOMPARE(in->styleSheet(), sheet + hover);
        buttons->setZoomButtonHighlight(0, false);
        QCOMPARE(in->styleSheet(), sheet);
        buttons->setZoomButtonHighlight(2, true); // no such button
        buttons->setZoomButtonHighlight(-1, true);
        QCOMPARE(in->styleSheet(), sheet);
        QVERIFY(out->styleSheet().endsWith(QLatin1String("icon-zoomout.png);}\n")));
    }

    void moveChartPanel_data()
    {
        QTest::addColumn<long>("from");
        QTest::addColumn<long>("to");
        QTest::addColumn<QVector<int>>("order"); // old indices in their new order
        QTest::newRow("main down one") << 0L << 1L << QVector<int>{1, 0, 2};
        QTest::newRow("last to the top") << 2L << 0L << QVector<int>{2, 0, 1};
        QTest::newRow("same place") << 1L << 1L << QVector<int>{0, 1, 2};
        QTest::newRow("out of range") << 0L << 7L << QVector<int>{0, 1, 2};
    }
    void moveChartPanel()
    {
        QFETCH(long, from);
        QFETCH(long, to);
        QFETCH(QVector<int>, order);
        QCOMPARE(chart->AddSeries(QStringLiteral("RSI"), 0, 2, 0, 0, false), 2L);
        verifyLayout();
        const QList<Plot *> before = chart->GetAllPanel();
        if (to == 7)
            QTest::ignoreMessage(QtWarningMsg, "PriceGraph::MoveChartPanel(0, 7) ignored: 3 panels.");
        chart->MoveChartPanel(from, to);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(chart->GetAllPanel().at(i), before[order[i]]);
        verifyLayout();
    }

    void userClosesSubPanel()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("RSI"), 0, 2, 0, 0, false);
        feedBars(*chart, 0, 200);
        QTRY_VERIFY(nav(main())->hasView());
        QPointer<Plot> last = chart->GetAllPanel().last();
        QTest::mouseClick(PanelCloseButton::of(last), Qt::LeftButton);
        QTRY_VERIFY(!last);
        QCOMPARE(chart->GetPanelCount(), 2L);
        verifyLayout();
        chart->ScrollLeft(30);
        VERIFY_IN_STEP(*chart);
    }

    void removingPanels()
    {
        QList<Plot *> none;
        chart->removePannels(none);
        for (int i = 0; i < 3; ++i)
            chart->AddChartPanel();
        QList<Plot *> some{chart->GetAllPanel().at(1)};
        chart->removePannels(some);
        QCOMPARE(chart->GetPanelCount(), 2L);
        verifyLayout();
        QList<Plot *> all = chart->GetAllPanel();
        chart->removePannels(all);
        QCOMPARE(chart->GetPanelCount(), 0L);
        QCOMPARE(bar->plot(), nullptr);
        // The rebuilt layout takes new panels, the overlay on top.
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddChartPanel();
        QTRY_VERIFY(main()->isVisible());
        verifyLayout();
        QWidget *overlay = PriceGraphPrivate::overlayWidget(chart);
        QWidget *splitter = main()->parentWidget();
        QTRY_VERIFY(overlay->isVisible());
        QCOMPARE(overlay->geometry(), splitter->geometry());
        QVERIFY(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
        QVERIFY(chart->children().indexOf(overlay) > chart->children().indexOf(splitter));
    }

    void setChartPanelTypeHidesVolumePanels()
    {
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
        Plot *volume = chart->GetAllPanel().at(1);
        if (!volume->volumeHistogram)
            QSKIP("volume series not available in this build");
        chart->SetChartPanelType(5, 0); // the panel number is not used
        QVERIFY(volume->isHidden());
        QVERIFY(!main()->isHidden());
        chart->SetChartPanelType(0, 1);
        QVERIFY(!volume->isHidden());
    }
};

QTEST_MAIN(tst_ChartControls)
#include "tst_chartcontrols.moc"
