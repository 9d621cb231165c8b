#include "design/wood.h"

#include <algorithm>
#include <cmath>

namespace havuz::design {

std::array<double, 2> WoodMoments(double m11, double m22, double m12) {
    const double twist = std::fabs(m12);
    const double m1 = m11 + twist, m2 = m22 + twist;
    if (m1 < 0.0 && m2 < 0.0)
        return {0.0, 0.0};
    if (m1 < 0.0) // the concrete's field turns: what direction 1 cannot use relieves direction 2
        return {0.0, std::max(0.0, m22 + std::fabs(m12 * m12 / m11))};
    if (m2 < 0.0)
        return {std::max(0.0, m11 + std::fabs(m12 * m12 / m22)), 0.0};
    return {m1, m2};
}

} // namespace havuz::design
