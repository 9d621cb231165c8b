// The steel that one face of a rectangular section of 1 m asks for under a moment and a normal force, by the strength
// method (rectangular block) or by the cracked elastic section. Steel on the compressed side is not counted.
// Depths in cm, M in t.m/m, N in t/m (tension positive), areas in cm2/m, stresses in kg/cm2.
#pragma once

#include "design/materials.h"

namespace havuz::design {

// d is the depth from the compressed face to the bars of the face that is designed; d' = h - d on the other side.
struct Section {
    double h = 0, d = 0;                            // cm
    double leverArm() const { return d - (h - d); } // between the layers, d - d'
};

struct SteelNeed {
    double area = 0;         // cm2/m, never below 0; infinite where no neutral axis balances the moment
    bool allTension = false; // both layers pulled: no compressed zone
    double ms = 0;           // moment about the bars, t.m/m; 0 when all is in tension
    double depth = 0;        // strength: c, elastic: x; the neutral axis, cm
    double concrete = 0;     // stress of the concrete's edge, kg/cm2: .85 fcd, or sc
    bool met = true;         // the concrete holds: strength: the steel yields first; elastic: sc within the allowable
};

// M positive pulls the face that is designed.
SteelNeed RequiredSteel(const Materials &m, const Section &s, double M, double N);

// What the cracked elastic section does under M and N with the steel As on the pulled face: n as given.
struct CrackedState {
    double steel = 0;        // stress of the bars, kg/cm2; 0 where nothing pulls them
    double x = 0;            // depth of the neutral axis, cm; 0 when all is in tension
    bool allTension = false; // both layers pulled
    double strainRatio = 0;  // of the less to the more stretched layer; 0 where one side is compressed
};
CrackedState CrackedSection(const Section &s, double As, double n, double M, double N);

} // namespace havuz::design
