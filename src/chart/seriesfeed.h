#ifndef SERIESFEED_H
#define SERIESFEED_H

#include <QColor>
#include <QSet>
#include <QString>

class Plot;

// The series of one panel as the host feeds them: which names the panel
// answers to, the items each kind of series gets, and where every sample is
// stored. The panel's series slots forward here; the panel keeps its items
// and stores (other parts draw and navigate with them).
class SeriesFeed
{
public:
    explicit SeriesFeed(Plot *plot);

    // The kind follows from the name alone: "OHLC" in it the price bars,
    // "volume" the volume, ".end" intervals, else a line.
    void addSeries(const QString &name);
    void removeSeries(const QString &name);
    // Stores one sample; false when the panel does not hold `name` or the
    // sample was rejected (nothing to redraw). `valueOnly` marks the value
    // calls, whose single value stands for open, high, low and close.
    bool feed(const QString &name, double time, bool edit, double open, double high, double low,
              double close, double volume, bool valueOnly);
    bool feedValue(const QString &name, double time, bool edit, double value);
    // False when the panel does not hold `name`.
    bool clearValues(const QString &name);

    bool isPriceName(const QString &name) const { return m_priceNames.contains(name); }

    // The series an indicator name stands for (the text before any '*'),
    // and the colour its decimal 0xRRGGBB suffix gives.
    static QString baseName(const QString &name);
    static QColor color(const QString &name);

private:
    // This panel's bars gained, lost or moved bars: the date labels follow
    // when they are the bars the main panel's dates come from.
    void barTimesChanged();
    // True when a bar was stored (a BarSeries::Result other than Rejected).
    bool stored(int result);
    bool feedVolume(double time, bool edit, double open, double high, double low, double close,
                    double volume);

    Plot *m_plot;
    QSet<QString> m_priceNames; // names containing "OHLC" added to this panel
};

#endif // SERIESFEED_H
