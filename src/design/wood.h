// Moments that bars in two directions have to carry where the plate also twists: M* = M + |M12| for the pulled face,
// with the rule for a direction whose sign turns. Source: R. H. Wood, "The reinforcement of slabs in accordance with a
// pre-determined field of moments", Concrete 2 (1968). Moments in t.m/m.
#pragma once

#include <array>

namespace havuz::design {

// M* in directions 1 and 2 for the face that positive moments pull; 0 where that face asks for no bars. For the other
// face give -m11 and -m22.
std::array<double, 2> WoodMoments(double m11, double m22, double m12);

} // namespace havuz::design
