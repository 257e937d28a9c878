#ifndef PLOT_H
#define PLOT_H

#include <QColor>
#include <QFont>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QVector>

#include <qwt_plot.h>
#include <qwt_samples.h>

#include "priceprecision.h"
#include "viewcontent.h"

class AxisBars;
class BarSeries;
class DaySeparators;
class MarkGesture;
class PanelBars;
class PlotNavigator;
class PlotPriceLinesData;
class PriceGraph;
class QwtPlotCurve;
class QwtPlotGrid;
class QwtPlotHistogram;
class QwtPlotIntervalCurve;
class QwtPlotItem;
class QwtPlotMarker;
class QwtPlotPannerX;
class QwtPlotTradingCurve;
class SeriesFeed;
class SeriesRecord;
class TimeScale;
class TradingCurve;

// One chart panel. The x axis is a bar index (bar i sits at x = i, time gaps
// take no room); prices stand on the right axis.
//
// The panel owns its items and data; behaviour is split over helpers so the
// panel itself stays a thin host: navigation state and arithmetic live in
// PlotNavigator, order and position lines in PlotPriceLinesData, the series
// and their feed in SeriesFeed, bar storage in BarSeries, the bars its items
// stand on in PanelBars, the date lines in DaySeparators, drawing tools in
// MarkGesture. The helpers see
// the panel through narrow interfaces only: the navigator through
// ViewContent, the lines through PricePrecision, the date axis and the views
// through the chart's TimeScale and PanelBars.
class Plot : public QwtPlot, public ViewContent, public PricePrecision
{
    Q_OBJECT

public:
    // Pixels between the canvas's top and bottom edges and the ends of the
    // price scale.
    static constexpr int PriceHeadroom = 8;

    Plot(PriceGraph *chart, QWidget *parent = nullptr);
    virtual ~Plot();

    // Colour set (each setter applies at once).
    void setBackgroundColor(const QColor &c);
    QColor getBackgroundColor() const { return backgroundColor; }
    void setTextColor(const QColor &c);
    QColor getTextColor() const { return textColor; }
    void setGridColor(const QColor &c);
    QColor getGridColor() const { return gridColor; }
    void setCandleOutlineColor(const QColor &c);
    QColor getCandleOutlineColor() const { return candleOutlineColor; }
    void setLineColor(const QColor &c);
    QColor getLineColor() const { return lineColor; }
    void setUpColor(const QColor &c);
    QColor getUpColor() const { return upColor; }
    void setDownColor(const QColor &c);
    QColor getDownColor() const { return downColor; }
    void setPriceLineColor(const QColor &c);
    QColor getPriceLineColor() const { return priceLineColor; }

    int getLeftInset() const override { return leftInset; }
    // The bar interval of the chart's time axis (every panel shares it).
    void setInterval(double ms);
    double getInterval() const;
    int getChartType() const { return chartType; }

    // Price decimals of this panel (the chart's L1 decimals).
    int priceDecimals() const override;

    // Time mapping. Host times are converted by the facade; these take
    // plotting times (ms since 1970).
    virtual double TimeToIndexSuitable(double time);
    // Plotting time of bar `index`: -1.0 with no bars, clamped to the first
    // and last bar outside the range.
    double indexToTime(double index) const;
    // Plotting time of bar `index`, or 0 when there is no such bar (labels).
    double timeAtIndex(long index) const;
    // Number of bar positions this panel's series span: its own bars, or the
    // bars of the chart's time axis for a panel of indicators or volume; 0
    // with no series.
    int barCount() const;
    // The bars whose indices are this panel's x axis: its own when it holds
    // a price series, else those of the chart's time axis (PanelBars).
    BarSeries *axisBars() const;
    PanelBars *panelBars() const { return m_panelBars; }
    // The chart's time axis.
    TimeScale *timeScale() const { return m_times; }
    // Lowest and highest value drawn by this panel's series over the bars
    // [x1, x2]; false when nothing is drawn there.
    bool valueRange(double x1, double x2, double &low, double &high) const override;
    // Width in pixels that the trading curve gives a candle when [x1, x2]
    // fills the canvas; 8 when the panel has no trading curve.
    double candleWidth(double x1, double x2) const override;
    bool hasCandles() const override { return tradingCurve != nullptr; }

    BarSeries *barSeries() const { return bars; }
    PlotNavigator *getNavigator() const { return navigator; }
    PlotPriceLinesData *getPriceLines() const { return priceLines; }
    PriceGraph *getChart() const { return chart; }
    const QVector<QwtPlotMarker *> &getDaySeparators() const;
    // The indicator named `name`, or null. An indicator added as "MA*255#x"
    // is named "MA".
    SeriesRecord *series(const QString &name) const;

    // Prepares what follows the view (day separators, the volume scale of a
    // price panel) and redraws. Counted, so bursts can be checked.
    void replot() override;
    quint64 replotCount() const { return m_replots; }

    // Requests one flush of the chart (view, then one replot of each panel)
    // from the event loop; a burst of requests costs one.
    void scheduleReplot();

    // Drawing on the canvas (MarkGesture does the work); pos in canvas pixels.
    bool beginMark(const QPoint &pos);
    void dragMark(const QPoint &pos);
    void finishMark();
    MarkGesture *markGesture() const { return m_marks; }

public Q_SLOTS:
    void setLineStyle(int style);
    int getLineStyle();
    void setCursorStyle(int style);
    int getCursorStyle();
    void exportPlot();
    void setOHLCSample(QwtPlotTradingCurve *pOhlc, QVector<QwtOHLCSample> data);
    void setLineSample(QwtPlotCurve *pCurve, QVector<QPointF> data);
    void setVolumeSample(QwtPlotHistogram *pVolume, QVector<QwtIntervalSample> data);
    void setBarSample(QwtPlotIntervalCurve *pBar, QVector<QwtIntervalSample> data);
    void AddSeries(QString name, long type);
    void RemoveSeries(QString name);
    void AppendOHLC(QString name, double time, bool show, double open, double high,
                    double low, double close, long volume);
    void AppendValue(QString name, double time, double value, bool show);
    void EditOHLC(QString name, double time, bool show, double open, double high,
                  double low, double close, long volume);
    void EditValue(QString name, double time, double value, bool show);
    void ClearValues(QString name);
    void FlushTa();
    bool getYFromX(double x, QwtOHLCSample &y);
    void ScrollLeft(long Records);
    void ScrollRight(long Records);
    void ScrollToEnd(double width);
    void ZoomIn(long Records);
    void ZoomOut(long Records);
    void ResetZoom();
    void ZoomInY(double dy);
    void ZoomOutY(double dy);
    void moveX(double dx);
    void getX(double &x1, double &x2);
    void setX(double x1, double x2, double zoom);
    void setX(double x1, double x2);
    void SyncAllPannel();
    void showVolume(bool bShow);
    bool hasSeries();
    void AdjustX(double &min, double &max);
    void recordChartCenter();
    void restoreChartCenter();
    void updateUserScriptComment(const char *newComment, bool append);
    void updateUserScriptComment(const char *newComment);
    void refreshUserScriptComment();

protected Q_SLOTS:
    void showItem(QwtPlotItem *item, bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    // Price-line labels sit on the right axis: lay them out again whenever
    // the axes settle (border distances change without a scale change).
    void updateLayout() override;

private:
    void setup();
    void applyChartType();
    bool updateVolumeScale(); // true when the volume axis got a new scale

public:
    // Members that the other parts of the library work with.
    PriceGraph *chart;
    int chartType = 0;              // 0 bars, 1 candles, 2 line
    int cursorStyle = -1;           // -1: not set yet
    QwtPlotPannerX *panner = nullptr;
    PlotNavigator *navigator = nullptr;  // view state and zoom/scroll arithmetic
    int leftInset = 10;
    TradingCurve *tradingCurve = nullptr;
    QwtPlotCurve *lineCurve = nullptr;
    QwtPlotHistogram *volumeHistogram = nullptr;
    QMap<QString, SeriesRecord *> seriesByName;
    bool m_showVolume = true;
    QwtPlotGrid *grid = nullptr;
    QColor backgroundColor;
    QColor textColor;
    QColor gridColor;
    QColor candleOutlineColor;
    QColor lineColor;
    QColor upColor;
    QColor downColor;
    QColor priceLineColor;
    PlotPriceLinesData *priceLines = nullptr;
    QFont labelFont;
    QFont commentFont;
    QString userScriptComment;

private:
    BarSeries *bars = nullptr;      // this panel's price bars (times, OHLC, volume)
    AxisBars *m_ownAxis = nullptr;  // a time axis of its own, for a panel outside a chart
    TimeScale *m_times = nullptr;   // the chart's time axis
    PanelBars *m_panelBars = nullptr;
    DaySeparators *m_separators = nullptr;
    SeriesFeed *m_feed = nullptr;    // which names this panel holds, and their samples
    MarkGesture *m_marks = nullptr;  // drawing on the canvas; owns the marks on this panel
    int replotTimer = 0;
    quint64 m_replots = 0;
};

#endif // PLOT_H
