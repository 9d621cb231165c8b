// The equations of the run itself in doubles: its rectangular element in its own axes, its springs, its joints, nothing
// more; and its load columns with one rule after another put right. For telling apart why the run and the consistent
// analysis differ. Reads the model store. Units: m, t.
#pragma once

#include "consistent/factor.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace havuz::consistent {

// What is put right in the loads of the run, each step with those before it.
enum class LoadStep { AsTheyAre, NoCarryOver, LevelsOnEdges, UpliftDatum, WallWeight };
constexpr std::array<LoadStep, 5> kLoadSteps = {LoadStep::AsTheyAre, LoadStep::NoCarryOver, LoadStep::LevelsOnEdges,
                                                LoadStep::UpliftDatum, LoadStep::WallWeight};

class RunModel {
public:
    explicit RunModel(const Tank &tank);
    bool stands() const { return factor_ && factor_->lostEquation() < 0; } // the run solves it all the same

    // Displacements of the freedoms of all nodes, right-hand rotations.
    Vector solve(const std::vector<Vector3> &loads) const;
    // M11 and M22 at corner 1..4 of a mesh, in the axes given; index: in Tank::meshes.
    std::array<double, 2> momentsAt(std::size_t index, int corner, const Vector &u, const Eigen::Matrix3d &axes) const;

private:
    const Tank &tank_;
    std::unique_ptr<Freedoms> freedoms_;
    std::unique_ptr<Factor> factor_;
};

// Force on each node of each load column of the run, by step.
std::vector<std::vector<Vector3>> RunLoads(const Tank &tank, LoadStep step);

// Moments of the run as they stand in the axes of its element, turned into those given: mx, my, mxy of a result file.
std::array<double, 2> RunMoments(const Tank &tank, std::size_t index, double mx, double my, double mxy,
                                 const Eigen::Matrix3d &axes);

} // namespace havuz::consistent
