#ifndef QWTADAPTER_H
#define QWTADAPTER_H

#include "chartadapter.h"

#include <QVector>

#include <qwt_samples.h>

class QwtPlot;
class QwtPlotHistogram;
class QwtPlotTradingCurve;

// Plain Qwt as most Qwt programs use it: a QwtPlotTradingCurve over a
// QwtPlotHistogram in a second plot, the whole sample vectors handed over
// with setSamples on every change, the view set with setAxisScale.
class QwtAdapter : public ChartAdapter
{
public:
    QwtAdapter();
    ~QwtAdapter() override;

    QString name() const override { return QStringLiteral("qwt"); }
    QWidget *widget() override { return m_window; }
    void append(const Bar &bar, bool show) override;
    void finishLoad() override;
    void editLast(const Bar &bar) override;
    void replot() override;
    double viewNewest(double bars) override;
    double viewWidest(double bars) override;
    void viewMiddle(double bars) override;
    void step(int direction) override;

private:
    void handOver();
    void setView(double lower, double upper);
    void followNewest();

    QWidget *m_window;
    QwtPlot *m_price;
    QwtPlot *m_volume;
    QwtPlotTradingCurve *m_candles;
    QwtPlotHistogram *m_histogram;
    QVector<QwtOHLCSample> m_ohlc;
    QVector<QwtIntervalSample> m_volumes;
    QVector<double> m_times;
    double m_viewBars = 200.0;
    double m_lower = 0.0;
};

#endif // QWTADAPTER_H
