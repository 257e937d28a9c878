#ifndef INDICATORINTERVALVIEW_H
#define INDICATORINTERVALVIEW_H

#include <qwt_series_data.h>

class IndicatorSeries;
class PanelBars;

// An interval indicator's points as [low, value] (ordered) at x, read in
// place; x comes from the panel's bar axis at draw time.
class IndicatorIntervalView : public QwtSeriesData<QwtIntervalSample>
{
public:
    IndicatorIntervalView(const PanelBars *bars, const IndicatorSeries *points);

    size_t size() const override;
    QwtIntervalSample sample(size_t i) const override;
    QRectF boundingRect() const override;

private:
    const PanelBars *m_bars;
    const IndicatorSeries *m_points;
};

#endif // INDICATORINTERVALVIEW_H
