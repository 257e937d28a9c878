#include "qwtadapter.h"

#include <QDateTime>
#include <QVBoxLayout>
#include <QWidget>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_tradingcurve.h>
#include <qwt_scale_draw.h>

#include <algorithm>
#include <cmath>

namespace {

// Bar index -> its time, the usual way to put dates on a gap-free axis.
class IndexTimeScaleDraw : public QwtScaleDraw
{
public:
    explicit IndexTimeScaleDraw(const QVector<double> *times) : m_times(times) {}
    QwtText label(double v) const override
    {
        const int i = int(std::lround(v));
        if (i < 0 || i >= m_times->size())
            return QwtText();
        return QDateTime::fromMSecsSinceEpoch(qint64((*m_times)[i]), Qt::UTC)
            .toString(QStringLiteral("dd.MM hh:mm"));
    }

private:
    const QVector<double> *m_times;
};

QwtPlot *makePlot(QWidget *parent)
{
    auto *plot = new QwtPlot(parent);
    plot->enableAxis(QwtPlot::yLeft, false);
    plot->enableAxis(QwtPlot::yRight, true);
    plot->setCanvasBackground(QColor(0x0c, 0x0c, 0x0c));
    plot->plotLayout()->setCanvasMargin(0, -1);
    auto *grid = new QwtPlotGrid;
    grid->setMajorPen(QColor(34, 34, 34), 0, Qt::SolidLine);
    grid->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    grid->attach(plot);
    return plot;
}

} // namespace

QwtAdapter::QwtAdapter()
    : m_window(new QWidget)
{
    m_window->setAttribute(Qt::WA_DontShowOnScreen);
    paintOnlyOnRender(m_window);
    auto *layout = new QVBoxLayout(m_window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);

    m_price = makePlot(m_window);
    m_price->enableAxis(QwtPlot::xBottom, false);
    m_candles = new QwtPlotTradingCurve;
    m_candles->setOrientation(Qt::Vertical);
    m_candles->setSymbolStyle(QwtPlotTradingCurve::CandleStick);
    m_candles->setSymbolExtent(0.6);
    m_candles->setSymbolPen(QColor(0xb2, 0xb2, 0x00), 0, Qt::SolidLine);
    m_candles->setSymbolBrush(QwtPlotTradingCurve::Increasing, QColor(0x1d, 0xff, 0x00));
    m_candles->setSymbolBrush(QwtPlotTradingCurve::Decreasing, QColor(0xd9, 0x12, 0x00));
    m_candles->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    m_candles->attach(m_price);

    m_volume = makePlot(m_window);
    m_volume->setAxisScaleDraw(QwtPlot::xBottom, new IndexTimeScaleDraw(&m_times));
    m_histogram = new QwtPlotHistogram;
    m_histogram->setStyle(QwtPlotHistogram::Columns);
    m_histogram->setPen(QPen(Qt::NoPen));
    m_histogram->setBrush(QColor(0x40, 0x70, 0xb0));
    m_histogram->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    m_histogram->attach(m_volume);

    layout->addWidget(m_price, 2);
    layout->addWidget(m_volume, 1);
    m_window->resize(1600, 900);
    m_window->show();
}

QwtAdapter::~QwtAdapter()
{
    delete m_window;
}

void QwtAdapter::handOver()
{
    m_candles->setSamples(m_ohlc);
    m_histogram->setSamples(m_volumes);
}

void QwtAdapter::setView(double lower, double upper)
{
    m_lower = lower;
    m_price->setAxisScale(QwtPlot::xBottom, lower, upper);
    m_volume->setAxisScale(QwtPlot::xBottom, lower, upper);
    // Prices and volumes of the bars in view set the vertical scales.
    const int first = std::max(0, int(std::ceil(lower)));
    const int last = std::min(int(m_ohlc.size()) - 1, int(std::floor(upper)));
    double lo = 0.0, hi = 1.0, vol = 1.0;
    if (first <= last) {
        lo = m_ohlc[first].low;
        hi = m_ohlc[first].high;
        for (int i = first; i <= last; ++i) {
            lo = std::min(lo, m_ohlc[i].low);
            hi = std::max(hi, m_ohlc[i].high);
            vol = std::max(vol, m_volumes[i].value);
        }
    }
    m_price->setAxisScale(QwtPlot::yRight, lo, hi);
    m_volume->setAxisScale(QwtPlot::yRight, 0.0, vol);
}

void QwtAdapter::followNewest()
{
    const double n = m_ohlc.size();
    setView(n - m_viewBars + 0.5, n + 0.5);
}

void QwtAdapter::append(const Bar &b, bool show)
{
    const double x = m_ohlc.size();
    m_ohlc.append(QwtOHLCSample(x, b.open, b.high, b.low, b.close));
    m_volumes.append(QwtIntervalSample(double(b.volume), x - 0.4, x + 0.4));
    m_times.append(b.ms);
    if (show) {
        handOver();
        followNewest();
        replot();
    }
}

void QwtAdapter::finishLoad()
{
    handOver();
    followNewest();
    replot();
}

void QwtAdapter::editLast(const Bar &b)
{
    QwtOHLCSample &s = m_ohlc.last();
    s.open = b.open;
    s.high = b.high;
    s.low = b.low;
    s.close = b.close;
    m_volumes.last().value = double(b.volume);
    handOver();
    followNewest();
    replot();
}

void QwtAdapter::replot()
{
    m_price->replot();
    m_volume->replot();
}

double QwtAdapter::viewNewest(double bars)
{
    m_viewBars = bars;
    followNewest();
    replot();
    return bars;
}

double QwtAdapter::viewWidest(double bars)
{
    return viewNewest(bars);
}

void QwtAdapter::viewMiddle(double bars)
{
    m_viewBars = bars;
    const double mid = m_ohlc.size() / 2;
    setView(mid - bars / 2 + 0.5, mid + bars / 2 + 0.5);
    replot();
}

void QwtAdapter::step(int direction)
{
    setView(m_lower + direction, m_lower + direction + m_viewBars);
    replot();
}
