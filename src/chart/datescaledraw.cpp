#include "datescaledraw.h"

#include "plot.h"
#include "pricegraphprivate.h"
#include "timescale.h"

#include <QDateTime>
#include <qwt_date.h>
#include <qwt_scale_widget.h>

#include <cmath>

DateScaleDraw::DateScaleDraw(const TimeScale *times)
    : m_times(times)
{
    setSpacing(5.0);
    setMinimumExtent(24.0);
    setTickLength(QwtScaleDiv::MinorTick, 0);
    setTickLength(QwtScaleDiv::MediumTick, 0);
}

int DateScaleDraw::s_labelled = 0;

DateScaleDraw::~DateScaleDraw()
{
    if (m_labelled)
        --s_labelled;
}

QwtText DateScaleDraw::label(double value) const
{
    if (!m_labelled) {
        m_labelled = true;
        ++s_labelled;
    }
    if (!m_times || !std::isfinite(value) || std::fabs(value) > 2e9)
        return QwtText();
    const double time = m_times->timeAt(std::trunc(value));
    if (!(time > 0.0))
        return QwtText();
    const double interval = m_times->interval();
    QString format = QStringLiteral("MM");
    if (interval > 0.0 && interval < 86400000.0)
        format = QStringLiteral("hh:mm");
    else if (interval >= 86400000.0 && interval < 2592000000.0)
        format = QStringLiteral("MM/dd");
    return QwtText(QwtDate::toDateTime(nudge(time), Qt::UTC).toString(format));
}

double DateScaleDraw::nudge(double ms)
{
    return std::fmod(ms, 60000.0) > 59000.0 ? ms + 1000.0 : ms;
}

void DateScaleDraw::datesChanged(PriceGraph *chart)
{
    if (!chart || !anyLabels())
        return;
    const QList<Plot *> panels = PriceGraphPrivate::allPanels(chart);
    for (Plot *p : panels) {
        auto *draw = dynamic_cast<DateScaleDraw *>(p->axisScaleDraw(QwtPlot::xBottom));
        if (!draw || !draw->m_labelled)
            continue;
        draw->m_labelled = false;
        --s_labelled;
        draw->invalidateCache();
        QwtScaleWidget *axis = p->axisWidget(QwtPlot::xBottom);
        if (axis && p->axisEnabled(QwtPlot::xBottom)) {
            axis->updateGeometry(); // the end labels' widths are part of the layout
            axis->update();
        }
    }
}
