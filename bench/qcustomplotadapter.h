#ifndef QCUSTOMPLOTADAPTER_H
#define QCUSTOMPLOTADAPTER_H

#include "directrangeadapter.h"

class QCPAxisRect;
class QCPBars;
class QCPFinancial;
class QCustomPlot;

// QCustomPlot 2.1 used with care: QCPFinancial candlesticks in the top axis
// rect, QCPBars volume in a second one, data appended to the plottables'
// containers and edited in place, ranges set per view, replot with a queued
// refresh (the explicit render does the painting).
class QCustomPlotAdapter : public DirectRangeAdapter
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

protected:
    void applyView(double lower, double upper) override;

private:
    QCustomPlot *m_plot;
    QCPAxisRect *m_volumeRect;
    QCPFinancial *m_candles;
    QCPBars *m_bars;
};

#endif // QCUSTOMPLOTADAPTER_H
