#include "seriesrecord.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>

SeriesRecord::SeriesRecord(const QString &n)
    : name(n)
{
}

SeriesRecord::~SeriesRecord()
{
    delete curve;
    delete intervalCurve;
}
