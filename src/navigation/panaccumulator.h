#ifndef PANACCUMULATOR_H
#define PANACCUMULATOR_H

// Collects small pan motions (zoom-weighted pixels) until they are worth a
// redraw. A reversal of direction restarts the sum from the new motion and
// applies it at once, so a drag that turns back never lags.
class PanAccumulator
{
public:
    static constexpr double Threshold = 10.0;

    // Adds `d`; true when the pending distance should be applied now.
    bool add(double d);
    // The pending distance; the accumulator is empty afterwards.
    double take();
    double pending() const { return m_sum; }

private:
    double m_sum = 0.0;
};

#endif // PANACCUMULATOR_H
