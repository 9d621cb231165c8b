// Crack width in service: EN 1992-1-1 7.3.4, wk = sr,max (esm - ecm), and its limit by EN 1992-3 for tightness class 1.
// Lengths in cm, bar diameter and crack width in mm, M in t.m/m, N in t/m, areas in cm2/m.
#pragma once

#include "design/section.h"

namespace havuz::design {

struct Bars {
    double diameter = 0; // mm
    double spacing = 0;  // cm
    double area() const; // cm2/m
};

struct CrackWidth {
    double wk = 0;        // mm
    double srMax = 0;     // mm
    double strain = 0;    // esm - ecm
    double steel = 0;     // stress of the bars, kg/cm2
    double rho = 0;       // rho p,eff
    double effective = 0; // hc,ef, cm
    double x = 0;         // cm
    double k2 = 0;
};

// cover is the clear cover of these bars, cm.
CrackWidth CrackWidthOf(const Materials &m, const Section &s, const Bars &bars, double cover, double M, double N);

// Limit, mm: .20 at a head of up to 5 thicknesses, .05 from 35 on, linear between. head in m, h in cm.
double CrackLimit(double head, double h);

} // namespace havuz::design
