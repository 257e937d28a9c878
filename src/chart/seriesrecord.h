#ifndef SERIESRECORD_H
#define SERIESRECORD_H

#include "indicatorseries.h"

#include <QColor>
#include <QString>

class QwtPlotCurve;
class QwtPlotIntervalCurve;

// One indicator series of a panel: its name, colour, item and points. The
// item reads the points in place; the record owns both.
class SeriesRecord
{
public:
    SeriesRecord(const QString &name, const QColor &color, bool intervals);
    ~SeriesRecord();

    QString name;
    QColor color;
    QwtPlotCurve *curve = nullptr;                 // a line, or null
    QwtPlotIntervalCurve *intervalCurve = nullptr; // intervals (".end"), or null
    IndicatorSeries points;

private:
    Q_DISABLE_COPY(SeriesRecord)
};

#endif // SERIESRECORD_H
