#include "qcustomplotadapter.h"

#include <QCoreApplication>
#include <QDateTime>

#include <qcustomplot.h>

#include <cmath>

namespace {

// Bar index -> its time on a gap-free key axis.
class IndexTimeTicker : public QCPAxisTicker
{
public:
    explicit IndexTimeTicker(const QVector<double> *times) : m_times(times) {}

protected:
    QString getTickLabel(double tick, const QLocale &, QChar, int) override
    {
        const int i = int(std::lround(tick));
        if (i < 0 || i >= m_times->size())
            return QString();
        return QDateTime::fromMSecsSinceEpoch(qint64((*m_times)[i]), Qt::UTC)
            .toString(QStringLiteral("dd.MM hh:mm"));
    }

private:
    const QVector<double> *m_times;
};

void styleRect(QCPAxisRect *rect)
{
    rect->axis(QCPAxis::atLeft)->setVisible(false);
    rect->axis(QCPAxis::atRight)->setVisible(true);
    const QPen gridPen(QColor(34, 34, 34), 0, Qt::SolidLine);
    rect->axis(QCPAxis::atBottom)->grid()->setPen(gridPen);
    rect->axis(QCPAxis::atRight)->grid()->setPen(gridPen);
    rect->axis(QCPAxis::atRight)->grid()->setVisible(true);
    rect->axis(QCPAxis::atLeft)->grid()->setVisible(false);
}

} // namespace

QCustomPlotAdapter::QCustomPlotAdapter()
    : m_plot(new QCustomPlot)
{
    m_plot->setAttribute(Qt::WA_DontShowOnScreen);
    paintOnlyOnRender(m_plot);
    // Candles and bars are axis-aligned rectangles: antialiasing only blurs
    // them and costs time, so careful programs switch it off.
    m_plot->setNotAntialiasedElements(QCP::aeAll);
    m_plot->setBackground(QColor(0x0c, 0x0c, 0x0c));

    QCPAxisRect *priceRect = m_plot->axisRect();
    styleRect(priceRect);
    priceRect->axis(QCPAxis::atBottom)->setTickLabels(false);
    m_candles = new QCPFinancial(priceRect->axis(QCPAxis::atBottom),
                                 priceRect->axis(QCPAxis::atRight));
    m_candles->setChartStyle(QCPFinancial::csCandlestick);
    m_candles->setWidth(0.6);
    m_candles->setTwoColored(true);
    m_candles->setBrushPositive(QColor(0x1d, 0xff, 0x00));
    m_candles->setBrushNegative(QColor(0xd9, 0x12, 0x00));
    m_candles->setPenPositive(QPen(QColor(0x1d, 0xff, 0x00)));
    m_candles->setPenNegative(QPen(QColor(0xd9, 0x12, 0x00)));

    m_volumeRect = new QCPAxisRect(m_plot);
    m_plot->plotLayout()->addElement(1, 0, m_volumeRect);
    m_plot->plotLayout()->setRowStretchFactors({2.0, 1.0});
    styleRect(m_volumeRect);
    m_volumeRect->axis(QCPAxis::atBottom)->setTicker(
        QSharedPointer<QCPAxisTicker>(new IndexTimeTicker(&m_times)));
    auto *margins = new QCPMarginGroup(m_plot);
    priceRect->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
    m_volumeRect->setMarginGroup(QCP::msLeft | QCP::msRight, margins);
    m_bars = new QCPBars(m_volumeRect->axis(QCPAxis::atBottom),
                         m_volumeRect->axis(QCPAxis::atRight));
    m_bars->setWidth(0.8);
    m_bars->setPen(Qt::NoPen);
    m_bars->setBrush(QColor(0x40, 0x70, 0xb0));

    m_plot->resize(1600, 900);
    m_plot->show();
    QCoreApplication::processEvents();
}

QCustomPlotAdapter::~QCustomPlotAdapter()
{
    delete m_plot;
}

QWidget *QCustomPlotAdapter::widget()
{
    return m_plot;
}

void QCustomPlotAdapter::setView(double lower, double upper)
{
    m_lower = lower;
    m_plot->axisRect()->axis(QCPAxis::atBottom)->setRange(lower, upper);
    m_volumeRect->axis(QCPAxis::atBottom)->setRange(lower, upper);
    // Value ranges over the keys in view (binary search in the containers).
    m_candles->rescaleValueAxis(false, true);
    m_bars->rescaleValueAxis(false, true);
}

void QCustomPlotAdapter::followNewest()
{
    const double n = m_times.size();
    setView(n - m_viewBars - 0.5, n - 0.5);
}

void QCustomPlotAdapter::append(const Bar &b, bool show)
{
    const double key = m_times.size();
    m_times.append(b.ms);
    m_candles->addData(key, b.open, b.high, b.low, b.close);
    m_bars->addData(key, double(b.volume));
    if (show) {
        followNewest();
        m_plot->replot(QCustomPlot::rpQueuedReplot);
    }
}

void QCustomPlotAdapter::finishLoad()
{
    followNewest();
    m_plot->replot(QCustomPlot::rpQueuedRefresh);
    QCoreApplication::processEvents();
}

void QCustomPlotAdapter::editLast(const Bar &b)
{
    auto candle = m_candles->data()->end() - 1;
    candle->open = b.open;
    candle->high = b.high;
    candle->low = b.low;
    candle->close = b.close;
    (m_bars->data()->end() - 1)->value = double(b.volume);
    followNewest();
    replot();
}

void QCustomPlotAdapter::replot()
{
    // Draws the layers now; the widget repaint is left to the render that
    // follows (an immediate refresh would paint the buffers twice).
    m_plot->replot(QCustomPlot::rpQueuedRefresh);
}

double QCustomPlotAdapter::viewNewest(double bars)
{
    m_viewBars = bars;
    followNewest();
    replot();
    return bars;
}

double QCustomPlotAdapter::viewWidest(double bars)
{
    return viewNewest(bars);
}

void QCustomPlotAdapter::viewMiddle(double bars)
{
    m_viewBars = bars;
    const double mid = m_times.size() / 2;
    setView(mid - bars / 2 - 0.5, mid + bars / 2 - 0.5);
    replot();
}

void QCustomPlotAdapter::step(int direction)
{
    setView(m_lower + direction, m_lower + direction + m_viewBars);
    replot();
}
