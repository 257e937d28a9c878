// The four line tools as a trader sees them: where their pixels land, the
// hit tests, the ray's and the lines' labels, handle looks and states.
#include "marktesthelpers.h"

#include "markgeometry.h"
#include "plothorizontalmark.h"
#include "plotraymark.h"
#include "plotverticallinemark.h"

#include <QLabel>

#include <cmath>

using namespace marktest;

namespace {

const QColor Purple(112, 48, 160); // the colour of a new mark

bool near(QRgb pixel, const QColor &c, int tolerance)
{
    return std::abs(qRed(pixel) - c.red()) <= tolerance
           && std::abs(qGreen(pixel) - c.green()) <= tolerance
           && std::abs(qBlue(pixel) - c.blue()) <= tolerance;
}

// Some pixel within one of `at` has colour `c` (antialiased lines blend).
bool colourAround(const QImage &image, QPoint at, const QColor &c)
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const QPoint p = at + QPoint(dx, dy);
            if (image.rect().contains(p) && near(image.pixel(p), c, 40))
                return true;
        }
    }
    return false;
}

int brightness(QRgb p) { return qRed(p) + qGreen(p) + qBlue(p); }

} // namespace

class tst_LineMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { chart = shownChart(); }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
    }

    void toolPutsItsColourWhereExpected_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<int>("panel");     // where a pixel is checked
        QTest::addColumn<QPoint>("coloured"); // canvas pixel of the main panel (x) / that panel
        QTest::addColumn<QPoint>("bare");
        // The trend line stops at its anchor; the ray goes on.
        QTest::newRow("trend line") << 2L << QPoint(100, 60) << QPoint(500, 160) << 0
                                    << QPoint(300, 110) << QPoint(600, 185);
        QTest::newRow("ray") << 30L << QPoint(100, 60) << QPoint(300, 110) << 0
                             << QPoint(600, 185) << QPoint(60, 50);
        // Across the canvas, whatever x the mouse had.
        QTest::newRow("horizontal line") << 28L << QPoint(600, 150) << QPoint(600, 150) << 0
                                         << QPoint(12, 150) << QPoint(12, 140);
        // Drawn on the main panel, crossing the lower one too.
        QTest::newRow("vertical line") << 29L << QPoint(400, 50) << QPoint(400, 50) << 1
                                       << QPoint(400, 40) << QPoint(390, 40);
    }
    void toolPutsItsColourWhereExpected()
    {
        QFETCH(long, type);
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        QFETCH(int, panel);
        QFETCH(QPoint, coloured);
        QFETCH(QPoint, bare);
        Plot *main = chart->GetMainPanel();
        MarkSelfDraw *m = draw(chart, main, type, from, to);
        QVERIFY(m);
        m->setSelected(false);
        QCoreApplication::processEvents();
        const QImage image = chart->grab().toImage();
        QWidget *mainCanvas = canvasOf(main);
        QWidget *checked = canvasOf(chart->GetAllPanel().at(panel));
        auto inChart = [&](QPoint p) {
            return QPoint(mainCanvas->mapTo(chart, p).x(), checked->mapTo(chart, p).y());
        };
        QVERIFY2(colourAround(image, inChart(coloured), Purple), "the mark's colour is missing");
        QVERIFY2(!colourAround(image, inChart(bare), Purple), "the mark's colour is out of place");
    }

    void hoverHighlights_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<QPoint>("on");       // hovered here
        QTest::addColumn<QPoint>("brighter"); // the highlight shows here
        QTest::newRow("trend line") << 2L << QPoint(300, 110) << QPoint(301, 113);
        QTest::newRow("horizontal line") << 28L << QPoint(50, 150) << QPoint(200, 152);
    }
    void hoverHighlights()
    {
        QFETCH(long, type);
        QFETCH(QPoint, on);
        QFETCH(QPoint, brighter);
        Plot *main = chart->GetMainPanel();
        QWidget *canvas = canvasOf(main);
        MarkSelfDraw *m = type == 2 ? draw(chart, main, 2, QPoint(100, 60), QPoint(500, 160))
                                    : draw(chart, main, 28, QPoint(600, 150), QPoint(600, 150));
        sendMouse(canvas, QEvent::MouseMove, QPoint(5, 5), Qt::NoButton, Qt::NoButton);
        const QImage plain = canvas->grab().toImage();
        const quint64 replots = main->replotCount();
        sendMouse(canvas, QEvent::MouseMove, on, Qt::NoButton, Qt::NoButton);
        QVERIFY(m->isHovered());
        sendMouse(canvas, QEvent::MouseMove, on + QPoint(1, 0), Qt::NoButton, Qt::NoButton);
        QCOMPARE(main->replotCount(), replots + 1); // one replot for the change, not per move
        const QImage lit = canvas->grab().toImage();
        QVERIFY(brightness(lit.pixel(brighter)) > brightness(plain.pixel(brighter)) + 60);
    }

    void rayIsHitOnlyBetweenItsAnchors()
    {
        Plot *main = chart->GetMainPanel();
        QWidget *canvas = canvasOf(main);
        MarkSelfDraw *ray = draw(chart, main, 30, QPoint(100, 100), QPoint(300, 100));
        sendMouse(canvas, QEvent::MouseMove, QPoint(500, 101), Qt::NoButton, Qt::NoButton);
        QVERIFY(!ray->isHovered());
        sendMouse(canvas, QEvent::MouseMove, QPoint(200, 101), Qt::NoButton, Qt::NoButton);
        QVERIFY(ray->isHovered());
    }

    void segmentHit_data()
    {
        QTest::addColumn<QPoint>("a");
        QTest::addColumn<QPoint>("b");
        QTest::addColumn<QPoint>("p");
        QTest::addColumn<bool>("hit");
        const QPoint a(10, 10), b(110, 10);
        QTest::newRow("on the line") << a << b << QPoint(60, 10) << true;
        QTest::newRow("2 px off") << a << b << QPoint(60, 12) << true;
        QTest::newRow("3 px off") << a << b << QPoint(60, 13) << false;
        QTest::newRow("on anchor 0") << a << b << a << false;
        QTest::newRow("just past anchor 0") << a << b << QPoint(11, 10) << true;
        QTest::newRow("on anchor 1") << a << b << b << false;
        QTest::newRow("beyond anchor 1") << a << b << QPoint(150, 10) << false;
        QTest::newRow("before anchor 0") << a << b << QPoint(0, 10) << false;
        QTest::newRow("diagonal, 2 px off") << QPoint(0, 0) << QPoint(100, 100) << QPoint(52, 50)
                                            << true;
        QTest::newRow("diagonal, 5 px off") << QPoint(0, 0) << QPoint(100, 100) << QPoint(55, 50)
                                            << false;
        QTest::newRow("zero length") << a << a << a << false;
    }
    void segmentHit()
    {
        QFETCH(QPoint, a);
        QFETCH(QPoint, b);
        QFETCH(QPoint, p);
        QFETCH(bool, hit);
        QCOMPARE(MarkGeometry::segmentHit(a, b, p), hit);
    }

    void rayLabelText_data()
    {
        QTest::addColumn<QPointF>("p0");
        QTest::addColumn<QPointF>("p1");
        QTest::addColumn<QPointF>("dir"); // on screen, y down
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        const QString deg = QString(QChar(0x00B0));
        QTest::newRow("coincident") << QPointF(5, 1.2) << QPointF(5, 1.2) << QPointF(0, 0) << 4
                                    << QStringLiteral("0/0.0,0") + deg;
        QTest::newRow("flat to the right") << QPointF(5, 1.2) << QPointF(15, 1.2) << QPointF(1, 0)
                                           << 4 << QStringLiteral("10/0.0,0") + deg;
        QTest::newRow("straight up, pips") << QPointF(5, 1.2) << QPointF(5, 1.2125)
                                           << QPointF(0, -1) << 4
                                           << QStringLiteral("0/12.5,90") + deg;
        QTest::newRow("down-left, floor") << QPointF(5, 100) << QPointF(2.7, 97.5)
                                          << QPointF(-0.6, 0.8) << 2
                                          << QStringLiteral("3/-25.0,-126") + deg;
        QTest::newRow("one decimal, unscaled") << QPointF(0, 10) << QPointF(2.7, 12)
                                               << QPointF(0.8, -0.6) << 1
                                               << QStringLiteral("2/2.0,36") + deg;
    }
    void rayLabelText()
    {
        QFETCH(QPointF, p0);
        QFETCH(QPointF, p1);
        QFETCH(QPointF, dir);
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QCOMPARE(MarkGeometry::rayLabel(p0, p1, dir, decimals), text);
    }

    void rayLabelStaysWholeOnOneLine_data()
    {
        QTest::addColumn<QPointF>("corner");
        QTest::newRow("mid-canvas") << QPointF(400, 300);
        QTest::newRow("at the top-left corner") << QPointF(3, 2);
        QTest::newRow("past the bottom-right") << QPointF(805, 604);
    }
    void rayLabelStaysWholeOnOneLine()
    {
        QFETCH(QPointF, corner);
        const QRectF canvas(0, 0, 800, 600);
        const QString text = MarkGeometry::rayLabel(QPointF(0, 1.0), QPointF(12345, 1.5),
                                                    QPointF(0.6, -0.8), 5);
        const QRectF box = PlotRayMark::labelBox(text, corner, canvas);
        const QFontMetricsF metrics(PlotRayMark::labelFont());
        QVERIFY(canvas.contains(box));
        QVERIFY(box.width() >= metrics.horizontalAdvance(text));
        QCOMPARE(box.height(), metrics.height());
        QVERIFY(PlotRayMark::labelBox(text, QPointF(-100, -100), canvas).isEmpty());
    }

    void horizontalLabelShowsThePriceOnTheRightEdge()
    {
        chart->updateL1(0.0, 0.0, 2, 0);
        Plot *main = chart->GetMainPanel();
        auto *level = static_cast<PlotHorizontalMark *>(
            draw(chart, main, 28, QPoint(300, 150), QPoint(300, 150)));
        QLabel *label = level->priceLabel();
        QVERIFY(label && label->isVisible());
        const QString style = QStringLiteral(
            "QLabel{border:none; color:rgba(255,255,255,201); background-color:rgba(112,48,160,201);}"
            "QLabel{font-family: \"Roboto\"; font-size: 10px;}");
        QCOMPARE(label->styleSheet(), style);
        auto check = [&] {
            QCOMPARE(label->text(), QString::number(level->pointAt(0).y(), 'f', 2));
            QCOMPARE(label->geometry().right(), canvasOf(main)->contentsRect().right());
            QVERIFY(std::abs(label->geometry().center().y() - handleCentre(level, 0).y()) <= 1);
        };
        check();
        const QString first = label->text();
        QWidget *h = level->handle(0);
        sendMouse(h, QEvent::MouseButtonPress, QPoint(7, 7), Qt::LeftButton, Qt::LeftButton);
        sendMouse(h, QEvent::MouseMove, QPoint(7, 57), Qt::NoButton, Qt::LeftButton);
        check(); // it follows the line while dragged
        QVERIFY(label->text() != first);
        sendMouse(h, QEvent::MouseButtonRelease, QPoint(7, 57), Qt::LeftButton, Qt::NoButton);
        level->setColor(QColor(10, 20, 30));
        QVERIFY(label->styleSheet().contains(QLatin1String("rgba(10,20,30,201)")));
    }

    void verticalLineTime_data()
    {
        QTest::addColumn<int>("bar");
        QTest::addColumn<QString>("text");
        // Daily bars from 2020-05-31 (feedBars); past the end at the interval.
        QTest::newRow("first bar") << 0 << QStringLiteral("2020-05-31 00:00");
        QTest::newRow("bar 10") << 10 << QStringLiteral("2020-06-10 00:00");
        QTest::newRow("5 bars past the last") << 304 << QStringLiteral("2021-03-31 00:00");
        QTest::newRow("before the first") << -2 << QStringLiteral("2020-05-29 00:00");
    }
    void verticalLineTime()
    {
        QFETCH(int, bar);
        QFETCH(QString, text);
        chart->SetInterval(86400000.0);
        auto *line = static_cast<PlotVerticalLineMark *>(
            draw(chart, chart->GetMainPanel(), 29, QPoint(400, 50), QPoint(400, 50)));
        line->setPoint(0, QPointF(bar, line->pointAt(0).y()));
        QCOMPARE(line->timeText(), text);
    }

    void handleLooksAndStates()
    {
        // The style sheets are the system's own texts, stray ";" included.
        QCOMPARE(QString::fromLatin1(MarkSelfDraw::ShownHandleStyle),
                 QStringLiteral("*{background-color:rgba(0,0,0,0);border:none;background-image:"
                                "url(:/Icons/Resources/icon_point2.png);}*:hover{;background-"
                                "image:url(:/Icons/Resources/icon_point.png);}"));
        QCOMPARE(QString::fromLatin1(MarkSelfDraw::HiddenHandleStyle),
                 QStringLiteral("*{background-color:rgba(0,0,0,0);border:none;}*:hover{;"
                                "background-image:url(:/Icons/Resources/icon_point3.png);}"));
        MarkSelfDraw *m = draw(chart, chart->GetMainPanel(), 2, QPoint(100, 60), QPoint(300, 90));
        QCOMPARE(m->handle(0)->geometry().size(), QSize(15, 15));
        QCOMPARE(m->z(), 30.0);
        QVERIFY(m->testItemInterest(QwtPlotItem::ScaleInterest));
        for (int s : {0, 1, 2, 3}) {
            m->setState(s);
            QCOMPARE(m->handle(1)->testAttribute(Qt::WA_TransparentForMouseEvents),
                     s != 0 && s != 3);
        }
        // The handles of a mark not selected are invisible, yet one under
        // the pointer is there to show its point and to be dragged.
        QWidget *canvas = canvasOf(chart->GetMainPanel());
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(600, 300), Qt::LeftButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(600, 300), Qt::LeftButton, Qt::NoButton);
        QVERIFY(!m->isSelected());
        QVERIFY(!m->handle(0)->isVisible());
        sendMouse(canvas, QEvent::MouseMove, QPoint(97, 63), Qt::NoButton, Qt::NoButton);
        QVERIFY(m->handle(0)->isVisible());
        QVERIFY(!m->handle(1)->isVisible());
        sendMouse(canvas, QEvent::MouseMove, QPoint(500, 300), Qt::NoButton, Qt::NoButton);
        QVERIFY(!m->handle(0)->isVisible());
    }

private:
    TestChart *chart = nullptr;
};

QTEST_MAIN(tst_LineMarks)
#include "tst_linemarks.moc"
