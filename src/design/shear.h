// Shear without links: EN 1992-1-1 6.2.2. Depths in cm, V and N in t/m (N tension positive), areas in cm2/m.
#pragma once

#include "design/section.h"

namespace havuz::design {

struct ShearStrength {
    double vrd = 0;   // VRd,c, t/m, never below 0
    double k = 0;     // size factor
    double rho = 0;   // of the pulled bars, at most .02
    double sigma = 0; // mean normal stress, pressed positive, N/mm2
    double least = 0; // from vmin, t/m
};

ShearStrength ShearWithoutLinks(const Materials &m, const Section &s, double As, double N);

// The thickness in whole cm, from s.h on, at which V is carried with the same bars at the same distance from the face;
// 0 when none up to 3 m is.
double ThicknessForShear(const Materials &m, const Section &s, double As, double N, double V);

} // namespace havuz::design
