// A terminal as the golden scenes play it: one PriceGraph of a fixed size,
// fed through the exported members only, the mouse pointer moved over the
// window, and the finished widget grabbed. A scene that cannot be built
// records why (fail()) instead of stopping the suite.
#ifndef SCENEHOST_H
#define SCENEHOST_H

#include <QImage>
#include <QSize>
#include <QString>
#include <QVector>

#include <functional>
#include <memory>

class PriceGraph;
class QWidget;

// One price bar; the time is a Julian date, the form the chart takes.
struct SceneBar
{
    double time;
    double open, high, low, close;
    qint64 volume;
};

class SceneHost
{
public:
    // The bundled data sets of data/.
    enum DataSet { Sp500Daily, UsdChf30Min, UsdThb5Min };
    // SetcandleChart's styles.
    enum Style { Bars = 0, Candles = 1, Line = 2 };

    explicit SceneHost(QSize size);
    ~SceneHost();

    PriceGraph &chart() { return *m_chart; }
    QSize size() const { return m_size; }

    // The usual terminal: price bars in panel 0, volume in `volumePanel`
    // (none when negative), the set's interval and L1 precision; every bar
    // fed with show = false, then Update().
    void feedDataSet(DataSet set, Style style = Candles, long volumePanel = 1);
    // The same for a CSV file of data/ by name.
    void feedFile(const QString &fileName, double intervalMs, int decimals, Style style,
                  long volumePanel = 1);
    // The same for bars made by the scene.
    void feedBars(const QVector<SceneBar> &bars, double intervalMs, int decimals,
                  Style style = Candles, long volumePanel = 1);
    // `count` daily bars from 2020-06-01 climbing from `price` in a wave of
    // whole `step`s, volumes around `volume` (no clock, no random numbers).
    static QVector<SceneBar> madeBars(int count, double price, double step, qint64 volume = 1000);

    // A moving average of the closes of the bars fed last, added to
    // `panel` as `name` (a '*' colour suffix allowed) and fed as the text
    // before the '*'.
    void addAverage(long panel, const char *name, int length);
    // An interval curve (".end" in the name): the band of `width` standard
    // deviations around the average of `length` closes.
    void addBand(long panel, const char *name, int length, double width);
    // An interval curve from 0 to the close's change over `length` bars.
    void addMomentum(long panel, const char *name, int length);

    const QVector<SceneBar> &bars() const { return m_bars; }
    // The newest close rounded to the precision fed; the base of order prices.
    double lastPrice(double factor = 1.0) const;
    int decimals() const { return m_decimals; }

    // Moves the mouse pointer to `pos` (chart coordinates) as the window
    // system would: enter, leave and move events reach the widget under it.
    void hover(QPoint pos);
    // Presses and releases the left button at `pos` (chart coordinates).
    void click(QPoint pos);
    // Presses the left button at `from`, moves to `to` in four steps with
    // the button held and releases it there (chart coordinates): the
    // widget under `from` gets every event, as under a mouse grab.
    void drag(QPoint from, QPoint to);
    // Chooses drawing tool `type` and draws it with a drag.
    void draw(long type, QPoint from, QPoint to);
    // The centre of the `index`-th visible child named `objectName`, top to
    // bottom (a host styles these names), in chart coordinates.
    QPoint centreOf(const QString &objectName, int index);
    // The row of the chart a change draws a horizontal line along: the row
    // of the most pixels it changes. -1 (and the scene fails) when no row
    // changes across a third of the width.
    int rowDrawnBy(const std::function<void()> &change);

    // Shows the chart (once), lets every pending replot, layout request and
    // queued call run, and grabs the whole widget.
    QImage render();

    void fail(const QString &why);
    bool failed() const { return !m_error.isEmpty(); }
    QString error() const { return m_error; }

    // Loads a bundled CSV (cached); empty with `error` set when it cannot.
    static QVector<SceneBar> load(const QString &fileName, QString *error);

private:
    void settle();

    QSize m_size;
    std::unique_ptr<PriceGraph> m_chart;
    QVector<SceneBar> m_bars;
    int m_decimals = 2;
    QString m_error;
};

#endif // SCENEHOST_H
