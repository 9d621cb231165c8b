// Whether the mesh is fine enough, for a reader of the results: the error estimate of the combination in service whose
// error is the greatest, and the mesh width that would be enough. Widths in m.
#pragma once

#include "consistent/error_estimate.h"
#include "design/checks.h"

#include <string>

namespace havuz::design {

struct MeshHint {
    std::string combination; // key; empty where no combination in service loads anything
    consistent::ErrorEstimate estimate;
    bool coarse() const { return estimate.whole.relative() > consistent::kErrorWanted; }
};

MeshHint HintOfMesh(const consistent::Analysis &analysis, const Design &design);

// "%7,3; %5 için ağ genişliği 0,34 m yeterli olur"; "%3,1; ağ yeterince sık".
std::string ErrorText(const consistent::ErrorShare &share);

} // namespace havuz::design
