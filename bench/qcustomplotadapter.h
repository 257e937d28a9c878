#ifndef QCUSTOMPLOTADAPTER_H
#define QCUSTOMPLOTADAPTER_H

#include "chartadapter.h"

#include <QVector>

class QCPAxisRect;
class QCPBars;
class QCPFinancial;
class QCustomPlot;

// QCustomPlot 2.1 used with care: QCPFinancial candlesticks in the top axis
// rect, QCPBars volume in a second one, data appended to the plottables'
// containers and edited in place, ranges set per view, replot with a queued
// refresh (the explicit render does the painting).
class QCustomPlotAdapter : public ChartAdapter
{
public:
    QCustomPlotAdapter();
    ~QCustomPlotAdapter() override;

    QString name() const override { return QStringLiteral("qcustomplot"); }
    QWidget *widget() override;
    void append(const Bar &bar, bool show) override;
    void finishLoad() override;
    void editLast(const Bar &bar) override;
    void replot() override;
    double viewNewest(double bars) override;
    double viewWidest(double bars) override;
    void viewMiddle(double bars) override;
    void step(int direction) override;

private:
    void setView(double lower, double upper);
    void followNewest();

    QCustomPlot *m_plot;
    QCPAxisRect *m_volumeRect;
    QCPFinancial *m_candles;
    QCPBars *m_bars;
    QVector<double> m_times;
    double m_viewBars = 200.0;
    double m_lower = 0.0;
};

#endif // QCUSTOMPLOTADAPTER_H
