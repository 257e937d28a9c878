#ifndef PLOTHORIZONTALMARK_H
#define PLOTHORIZONTALMARK_H

#include "markselfdraw.h"

#include <QLabel>
#include <QPointer>

// Horizontal line at one price across the canvas, with the price in a label
// on the canvas's right edge, centred on the line. Only the anchor's price
// matters: its handle is kept at mid-canvas, moves up and down only, and
// the label follows it while it is dragged.
class PlotHorizontalMark : public MarkSelfDraw
{
    Q_OBJECT

public:
    PlotHorizontalMark();
    ~PlotHorizontalMark() override;

    // Within 3 pixels of the line, anywhere across the canvas.
    bool hitTest(double x, double y) override;
    void setColor(QColor c) override;
    void attachToPlot(QwtPlot *plot) override;
    void updateHandleFromPoint(int i) override;
    void updatePointFromHandle(int i) override;
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

    void setLineStyle(int style) { lineStyle = style; }
    int getLineStyle() const { return lineStyle; }
    QLabel *priceLabel() const { return label; }

private:
    void restyleLabel();
    void placeLabel();

    int lineStyle = Qt::SolidLine;
    QPointer<QLabel> label;
};

#endif // PLOTHORIZONTALMARK_H
