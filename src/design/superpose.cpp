#include "design/superpose.h"

#include <cmath>

namespace havuz::design {

using consistent::CaseResult;
using consistent::ShellResult;

namespace {

void Add(ShellResult &sum, const ShellResult &r, double f) {
    sum.N11 += f * r.N11, sum.N22 += f * r.N22, sum.N12 += f * r.N12;
    sum.M11 += f * r.M11, sum.M22 += f * r.M22, sum.M12 += f * r.M12;
    sum.Q1 += f * r.Q1, sum.Q2 += f * r.Q2;
}

void AddNodes(CaseResult &sum, const CaseResult &r, double f) {
    for (std::size_t n = 0; n < r.nodes.size(); ++n) {
        for (std::size_t k = 0; k < 6; ++k)
            sum.nodes[n].u[k] += f * r.nodes[n].u[k];
        sum.nodes[n].soil += f * r.nodes[n].soil;
        sum.nodes[n].reaction += f * r.nodes[n].reaction;
    }
}

void AddProof(consistent::Proof &sum, const consistent::Proof &p, double f) {
    for (std::size_t k = 0; k < 6; ++k) {
        sum.load[k] += f * p.load[k];
        sum.spring[k] += f * p.spring[k];
        sum.reaction[k] += f * p.reaction[k];
        sum.sum[k] += f * p.sum[k];
    }
}

void AddCase(CaseResult &sum, const CaseResult &r, double f) {
    AddNodes(sum, r, f);
    for (std::size_t i = 0; i < r.meshes.size(); ++i)
        for (std::size_t k = 0; k < 5; ++k)
            Add(sum.meshes[i][k], r.meshes[i][k], f);
    for (std::size_t i = 0; i < r.means.size(); ++i)
        Add(sum.means[i], r.means[i], f);
    for (std::size_t i = 0; i < r.walls.size(); ++i) {
        sum.walls[i].force += f * r.walls[i].force;
        sum.walls[i].moment += f * r.walls[i].moment;
    }
    AddProof(sum.proof, r.proof, f);
}

// An empty result with the places of another.
CaseResult Blank(const CaseResult &like, const std::string &key) {
    CaseResult blank;
    blank.key = key;
    blank.nodes.resize(like.nodes.size());
    blank.meshes.resize(like.meshes.size());
    blank.means.resize(like.means.size());
    blank.walls = like.walls;
    for (consistent::WallForce &w : blank.walls)
        w.force = w.moment = 0.0;
    return blank;
}

double Size(const std::vector<Vector3> &forces) {
    double sum = 0.0;
    for (const Vector3 &f : forces)
        sum += Dot(f, f);
    return std::sqrt(sum);
}

double ResidualBound(const consistent::Analysis &analysis, const std::vector<CaseResult> &cases,
                     const consistent::Combination &combination) {
    std::vector<Vector3> loads(analysis.tank().nodes.size());
    double residual = 0.0;
    for (const consistent::Case c : consistent::kAllCases) {
        const double f = combination.factor[c];
        if (f == 0.0)
            continue;
        const std::vector<Vector3> &own = analysis.loads(c);
        residual += std::fabs(f) * cases[c].proof.residual * Size(own);
        for (std::size_t n = 0; n < own.size() && n < loads.size(); ++n)
            loads[n] = loads[n] + f * own[n];
    }
    const double size = Size(loads);
    return size > 0.0 ? residual / size : 0.0;
}

} // namespace

CaseResult Superpose(const consistent::Analysis &analysis, const std::vector<CaseResult> &cases,
                     const consistent::Combination &combination) {
    CaseResult sum = Blank(cases.front(), combination.key);
    for (const consistent::Case c : consistent::kAllCases)
        if (combination.factor[c] != 0.0)
            AddCase(sum, cases[c], combination.factor[c]);
    sum.proof.residual = ResidualBound(analysis, cases, combination);
    return sum;
}

} // namespace havuz::design
