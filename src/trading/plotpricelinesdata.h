#ifndef PLOTPRICELINESDATA_H
#define PLOTPRICELINESDATA_H

#include <QColor>
#include <QMap>
#include <QObject>
#include <QString>

class Plot;
class PriceLine;

// The order, position and tick lines of one panel, keyed by line id. Owns
// its lines.
class PlotPriceLinesData : public QObject
{
    Q_OBJECT

public:
    explicit PlotPriceLinesData(Plot *plot);
    ~PlotPriceLinesData() override;

    // Creates or updates the line `id` (type from the id) at `price`.
    void drawPositionLine(double price, long count, const QString &id, int flag,
                          const QString &text1, const QString &text2, const QString &text3,
                          QObject *orderEntry);
    void deletePositionLine(const QString &id);
    void mergeOrderLinePositionLabelShow(double price);

    void setCursorStyle(int style);
    void setPriceLineColor(const QColor &color, int flag);

    PriceLine *tickLine() const { return m_tickLine; }
    PriceLine *line(const QString &id) const { return m_lines.value(id); }
    const QMap<QString, PriceLine *> &lines() const { return m_lines; }

private:
    Plot *m_plot;
    QMap<QString, PriceLine *> m_lines;
    PriceLine *m_tickLine = nullptr;
    QColor m_color;
};

#endif // PLOTPRICELINESDATA_H
