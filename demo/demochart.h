#ifndef DEMOCHART_H
#define DEMOCHART_H

#include <pricegraph.h>

#include <QPointer>

class QSplitter;

// The chart as a terminal embeds it. A terminal may subclass the widget to
// reach its protected members; this one closes panels with them, and tells
// when a panel went away, whether closed from the menu or by its own close
// button.
class DemoChart : public PriceGraph
{
    Q_OBJECT

public:
    explicit DemoChart(QWidget *parent = nullptr);

    // Closes panel `index`; the main panel (0) is kept. False when there is
    // no such panel.
    bool closePanel(long index);

Q_SIGNALS:
    // Panel `index` is being closed. Sent from inside the chart's removal
    // of the panel: a receiver notes it and leaves the chart alone.
    void panelClosed(int index);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The panels are the widgets of the chart's splitter, top to bottom:
    // a panel being destroyed leaves it.
    QPointer<QSplitter> splitter;
};

#endif // DEMOCHART_H
