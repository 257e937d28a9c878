#ifndef PLOTSCROLLBAR_H
#define PLOTSCROLLBAR_H

#include <QMetaObject>
#include <QPointer>
#include <QScrollBar>

#include "plotnavigator.h"

class QwtPlot;

// The horizontal scroll bar under the panels. It serves the chart's leading
// panel (through its navigator): it mirrors the scroll events that panel
// sends itself and its x axis, and moves it (and through it the other
// panels) by setX.
class PlotScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit PlotScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    void setNavigator(PlotNavigator *navigator);
    PlotNavigator *navigator() const { return m_navigator; }
    QwtPlot *plot() const { return m_plot; }

    double minX() const { return m_minX; }
    double maxX() const { return m_maxX; }
    double page() const { return m_page; }
    double lowerValue() const { return m_value; }
    int freezeCount() const { return m_freezeCount; }

public Q_SLOTS:
    void onSliderMoved(int newValue);
    void onScaleDivChanged();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void applyValues();
    void freeze(bool on);

    QPointer<PlotNavigator> m_navigator;
    QPointer<QwtPlot> m_plot;
    QObject *m_watched = nullptr; // m_plot as the object the filter sees
    QMetaObject::Connection m_scaleConnection;
    double m_minX = 0.0;
    double m_maxX = 0.0;
    double m_page = 0.0;   // displayed width
    double m_value = 0.0;  // displayed lower end
    int m_freezeCount = 0;
};

#endif // PLOTSCROLLBAR_H
