#include "design/mesh_hint.h"

#include "design/number_words.h"

#include <cmath>

namespace havuz::design {

MeshHint HintOfMesh(const consistent::Analysis &analysis, const Design &design) {
    MeshHint hint;
    for (std::size_t i = 0; i < design.combinations.size(); ++i) {
        if (design.basis.combinations[i].factored)
            continue;
        consistent::ErrorEstimate estimate = EstimateError(analysis, design.combinations[i]);
        if (estimate.whole.error > hint.estimate.whole.error) {
            hint.combination = design.combinations[i].key;
            hint.estimate = std::move(estimate);
        }
    }
    return hint;
}

std::string ErrorText(const consistent::ErrorShare &share) {
    const std::string percent = "%" + Turkish(100.0 * share.relative(), 1);
    if (share.relative() <= consistent::kErrorWanted)
        return percent + "; ağ yeterince sık";
    // down to whole centimetres, so that what is named is enough
    const double width = std::floor(100.0 * share.widthFor(consistent::kErrorWanted)) / 100.0;
    return percent + "; %" + Turkish(100.0 * consistent::kErrorWanted, 0) + " için ağ genişliği " + Turkish(width, 2) +
           " m yeterli olur";
}

} // namespace havuz::design
