#ifndef PLOTVERTICALLINEMARK_H
#define PLOTVERTICALLINEMARK_H

#include "markselfdraw.h"

#include <QRect>

// Vertical line at one bar, across every panel of the chart: it is attached
// to the main panel (its handle lives there) but painted on the chart's
// overlay, with the bar's date and time in a box at the overlay's bottom
// edge. Only the anchor's time matters: its handle is kept at mid-canvas
// and moves left and right only.
class PlotVerticalLineMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotVerticalLineMark();
    ~PlotVerticalLineMark() override;

    // Within 3 pixels of the line on the main panel's canvas.
    bool hitTest(double x, double y) override;
    void setHovered(bool on) override;
    void setColor(QColor c) override;
    void updateHandleFromPoint(int i) override;
    void updatePointFromHandle(int i) override;
    void paintOverlay(QPainter *painter, QWidget *overlay) override;
    // Nothing on the canvas: the overlay shows the line.
    void draw(QPainter *, const QwtScaleMap &, const QwtScaleMap &, const QRectF &) const override {}

    void setLineStyle(int style) { lineStyle = style; }
    int getLineStyle() const { return lineStyle; }
    // "yyyy-MM-dd hh:mm" of the bar under the line (bars beyond either end
    // are timed at the chart's interval); empty without bars.
    QString timeText() const;

private:
    QWidget *overlay() const;
    // x of the line in the overlay's pixels; false when it is off the canvas.
    bool overlayX(QWidget *overlay, int &x) const;
    // Repaints where the line was and where it is (`force`: also when it
    // did not move, for a change of look).
    void refreshOverlay(bool force);

    int lineStyle = Qt::SolidLine;
    QRect painted; // the overlay strip that shows the line now
};

#endif // PLOTVERTICALLINEMARK_H
