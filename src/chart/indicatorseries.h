#ifndef INDICATORSERIES_H
#define INDICATORSERIES_H

#include <cstddef>
#include <vector>

class SampleTimeTable;

// The points of one indicator series, kept by plotting time.
//
// Points are stored by time, not by x: the x of a point is worked out when it
// is drawn, from the time table of the bars the panel's x axis counts. A
// point whose time is a bar's time sits exactly on that bar; a point between
// bars (or beyond them) is interpolated (extrapolated) through the time
// table; while the axis has fewer than two bars, a point that hits none sits
// at its own index. Storing times keeps points on their bars when an older
// bar is inserted later and every newer bar moves one to the right.
//
// 16 bytes a point (time, value), 24 for an interval series (plus its low).
// The same placing rules as the price bars: a new time is inserted in
// order, an existing time is replaced, non-finite or absurd input is
// rejected with a debug line.
class IndicatorSeries
{
public:
    enum Result { Rejected, Appended, Inserted, Replaced };

    explicit IndicatorSeries(bool intervals = false);

    Result add(double time, double low, double value);
    // Changes the newest point (its time is kept, `time` must still be
    // sane); an append when empty.
    Result editLast(double time, double low, double value);
    void clear();

    bool isInterval() const { return m_intervals; }
    int size() const { return int(m_times.size()); }
    bool isEmpty() const { return m_times.empty(); }
    double time(int i) const { return m_times[size_t(i)]; }
    double value(int i) const { return m_values[size_t(i)]; }
    // The other end of an interval point (the value itself for a line).
    double low(int i) const { return m_intervals ? m_lows[size_t(i)] : m_values[size_t(i)]; }

    // x of point i on an axis whose bars have the times in `axis`.
    double xAt(int i, const SampleTimeTable &axis) const;
    // Points whose x lies in [x1, x2]: from..to, false when there are none.
    bool indexRange(double x1, double x2, const SampleTimeTable &axis, int &from,
                    int &to) const;
    // Lowest and highest value of the points in [x1, x2]; visits only them.
    bool valueRange(double x1, double x2, const SampleTimeTable &axis, double &lo,
                    double &hi) const;
    // x of the first and last point and the bounds of every value stored
    // since the last clear (O(1) for the values; they may be wider than the
    // data after a replace). False when empty.
    bool extent(const SampleTimeTable &axis, double &x0, double &x1, double &lo,
                double &hi) const;

private:
    bool validate(const char *what, double time, double low, double value) const;

    bool m_intervals;
    std::vector<double> m_times, m_values, m_lows;
    double m_min = 0.0, m_max = 0.0;
};

#endif // INDICATORSERIES_H
