// The scroll bar under the panels and the zoom buttons at its right end.
#include "navtesthelpers.h"

#include "plotfreezeevent.h"
#include "plotscrollbar.h"
#include "plotscrollevent.h"
#include "zoombuttons.h"

#include <QPushButton>
#include <QStyle>
#include <QStyleOptionSlider>

using namespace navtest;

class tst_ScrollBar : public QObject
{
    Q_OBJECT

    TestChart *chart = nullptr;
    Plot *main = nullptr;
    PlotScrollBar *bar = nullptr;
    ZoomButtons *buttons = nullptr;

    double lower() const { return shown(main).minValue(); }
    double upper() const { return shown(main).maxValue(); }

    QRect handleRect() const
    {
        QStyleOptionSlider opt;
        opt.initFrom(bar);
        opt.orientation = bar->orientation();
        opt.minimum = bar->minimum();
        opt.maximum = bar->maximum();
        opt.sliderPosition = bar->sliderPosition();
        opt.sliderValue = bar->value();
        opt.singleStep = bar->singleStep();
        opt.pageStep = bar->pageStep();
        opt.subControls = QStyle::SC_All;
        return bar->style()->subControlRect(QStyle::CC_ScrollBar, &opt,
                                            QStyle::SC_ScrollBarSlider, bar);
    }

    void dragHandleTo(int x)
    {
        const QPoint from = handleRect().center();
        sendMouse(bar, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        sendMouse(bar, QEvent::MouseMove, QPoint((from.x() + x) / 2, from.y()), Qt::NoButton,
                  Qt::LeftButton);
        sendMouse(bar, QEvent::MouseMove, QPoint(x, from.y()), Qt::NoButton, Qt::LeftButton);
        sendMouse(bar, QEvent::MouseButtonRelease, QPoint(x, from.y()), Qt::LeftButton,
                  Qt::NoButton);
    }

private Q_SLOTS:
    void init()
    {
        chart = new TestChart;
        chart->resize(1000, 600);
        chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
        chart->AddSeries(QStringLiteral("SMA"), 0, 1, 0, 0, false);
        chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(chart));
        main = mainPanel(*chart);
        bar = PriceGraphPrivate::scrollBarOf(chart);
        buttons = PriceGraphPrivate::zoomButtonsOf(chart);
        feedBars(*chart, 0, 400);
        QTRY_VERIFY(nav(main)->hasView());
        QCOMPARE(bar->plot(), main);
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void styleSheetIsExact()
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
        QCOMPARE(bar->height(), 29);
    }

    void scrollEventSetsRange_data()
    {
        QTest::addColumn<QVector<double>>("event"); // minX, maxX, lower, width
        QTest::addColumn<QVector<int>>("expected"); // minimum, maximum, page, value
        QTest::newRow("fractional limits") << QVector<double>{-0.5, 100.7, 12.9, 40.2}
                                           << QVector<int>{0, 60, 40, 12};
        QTest::newRow("at the end") << QVector<double>{-0.96875, 401.03125, 351.03125, 50.0}
                                    << QVector<int>{0, 351, 50, 351};
        QTest::newRow("truncated toward zero") << QVector<double>{-10.5, 50.2, -3.7, 20.9}
                                               << QVector<int>{-10, 29, 20, -3};
    }
    void scrollEventSetsRange()
    {
        QFETCH(QVector<double>, event);
        QFETCH(QVector<int>, expected);
        QSignalSpy moved(bar, &QScrollBar::valueChanged);
        PlotScrollEvent e(event[0], event[1], event[2], event[3]);
        QCoreApplication::sendEvent(main, &e);
        QCOMPARE(bar->minimum(), expected[0]);
        QCOMPARE(bar->maximum(), expected[1]);
        QCOMPARE(bar->pageStep(), expected[2]);
        QCOMPARE(bar->value(), expected[3]);
        QCOMPARE(moved.count(), 0); // an update, not a slider move

        // The same values again: nothing is touched.
        bar->blockSignals(true);
        bar->setRange(-1, 1);
        bar->blockSignals(false);
        PlotScrollEvent again(event[0], event[1], event[2], event[3]);
        QCoreApplication::sendEvent(main, &again);
        QCOMPARE(bar->minimum(), -1);
        QCOMPARE(moved.count(), 0);
    }

    void followsTheMainPanel()
    {
        chart->ScrollLeft(120);
        QCOMPARE(bar->value(), int(lower()));
        QCOMPARE(bar->pageStep(), int(upper() - lower()));
        QCOMPARE(bar->maximum(), int(nav(main)->limits().maxX() - (upper() - lower())));
    }

    void dragToBothEnds()
    {
        chart->ScrollLeft(150);
        dragHandleTo(bar->width() + 100);
        QCOMPARE(upper(), nav(main)->limits().maxX());
        QCOMPARE(upper() - lower(), nav(main)->visibleSpan());
        VERIFY_IN_STEP(*chart);
        dragHandleTo(-100);
        QCOMPARE(lower(), nav(main)->limits().minX());
        QCOMPARE(upper() - lower(), nav(main)->visibleSpan());
        VERIFY_IN_STEP(*chart);
    }

    void freezeCountsWhileDisabled()
    {
        const bool requests[] = {true, true, false, true, false};
        const bool enabled[] = {false, false, true, false, true};
        const int counts[] = {0, 1, 2, 0, 1};
        for (int i = 0; i < 5; ++i) {
            PlotFreezeEvent e(requests[i]);
            QCoreApplication::sendEvent(main, &e);
            QCOMPARE(bar->isEnabled(), enabled[i]);
            QCOMPARE(bar->freezeCount(), counts[i]);
        }
    }

    void zoomButtonsSitAtTheRightEndOfTheRow()
    {
        QPushButton *in = buttons->button(0);
        QPushButton *out = buttons->button(1);
        QCOMPARE(in->size(), QSize(14, 14));
        QCOMPARE(out->size(), QSize(14, 14));
        QCOMPARE(in->parentWidget(), bar->parentWidget());
        QVERIFY(in->geometry().left() >= bar->geometry().right());
        QVERIFY(out->geometry().left() > in->geometry().right());
        QVERIFY(in->isVisible() && out->isVisible());
    }

    void zoomButtonClicks()
    {
        QTest::mouseClick(buttons->button(0), Qt::LeftButton);
        QCOMPARE(nav(main)->zoom(), 0.5);
        VERIFY_IN_STEP(*chart);
        QTest::mouseClick(buttons->button(1), Qt::LeftButton);
        QTest::mouseClick(buttons->button(1), Qt::LeftButton);
        QCOMPARE(nav(main)->zoom(), 2.0);
        VERIFY_IN_STEP(*chart);
    }

    void highlightRule_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QString>("sheet0");
        QTest::addColumn<QString>("sheet1");
        const QString base = QStringLiteral("*{border: none;background-color:transparent;}");
        const QString in = base + QStringLiteral("*{background-image:url(:/Icons/Resources/icon-zoomin-1.png);}\n");
        const QString out = base + QStringLiteral("*{background-image:url(:/Icons/Resources/icon-zoomout-1.png);}\n");
        const QString inHover = in + QStringLiteral(":hover{background-image:url(:/Icons/Resources/icon-zoomin.png);}\n");
        const QString outHover = out + QStringLiteral(":hover{background-image:url(:/Icons/Resources/icon-zoomout.png);}\n");
        QTest::newRow("zoom in off") << 0 << false << in << outHover;
        QTest::newRow("zoom out off") << 1 << false << inHover << out;
        QTest::newRow("zoom in on") << 0 << true << inHover << outHover;
        QTest::newRow("unknown button") << 2 << false << inHover << outHover;
        QTest::newRow("negative button") << -1 << false << inHover << outHover;
    }
    void highlightRule()
    {
        QFETCH(int, button);
        QFETCH(bool, on);
        QFETCH(QString, sheet0);
        QFETCH(QString, sheet1);
        buttons->setZoomButtonHighlight(button, on);
        QCOMPARE(buttons->button(0)->styleSheet(), sheet0);
        QCOMPARE(buttons->button(1)->styleSheet(), sheet1);
    }
};

QTEST_MAIN(tst_ScrollBar)
#include "tst_scrollbar.moc"
