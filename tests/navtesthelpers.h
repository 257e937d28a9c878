// Shared by the navigation tests: a chart fed through the exported API and
// checks on what its panels display.
#ifndef NAVTESTHELPERS_H
#define NAVTESTHELPERS_H

#include <QtTest>

#include "plot.h"
#include "plotnavigator.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

#include <qwt_plot_canvas.h>
#include <qwt_scale_div.h>

// Reaches the facade's protected layout members.
class TestChart : public PriceGraph
{
public:
    using PriceGraph::GetAllPanel;
    using PriceGraph::GetMainPanel;
    using PriceGraph::removePannels;
};

namespace navtest {

// Daily bars from 2020-06-06, prices rising slowly with a wobble.
inline void feedBars(PriceGraph &chart, int first, int count)
{
    for (int i = first; i < first + count; ++i) {
        const double base = 100.0 + i * 0.05 + (i % 7);
        chart.AppendOHLC("OHLC", 2459000.5 + i, i == first + count - 1, base, base + 2.0,
                         base - 1.5, base + 0.5, 1000 + i);
    }
}

inline Plot *mainPanel(PriceGraph &chart) { return PriceGraphPrivate::mainPanel(&chart); }
inline PlotNavigator *nav(Plot *p) { return p->getNavigator(); }
inline QwtInterval shown(Plot *p) { return p->axisScaleDiv(QwtPlot::xBottom).interval(); }

// Resizes the chart until the main panel's canvas is `width` pixels wide.
inline bool setCanvasWidth(PriceGraph &chart, int width)
{
    QWidget *canvas = mainPanel(chart)->canvas();
    for (int attempt = 0; attempt < 5 && canvas->width() != width; ++attempt) {
        chart.resize(chart.width() + width - canvas->width(), chart.height());
        QCoreApplication::processEvents(); // pending layout requests
    }
    return canvas->width() == width;
}

// Every panel not hidden shows exactly the main panel's x interval.
inline bool panelsInStep(PriceGraph &chart, QString *why = nullptr)
{
    const QList<Plot *> panels = PriceGraphPrivate::allPanels(&chart);
    const QwtInterval ref = shown(panels.first());
    for (int i = 1; i < panels.size(); ++i) {
        const QwtInterval x = shown(panels[i]);
        if (!panels[i]->isHidden() && x != ref) {
            if (why)
                *why = QStringLiteral("panel %1 shows [%2, %3], main [%4, %5]")
                           .arg(i).arg(x.minValue()).arg(x.maxValue())
                           .arg(ref.minValue()).arg(ref.maxValue());
            return false;
        }
    }
    return true;
}

inline void sendMouse(QWidget *w, QEvent::Type type, QPoint pos, Qt::MouseButton button,
                      Qt::MouseButtons held)
{
    QMouseEvent e(type, pos, w->mapToGlobal(pos), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

// Press, move by `dx` in `steps` equal steps with the button held, release.
inline void dragCanvas(QWidget *canvas, QPoint from, int dx, int steps)
{
    sendMouse(canvas, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    for (int s = 1; s <= steps; ++s)
        sendMouse(canvas, QEvent::MouseMove, from + QPoint(dx * s / steps, 0), Qt::NoButton,
                  Qt::LeftButton);
    sendMouse(canvas, QEvent::MouseButtonRelease, from + QPoint(dx, 0), Qt::LeftButton,
              Qt::NoButton);
}

} // namespace navtest

#define VERIFY_IN_STEP(chart)                                                                 \
    do {                                                                                      \
        QString why;                                                                          \
        QVERIFY2(navtest::panelsInStep(chart, &why), qPrintable(why));                        \
    } while (0)

#endif // NAVTESTHELPERS_H
