#ifndef PLOTNAVIGATOR_H
#define PLOTNAVIGATOR_H

class Plot;

// Zoom and scroll of one panel: the view state and the operations that move
// it. The panel's navigation slots forward here.
class PlotNavigator
{
public:
    explicit PlotNavigator(Plot *plot);

    void getX(double &x1, double &x2) const;
    void setX(double x1, double x2, double zoom);
    void adjustX(double &min, double &max);
    void scrollRight(long records);
    void scrollToEnd();
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
    // the view sits at the end.
    void dataChanged();

    double zoom() const { return m_zoom; }
    double yZoom() const { return m_yZoom; }

private:
    Plot *m_plot;
    double m_viewX1 = 0.0;
    double m_viewX2 = 0.0;
    double m_zoom = 1.0;
    double m_yZoom = 1.0;
};

#endif // PLOTNAVIGATOR_H
