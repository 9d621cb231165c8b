#include "model/place.h"

#include <utility>

namespace havuz {

void FailAt(const RuntimeFailure &failure, const Spot &where) {
    if (!failure.parts().where.empty() || failure.parts().inFile || failure.kind() == File)
        throw; // as it is
    FailureParts placed = failure.parts();
    placed.where = {where};
    throw RuntimeFailure(std::move(placed));
}

} // namespace havuz
