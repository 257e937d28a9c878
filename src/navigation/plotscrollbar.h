#ifndef PLOTSCROLLBAR_H
#define PLOTSCROLLBAR_H

#include <QPointer>
#include <QScrollBar>

class Plot;

// The horizontal scroll bar under the panels. It mirrors the panel it serves
// through the scroll events that panel sends itself, and moves it by setX.
class PlotScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit PlotScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    void setPlot(Plot *plot);
    Plot *plot() const { return m_plot; }

public Q_SLOTS:
    void onSliderMoved(int newValue);
    void onScaleDivChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<Plot> m_plot;
    double m_minX = 0.0;
    double m_maxX = 0.0;
    double m_page = 0.0;
    double m_value = 0.0;
    int m_freezeCount = 0;
};

#endif // PLOTSCROLLBAR_H
