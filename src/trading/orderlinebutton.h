#ifndef ORDERLINEBUTTON_H
#define ORDERLINEBUTTON_H

#include <QPainterPath>
#include <QPointer>
#include <QWidget>

class QLabel;
#include <QPushButton>

// The box an order or position line shows on the canvas: a compact rounded
// frame holding the line's text and its push buttons (modify and cancel for
// an order, close for a position). It paints its own frame; only the inside
// path counts as the box for clicks and hover.
class OrderLineButton : public QWidget
{
    Q_OBJECT

public:
    enum Kind { Order, Position };

    explicit OrderLineButton(Kind kind, QWidget *parent = nullptr);

    Kind kind() const { return m_kind; }
    void setText(const QString &text);
    QString text() const;
    QLabel *textLabel() const { return m_text; }
    // Null for a position box.
    QPushButton *modifyButton() const { return m_modify; }
    // The cancel button of an order, the close button of a position.
    QPushButton *cancelButton() const { return m_cancel; }

    // Whether the box hides as the mouse leaves it (a lone box does; a box
    // in a stack is hidden by its line).
    void setHidesOnLeave(bool on) { m_hidesOnLeave = on; }
    bool hidesOnLeave() const { return m_hidesOnLeave; }

    QPainterPath outline() const { return m_outline; }
    QPainterPath insidePath() const { return m_inside; }

    static const char *placeholderText() { return "xK @ 0.00000"; }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void hideAndTell();

    Kind m_kind;
    QLabel *m_text = nullptr;
    QPointer<QPushButton> m_modify;
    QPointer<QPushButton> m_cancel;
    QPainterPath m_outline;
    QPainterPath m_inside;
    bool m_hidesOnLeave = true;
};

#endif // ORDERLINEBUTTON_H
