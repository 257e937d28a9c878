#ifndef PRICELINE_H
#define PRICELINE_H

#include <QObject>
#include <QPen>
#include <QPointer>
#include <QString>
#include <qwt_plot_marker.h>

#include <QLabel>
class OrderLineButton;
class QwtPlot;
class QwtScaleWidget;

// A horizontal line at one price with its label on the right price axis.
// Base of order, position and tick lines.
//
// Changing a line (value, pen, visibility) repaints the canvas only: a
// marker never takes part in autoscaling, so a full replot would be wasted.
//
// Order and position lines carry a box (text and buttons) on the canvas next
// to the line; the box handling shared by both lives here and does nothing
// for a line without one (the tick line).
//
// The mouse reaches the lines through their panel's PlotPriceLinesData,
// which watches the canvas once for all of them (so that no line can keep
// a move from another): hoverMove, mouseLeft and dropHover below.
class PriceLine : public QObject, public QwtPlotMarker
{
    Q_OBJECT

public:
    PriceLine();
    ~PriceLine() override;

    virtual void attach(QwtPlot *plot);
    virtual void setMode(int mode);
    virtual void setEditable(bool on);
    virtual void setValue(double x, double y);
    virtual void setCount(long count);
    virtual void updateLabel();

    // Colour kind: 0 tick line (green), 1 position (blue), 2 order (teal).
    // Kinds 1 and 2 highlight and show their label while the mouse is near.
    void setLabelKind(int kind);
    int labelKind() const { return m_kind; }
    static QString labelStyleSheet(int kind);

    QLabel *label() const { return m_label; }
    OrderLineButton *button() const; // null on a line without a box
    QPen normalPen() const { return m_normalPen; }
    QPen hoverPen() const { return m_hoverPen; }
    bool isEditable() const { return m_editable; }
    long count() const { return m_count; }

    // What the host gave DrawPositionLine for this line.
    void setRecord(double price, const QString &id, int flag, const QString &text1,
                   const QString &text2, const QString &text3);
    void setPrice(double price) { m_price = price; }
    double price() const { return m_price; }
    QString id() const { return m_id; }
    int flag() const { return m_flag; }
    QString text1() const { return m_text1; }
    QString text2() const { return m_text2; }
    QString text3() const { return m_text3; }

    // Takes the line off its panel at once: marker, label, widgets and
    // event filters. The object itself may still be alive (see dispose()).
    virtual void retire();
    // Deletes the line, or, while one of its own signals is being emitted
    // (a host slot removing the line it was called for), as soon as that
    // emission has returned.
    void dispose();

    // Canvas pixel height of the line, or NaN while not attached.
    double linePixelY() const;

    // The mouse moved over the canvas with no button held: kinds 1 and 2
    // highlight the line and show its label within 6 px. True when the move
    // is the line's (the canvas below does not see it then).
    virtual bool hoverMove(const QPointF &pos);
    // The mouse left the canvas: the label hides (the pen stays until the
    // next move away).
    virtual void mouseLeft();
    // The mouse is busy elsewhere (a drag with a button held, the line no
    // longer listening): box, label and highlight go.
    virtual void dropHover();
    // Whether the line listens to the mouse (pointer modes only).
    bool isListening() const;

public Q_SLOTS:
    void updatePartnerPos();

protected:
    void itemChanged() override;

    QWidget *canvasWidget() const;
    QwtScaleWidget *axisWidget() const;
    // Number of price decimals of the panel; -1 when not on a chart panel.
    int priceDecimals() const;
    bool highlights() const { return m_kind == 1 || m_kind == 2; }

    // Hands the line its box, which it owns from then on.
    void setButton(OrderLineButton *button);
    // Moves the box to where this kind of line keeps it.
    virtual void placeButton() {}
    void updateButtonText();
    // A box nobody has moved sits this far from the price axis.
    static const int ButtonRightGap = 8;

    // Held while the line emits towards the host, so that a host slot may
    // delete the line it was called for.
    class EmitGuard
    {
    public:
        explicit EmitGuard(PriceLine *line);
        ~EmitGuard();

    private:
        QPointer<PriceLine> m_line;
    };

    QPointer<QLabel> m_label;
    int m_kind = 0;
    QPen m_normalPen;
    QPen m_hoverPen;
    bool m_editable = false;
    long m_count = 0;
    QPointer<OrderLineButton> m_button;

private:
    QPointer<QWidget> m_canvas;
    double m_price = 0.0;
    QString m_id;
    int m_flag = 0;
    QString m_text1;
    QString m_text2;
    QString m_text3;
    int m_emitDepth = 0;
    bool m_disposePending = false;
    bool m_hasButton = false;
};

#endif // PRICELINE_H
