// The shape and channel tools: how their coupled anchors move, how the
// ellipse and the rectangle resize, their hit tests, and bad geometry
// (nothing there, or millions of pixels away) that must neither hang the
// painter nor lose the handles.
#include "marktesthelpers.h"

#include "plotandrewpichforkmark.h"
#include "plotequidistancepricechannel.h"
#include "plotrectmark.h"
#include "plottrianglemark.h"
#include "rectmark.h"
#include "shapegeometry.h"

using namespace marktest;

class tst_ShapeMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        chart = shownChart();
        main = chart->GetMainPanel();
    }
    void cleanup()
    {
        delete chart;
        chart = nullptr;
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void pitchforkCoupling()
    {
        // Pivot (100, 150), centre dragged to (250, 150): reaction points
        // 100 pixels' price span above and below it.
        MarkSelfDraw *fork = draw(chart, main, 8, QPoint(100, 150), QPoint(250, 150));
        QCOMPARE(handleCentre(fork, 2), QPoint(250, 250));
        QCOMPARE(handleCentre(fork, 3), QPoint(250, 50));
        // The centre handle carries both reaction points.
        dragHandle(fork->handle(1), QPoint(30, 20));
        QCOMPARE(handleCentre(fork, 2), QPoint(280, 270));
        QCOMPARE(handleCentre(fork, 3), QPoint(280, 70));
        // A reaction point moves the centre to the new midpoint only.
        dragHandle(fork->handle(2), QPoint(0, -40));
        QCOMPARE(handleCentre(fork, 3), QPoint(280, 70));
        QCOMPARE(handleCentre(fork, 1), QPoint(280, 150));
        QCOMPARE(fork->pointAt(1), (fork->pointAt(2) + fork->pointAt(3)) * 0.5);
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void channelOffset()
    {
        // A horizontal base line: handle 2 exactly 55 pixels under its middle.
        auto *channel = static_cast<PlotEquidistancePriceChannel *>(
            draw(chart, main, 7, QPoint(100, 150), QPoint(400, 150)));
        QCOMPARE(handleCentre(channel, 2), QPoint(250, 205));
        QCOMPARE(channel->pointAt(2).y() - channel->pointAt(0).y(), channel->getChannelOffset());
        // Handle 2 moves up and down only and sets the offset to its price
        // distance from the base line's middle.
        dragHandle(channel->handle(2), QPoint(40, -120));
        QCOMPARE(handleCentre(channel, 2), QPoint(250, 85));
        QCOMPARE(channel->getChannelOffset(), toPlot(main, QPointF(250, 85)).y()
                                                  - channel->pointAt(0).y());
        // The base line's handles carry anchor 2 with the same offset.
        const double offset = channel->getChannelOffset();
        dragHandle(channel->handle(1), QPoint(100, 40));
        QCOMPARE(channel->getChannelOffset(), offset);
        QCOMPARE(channel->pointAt(2), (channel->pointAt(0) + channel->pointAt(1)) * 0.5
                                          + QPointF(0, offset));
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void couplingSurvivesOlderHistory()
    {
        MarkSelfDraw *fork = draw(chart, main, 8, QPoint(100, 150), QPoint(250, 150));
        dragHandle(fork->handle(2), QPoint(-60, 0)); // reaction points on two bars
        auto *channel = static_cast<PlotEquidistancePriceChannel *>(
            draw(chart, main, 7, QPoint(100, 100), QPoint(400, 50)));
        // A bar between the anchors: only the later ones move.
        const double between = std::floor(toPlot(main, QPointF(220, 0)).x()) + 0.5;
        chart->AppendOHLC("OHLC", 2459000.5 + between, true, 100.0, 101.0, 99.0, 100.5, 10);
        QCOMPARE(fork->pointAt(1), (fork->pointAt(2) + fork->pointAt(3)) * 0.5);
        QCOMPARE(channel->pointAt(2).x(), (channel->pointAt(0).x() + channel->pointAt(1).x()) * 0.5);
    }

    void ellipseResizesLikeAWindow_data()
    {
        QTest::addColumn<int>("handle");
        QTest::addColumn<QPoint>("delta");
        QTest::addColumn<QRect>("box"); // then spans handles 0 to 4
        // Drawn from (100, 100) to (300, 200).
        QTest::newRow("corner") << 4 << QPoint(40, 30) << QRect(QPoint(100, 100), QPoint(340, 230));
        QTest::newRow("free side: x only") << 3 << QPoint(40, 30)
                                           << QRect(QPoint(100, 100), QPoint(340, 200));
        QTest::newRow("locked side: y only") << 1 << QPoint(40, -30)
                                             << QRect(QPoint(100, 70), QPoint(300, 200));
        QTest::newRow("opposite corner") << 6 << QPoint(-20, 20)
                                         << QRect(QPoint(80, 100), QPoint(300, 220));
        // Past the opposite edge the box turns over; that edge stays.
        QTest::newRow("past the other side") << 7 << QPoint(250, 0)
                                             << QRect(QPoint(350, 100), QPoint(300, 200));
    }
    void ellipseResizesLikeAWindow()
    {
        QFETCH(int, handle);
        QFETCH(QPoint, delta);
        QFETCH(QRect, box);
        MarkSelfDraw *ellipse = draw(chart, main, 22, QPoint(300, 200), QPoint(100, 100));
        QCOMPARE(handleCentre(ellipse, 0), QPoint(100, 100));
        QCOMPARE(handleCentre(ellipse, 4), QPoint(300, 200));
        dragHandle(ellipse->handle(handle), delta);
        QCOMPARE(handleCentre(ellipse, 0), box.topLeft());
        QCOMPARE(handleCentre(ellipse, 4), box.bottomRight());
        for (int i = 0; i < ShapeGeometry::GripCount; ++i) {
            const QPointF grip = ShapeGeometry::gripPoint(box.topLeft(), box.bottomRight(), i);
            QVERIFY(std::abs(handleCentre(ellipse, i).x() - grip.x()) <= 1);
            QVERIFY(std::abs(handleCentre(ellipse, i).y() - grip.y()) <= 1);
        }
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void rectangleGripsBodyAndView()
    {
        auto *rect = static_cast<PlotRectMark *>(draw(chart, main, 21, QPoint(300, 200),
                                                      QPoint(150, 100)));
        RectMark *editor = rect->rectMark();
        QCOMPARE(editor->rect(), QRect(QPoint(150, 100), QPoint(300, 200)));
        QCOMPARE(rect->pointAt(0), toPlot(main, QPointF(150, 100)));
        QVERIFY(editor->grip(4)->isVisible()); // selected: its grips show
        QSignalSpy changes(editor, &RectMark::rectChanged);
        dragHandle(editor->grip(4), QPoint(20, 10));
        dragHandle(editor->grip(1), QPoint(20, -30)); // the top edge, up only
        QCOMPARE(editor->rect(), QRect(QPoint(150, 70), QPoint(320, 210)));
        QCOMPARE(changes.count(), 2);
        QCOMPARE(rect->pointAt(1), toPlot(main, QPointF(320, 210)));
        // Moved by its body, deselected by a press elsewhere.
        QWidget *canvas = canvasOf(main);
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(200, 150), Qt::LeftButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseMove, QPoint(250, 160), Qt::NoButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(250, 160), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(editor->rect(), QRect(QPoint(200, 80), QPoint(370, 220)));
        QCOMPARE(rect->pointAt(0), toPlot(main, QPointF(200, 80)));
        sendMouse(canvas, QEvent::MouseButtonPress, QPoint(600, 20), Qt::LeftButton, Qt::LeftButton);
        sendMouse(canvas, QEvent::MouseButtonRelease, QPoint(600, 20), Qt::LeftButton, Qt::NoButton);
        QVERIFY(!rect->isSelected());
        QVERIFY(!editor->grip(4)->isVisible());
        // Anchored in (bar, price): it follows the view.
        chart->ZoomIn(1);
        QTRY_VERIFY(editor->rect().topLeft() != QPoint(200, 80));
        VERIFY_HANDLES_ON_ANCHORS(chart);
    }

    void triangleIsAlwaysSolid()
    {
        auto *triangle = static_cast<PlotTriangleMark *>(
            draw(chart, main, 23, QPoint(100, 100), QPoint(130, 200)));
        QCOMPARE(handleCentre(triangle, 1), QPoint(160, 100)); // sixty pixels right
        triangle->setLineStyle(Qt::DashLine);
        triangle->setSelected(false);
        triangle->setVisible(false);
        main->replot();
        const QImage without = canvasOf(main)->grab().toImage();
        triangle->setVisible(true);
        main->replot();
        const QImage with = canvasOf(main)->grab().toImage();
        // A dashed side would leave gaps along y = 100.
        for (int x = 102; x < 158; ++x) {
            bool drawn = false;
            for (int y = 99; y <= 101; ++y)
                drawn = drawn || with.pixel(x, y) != without.pixel(x, y);
            QVERIFY2(drawn, qPrintable(QString::number(x)));
        }
    }

    void hitTests_data()
    {
        QTest::addColumn<long>("type");
        QTest::addColumn<QPoint>("probe");
        QTest::addColumn<bool>("hit");
        // Each drawn from (100, 150) to (300, 150), or as a box to (300, 250).
        QTest::newRow("pitchfork median beyond the centre") << 8L << QPoint(500, 150) << true;
        QTest::newRow("pitchfork tine") << 8L << QPoint(500, 52) << true;
        QTest::newRow("pitchfork, reaction segment") << 8L << QPoint(300, 200) << true;
        QTest::newRow("pitchfork, between tines") << 8L << QPoint(500, 100) << false;
        QTest::newRow("channel base") << 7L << QPoint(200, 152) << true;
        QTest::newRow("channel, inside the band") << 7L << QPoint(200, 180) << true;
        QTest::newRow("channel, beyond its times") << 7L << QPoint(320, 180) << false;
        QTest::newRow("channel, under the parallel") << 7L << QPoint(200, 209) << false;
        QTest::newRow("triangle side") << 23L << QPoint(130, 149) << true;
        QTest::newRow("triangle, inside") << 23L << QPoint(200, 170) << false;
        QTest::newRow("ellipse outline") << 22L << QPoint(200, 152) << true;
        QTest::newRow("ellipse, its centre") << 22L << QPoint(200, 200) << false;
        QTest::newRow("rectangle, inside") << 10L << QPoint(200, 200) << true;
        QTest::newRow("rectangle, 2 px out") << 10L << QPoint(302, 200) << true;
        QTest::newRow("rectangle, 4 px out") << 10L << QPoint(304, 200) << false;
    }
    void hitTests()
    {
        QFETCH(long, type);
        QFETCH(QPoint, probe);
        QFETCH(bool, hit);
        const bool box = type == 10 || type == 22 || type == 23;
        MarkSelfDraw *m = draw(chart, main, type, QPoint(100, 150),
                               box ? QPoint(300, 250) : QPoint(300, 150));
        QVERIFY(m);
        QCOMPARE(m->hitTest(probe.x(), probe.y()), hit);
    }

    // Nothing to draw, or the anchors far away (a level millions of
    // pixels off): the chart still renders at once and the handles of a
    // mark of no size stay under the pointer.
    void badGeometry_data()
    {
        QTest::addColumn<long>("type");
        for (long type : {4L, 5L, 7L, 8L, 10L, 22L, 23L, 25L, 26L})
            QTest::newRow(qPrintable(QString::number(type))) << type;
    }
    void badGeometry()
    {
        QFETCH(long, type);
        const QPoint at(300, 150);
        MarkSelfDraw *m = draw(chart, main, type, at, at);
        QVERIFY(m);
        QWidget *under = canvasOf(main)->childAt(at);
        QVERIFY2(under && under != canvasOf(main), "no handle under a mark of no size");
        chart->grab();
        for (int i = 0; i < m->count(); ++i)
            m->setPoint(i, QPointF(150 + 1e7 * (i % 2), i == 1 ? 1e12 : -1e9 * i));
        m->setHovered(true);
        chart->grab();
        main->replot();
        // One anchor in view, the next a million screens away.
        m->setPoint(0, toPlot(main, QPointF(200, 100)));
        chart->grab();
    }

    void hugeShapesShowTheirVisibleEdge_data()
    {
        QTest::addColumn<long>("type");
        QTest::newRow("ellipse") << 22L;
        QTest::newRow("rectangle") << 10L;
    }
    void hugeShapesShowTheirVisibleEdge()
    {
        QFETCH(long, type);
        MarkSelfDraw *m = draw(chart, main, type, QPoint(100, 100), QPoint(200, 200));
        // A box from far left to far right whose top edge crosses the
        // canvas at y = 120 (the ellipse's top is flat there).
        const QPointF top = toPlot(main, QPointF(0, 120));
        const QPointF bottom = toPlot(main, QPointF(0, 5e7));
        m->setPoint(0, QPointF(-1e7, top.y()));
        const int last = type == 22 ? 4 : 1;
        m->setPoint(last, QPointF(1e7, bottom.y()));
        const QImage image = paintedMagenta(m);
        QVERIFY(markAt(image, QPointF(300, 120)));
        QVERIFY(!markAt(image, QPointF(300, 60)));
    }

private:
    TestChart *chart = nullptr;
    Plot *main = nullptr;
};

QTEST_MAIN(tst_ShapeMarks)
#include "tst_shapemarks.moc"
