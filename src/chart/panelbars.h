#ifndef PANELBARS_H
#define PANELBARS_H

class AxisBars;
class BarSeries;
class SampleTimeTable;

// The bars one panel's items stand on. A panel holding a price series
// stands on its own bars; every other panel (volume, indicators, nothing
// yet) on the bars of the chart's time axis, wherever their panel stands.
// Series views, the volume feed and the day separators read the bars
// through this, never through the panel.
class PanelBars
{
public:
    // `chart` may be null: the panel then stands on its own bars.
    PanelBars(BarSeries *own, const AxisBars *chart);

    void setHoldsPrice(bool on) { m_holdsPrice = on; }
    bool holdsPrice() const { return m_holdsPrice; }

    BarSeries *own() const { return m_own; }
    // The bars whose indices are the panel's x axis.
    BarSeries *axis() const;
    const SampleTimeTable &times() const;

private:
    BarSeries *m_own;
    const AxisBars *m_chart;
    bool m_holdsPrice = false;
};

#endif // PANELBARS_H
