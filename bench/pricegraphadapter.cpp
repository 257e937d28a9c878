#include "pricegraphadapter.h"

#include "pricegraph.h"

#include <QCoreApplication>
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

void PriceGraphAdapter::step(int direction)
{
    if (direction > 0)
        m_chart->ScrollRight(1);
    else
        m_chart->ScrollLeft(1);
    settle();
}
