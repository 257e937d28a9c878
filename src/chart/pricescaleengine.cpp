#include "pricescaleengine.h"

#include <algorithm>
#include <cmath>

double PriceScaleEngine::step(double span, int maxSteps)
{
    span = std::fabs(span);
    if (!std::isfinite(span) || !(span > 0.0))
        return 0.0;
    const double raw = span / std::max(maxSteps, 1);
    const double decade = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 2.5, 5.0, 10.0}) {
        // A hair of tolerance: span / steps that lands on a step exactly
        // must not skip it for a rounding error.
        if (m * decade >= raw * (1.0 - 1e-9))
            return m * decade;
    }
    return 10.0 * decade;
}

QwtScaleDiv PriceScaleEngine::divideScale(double x1, double x2, int maxMajorSteps,
                                          int maxMinorSteps, double stepSize) const
{
    if (stepSize == 0.0)
        stepSize = step(x2 - x1, maxMajorSteps);
    return QwtLinearScaleEngine::divideScale(x1, x2, maxMajorSteps, maxMinorSteps, stepSize);
}
