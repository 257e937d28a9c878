#ifndef BARSERIES_H
#define BARSERIES_H

#include "sampletimetable.h"

#include <qwt_samples.h>

#include <vector>

class TimeScale;

// The price bars of one panel: one copy of the samples, stored by column.
//
// Bar i sits at x = i in time order; its plotting time is times().timeAt(i).
// The curves read views of these columns (no per-item copies), so a tick on
// the newest bar touches one row and an append is amortised O(1) (an
// out-of-order bar costs a shift of the bars after it).
//
// 48 bytes a bar (time, open, high, low, close, volume) plus a small block
// index of lows and highs that finds the price range of any span of bars
// without visiting every bar in it.
class BarSeries
{
public:
    enum Result { Rejected, Appended, Inserted, Replaced };

    // Places a bar by its plotting time: a new time is inserted in time
    // order, an existing time has its bar replaced. Non-finite values or an
    // absurd time are rejected with a debug line and change nothing. High
    // and low are widened to hold open and close; a negative volume is 0.
    Result add(double time, double open, double high, double low, double close,
               double volume, int *index = nullptr);
    // Changes the newest bar's values (its time is kept; `time` must still
    // be sane). On an empty series it behaves as add(). Same validation as
    // add().
    Result editLast(double time, double open, double high, double low, double close,
                    double volume);
    void clear();
    // The time axis these bars give, told about inserted bars and about
    // clearing (null: none).
    void setTimeScale(TimeScale *scale) { m_scale = scale; }
    TimeScale *timeScale() const { return m_scale; }
    // Sets the volume of bar i (negative volumes become 0). False, with a
    // debug line, for an index outside the bars or a non-finite volume.
    bool setVolume(int i, double volume);
    // Zeroes every bar's volume (the bars themselves stay).
    void clearVolumes();

    int size() const { return m_table.size(); }
    bool isEmpty() const { return m_table.isEmpty(); }
    const SampleTimeTable &timeTable() const { return m_table; }
    SampleTimeTable &timeTable() { return m_table; }

    double time(int i) const { return m_table.timeAt(i); }
    double open(int i) const { return m_open[size_t(i)]; }
    double high(int i) const { return m_high[size_t(i)]; }
    double low(int i) const { return m_low[size_t(i)]; }
    double close(int i) const { return m_close[size_t(i)]; }
    double volume(int i) const { return m_volume[size_t(i)]; }
    // The bar as Qwt draws it: x (its "time" field) is the bar index.
    QwtOHLCSample sample(int i) const
    {
        return QwtOHLCSample(double(i), m_open[size_t(i)], m_high[size_t(i)],
                             m_low[size_t(i)], m_close[size_t(i)]);
    }

    // Lowest low and highest high of the bars first..last (clamped to the
    // data); false when no bar is in the span.
    bool priceRange(int first, int last, double &low, double &high) const;
    // Largest volume of the bars first..last; false when no bar is in it.
    bool volumeRange(int first, int last, double &high) const;

    // A plotting time that a chart can show: finite and within years
    // 1900..2200 (Qwt's date scale stalls on wider ranges).
    static bool isSaneTime(double time);
    // A value that a chart can show: finite and within +-1e15. Qwt's scale
    // engine stalls on spans that overflow, so larger magnitudes count as
    // garbage from the host, not data.
    static bool isFinitePrice(double v);
    static constexpr double MaxValue = 1e15;

private:
    static const int BlockShift = 6;  // 64 bars a block
    bool validate(const char *what, double time, double o, double h, double l, double c,
                  double v) const;
    void store(int i, double o, double h, double l, double c, double v);
    void rebuildBlocksFrom(int bar);
    template<typename PerBlock, typename PerBar>
    void walk(int first, int last, PerBlock perBlock, PerBar perBar) const;
    void updateBlockOf(int bar);

    SampleTimeTable m_table;
    std::vector<double> m_open, m_high, m_low, m_close, m_volume;
    std::vector<double> m_blockLow, m_blockHigh, m_blockVolume;
    TimeScale *m_scale = nullptr;
};

#endif // BARSERIES_H
