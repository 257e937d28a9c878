#ifndef PANELCLOSEBUTTON_H
#define PANELCLOSEBUTTON_H

#include <QAbstractButton>

class Plot;

// The small close control at the top right of a sub-panel's canvas. A click
// asks the chart to destroy the panel; the panel's destructor reports back
// through the chart's OnPlotClose. The main panel has none.
class PanelCloseButton : public QAbstractButton
{
    Q_OBJECT

public:
    // Shows the panel's close control (made on first use) or hides it.
    static void showFor(Plot *plot, bool show);
    // The panel's close control, or null when it has none yet.
    static PanelCloseButton *of(Plot *plot);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    explicit PanelCloseButton(Plot *plot);
    void place();
    void requestClose();

    Plot *m_plot;
    bool m_hover = false;
};

#endif // PANELCLOSEBUTTON_H
