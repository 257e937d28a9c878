#ifndef ZOOMBUTTONS_H
#define ZOOMBUTTONS_H

#include <QObject>
#include <QPointer>

class QPushButton;

// The zoom-in (0) and zoom-out (1) icon buttons of a chart, 14 x 14 each.
// They are made without a parent; the chart puts them at the right end of
// its scroll-bar row and answers their requests with one zoom step.
class ZoomButtons : public QObject
{
    Q_OBJECT

public:
    explicit ZoomButtons(QObject *parent = nullptr);
    ~ZoomButtons() override;

    QPushButton *button(int index) const;

Q_SIGNALS:
    void zoomInRequested();
    void zoomOutRequested();

public Q_SLOTS:
    void ZoomIn();
    void ZoomOut();
    void setZoomButtonHighlight(int button, bool canHighlight);

private:
    QPointer<QPushButton> m_buttons[2];
};

#endif // ZOOMBUTTONS_H
