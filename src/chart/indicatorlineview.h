#ifndef INDICATORLINEVIEW_H
#define INDICATORLINEVIEW_H

#include <qwt_series_data.h>

class IndicatorSeries;
class PanelBars;

// An indicator's points as (x, value), read in place; x comes from the
// panel's bar axis at draw time (see IndicatorSeries).
class IndicatorLineView : public QwtSeriesData<QPointF>
{
public:
    IndicatorLineView(const PanelBars *bars, const IndicatorSeries *points);

    size_t size() const override;
    QPointF sample(size_t i) const override;
    // O(1): from the running bounds of the store.
    QRectF boundingRect() const override;

private:
    const PanelBars *m_bars;
    const IndicatorSeries *m_points;
};

#endif // INDICATORLINEVIEW_H
