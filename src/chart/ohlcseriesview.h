#ifndef OHLCSERIESVIEW_H
#define OHLCSERIESVIEW_H

#include <qwt_series_data.h>

class BarSeries;

// Lets the trading curve read a panel's bars in place (no copy).
class OhlcSeriesView : public QwtSeriesData<QwtOHLCSample>
{
public:
    explicit OhlcSeriesView(const BarSeries *bars);

    size_t size() const override;
    QwtOHLCSample sample(size_t i) const override;
    QRectF boundingRect() const override;

private:
    const BarSeries *m_bars;
};

#endif // OHLCSERIESVIEW_H
