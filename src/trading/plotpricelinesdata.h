#ifndef PLOTPRICELINESDATA_H
#define PLOTPRICELINESDATA_H

#include <QColor>
#include <QMap>
#include <QObject>
#include <QString>

class PriceLine;
class QwtPlot;

// The order, position and tick lines of one panel. Order and position lines
// are kept by id and owned here; the tick line is owned here as well. The
// panel deletes this before its own children go, so no line outlives the
// widgets it draws on.
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

private:
    QwtPlot *m_plot;
    int m_cursorStyle = -1;
    QMap<QString, PriceLine *> m_lines;
    PriceLine *m_tickLine = nullptr;
    QColor m_color;
};

#endif // PLOTPRICELINESDATA_H
