// All that stands of a tank once it is joined, loaded, assembled and factored, and the solutions read from it.
#pragma once

#include "consistent/analysis.h"
#include "consistent/assembly.h"
#include "consistent/factor.h"
#include "consistent/mesh_loads.h"
#include "consistent/stress_axes.h"

#include <memory>
#include <optional>

namespace havuz::consistent {

using LoadFactors = std::array<double, kCases>;

struct System {
    System(const Tank &tank, const Options &options);

    Tank tank;
    Options options;
    WallSides walls;
    std::array<std::vector<CornerForces>, kCases> meshLoads; // by case
    std::array<std::vector<Vector3>, kCases> loads;
    std::array<std::vector<WallForce>, kCases> wallForces; // by case, on each wall panel
    std::vector<Shares> meshBed;                           // plan area of the bed at the corners of each mesh, m2
    std::vector<double> bedAreas;                          // by node, m2
    Freedoms freedoms;
    std::vector<std::optional<ShellElement>> elements;
    BlockStiffness stiffness; // of the meshes alone
    std::unique_ptr<Factor> factor;
    std::vector<AxesOfMesh> axes;
    std::vector<int> planes;
    std::vector<PlaneNode> planeNodes;
    SystemFacts facts;

    // bed: plan area with a spring by project number, m2.
    std::unique_ptr<Factor> factorWith(const std::vector<double> &bed) const;
    std::vector<double> springs(const std::vector<double> &bed) const; // t/m
    // Force on each node of a sum of cases.
    std::vector<Vector3> nodalLoads(const LoadFactors &factor) const;
};

// One solution: displacements of all freedoms of the masters, the bed that was there.
struct Solution {
    LoadFactors factor{};
    std::vector<double> bed; // m2 by node
    Vector u;
    double residual = 0.0;
    double liftedArea = 0.0;
    int rounds = 0;
};

Solution Solve(const System &system, const LoadFactors &factor, const Factor &equations, std::vector<double> bed);

// Springs that pull are let go and those that would be pressed again are put back, until the set stands.
Solution SolveWithoutTension(const System &system, const LoadFactors &factor);

Proof ProofOf(const System &system, const Solution &solution, std::vector<NodeResult> &nodes);

CaseResult ResultsOf(const System &system, const std::string &key, const Solution &solution);

} // namespace havuz::consistent
