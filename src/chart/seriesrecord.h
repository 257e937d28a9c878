#ifndef SERIESRECORD_H
#define SERIESRECORD_H

#include <QString>

class QwtPlotCurve;
class QwtPlotIntervalCurve;

// One indicator series of a panel: its item and samples.
class SeriesRecord
{
public:
    explicit SeriesRecord(const QString &name);
    ~SeriesRecord();

    QString name;
    QwtPlotCurve *curve = nullptr;
    QwtPlotIntervalCurve *intervalCurve = nullptr;
};

#endif // SERIESRECORD_H
