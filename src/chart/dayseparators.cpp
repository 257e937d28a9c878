#include "dayseparators.h"

#include "datescaledraw.h"
#include "sampletimetable.h"

#include <QDateTime>

#include <qwt_date.h>
#include <qwt_interval.h>
#include <qwt_plot.h>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>

namespace {
const double Day = 86400000.0;
}

DaySeparators::DaySeparators(QwtPlot *plot)
    : m_plot(plot)
{
}

DaySeparators::~DaySeparators()
{
    qDeleteAll(m_markers);
}

QwtPlotMarker *DaySeparators::marker(int used)
{
    if (used == m_markers.size()) {
        // The style is fixed: set once, when the marker is made.
        QwtPlotMarker *made = new QwtPlotMarker(QString());
        made->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
        made->setLabelOrientation(Qt::Horizontal);
        made->setLineStyle(QwtPlotMarker::VLine);
        made->setLinePen(Qt::darkGray, 0, Qt::DotLine);
        made->setAxes(QwtPlot::xBottom, QwtPlot::yRight);
        m_markers.append(made);
    }
    return m_markers.at(used);
}

void DaySeparators::update(const SampleTimeTable &times, double interval,
                           const QwtInterval &shown)
{
    int used = 0;
    const int n = times.size();
    if (interval > 0.0 && interval < Day && n > 0) {
        const QwtInterval view = shown.normalized();
        const double lo = std::max(std::floor(view.minValue()), 0.0);
        const double hi = std::min(std::ceil(view.maxValue()), double(n - 1));
        if (std::isfinite(lo) && std::isfinite(hi) && hi >= lo && hi - lo <= MaxSpan) {
            const int first = int(lo), last = int(hi);
            // The UTC date of a plotting time is its whole number of days,
            // taken after the same nudge as the axis labels (a Julian
            // midnight converts to a hair before it).
            const auto dayOf = [&times](int i) {
                return std::floor(DateScaleDraw::nudge(times.timeAt(i)) / Day);
            };
            double previous = first > 0 ? dayOf(first - 1) : NAN;
            for (int i = first; i <= last; ++i) {
                const double day = dayOf(i);
                if (day == previous)
                    continue;
                previous = day;
                QwtPlotMarker *m = marker(used++);
                // An older bar inserted shifts the bars: label from the time.
                m->setLabel(QwtText(
                    QwtDate::toDateTime(DateScaleDraw::nudge(times.timeAt(i)), Qt::UTC)
                        .toString(QStringLiteral("MM/dd"))));
                m->setXValue(double(i));
                if (m->plot() != m_plot)
                    m->attach(m_plot);
            }
        }
    }
    for (int k = used; k < m_markers.size(); ++k) {
        if (m_markers.at(k)->plot())
            m_markers.at(k)->detach();
    }
}
