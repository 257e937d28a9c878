#ifndef PRICEGRAPH_H
#define PRICEGRAPH_H

// PriceGraph: a price-chart widget for trading terminals.
//
// The host feeds named series by time (Julian dates), the widget draws them
// in panels stacked top to bottom that share one gap-free bar axis. All
// members are called from the GUI thread. Bad input never throws: unknown
// names and out-of-range indices do nothing, lookups that fail return 0.

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include "pricegraph_export.h"

class Plot;
class PriceGraphPrivate;

class PRICEGRAPH_EXPORT PriceGraph : public QWidget
{
    Q_OBJECT

public:
    explicit PriceGraph(QWidget *parent = nullptr);
    virtual ~PriceGraph();

    // Panels and layout
    long AddChartPanel();
    long GetPanelCount();
    void MoveChartPanel(long from, long to);
    void SetChartPanelType(long panel, long type);

    // Series and data feed
    long AddSeries(QString name, long type, long panel, long, long, bool);
    void RemoveSeries(const char *name);
    void AppendOHLC(const char *name, double time, bool show, double open, double high,
                    double low, double close, long volume);
    void AppendValue(const char *name, double time, double value, bool show);
    void EditOHLC(const char *name, double time, bool show, double open, double high,
                  double low, double close, long volume);
    void EditValue(const char *name, double time, double value, bool show);
    void ClearValues(const char *name);
    void Update();

    // Display options
    void SetcandleChart(long type);
    long GetcandleChart();
    void ShowVolume(long show);
    void SetChartColor(int index, unsigned long rgb);
    unsigned long GetChartColor(int index);
    void SetInterval(double interval);
    void SetCursorType(long type);
    long GetCursorType();
    void UseGradient(bool);

    // Navigation
    void ScrollLeft(long records);
    void ScrollRight(long records);
    void ZoomIn(long records);
    void ZoomOut(long records);
    void ResetZoom();

    // Trading overlays
    void setOrderEntry(QObject *orderEntry);
    void DrawPositionLine(long panel, double price, long count, const char *id, int flag,
                          const char *text1, const char *text2, const char *text3);
    void DeletePositionLine(long panel, const char *id);
    void AddBuyPoint(long panel, double time, double price, int count, const char *id,
                     const char *text1, const char *text2, const char *text3,
                     const char *text4, const char *text5);
    void AddSellPoint(long panel, double time, double price, int count, const char *id,
                      const char *text1, const char *text2, const char *text3,
                      const char *text4, const char *text5);
    void DeleteOrderPoint(const char *id);
    void DrawTickLine(double price, long ignored);
    void RemoveTickLine();
    void updateL1(double price1, double price2, int decimals, int extra);
    void updateUserScriptComment(const char *comment, bool append);

    // Kept for hosts that link against them; they do nothing.
    void Print();
    void PrintPreview();
    void Reset();
    void LineDelete();
    void DrawBuyTag(long, long, double, bool, bool, const char *, const char *, int);
    void DrawSellTag(long, long, double, bool, bool, const char *, const char *, int);
    void DeleteTagByCategory(long, const char *);
    void DeleteTagByNameIndex(long, const char *);
    long getOriginalStartIndexDiff();
    long PanelFromY(long);
    long IndexFromX(long, long);
    double ValueFromY(long, long);

Q_SIGNALS:
    void cursorTypeChanged(long style);

protected:
    void OnPlotClose(Plot *plot);
    void removePannels(QList<Plot *> &list);
    void resetLayout();
    void ResetSplitter();
    Plot *GetMainPanel();
    QList<Plot *> GetAllPanel();
    QWidget *getOverlayWidget();
    double ValmorTimeToQwtTime(double t);
    void updateAxisLines();
    int getL1Decimal();
    double getL1DecimalFix();

private:
    Q_DISABLE_COPY(PriceGraph)
    friend class PriceGraphPrivate;
    PriceGraphPrivate *d;
};

#endif // PRICEGRAPH_H
