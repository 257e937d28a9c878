#ifndef PRICEGRAPHADAPTER_H
#define PRICEGRAPHADAPTER_H

#include "chartadapter.h"

class PriceGraph;

// Our widget, driven through its exported API only: "OHLC" on panel 0 and
// "volume" on panel 1, navigated with the zoom and scroll members.
class PriceGraphAdapter : public ChartAdapter
{
public:
    PriceGraphAdapter();
    ~PriceGraphAdapter() override;

    QString name() const override { return QStringLiteral("pricegraph"); }
    QWidget *widget() override;
    void append(const Bar &bar, bool show) override;
    void finishLoad() override;
    void editLast(const Bar &bar) override;
    void replot() override;
    double viewNewest(double bars) override;
    double viewWidest(double bars) override;
    void viewMiddle(double bars) override;
    void step(int direction) override;
    bool addMarks(int count, int spreadBars) override;

private:
    // Bars in view at the tracked zoom: the widget gives a bar 16 pixels at
    // zoom 1.0 and the API does not report the range, so this is inferred
    // from the main canvas width.
    double inferredViewBars() const;
    void settle();

    PriceGraph *m_chart;
    QImage m_probe;
    double m_zoom = 1.0;
    long m_count = 0;
};

#endif // PRICEGRAPHADAPTER_H
