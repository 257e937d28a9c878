#ifndef TIMESCALE_H
#define TIMESCALE_H

#include <QObject>

class SampleTimeTable;

// The chart's one time axis: the plotting times (ms since 1970) of the
// bars that every panel stands on, by bar index, and the bar interval.
//
// It reads the time table of one series (the price bars, wherever their
// panel stands) without copying it; the owner of that series tells it about
// changes that move bars, and it passes them on to whoever keeps positions
// by bar index (the view, marks, trade points):
// - barsInserted(index, count): `count` bars were inserted before bar
//   `index` (older history arrived); every bar from `index` on moved `count`
//   to the right. Appending a newer bar moves nothing and is not reported.
// - barsReset(): the bars were replaced wholesale (cleared to be fed again,
//   removed, or another series now gives the axis). Positions by index mean
//   nothing any more; place them again by time as the bars come back.
class TimeScale : public QObject
{
    Q_OBJECT

public:
    explicit TimeScale(QObject *parent = nullptr);

    // The table the axis reads; null reads as no bars. A different table
    // counts as a wholesale replacement of the bars.
    void setTable(const SampleTimeTable *table);
    const SampleTimeTable &table() const;

    int size() const;
    bool isEmpty() const;
    // Time of bar `index`, or 0.0 when there is no such bar (labels).
    double timeAt(double index) const;
    // Time of bar `index`: -1.0 with no bars, the first or last bar's time
    // outside the range.
    double indexToTime(double index) const;
    // Index of the bar at exactly `time`, or -1.
    int indexOf(double time) const;
    // Fractional bar index of `time`; see SampleTimeTable::suitableIndex.
    double suitableIndex(double time) const;
    bool fractionalIndex(double time, double *index) const;

    // Bar length in ms (0: unknown); chooses the date format of the labels.
    void setInterval(double ms) { m_interval = ms; }
    double interval() const { return m_interval; }

    // Told by the owner of the table, after the change.
    void noteInserted(int index, int count);
    void noteReset();

Q_SIGNALS:
    void barsInserted(int index, int count);
    void barsReset();

private:
    const SampleTimeTable *m_table = nullptr;
    double m_interval = 0.0;
};

#endif // TIMESCALE_H
