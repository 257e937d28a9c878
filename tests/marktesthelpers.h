// Shared by the drawing tool tests: a shown chart with bars, and gestures
// walked through a panel's canvas with the left button held.
#ifndef MARKTESTHELPERS_H
#define MARKTESTHELPERS_H

#include <QtTest>

#include "markgeometry.h"
#include "markregistry.h"
#include "markselfdraw.h"
#include "navtesthelpers.h"

#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

namespace marktest {

using navtest::sendMouse;

// An 800 x 600 chart on screen: 300 daily bars in the main panel, an
// indicator in a second panel, laid out and drawn.
inline TestChart *shownChart()
{
    auto *chart = new TestChart;
    chart->resize(800, 600);
    chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
    chart->AddSeries(QStringLiteral("MA*255"), 0, 1, 0, 0, false);
    navtest::feedBars(*chart, 0, 300);
    for (int i = 0; i < 300; ++i)
        chart->AppendValue("MA", 2459000.5 + i, 100.0 + i * 0.05, i == 299);
    chart->show();
    if (!QTest::qWaitForWindowExposed(chart))
        qWarning("the chart was not exposed");
    chart->Update();
    QCoreApplication::processEvents();
    return chart;
}

inline QWidget *canvasOf(Plot *p) { return p->canvas(); }
inline MarkRegistry *registry(PriceGraph *chart) { return PriceGraphPrivate::markRegistryOf(chart); }

// Press at `from`, `steps` moves to `to` with the left button held, release.
inline void gesture(QWidget *w, QPoint from, QPoint to, int steps = 4)
{
    sendMouse(w, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int s = 1; s <= steps; ++s)
        sendMouse(w, QEvent::MouseMove, from + (to - from) * s / steps, Qt::NoButton,
                  Qt::LeftButton);
    sendMouse(w, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

// Chooses the tool and draws it on `panel`; the new mark, or null.
inline MarkSelfDraw *draw(PriceGraph *chart, Plot *panel, long type, QPoint from, QPoint to)
{
    const QList<MarkSelfDraw *> before = registry(chart)->all();
    chart->SetCursorType(type);
    gesture(canvasOf(panel), from, to);
    for (MarkSelfDraw *m : registry(chart)->all()) {
        if (!before.contains(m))
            return m;
    }
    return nullptr;
}

// Drags a handle (or grip) widget by `delta` with the left button.
inline void dragHandle(QWidget *handle, QPoint delta)
{
    const QPoint centre(7, 7);
    sendMouse(handle, QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseMove, centre + delta, Qt::NoButton, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseButtonRelease, centre + delta, Qt::LeftButton, Qt::NoButton);
}

// Pixel tests paint the mark magenta: nothing else on the chart is.
inline bool magenta(QRgb p) { return qRed(p) > 90 && qBlue(p) > 90 && qGreen(p) < qRed(p) / 2; }

// A magenta pixel within one of `at` (antialiased lines spread).
inline bool markAt(const QImage &image, QPointF at)
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const QPoint p = at.toPoint() + QPoint(dx, dy);
            if (image.rect().contains(p) && magenta(image.pixel(p)))
                return true;
        }
    }
    return false;
}

// The canvas of `m`'s panel as drawn, the mark magenta and unselected.
inline QImage paintedMagenta(MarkSelfDraw *m)
{
    m->setColor(QColor(255, 0, 255));
    m->setSelected(false);
    m->plot()->replot();
    return m->plot()->canvas()->grab().toImage();
}

// Plot coordinates of a canvas pixel of `panel`.
inline QPointF toPlot(Plot *panel, QPointF pos)
{
    return QwtScaleMap::invTransform(panel->canvasMap(QwtPlot::xBottom),
                                     panel->canvasMap(QwtPlot::yRight), pos);
}

// Canvas pixel of anchor i, as the mark places its handle.
inline QPoint anchorPixel(MarkSelfDraw *m, int i)
{
    const QPointF p = m->pointAt(i);
    return QPoint(MarkGeometry::toPixel(m->plot()->transform(QwtPlot::xBottom, p.x())),
                  MarkGeometry::toPixel(m->plot()->transform(QwtPlot::yRight, p.y())));
}

inline QPoint handleCentre(MarkSelfDraw *m, int i)
{
    QPoint c;
    m->handleCenter(i, c);
    return c;
}

// Every handle of every mark stands on its anchor.
inline bool handlesOnAnchors(PriceGraph *chart, QString *why)
{
    for (MarkSelfDraw *m : registry(chart)->all()) {
        for (int i = 0; i < m->count(); ++i) {
            if (handleCentre(m, i) != anchorPixel(m, i)) {
                const QPoint h = handleCentre(m, i), a = anchorPixel(m, i);
                *why = QStringLiteral("handle %1 at (%2, %3), its anchor at (%4, %5)")
                           .arg(i).arg(h.x()).arg(h.y()).arg(a.x()).arg(a.y());
                return false;
            }
        }
    }
    return true;
}

} // namespace marktest

#define VERIFY_HANDLES_ON_ANCHORS(chart)                                                      \
    do {                                                                                      \
        QString why;                                                                          \
        QVERIFY2(marktest::handlesOnAnchors(chart, &why), qPrintable(why));                   \
    } while (0)

#endif // MARKTESTHELPERS_H
