// The navigation arithmetic on its own: displayed <-> logical ranges, scroll
// limits, clamping and snapping, the at-end test and the pan accumulator.
#include <QtTest>

#include "panaccumulator.h"
#include "scrolllimits.h"
#include "viewrange.h"

class tst_NavigationMath : public QObject
{
    Q_OBJECT

    // 100 bars on an 800 px canvas at zoom 1 (50 bars), 11 px candles, 10 px
    // free on the left: margins 0.96875 and 2.03125, limits [-0.96875, 101.03125].
    static ScrollLimits standard()
    {
        ScrollLimits l;
        l.update(0.0, 99.0, ScrollLimits::visibleSpan(800, 1.0), 11.0, 10, 1.0);
        return l;
    }

private Q_SLOTS:
    void viewRange_data()
    {
        QTest::addColumn<QVector<double>>("io"); // x1, x2, zoom -> lower, upper
        QTest::newRow("zoom 1") << QVector<double>{0, 100, 1, 0, 100};
        QTest::newRow("zoom in halves around the centre") << QVector<double>{0, 100, 0.5, 25, 75};
        QTest::newRow("zoom out doubles") << QVector<double>{10, 20, 2, 5, 25};
        QTest::newRow("widest") << QVector<double>{-5, 5, 8, -40, 40};
    }
    void viewRange()
    {
        QFETCH(QVector<double>, io);
        const ViewRange d = ViewRange::fromLogical(io[0], io[1], io[2]);
        QCOMPARE(d.lower(), io[3]);
        QCOMPARE(d.upper(), io[4]);
        double x1, x2;
        d.toLogical(io[2], x1, x2);
        QCOMPARE(x1, io[0]);
        QCOMPARE(x2, io[1]);
    }

    void limits_data()
    {
        QTest::addColumn<QVector<double>>("io"); // visible, candle px, zoom -> left, right
        // half an 11 px candle is 0.34375 bars, 10 px 0.625, 25 px 1.5625
        QTest::newRow("fraction .125 goes right") << QVector<double>{50, 11, 1, 0.96875, 2.03125};
        QTest::newRow("zoom 2 doubles the margins") << QVector<double>{100, 11, 2, 1.9375, 4.0625};
        QTest::newRow("no trading curve: 8 px") << QVector<double>{50, 8, 1, 0.875, 2.125};
        QTest::newRow("view narrower than the margins") << QVector<double>{2, 11, 1, 0.96875, 1.90625};
    }
    void limits()
    {
        QFETCH(QVector<double>, io);
        ScrollLimits l;
        l.update(0.0, 99.0, io[0], io[1], 10, io[2]);
        QCOMPARE(l.leftMargin(), io[3]);
        QCOMPARE(l.rightMargin(), io[4]);
        QCOMPARE(l.minX(), -io[3]);
        QCOMPARE(l.maxX(), 99.0 + io[4]);
    }

    void clampAndSnap_data()
    {
        QTest::addColumn<bool>("snap");
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("expected"); // the width (50) is kept
        QTest::newRow("inside stays") << false << 10.0 << 10.0;
        QTest::newRow("past the newest bar") << false << 90.0 << 51.03125;
        QTest::newRow("before the oldest bar") << false << -20.0 << -0.96875;
        QTest::newRow("snap down") << true << 10.3 << 10.03125;
        QTest::newRow("snap up") << true << 10.6 << 11.03125;
        QTest::newRow("snap negative") << true << -3.2 << -2.96875;
        QTest::newRow("at the left limit already whole") << true << -0.96875 << -0.96875;
    }
    void clampAndSnap()
    {
        QFETCH(bool, snap);
        QFETCH(double, lower);
        QFETCH(double, expected);
        const ViewRange in(lower, lower + 50.0);
        const ViewRange r = snap ? standard().snap(in, 11.0) : standard().clamp(in);
        QCOMPARE(r.lower(), expected);
        QCOMPARE(r.width(), 50.0);
    }

    void wideRangeKeepsTheRightEnd()
    {
        const ViewRange r = standard().clamp(ViewRange(-50.0, 200.0));
        QCOMPARE(r.upper(), 101.03125);
        QCOMPARE(r.width(), 250.0);
    }

    void atEnd_data()
    {
        QTest::addColumn<double>("upper");
        QTest::addColumn<bool>("atEnd");
        QTest::newRow("at maxX") << 101.03125 << true;
        QTest::newRow("within two right margins") << 97.0 << true;
        QTest::newRow("just beyond") << 96.9 << false;
        QTest::newRow("running past maxX") << 120.0 << true;
    }
    void atEnd()
    {
        QFETCH(double, upper);
        QFETCH(bool, atEnd);
        QCOMPARE(standard().isAtEnd(upper), atEnd);
    }

    void panAccumulator_data()
    {
        QTest::addColumn<QVector<double>>("motions");
        QTest::addColumn<QVector<double>>("applied");
        QTest::addColumn<double>("pending");
        QTest::newRow("a wheel notch passes at once") << QVector<double>{-120} << QVector<double>{-120} << 0.0;
        QTest::newRow("small steps wait") << QVector<double>{3, 3, 3} << QVector<double>{} << 9.0;
        QTest::newRow("and add up to the threshold") << QVector<double>{9, 0.5, 0.5} << QVector<double>{10} << 0.0;
        QTest::newRow("a turn restarts from the new motion") << QVector<double>{-4, 3} << QVector<double>{3} << 0.0;
        QTest::newRow("a cancelling motion applies itself") << QVector<double>{5, -5} << QVector<double>{-5} << 0.0;
        QTest::newRow("after a pan, wait again") << QVector<double>{12, 4, 4} << QVector<double>{12} << 8.0;
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
