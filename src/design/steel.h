// The steel of a tank: for every panel, zone, face and direction the demand from every corner and combination, the bars
// chosen, the widest crack and the shear. Units as in the tables: cm, cm2/m, mm, t/m, t.m/m.
#pragma once

#include "consistent/results.h"
#include "design/bar_choice.h"
#include "design/places.h"
#include "design/shear.h"

#include <vector>

namespace havuz::design {

// What the checks need besides the analysis.
struct Basis {
    Materials materials;
    Settings settings;
    std::vector<double> diameters;               // mm, rising: DonatiCaplari
    double allowableSoil = 0;                    // ZeminGzem, t/m2
    std::vector<DesignCombination> combinations; // those of the settings, or the defaults
};

enum class Face { Inner, Outer }; // of slabs: upper, lower

struct ShearPlace {
    double V = 0;        // |Q|, t/m
    double M = 0, N = 0; // beside it; its sign says which face is pulled
    ShearStrength strength;
    double allowed = 0; // VRd, with the elastic method divided by its safety, t/m
    int mesh = 0;       // 0: no place of this zone pulls this face
    int combination = -1;
};

struct SteelRow {
    int panel = 0, kind = 0; // kind 0 floor, 1 wall, 2 strip
    Zone zone = Zone::Span;
    Face face = Face::Inner;
    int direction = 1;
    LayerChoice layer;
    double cover = 0;      // cm
    double head = 0;       // m of water at the panel's lowest point
    double crackLimit = 0; // mm
    ShearPlace shear;
    double thickerForBending = 0, thickerForShear = 0; // cm that would do where it is not met, else 0

    bool strengthMet() const;
    bool crackMet() const;
    bool shearMet() const { return !(shear.V > shear.allowed); }
    bool met() const { return strengthMet() && crackMet() && shearMet(); }
};

// results in the order of basis.combinations; ordered by panel, zone, direction, face.
std::vector<SteelRow> DesignSteel(const consistent::Tank &tank, const Basis &basis,
                                  const std::vector<consistent::CaseResult> &results);

// "inner", "upper", ...: a floor and a strip have upper and lower faces.
const char *FaceName(const SteelRow &row);
const char *TurkishFaceName(const SteelRow &row);

// Weight of the steel that is drawn, t: area of each zone times the chosen steel of its two directions and faces, 7.85
// t/m3.
double SteelWeight(const consistent::Tank &tank, const std::vector<SteelRow> &rows);

} // namespace havuz::design
