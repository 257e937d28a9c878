// The handle drag helper: a child widget follows the left button inside its
// parent, along one axis when locked, and reports every move.
#include <QtTest>

#include "chartevents.h"
#include "makedrag.h"

namespace {

// Counts the drag events a widget receives.
class Handle : public QWidget
{
public:
    using QWidget::QWidget;
    int drags = 0;
    int releases = 0;

protected:
    bool event(QEvent *e) override
    {
        if (e->type() == ChartEvents::handleDrag())
            ++drags;
        if (e->type() == QEvent::MouseButtonRelease)
            ++releases;
        return QWidget::event(e);
    }
};

bool send(QWidget *w, QEvent::Type type, QPoint pos, Qt::MouseButton button,
          Qt::MouseButtons held)
{
    QMouseEvent e(type, pos, w->mapToGlobal(pos), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
    return e.isAccepted();
}

} // namespace

class tst_MakeDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        parent.reset(new QWidget);
        parent->resize(200, 200);
        handle = new Handle(parent.data());
        handle->setGeometry(50, 50, 15, 15);
        drag = new MakeDrag;
        drag->attachTo(handle);
    }
    void cleanup() { parent.reset(); }

    void followsTheLeftButton_data()
    {
        QTest::addColumn<int>("lock");
        QTest::addColumn<QPoint>("to"); // where the mouse goes, in the parent
        QTest::addColumn<QPoint>("expected");
        // Pressed 3,4 into the handle: the handle keeps that offset.
        QTest::newRow("free") << 0 << QPoint(120, 90) << QPoint(117, 86);
        QTest::newRow("vertical only") << 1 << QPoint(120, 90) << QPoint(50, 86);
        QTest::newRow("horizontal only") << 2 << QPoint(120, 90) << QPoint(117, 50);
        QTest::newRow("out of the parent") << 0 << QPoint(-40, 500) << QPoint(-43, 496);
    }
    void followsTheLeftButton()
    {
        QFETCH(int, lock);
        QFETCH(QPoint, to);
        QFETCH(QPoint, expected);
        drag->setAxisLock(lock);
        QVERIFY(send(handle, QEvent::MouseButtonPress, QPoint(3, 4), Qt::LeftButton,
                     Qt::LeftButton));
        // A press reports where the handle is, without moving it.
        QCOMPARE(handle->pos(), QPoint(50, 50));
        QCOMPARE(handle->drags, 1);
        send(handle, QEvent::MouseMove, handle->mapFromParent(to), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(handle->pos(), expected);
        QCOMPARE(handle->drags, 2);
        // The release is not the helper's: the widget sees it.
        send(handle, QEvent::MouseButtonRelease, QPoint(3, 4), Qt::LeftButton, Qt::NoButton);
        QCOMPARE(handle->releases, 1);
    }

    void otherButtonsNeitherMoveNorReport()
    {
        send(handle, QEvent::MouseButtonPress, QPoint(3, 4), Qt::LeftButton, Qt::LeftButton);
        send(handle, QEvent::MouseButtonPress, QPoint(9, 9), Qt::RightButton, Qt::RightButton);
        QCOMPARE(handle->drags, 1);
        send(handle, QEvent::MouseMove, QPoint(30, 30), Qt::NoButton, Qt::RightButton);
        QCOMPARE(handle->pos(), QPoint(50, 50));
        QCOMPARE(handle->drags, 1);
        // The right press stored nothing: the left offset still holds.
        send(handle, QEvent::MouseMove, QPoint(13, 14), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(handle->pos(), QPoint(60, 60));
    }

    void nullAndNonWidgetParents()
    {
        MakeDrag lone;
        lone.attachTo(nullptr);
        QCOMPARE(lone.parent(), nullptr);
        QObject plain;
        auto *onObject = new MakeDrag;
        onObject->attachTo(&plain);
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QVERIFY(!QCoreApplication::sendEvent(&plain, &press)); // stored, nothing moved
    }

private:
    QScopedPointer<QWidget> parent;
    Handle *handle = nullptr;
    MakeDrag *drag = nullptr;
};

QTEST_MAIN(tst_MakeDrag)
#include "tst_makedrag.moc"
