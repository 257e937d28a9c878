#ifndef VOLUMESERIESVIEW_H
#define VOLUMESERIESVIEW_H

#include <qwt_series_data.h>

class BarSeries;
class PanelBars;

// The volume column of the bars a panel's x axis counts, read in place:
// sample i is a column of height volume(i) over [i - 0.34375, i + 0.34375]
// (the width of a candle). The bars are looked up on every call, so the view
// follows when the chart's time axis moves to other bars.
class VolumeSeriesView : public QwtSeriesData<QwtIntervalSample>
{
public:
    explicit VolumeSeriesView(const PanelBars *bars);

    size_t size() const override;
    QwtIntervalSample sample(size_t i) const override;
    QRectF boundingRect() const override;

    static constexpr double HalfWidth = 0.34375;

private:
    const BarSeries *bars() const;
    const PanelBars *m_bars;
};

#endif // VOLUMESERIESVIEW_H
