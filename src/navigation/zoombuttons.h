#ifndef ZOOMBUTTONS_H
#define ZOOMBUTTONS_H

#include <QObject>
#include <QPointer>

class PriceGraph;
class QPushButton;

// The zoom-in (0) and zoom-out (1) icon buttons of a chart.
class ZoomButtons : public QObject
{
    Q_OBJECT

public:
    explicit ZoomButtons(PriceGraph *chart);
    ~ZoomButtons() override;

    QPushButton *button(int index) const;

public Q_SLOTS:
    void ZoomIn();
    void ZoomOut();
    void setZoomButtonHighlight(int button, bool canHighlight);

private:
    PriceGraph *m_chart;
    QPointer<QPushButton> m_buttons[2];
};

#endif // ZOOMBUTTONS_H
