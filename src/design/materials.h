// Concrete and steel of the design checks, and what follows from their strengths. Strengths in kg/cm2, as the project
// holds them; 1 N/mm2 counts as 10 kg/cm2. Sources: TS 500 (block depth, ultimate strain), EN 1992-1-1 table 3.1.
#pragma once

namespace havuz::design {

constexpr double kSteelModulus = 2.0e6;  // Es, kg/cm2
constexpr double kUltimateStrain = .003; // of the concrete's edge
constexpr double kElasticRatio = 15.0;   // n of the cracked elastic section
constexpr double kKgPerSquareCm = 10.0;  // kg/cm2 in 1 N/mm2
constexpr double kWidth = 100.0;         // b, cm: sections are a strip of 1 m

// "TASIMA GUCU" (strength) or "EMNIYET GERILMESI" (elastic, allowable stresses).
enum class DesignMethod { Strength, Elastic };

struct Materials {
    double fck = 0, fyk = 0; // characteristic strengths, kg/cm2
    DesignMethod method = DesignMethod::Strength;
    double allowableSteel = 0, allowableConcrete = 0; // kg/cm2, of the elastic method

    double fcd() const { return fck / 1.5; }
    double fyd() const { return fyk / 1.15; }
    // What the steel may carry: fyd, or the allowable stress.
    double f() const { return method == DesignMethod::Strength ? fyd() : allowableSteel; }
    double k1() const;   // depth of the rectangular block over the depth of the neutral axis
    double fctm() const; // mean tensile strength, kg/cm2
    double ecm() const;  // modulus of the concrete, kg/cm2
};

// The allowable stresses that stand when none are entered: fyk/1.75 and .40 fck. A strength that is not positive is
// a DesignFailure, naming Fck or Fyk.
Materials MakeMaterials(double fck, double fyk, DesignMethod method);

} // namespace havuz::design
