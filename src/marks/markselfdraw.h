#ifndef MARKSELFDRAW_H
#define MARKSELFDRAW_H

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include "markgeometry.h"

#include <qwt_plot_item.h>

class QPainter;
class QwtPlot;

// The base of every drawing tool a user places on a panel: a Qt object (it
// filters events) and a plot item (the panel draws it in every replot).
//
// Anchors are kept in plot coordinates (x a bar position, y a price), so a
// mark follows zoom and scroll by itself. Each anchor has a handle, a small
// child widget of the canvas that the user drags to reshape the mark.
//
// The mark filters the application object, and nothing else: it sees the
// events of its handles, those of its panel's canvas before the panel's own
// handling, and key presses wherever the focus is (Delete removes a
// selected mark). Application filters run newest first, so of two selected
// marks Delete removes the newer one.
//
// States: 0 and 3 are interactive (hover, select, drag); any other state
// (1 while the mark is being drawn) makes the handles transparent to the
// mouse and the mark deaf to the canvas.
class MarkSelfDraw : public QObject, public QwtPlotItem
{
    Q_OBJECT

public:
    MarkSelfDraw();
    ~MarkSelfDraw() override;

    // Tool hooks, in this order. x, y and centres are canvas pixels.
    virtual bool hitTest(double x, double y);
    virtual void setSelected(bool on);
    virtual void setHovered(bool on);
    virtual void setColor(QColor c);
    virtual void setState(int s);
    virtual void attachToPlot(QwtPlot *plot);
    virtual void updateHandleFromPoint(int i);
    virtual void updatePointFromHandle(int i);
    virtual void setPoint(int i, QPointF p);
    virtual void point(int i, QPointF &p);
    virtual void moveHandleTo(int i, QPoint center);
    virtual void handleCenter(int i, QPoint &center);
    virtual bool handleEventFilter(QObject *watched, QEvent *event);
    virtual bool canvasEventFilter(QObject *watched, QEvent *event);
    virtual bool appEventFilter(QObject *watched, QEvent *event);
    virtual void onHandleMoved(int i);
    virtual void setHandlesShown(bool shown);
    // For marks drawn on the chart's overlay (across all panels).
    virtual void paintOverlay(QPainter *painter, QWidget *overlay);

    // Handles follow the points, or while the whole mark is dragged the
    // points follow the handles under the mouse.
    void updateScaleDiv(const QwtScaleDiv &xDiv, const QwtScaleDiv &yDiv) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Puts every handle back on its anchor; the panel calls it when its
    // canvas moved or changed size (no scale changed, but the maps did).
    void syncHandles();
    // Older bars were inserted: anchors at or after bar `index` move
    // `count` bars to the right, so the mark stays on its bars. Tools whose
    // anchors are coupled restore the coupling afterwards.
    virtual void shiftBars(double index, double count);

    bool isSelected() const { return selected; }
    bool isHovered() const { return hovered; }
    bool isDragging() const { return dragging; }
    QColor getColor() const { return color; }
    int getState() const { return state; }
    int count() const { return points.size(); }
    QWidget *handle(int i) const { return handles.value(i); }
    QPointF pointAt(int i) const { return points.value(i); }

    // Handle style sheets: a point image when shown; an invisible area that
    // still shows a point under the mouse when not.
    static const char *const ShownHandleStyle;
    static const char *const HiddenHandleStyle;
    // Side of the square handle widget, in pixels.
    static const int HandleSize = 15;

protected:
    // Adds an anchor at (0, 0) with its handle (tool constructors).
    QWidget *addHandle(int axisLock = 0);
    // Replots the panel the mark is on; nothing while detached.
    void replotPlot();
    // Pixel of point i on the attached canvas.
    QPoint pixelOf(int i) const;
    // Moves handle i; a widget only where it can be seen or touched.
    void placeHandle(int i, QPoint topLeft);
    void revealHandles();
    bool validHandle(int i) const;

    bool selected = false;
    bool hovered = false;
    bool dragging = false;          // whole-mark drag with the left button
    QColor color;
    int state = 3;
    bool overrideCursorSet = false; // the drag set the application's override cursor
    int lastX = 0;                  // previous mouse position of a drag
    int lastY = 0;
    QVector<QPointer<QWidget>> handles;
    QVector<QPointF> points;

private:
    void endDrag();
    int handleIndex(const QObject *watched) const;

    bool handlesShown = false;               // the shown style is on
    QPoint pointer{-MarkGeometry::Reach, 0}; // last mouse position on the canvas
};

#endif // MARKSELFDRAW_H
