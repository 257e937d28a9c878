#ifndef PRICEGRAPHPRIVATE_H
#define PRICEGRAPHPRIVATE_H

#include <QList>
#include <QMap>
#include <QPointer>
#include <QRecursiveMutex>
#include <QString>
#include <QVector>

class EventSync;
class OverlayWidget;
class Plot;
class PlotScrollBar;
class PriceGraph;
class QSplitter;
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

    ZoomButtons *zoomButtons = nullptr;

    // Access for library code to the facade's protected members.
    static Plot *mainPanel(PriceGraph *chart);
    static QList<Plot *> allPanels(PriceGraph *chart);
    static void plotClosed(PriceGraph *chart, Plot *plot);
    static int decimals(PriceGraph *chart);
    static double decimalFix(PriceGraph *chart);
    static QWidget *overlayWidget(PriceGraph *chart);
};

#endif // PRICEGRAPHPRIVATE_H
