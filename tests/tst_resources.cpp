// Every image that the library's style sheets and the host toolbars name is
// compiled in, under its exact name, and loads at the size it is shown at.
#include <QtTest>

#include "pricegraph.h"

#include <QImage>

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { chart.reset(new PriceGraph); } // registers the resources
    void cleanupTestCase() { chart.reset(); }

    void imageLoads_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("size");
        QTest::addColumn<bool>("opaque");
        auto row = [](const char *path, int size, bool opaque = false) {
            QTest::newRow(path) << QString::fromLatin1(path) << size << opaque;
        };
        // Scroll bar arrows sit on a red background in their style sheet.
        row(":/Icons/Resources/icon-left-arrow.png", 12, true);
        row(":/Icons/Resources/icon-right-arrow.png", 12, true);
        row(":/Icons/Resources/icon-zoomin.png", 14);
        row(":/Icons/Resources/icon-zoomin-1.png", 14);
        row(":/Icons/Resources/icon-zoomout.png", 14);
        row(":/Icons/Resources/icon-zoomout-1.png", 14);
        row(":/Icons/Resources/icon_point.png", 15);
        row(":/Icons/Resources/icon_point2.png", 15);
        row(":/Icons/Resources/icon_point3.png", 15);
        row(":/Icon/Resources/icon_pen_0.bmp", 14, true);
        row(":/Icon/Resources/icon_pen_1.bmp", 14, true);
        row(":/Icon/Resources/icon_close_0.bmp", 14, true);
        row(":/Icon/Resources/icon_close_1.bmp", 14, true);
        row(":/Icon/Resources/icom_close_blue_0.bmp", 14, true);
        row(":/Icon/Resources/icom_close_blue_1.png", 14, true);
        row(":/Line/Resources/line/icon-trendline.png", 16);
        row(":/Line/Resources/line/icon-ray.png", 16);
        row(":/Line/Resources/line/icon-horizontal.png", 16);
        row(":/Line/Resources/line/icon-vertical.png", 16);
        row(":/Fibonacci/Resources/fibonacci/icon-retracement.png", 16);
        row(":/Fibonacci/Resources/fibonacci/icon-fan.png", 16);
        row(":/Fibonacci/Resources/fibonacci/icon-expansion.png", 16);
        row(":/Fibonacci/Resources/fibonacci/icon-timezones.png", 16);
        row(":/Polygon/Resources/iconPolygons/icon-rectangle.png", 16);
        row(":/Polygon/Resources/iconPolygons/icon-ellipse.png", 16);
        row(":/Polygon/Resources/iconPolygons/icon-triangle.png", 16);
        row(":/Objects/Resources/iconChartObjects/icon-pitchfork.png", 16);
        row(":/Objects/Resources/iconChartObjects/icon-channel.png", 16);
        row(":/Single/Resources/single/icon-arrow.png", 16);
        row(":/Single/Resources/single/icon-crosshair.png", 16);
        row(":/Single/Resources/single/icon-pan.png", 16);
    }
    void imageLoads()
    {
        QFETCH(QString, path);
        QFETCH(int, size);
        QFETCH(bool, opaque);
        const QImage img(path);
        QVERIFY2(!img.isNull(), qPrintable(path));
        QCOMPARE(img.size(), QSize(size, size));
        // Something is drawn: not a blank or single-colour square.
        QSet<QRgb> colours;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                colours.insert(img.pixel(x, y));
        QVERIFY(colours.size() > 2);
        if (opaque) {
            for (int y = 0; y < img.height(); ++y)
                for (int x = 0; x < img.width(); ++x)
                    QCOMPARE(qAlpha(img.pixel(x, y)), 255);
        }
    }

private:
    QScopedPointer<PriceGraph> chart;
};

QTEST_MAIN(tst_Resources)
#include "tst_resources.moc"
