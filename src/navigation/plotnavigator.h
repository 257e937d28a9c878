#ifndef PLOTNAVIGATOR_H
#define PLOTNAVIGATOR_H

#include "panaccumulator.h"
#include "scrolllimits.h"
#include "viewrange.h"

#include <QObject>

class EventSync;
class QwtPlot;
class TimeScale;
class ViewContent;

// Zoom and scroll of one panel: the view state and the operations that move
// it. The panel's navigation slots forward here.
//
// The view is a logical bar range [viewX1, viewX2] and a zoom factor; the
// panel displays the range scaled by the zoom around its centre (ViewRange).
// The navigator sees the panel only as a Qwt plot whose scales it sets, the
// content it moves over (ViewContent) and the chart's time axis, whose bars
// set the scroll limits of every panel alike. Nothing here visits every bar:
// the price range of the view comes from the panel's block index, so the
// cost of a move does not grow with history.
//
// Before any public operation, data fed since the last flush is taken into
// the view (EventSync::flushPending), so a move made right after a feed
// acts on the new bars.
class PlotNavigator : public QObject
{
    Q_OBJECT

public:
    static constexpr double MinZoom = 0.125;
    static constexpr double MaxZoom = 8.0;

    PlotNavigator(QwtPlot *plot, const ViewContent *content, TimeScale *times);

    QwtPlot *plot() const { return m_plot; }
    const TimeScale *timeScale() const { return m_times; }
    // The panels of the chart this one moves with; set by EventSync.
    void setGroup(EventSync *group) { m_group = group; }
    EventSync *group() const { return m_group; }

    // Takes data fed since the last flush into the view now, if any.
    void catchUp() const;

    void getX(double &x1, double &x2) const;
    // Ignores (0, 0); zoom -1 keeps the current zoom.
    void setX(double x1, double x2, double zoom);
    void adjustX(double &min, double &max);
    // Scrolls the chart's leading panel (whichever panel it is called on);
    // when every bar fits the canvas nothing moves.
    void scrollRight(long records);
    void scrollToEnd();
    // Whole bars one screen holds (at least 1): what Page Up and Down move.
    long screenBars() const;
    void zoomIn();
    void zoomOut();
    void resetZoom();
    void zoomInY(double dy);
    void zoomOutY(double dy);
    void moveX(double dx);
    void recordChartCenter();
    void restoreChartCenter();

    // The panel's bars changed (appended, edited, inserted or cleared).
    // Shows the newest bars on the first data, and keeps them in view while
    // the view sits at the end. With `sync` false the other panels are left
    // for the caller to align; returns whether they should follow.
    bool dataChanged(bool sync = true);
    // Recomputes the scroll limits and tells the panel's scroll bar.
    void updateScrollLimits();

    bool hasView() const { return !(m_viewX1 == 0.0 && m_viewX2 == 0.0); }
    bool isAtEnd() const;
    double zoom() const { return m_zoom; }
    double yZoom() const { return m_yZoom; }
    // Bars the canvas shows at the current zoom.
    double visibleSpan() const;
    ViewRange displayedRange() const;
    const ScrollLimits &limits() const { return m_limits; }
    double recordedCenterTime() const { return m_recordedCenterTime; }

Q_SIGNALS:
    // A zoom step reached a bound (false) or left it (true): button 0 zooms
    // in, 1 zooms out.
    void zoomButtonHighlight(int button, bool canHighlight);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void barsInserted(int index, int count);
    void barsReset();

private:
    void applyView(double x1, double x2, double zoom, bool replot);
    void applyScales();
    void finishZoom(bool wasAtEnd);
    void scrollBy(long records);
    void canvasResized();
    void sync();
    PlotNavigator *leader() const;
    void dataExtent(double &minX, double &maxX) const;
    double canvasWidth() const;

    QwtPlot *m_plot;
    const ViewContent *m_content;
    TimeScale *m_times;
    EventSync *m_group = nullptr;
    double m_viewX1 = 0.0;
    double m_viewX2 = 0.0;
    double m_zoom = 1.0;
    double m_yZoom = 1.0;
    double m_recordedCenterTime = -1.0;
    ScrollLimits m_limits;
    PanAccumulator m_pan;
    bool m_hadBars = false;
    int m_canvasWidth = -1;
};

#endif // PLOTNAVIGATOR_H
