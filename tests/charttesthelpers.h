// Shared by the feed, display and trading line tests: times as a host
// writes them and the chart each fixture starts from.
#ifndef CHARTTESTHELPERS_H
#define CHARTTESTHELPERS_H

#include "plot.h"
#include "pricegraph.h"
#include "pricegraphprivate.h"

namespace charttest {

const double Minute = 60000.0;
const double Day = 86400000.0;

// Julian date of a plotting time (ms since 1970), as a host writes it.
inline double julian(double ms) { return 2440587.5 + ms / Day; }

// An 800 x 600 chart without panels, not shown yet. `Chart` may be a test
// subclass reaching protected members.
template <class Chart = PriceGraph>
Chart *newChart()
{
    Chart *chart = new Chart;
    chart->resize(800, 600);
    return chart;
}

inline Plot *mainPanel(PriceGraph *chart) { return PriceGraphPrivate::mainPanel(chart); }

// The chart of one test function, for a test class to inherit beside
// QObject: makeChart() in init(), dropChart() in cleanup().
template <class Chart = PriceGraph>
class ChartFixture
{
protected:
    void makeChart() { chart = newChart<Chart>(); }
    void dropChart()
    {
        delete chart;
        chart = nullptr;
    }
    Plot *main() const { return mainPanel(chart); }

    Chart *chart = nullptr;
};

} // namespace charttest

#endif // CHARTTESTHELPERS_H
