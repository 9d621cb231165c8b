// Every check of the design in one list: what was compared, where, and its verdict; and the whole calculation from the
// analysis to that list.
#pragma once

#include "consistent/analysis.h"
#include "design/steel.h"

#include <memory>
#include <string>
#include <vector>

namespace havuz::design {

struct Check {
    std::string kind;        // soil, flotation, steel, crack, shear, spacing, residual
    std::string combination; // key
    int panel = 0;           // 0 where the whole tank is meant
    double value = 0, limit = 0;
    std::string unit;
    bool met = true;
    int place = 0; // node of soil, row of Design::steel of steel, crack, shear, spacing; else 0
};

// Soil under one combination in service.
struct SoilState {
    std::string combination;
    double pressure = 0; // greatest, t/m2
    int node = 0;        // 0: nothing lies on the ground
    int panel = 0;
    bool pulls = false;    // springs pulled: solved anew without tension
    double liftedArea = 0; // m2
    int rounds = 0;
    std::string failure;                                // Turkish words where no state without tension stands
    std::shared_ptr<const consistent::CaseResult> free; // that state where springs pulled and it stands
};

struct Flotation {
    double dead = 0, uplift = 0; // G down, U up, t
    double limit = 0;            // on G / U
    double ratio() const { return dead / uplift; }
    double missing() const; // t, 0 when it is met
    bool asked() const { return uplift > 0.0; }
    bool met() const { return !asked() || ratio() >= limit; }
};

// The calculation, whole. Cases that load nothing stay in place with zeros.
struct Design {
    Basis basis;
    std::vector<consistent::CaseResult> cases;        // in the order of kAllCases
    std::vector<consistent::CaseResult> combinations; // in the order of basis.combinations
    std::vector<SoilState> soil;                      // by combination in service
    Flotation flotation;
    std::vector<SteelRow> steel;
    std::vector<Check> checks;
    bool met() const; // every check
};

constexpr double kResidualLimit = 1e-8; // |f - K u| / |f|

// The basis of the tank in the model store with these settings. A strength that is not positive, and
// settings whose combinations leave the method without any, are a DesignFailure.
Basis MakeBasis(const Settings &settings);

// How the analysis of a tank with these settings is made: saturated density and surcharge, all threads allowed.
consistent::Options AnalysisOptions(const Basis &basis);

Design DesignTank(const consistent::Analysis &analysis, const Basis &basis);

} // namespace havuz::design
