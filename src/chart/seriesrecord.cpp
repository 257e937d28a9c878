#include "seriesrecord.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_intervalcurve.h>

SeriesRecord::SeriesRecord(const QString &n, const QColor &c, bool intervals)
    : name(n)
    , color(c)
    , points(intervals)
{
}

SeriesRecord::~SeriesRecord()
{
    delete curve;
    delete intervalCurve;
}
