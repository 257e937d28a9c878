#ifndef PRICEGRAPHPRIVATE_H
#define PRICEGRAPHPRIVATE_H

#include <QList>
#include <QMap>
#include <QPointer>
#include <QRecursiveMutex>
#include <QString>
#include <QVector>

#include "axisbars.h"

class EventSync;
class MarkRegistry;
class OverlayWidget;
class Plot;
class PlotScrollBar;
class PriceGraph;
class QSplitter;
class QWidget;
class ZoomButtons;

// Private data of PriceGraph. Not part of the API.
//
// Library code reaches the facade's protected members through the static
// helpers at the bottom, so the public header needs only this one friend.
class PriceGraphPrivate
{
public:
    explicit PriceGraphPrivate(PriceGraph *q);
    ~PriceGraphPrivate();

    static PriceGraphPrivate *get(PriceGraph *chart);

    PriceGraph *q;

    QList<Plot *> panels;           // top to bottom; [0] is the main panel
    QRecursiveMutex *mutex;         // AddSeries -> AddChartPanel -> SetCursorType lock again
    void *pending = nullptr;        // reserved
    // Series lookup block shared with the panels; reset as one unit (the int
    // goes back to 256). Data-feed calls reach every panel directly, so it
    // only exists to keep the layout the panels link to.
    QMap<QString, int> seriesMap;
    QVector<int> seriesVector;
    int seriesReset = 256;
    QSplitter *splitter;
    OverlayWidget *overlay;
    PlotScrollBar *scrollBar;
    QPointer<QObject> orderEntry;   // the host's, not owned; cleared if the host deletes it
    EventSync *eventSync;
    long cursorType = -1;           // -1: none yet, so the first SetCursorType applies
    double l1A = 0.0;
    double l1B = 0.0;
    int l1Decimals = 4;
    int l1Extra = 0;
    double l1DecimalFix;            // 1 / 10^(decimals + 2)

    // Bar interval last given to SetInterval; panels added later take it,
    // so a host may set it before its first series.
    double interval = 0.0;
    // The chart's time axis and the bars it stands on (see selectAxisBars).
    AxisBars axisBars;
    // The tick line as the host last drew it; shown on the first panel.
    double tickPrice = 0.0;
    bool tickShown = false;
    bool tearingDown = false;       // the destructor runs: panels leave without a relayout
    bool relayoutQueued = false;
    ZoomButtons *zoomButtons = nullptr;  // right end of the scroll-bar row
    MarkRegistry *marks;                // every mark of the chart, by kind
    QPointer<QWidget> scrollRow;        // the row under the panels (rebuilt by ResetSplitter)

    // Makes a new scroll-bar row (the bar, then the zoom buttons at its
    // right end) in place of the old one, keeping the bar and the buttons.
    QWidget *rebuildScrollRow();

    // The time axis stands on the price bars of the topmost panel holding a
    // price series, wherever that panel stands; without a price series on
    // the bars of the topmost volume series.
    void selectAxisBars();
    // After panels were added, moved, closed, shown or hidden: the
    // synchronisation group, the panel the scroll bar serves, the time
    // axis, the date axis and the tick line follow.
    void panelsChanged();
    // The same without laying the splitter out (a panel is being destroyed
    // and may still sit in it).
    void regroup();
    // The tick line shows on the first panel only.
    void placeTickLine();

    // Access for library code to the facade's protected members.
    static Plot *mainPanel(PriceGraph *chart);
    static QList<Plot *> allPanels(PriceGraph *chart);
    static void plotClosed(PriceGraph *chart, Plot *plot);
    static int decimals(PriceGraph *chart);
    static double decimalFix(PriceGraph *chart);
    static QWidget *overlayWidget(PriceGraph *chart);
    static ZoomButtons *zoomButtonsOf(PriceGraph *chart);
    static PlotScrollBar *scrollBarOf(PriceGraph *chart);
    static EventSync *eventSyncOf(PriceGraph *chart);
    static MarkRegistry *markRegistryOf(PriceGraph *chart);
    static AxisBars *axisBarsOf(PriceGraph *chart);
    // A panel gained or lost a price or volume series.
    static void seriesChanged(PriceGraph *chart);
    // Destroys a sub-panel the user closed (it reports back through
    // OnPlotClose) and lays the rest out again. The main panel stays.
    static void closePanel(PriceGraph *chart, Plot *plot);
};

#endif // PRICEGRAPHPRIVATE_H
