#ifndef PRICESCALEENGINE_H
#define PRICESCALEENGINE_H

#include <qwt_scale_engine.h>

// The price axis's ticks: with no step given, the step is the smallest of
// 1, 2, 2.5 and 5 times a power of ten that keeps to the allowed number of
// intervals (the panel allows as many as its labels have room for).
// Qwt's own series (1, 2, 5) can jump by 2.5 where this one jumps by at
// most 2, so a thin panel that has room for two labels shows at least one.
class PriceScaleEngine : public QwtLinearScaleEngine
{
public:
    // The step for `span` in at most `maxSteps` intervals; 0 when there is
    // no such step (an empty or non-finite span).
    static double step(double span, int maxSteps);

    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize = 0.0) const override;
};

#endif // PRICESCALEENGINE_H
