#ifndef OVERLAYWIDGET_H
#define OVERLAYWIDGET_H

#include <QColor>
#include <QWidget>

class MarkRegistry;

// Transparent widget laid over all panels; lets every mouse event through.
// It watches the panels (event filter) so read-outs can follow the cursor.
class OverlayWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OverlayWidget(QWidget *parent = nullptr);

    void setTextColor(const QColor &color);
    QColor textColor() const { return m_textColor; }
    // Marks that paint across all panels (vertical lines) come from here.
    void setMarkRegistry(MarkRegistry *marks) { m_marks = marks; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_textColor;
    MarkRegistry *m_marks = nullptr;
};

#endif // OVERLAYWIDGET_H
