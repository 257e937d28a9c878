#ifndef ZOOMBUTTONS_H
#define ZOOMBUTTONS_H

#include <QObject>
#include <QPointer>

#include "pricegraph.h"

class QPushButton;

// The zoom-in (0) and zoom-out (1) icon buttons of a chart, 14 x 14 each.
// They are made without a parent; the chart puts them at the right end of
// its scroll-bar row.
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
    QPointer<PriceGraph> m_chart;
    QPointer<QPushButton> m_buttons[2];
};

#endif // ZOOMBUTTONS_H
