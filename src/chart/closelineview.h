#ifndef CLOSELINEVIEW_H
#define CLOSELINEVIEW_H

#include <qwt_series_data.h>

class BarSeries;

// The close line of a panel's bars, read in place: point i is (i, close).
class CloseLineView : public QwtSeriesData<QPointF>
{
public:
    explicit CloseLineView(const BarSeries *bars);

    size_t size() const override;
    QPointF sample(size_t i) const override;
    // From the block index of the bars: no scan of every bar.
    QRectF boundingRect() const override;

private:
    const BarSeries *m_bars;
};

#endif // CLOSELINEVIEW_H
