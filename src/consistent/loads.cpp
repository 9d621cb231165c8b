#include "consistent/loads.h"

#include "consistent/failure.h"

namespace havuz::consistent {

[[noreturn]] static void NotYet() {
    throw AnalysisFailure("the consistent analysis is not finished yet", "tutarlı analiz henüz bitmedi");
}

std::vector<Vector3> NodalLoads(const Tank &, Case, const LoadOptions &) { NotYet(); }
bool HasLoads(const std::vector<Vector3> &loads) {
    for (const Vector3 &f : loads)
        if (f.x != 0.0 || f.y != 0.0 || f.z != 0.0)
            return true;
    return false;
}
std::vector<double> BedAreas(const Tank &) { NotYet(); }
std::vector<WallForce> WallForces(const Tank &, Case, const LoadOptions &) { NotYet(); }
std::vector<Vector3> OutwardNormals(const Tank &) { NotYet(); }

} // namespace havuz::consistent
