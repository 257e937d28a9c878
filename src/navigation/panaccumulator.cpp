#include "panaccumulator.h"

#include <cmath>

bool PanAccumulator::add(double d)
{
    const double sum = m_sum + d;
    if (sum * d < 0.0 || sum == 0.0) {
        m_sum = d;
        return true;
    }
    m_sum = sum;
    return std::fabs(m_sum) >= Threshold;
}

double PanAccumulator::take()
{
    const double d = m_sum;
    m_sum = 0.0;
    return d;
}
