#include "pricegraphadapter.h"

#include "pricegraph.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

PriceGraphAdapter::PriceGraphAdapter()
    : m_chart(new PriceGraph)
{
    // Laid out and "visible" for Qt, but never put on a screen.
    m_chart->setAttribute(Qt::WA_DontShowOnScreen);
    paintOnlyOnRender(m_chart);
    m_chart->resize(1600, 900);
    m_chart->AddSeries(QStringLiteral("OHLC"), 0, 0, 0, 0, false);
    m_chart->AddSeries(QStringLiteral("volume"), 0, 1, 0, 0, false);
    // After the panels exist: the interval is handed to the panels there are
    // (it turns on the day separators).
    m_chart->SetInterval(60000);
    m_chart->SetcandleChart(1);
    m_chart->show();
    QCoreApplication::processEvents();
}

PriceGraphAdapter::~PriceGraphAdapter()
{
    delete m_chart;
}

QWidget *PriceGraphAdapter::widget()
{
    return m_chart;
}

void PriceGraphAdapter::settle()
{
    // What the host's event loop does between calls: coalesced replots run.
    QCoreApplication::processEvents();
}

void PriceGraphAdapter::append(const Bar &b, bool show)
{
    m_chart->AppendOHLC("OHLC", b.jd, show, b.open, b.high, b.low, b.close, b.volume);
    m_chart->AppendOHLC("volume", b.jd, show, b.open, b.high, b.low, b.close, b.volume);
    ++m_count;
}

void PriceGraphAdapter::finishLoad()
{
    settle();
}

void PriceGraphAdapter::editLast(const Bar &b)
{
    m_chart->EditOHLC("OHLC", b.jd, true, b.open, b.high, b.low, b.close, b.volume);
    m_chart->EditOHLC("volume", b.jd, true, b.open, b.high, b.low, b.close, b.volume);
    settle();
}

void PriceGraphAdapter::replot()
{
    m_chart->Update();
}

double PriceGraphAdapter::inferredViewBars() const
{
    for (QWidget *w : m_chart->findChildren<QWidget *>()) {
        if (qstrcmp(w->metaObject()->className(), "QwtPlotCanvas") == 0)
            return w->width() * 0.0625 * m_zoom;
    }
    return 100.0 * m_zoom;
}

double PriceGraphAdapter::viewNewest(double)
{
    // From zoom 1.0 (16 pixels a bar) one ZoomOut doubles the bars in view;
    // whether it did is read off the screen.
    if (m_probe.isNull())
        m_probe = makeImage();
    m_chart->ResetZoom();
    settle();
    replot();
    render(m_probe);
    const QImage before = m_probe.copy();
    m_chart->ZoomOut(1);
    settle();
    replot();
    render(m_probe);
    m_zoom = m_probe == before ? 1.0 : 2.0;
    return inferredViewBars();
}

double PriceGraphAdapter::viewWidest(double)
{
    // ZoomOut until it stops; a step that changes nothing on screen is the
    // one that was refused.
    if (m_probe.isNull())
        m_probe = makeImage();
    replot();
    render(m_probe);
    QImage before = m_probe.copy();
    for (int i = 0; i < 8; ++i) {
        m_chart->ZoomOut(1);
        settle();
        replot();
        render(m_probe);
        if (m_probe == before)
            break;
        m_zoom *= 2.0;
        before = m_probe.copy();
    }
    return inferredViewBars();
}

void PriceGraphAdapter::viewMiddle(double)
{
    viewNewest(0);
    m_chart->ScrollLeft(m_count / 2);
    settle();
}

bool PriceGraphAdapter::addMarks(int count, int spreadBars)
{
    // The price panel's canvas is the topmost one.
    QWidget *canvas = nullptr;
    for (QWidget *w : m_chart->findChildren<QWidget *>()) {
        if (w->inherits("QwtPlotCanvas")
            && (!canvas || w->mapTo(m_chart, QPoint()).y() < canvas->mapTo(m_chart, QPoint()).y()))
            canvas = w;
    }
    if (!canvas)
        return false;
    auto send = [canvas](QEvent::Type type, QPoint at, Qt::MouseButtons held) {
        QMouseEvent e(type, at, canvas->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(canvas, &e);
    };
    const int groups = spreadBars > 0 ? 20 : 1;
    const long stride = spreadBars / groups;
    if (spreadBars > 0)
        m_chart->ScrollLeft(spreadBars / 2);
    const int w = canvas->width(), h = canvas->height();
    for (int i = 0; i < count; ++i) {
        if (spreadBars > 0 && i > 0 && i % (count / groups) == 0)
            m_chart->ScrollRight(stride);
        // Lines of every slope and length, anywhere on the canvas.
        const QPoint from(20 + (i * 37) % (w - 240), 20 + (i * 53) % (h - 140));
        const QPoint to = from + QPoint(40 + (i * 29) % 200, (i * 41) % 120 - 60);
        m_chart->SetCursorType(2);
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, (from + to) / 2, Qt::LeftButton);
        send(QEvent::MouseMove, to, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    }
    // Deselected, as a trader leaves them.
    send(QEvent::MouseButtonPress, QPoint(w - 2, 2), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, QPoint(w - 2, 2), Qt::NoButton);
    if (spreadBars > 0)
        m_chart->ScrollLeft(stride * (groups - 1) - spreadBars / 2);
    settle();
    return true;
}

void PriceGraphAdapter::step(int direction)
{
    if (direction > 0)
        m_chart->ScrollRight(1);
    else
        m_chart->ScrollLeft(1);
    settle();
}
