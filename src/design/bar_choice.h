// Least steel and the choice of bars: the lightest pair of diameter and spacing that serves strength, least steel and
// cracks, from the diameters that the project allows. Diameters in mm, lengths in cm, areas in cm2/m.
#pragma once

#include "design/crack.h"
#include "design/settings.h"

#include <vector>

namespace havuz::design {

// What one place of the tank asks of the bars of one face and direction: M* and N*.
struct Demand {
    double M = 0, N = 0; // t.m/m, t/m
    int mesh = 0;        // number in the project
    int corner = 0;      // 1..4
    int combination = 0; // place in the list of combinations
};

// The demands on one layer of bars: those of strength (elastic method: in service) and those in service for cracks.
struct LayerDemand {
    std::vector<Demand> strength, service;
    double cover = 0;      // cm
    double crackLimit = 0; // mm
};

// Least steel of one face, EN 1992-1-1 9.2.1.1: .26 fctm/fyk b d, not below .0013 b d.
double LeastSteel(const Materials &m, double d);

struct LayerChoice {
    Section section;   // with the depth of the bars chosen
    Bars bars;         // diameter 0: the project allows no diameter
    SteelNeed need;    // at the place that governs
    Demand governs;    // that place
    double least = 0;  // AsMin
    CrackWidth crack;  // the widest in service
    Demand crackPlace; // its place; combination -1 without any service demand
    bool serves = false;
    bool totalMet = true; // with the other face the total per direction
};

// Bars of the two faces of one zone and direction, inner (upper) first. Where nothing serves, the heaviest bars stand
// and serves is false.
std::vector<LayerChoice> ChooseBars(const Materials &m, double h, const Settings &settings,
                                    const std::vector<double> &diameters, const std::vector<LayerDemand> &faces);

// The greatest need among the demands for bars of that diameter.
void TakeGoverning(const Materials &m, const LayerDemand &demand, LayerChoice &choice);

} // namespace havuz::design
