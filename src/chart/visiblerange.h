#ifndef VISIBLERANGE_H
#define VISIBLERANGE_H

#include <qwt_scale_map.h>
#include <qwt_series_data.h>

#include <algorithm>
#include <cmath>

// Narrows a draw call to the samples inside the x scale. The series views of
// this library have x growing with the sample index, so two binary searches
// find the visible run; one sample either side is kept so that lines run on
// to the edge of the canvas. Drawing thus costs what is visible, not what is
// stored.
class VisibleRange
{
public:
    // xOf(sample) gives a sample's x. Narrows [from, to] (to < 0: the last
    // sample); false when nothing is left to draw.
    template <typename T, typename XOf>
    static bool narrow(const QwtSeriesData<T> *data, const QwtScaleMap &xMap, XOf xOf, int &from,
                       int &to)
    {
        const int n = data ? int(data->size()) : 0;
        if (n <= 0)
            return false;
        if (to < 0 || to >= n)
            to = n - 1;
        from = std::max(from, 0);
        const double lo = std::min(xMap.s1(), xMap.s2());
        const double hi = std::max(xMap.s1(), xMap.s2());
        if (std::isfinite(lo) && std::isfinite(hi)) {
            int a = 0, b = n;
            while (a < b) { // first sample at or right of lo
                const int mid = a + (b - a) / 2;
                if (xOf(data->sample(size_t(mid))) < lo)
                    a = mid + 1;
                else
                    b = mid;
            }
            const int first = a - 1;
            b = n;
            while (a < b) { // first sample right of hi
                const int mid = a + (b - a) / 2;
                if (xOf(data->sample(size_t(mid))) <= hi)
                    a = mid + 1;
                else
                    b = mid;
            }
            from = std::max(from, first);
            to = std::min(to, a);
        }
        return from <= to;
    }
};

#endif // VISIBLERANGE_H
