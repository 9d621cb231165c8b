#include "design/materials.h"

#include "design/failure.h"

#include <algorithm>
#include <cmath>

namespace havuz::design {

double Materials::k1() const { return std::clamp(.85 - .006 * (fck - 250.0) / 10.0, .70, .85); }

double Materials::fctm() const { return kKgPerSquareCm * .30 * std::pow(fck / kKgPerSquareCm, 2.0 / 3.0); }

// 22 (fcm/10)^0.3 in kN/mm2 with fcm = fck + 8 N/mm2.
double Materials::ecm() const { return kKgPerSquareCm * 22000.0 * std::pow((fck / kKgPerSquareCm + 8.0) / 10.0, .3); }

static void RequirePositive(double value, const char *name) {
    if (!(value > 0.0) || !std::isfinite(value))
        throw DesignFailure(std::string(name) + ": a strength must be above 0",
                            std::string(name) + ": dayanım sıfırdan büyük olmalı");
}

Materials MakeMaterials(double fck, double fyk, DesignMethod method) {
    RequirePositive(fck, "Fck");
    RequirePositive(fyk, "Fyk");
    return {fck, fyk, method, fyk / 1.75, .40 * fck};
}

} // namespace havuz::design
