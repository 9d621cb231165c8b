#include "consistent_support.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz::consistent {

Tank PolygonTank(const std::vector<std::pair<double, double>> &points, double top, double bottom, double width) {
    return verification::PolygonTank({points, top, bottom, 20, 30, width});
}

ShellResult ResultAt(const Tank &tank, const CaseResult &r, int panel, const Vector3 &at) {
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 d = tank.corner(tank.meshes[i], k) - at;
            if (tank.meshes[i].panel == panel && Dot(d, d) < 1e-6)
                return r.meshes[i][k + 1];
        }
    ADD_FAILURE() << "no corner of panel " << panel << " at " << at.x << ", " << at.y << ", " << at.z;
    return {};
}

const NodeResult &NodeResultAt(const Tank &tank, const CaseResult &r, const Vector3 &at) {
    for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
        const Vector3 d = tank.nodes[n].at - at;
        if (tank.nodes[n].used && Dot(d, d) < 1e-6)
            return r.nodes[n];
    }
    ADD_FAILURE() << "no node at " << at.x << ", " << at.y << ", " << at.z;
    return r.nodes[0];
}

double DisplacementDifference(const CaseResult &a, const CaseResult &b) {
    double greatest = 0.0;
    double difference = 0.0;
    for (std::size_t n = 1; n < a.nodes.size(); ++n)
        for (std::size_t d = 0; d < 3; ++d) {
            greatest = std::max(greatest, std::fabs(a.nodes[n].u[d]));
            difference = std::max(difference, std::fabs(a.nodes[n].u[d] - b.nodes[n].u[d]));
        }
    return difference / greatest;
}

double Imbalance(const Proof &proof) {
    double sum = 0.0;
    double size = 0.0;
    for (std::size_t i = 0; i < 6; ++i) {
        sum = std::max(sum, std::fabs(proof.sum[i]));
        size = std::max({size, std::fabs(proof.load[i]), std::fabs(proof.spring[i])});
    }
    return size > 0.0 ? sum / size : 0.0;
}

} // namespace havuz::consistent
