#ifndef PLOTPRICELINESDATA_H
#define PLOTPRICELINESDATA_H

#include <QColor>
#include <QMap>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QString>

class PriceLine;
class QwtPlot;

// The order, position and tick lines of one panel. Order and position lines
// are kept by id and owned here; the tick line is owned here as well. The
// panel deletes this before its own children go, so no line outlives the
// widgets it draws on.
//
// It watches the canvas once for all lines and hands each mouse move to
// every line that listens, so a line near the mouse never keeps a move from
// another (moving straight from one line onto another hides the first
// one's box). A move is kept from the canvas only when it hovers a line;
// moves with a button held (a drag that pans) always go on, and drop the
// lines' hover state. When the lines move under a mouse that stays still
// (a new price scale, another canvas size, a line drawn or deleted), the
// last hover is judged again.
class PlotPriceLinesData : public QObject
{
    Q_OBJECT

public:
    explicit PlotPriceLinesData(QwtPlot *plot);
    ~PlotPriceLinesData() override;

    // Creates the line `id` on first use (its kind follows from the id:
    // "Position", then "Buy", then "Sell", case-insensitive; anything else
    // is an order line that signals no one) and connects it to
    // `orderEntry`; later calls change only the price and the count.
    void drawPositionLine(double price, long count, const QString &id, int flag,
                          const QString &text1, const QString &text2, const QString &text3,
                          QObject *orderEntry);
    // Unknown ids are ignored.
    void deletePositionLine(const QString &id);
    // Groups the order lines standing exactly at `price`: their boxes are
    // shown together, stacked and centred on the canvas.
    void mergeOrderLinePositionLabelShow(double price);
    // Lays every label and box out again (the panel's layout changed).
    void updateLabels();
    // Rebuilds the texts of all boxes (the chart's price decimals changed).
    void refreshLabels();

    // The tick line (last price) with its label.
    void showTickLine(double price);
    void hideTickLine();

    // The panel's cursor style: lines listen to the mouse only in the
    // pointer modes (0 and 3); new lines take the last style given.
    void setCursorStyle(int style);
    // Stored for the host to read back; line colours are fixed by kind.
    void setPriceLineColor(const QColor &color, int flag);
    QColor priceLineColor() const { return m_color; }

    PriceLine *tickLine() const { return m_tickLine; }
    PriceLine *line(const QString &id) const { return m_lines.value(id); }
    const QMap<QString, PriceLine *> &lines() const { return m_lines; }

    // Whether `orderEntry` has the slots the lines talk to; warns once per
    // missing slot.
    static void checkOrderEntry(QObject *orderEntry);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Hands a hover move to every listening line; true when one keeps it.
    bool hover(const QPointF &pos);
    void rehover();

    QwtPlot *m_plot;
    QPointer<QWidget> m_canvas;
    int m_cursorStyle = -1;
    QMap<QString, PriceLine *> m_lines;
    QPointF m_lastHover;
    bool m_hovering = false; // the mouse is over the canvas, no button held
    PriceLine *m_tickLine = nullptr;
    QColor m_color;
};

#endif // PLOTPRICELINESDATA_H
