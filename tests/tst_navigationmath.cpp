// The navigation arithmetic on its own: displayed <-> logical ranges, scroll
// limits with their margins, clamping and snapping, the at-end test and the
// pan accumulator.
#include <QtTest>

#include "panaccumulator.h"
#include "scrolllimits.h"
#include "viewrange.h"

#include <cmath>

class tst_NavigationMath : public QObject
{
    Q_OBJECT

private:
    // 100 bars at x = 0..99 on an 800 px canvas at zoom 1 (50 bars), candles
    // 11 px wide, 10 px kept free on the left.
    static ScrollLimits standardLimits()
    {
        ScrollLimits l;
        l.update(0.0, 99.0, 50.0, 11.0, 10, 1.0);
        return l;
    }

private Q_SLOTS:
    void viewRange_data()
    {
        QTest::addColumn<double>("x1");
        QTest::addColumn<double>("x2");
        QTest::addColumn<double>("zoom");
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("upper");
        QTest::newRow("zoom 1 is the identity") << 0.0 << 100.0 << 1.0 << 0.0 << 100.0;
        QTest::newRow("zoom in halves around the centre") << 0.0 << 100.0 << 0.5 << 25.0 << 75.0;
        QTest::newRow("zoom out doubles") << 10.0 << 20.0 << 2.0 << 5.0 << 25.0;
        QTest::newRow("widest zoom") << -5.0 << 5.0 << 8.0 << -40.0 << 40.0;
        QTest::newRow("fractional range") << 49.03125 << 99.03125 << 0.125 << 70.90625 << 77.15625;
    }
    void viewRange()
    {
        QFETCH(double, x1);
        QFETCH(double, x2);
        QFETCH(double, zoom);
        QFETCH(double, lower);
        QFETCH(double, upper);
        const ViewRange d = ViewRange::fromLogical(x1, x2, zoom);
        QCOMPARE(d.lower(), lower);
        QCOMPARE(d.upper(), upper);
        double back1, back2;
        d.toLogical(zoom, back1, back2);
        QCOMPARE(back1, x1);
        QCOMPARE(back2, x2);
    }

    void limits_data()
    {
        QTest::addColumn<double>("visible");
        QTest::addColumn<double>("candle");
        QTest::addColumn<double>("zoom");
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("right");
        // half candle 11 px = 0.34375 bars; 10 px = 0.625 bars; 25 px = 1.5625 bars
        QTest::newRow("zoom 1, fraction .125 goes right") << 50.0 << 11.0 << 1.0 << 0.96875 << 2.03125;
        QTest::newRow("zoom 2 doubles the margins") << 100.0 << 11.0 << 2.0 << 1.9375 << 4.0625;
        QTest::newRow("no trading curve: 8 px") << 50.0 << 8.0 << 1.0 << 0.875 << 2.125;
        QTest::newRow("margins wider than the view: no fraction") << 2.0 << 11.0 << 1.0 << 0.96875 << 1.90625;
    }
    void limits()
    {
        QFETCH(double, visible);
        QFETCH(double, candle);
        QFETCH(double, zoom);
        QFETCH(double, left);
        QFETCH(double, right);
        ScrollLimits l;
        l.update(0.0, 99.0, visible, candle, 10, zoom);
        QCOMPARE(l.leftMargin(), left);
        QCOMPARE(l.rightMargin(), right);
        QCOMPARE(l.minX(), -left);
        QCOMPARE(l.maxX(), 99.0 + right);
        // A view at either end holds a whole number of bars.
        const double rest = visible - left - right;
        if (rest > 0)
            QCOMPARE(rest, std::floor(rest));
    }

    void visibleSpan()
    {
        QCOMPARE(ScrollLimits::visibleSpan(800, 1.0), 50.0);
        QCOMPARE(ScrollLimits::visibleSpan(800, 0.125), 6.25);
        QCOMPARE(ScrollLimits::visibleSpan(800, 8.0), 400.0);
    }

    void clamp_data()
    {
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("upper");
        QTest::addColumn<double>("expectedLower");
        QTest::addColumn<double>("expectedUpper");
        QTest::newRow("inside stays") << 10.0 << 60.0 << 10.0 << 60.0;
        QTest::newRow("past the newest bar") << 90.0 << 140.0 << 51.03125 << 101.03125;
        QTest::newRow("before the oldest bar") << -20.0 << 30.0 << -0.96875 << 49.03125;
        QTest::newRow("wider than the limits: the right end wins")
            << -50.0 << 200.0 << -148.96875 << 101.03125;
    }
    void clamp()
    {
        QFETCH(double, lower);
        QFETCH(double, upper);
        QFETCH(double, expectedLower);
        QFETCH(double, expectedUpper);
        const ViewRange r = standardLimits().clamp(ViewRange(lower, upper));
        QCOMPARE(r.lower(), expectedLower);
        QCOMPARE(r.upper(), expectedUpper);
    }

    void snap_data()
    {
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("expectedLower");
        // the offset is half a candle plus the left margin: 0.96875 bars
        QTest::newRow("rounds down") << 10.3 << 10.03125;
        QTest::newRow("rounds up") << 10.6 << 11.03125;
        QTest::newRow("already whole") << -0.96875 << -0.96875;
        QTest::newRow("negative") << -3.2 << -2.96875;
    }
    void snap()
    {
        QFETCH(double, lower);
        QFETCH(double, expectedLower);
        const ViewRange r = standardLimits().snap(ViewRange(lower, lower + 50.0), 11.0);
        QCOMPARE(r.lower(), expectedLower);
        QCOMPARE(r.width(), 50.0);
    }

    void atEnd_data()
    {
        QTest::addColumn<double>("upper");
        QTest::addColumn<bool>("atEnd");
        // maxX 101.03125, right margin 2.03125: at the end within 4.0625
        QTest::newRow("at maxX") << 101.03125 << true;
        QTest::newRow("within two margins") << 97.0 << true;
        QTest::newRow("just beyond") << 96.9 << false;
        QTest::newRow("far back") << 40.0 << false;
        QTest::newRow("past maxX") << 120.0 << true;
    }
    void atEnd()
    {
        QFETCH(double, upper);
        QFETCH(bool, atEnd);
        QCOMPARE(standardLimits().isAtEnd(upper), atEnd);
    }

    void panAccumulator_data()
    {
        QTest::addColumn<QVector<double>>("motions");
        QTest::addColumn<QVector<double>>("applied");
        QTest::addColumn<double>("pending");
        QTest::newRow("one wheel notch passes at once") << QVector<double>{-120} << QVector<double>{-120} << 0.0;
        QTest::newRow("small steps wait") << QVector<double>{3, 3, 3} << QVector<double>{} << 9.0;
        QTest::newRow("small steps add up") << QVector<double>{3, 3, 3, 3} << QVector<double>{12} << 0.0;
        QTest::newRow("exactly the threshold") << QVector<double>{9, 0.5, 0.5} << QVector<double>{10} << 0.0;
        QTest::newRow("a turn restarts from the new motion")
            << QVector<double>{-4, 3} << QVector<double>{3} << 0.0;
        QTest::newRow("a cancelling motion applies itself")
            << QVector<double>{5, -5} << QVector<double>{-5} << 0.0;
        QTest::newRow("steps after a pan start again")
            << QVector<double>{12, 4, 4} << QVector<double>{12} << 8.0;
    }
    void panAccumulator()
    {
        QFETCH(QVector<double>, motions);
        QFETCH(QVector<double>, applied);
        QFETCH(double, pending);
        PanAccumulator acc;
        QVector<double> got;
        for (double d : motions) {
            if (acc.add(d))
                got << acc.take();
        }
        QCOMPARE(got, applied);
        QCOMPARE(acc.pending(), pending);
    }
};

QTEST_APPLESS_MAIN(tst_NavigationMath)
#include "tst_navigationmath.moc"
