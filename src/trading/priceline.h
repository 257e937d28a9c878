#ifndef PRICELINE_H
#define PRICELINE_H

#include <QObject>
#include <QPointer>
#include <qwt_plot_marker.h>

#include <QLabel>
class QwtPlot;

// A horizontal line at one price with its label on the right price axis.
// Base of order, position and tick lines.
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

    void setLabelKind(int kind);
    int labelKind() const { return m_kind; }
    QLabel *label() const { return m_label; }

public Q_SLOTS:
    void updatePartnerPos();

protected:
    QPointer<QLabel> m_label;
    int m_kind = 0;
    bool m_editable = false;
    long m_count = 0;
};

#endif // PRICELINE_H
