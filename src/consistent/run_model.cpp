#include "consistent/run_model.h"

#include "consistent/assembly.h"
#include "consistent/stress_axes.h"
#include "fea/element_geometry.h"
#include "fea/pressures.h"
#include "fea/rect_shell.h"
#include "fea/run_loads.h"
#include "model/springs.h"

#include <algorithm>
#include <cmath>

namespace havuz::consistent {

namespace {

// Side lengths of the rectangle that the run makes of a mesh.
struct Sides {
    double a, b;
};
Sides SidesOf(const Corners &p) {
    return {(Length(p[1] - p[0]) + Length(p[2] - p[3])) / 2.0, (Length(p[3] - p[0]) + Length(p[2] - p[1])) / 2.0};
}

// From right-hand rotations in global axes to the run's local freedoms: its axes, its reversed rotations.
Matrix24 ToRun(const TankMesh &mesh) {
    Matrix<24, 24> t;
    ElementAxes(t, MeshNodeData(mesh.mesh));
    Matrix24 m;
    for (int i = 0; i < 24; ++i)
        for (int j = 0; j < 24; ++j)
            m(i, j) = j % 6 >= 3 ? -t(i + 1, j + 1) : t(i + 1, j + 1);
    return m;
}

Matrix24 RunStiffness(const Tank &tank, const TankMesh &mesh) {
    const Sides s = SidesOf(CornersOf(tank, mesh));
    Matrix<24, 24> k;
    RectShellStiffness(k, s.a, s.b, tank.E, tank.poisson, tank.panelOf(mesh).thickness);
    const Matrix24 local = Eigen::Map<const Matrix24>(k.data());
    const Matrix24 t = ToRun(mesh);
    return t.transpose() * local * t;
}

void AddQuarters(const Tank &tank, BlockStiffness &k) {
    for (const TankMesh &mesh : tank.meshes)
        if (tank.panelOf(mesh).kind <= 0 && mesh.loaded)
            for (const int n : mesh.node)
                k.addSpring(n, tank.bedding * MeshPlanArea(mesh.mesh) / 4.0);
}

} // namespace

RunModel::RunModel(const Tank &tank) : tank_(tank), freedoms_(std::make_unique<Freedoms>(tank, NoJoints(tank))) {
    BlockStiffness k(tank, *freedoms_);
    for (const TankMesh &mesh : tank.meshes)
        k.addMesh(mesh, RunStiffness(tank, mesh));
    AddQuarters(tank, k);
    factor_ = std::make_unique<Factor>(k.reduced());
}

Vector RunModel::solve(const std::vector<Vector3> &loads) const {
    Vector f = Vector::Zero(freedoms_->all());
    for (std::size_t n = 1; n < loads.size(); ++n)
        if (tank_.nodes[n].used) {
            Eigen::Matrix<double, 6, 1> force;
            force << loads[n].x, loads[n].y, loads[n].z, 0.0, 0.0, 0.0;
            freedoms_->addForce(static_cast<int>(n), force, f);
        }
    double residual = 0.0;
    const Vector reduced = freedoms_->reduction().transpose() * f;
    return freedoms_->reduction() * factor_->solve(reduced, residual);
}

// The run's mxy has the sign of the curvature, reversed to mx and my.
std::array<double, 2> RunMoments(const Tank &tank, std::size_t index, double mx, double my, double mxy,
                                 const Eigen::Matrix3d &axes) {
    const FlatShape shape(CornersOf(tank, tank.meshes[index]), "mesh");
    LocalStress s;
    s << 0.0, 0.0, 0.0, mx, my, -mxy;
    const ShellResult r = InAxes(s, Eigen::Vector2d::Zero(), shape.axes(), axes);
    return {r.M11, r.M22};
}

std::array<double, 2> RunModel::momentsAt(std::size_t index, int corner, const Vector &u,
                                          const Eigen::Matrix3d &axes) const {
    const TankMesh &mesh = tank_.meshes[index];
    const Sides sides = SidesOf(CornersOf(tank_, mesh));
    Matrix<24, 24> s;
    RectShellStress(s, sides.a, sides.b, tank_.E, tank_.poisson, tank_.panelOf(mesh).thickness);
    Vector24 at;
    for (std::size_t k = 0; k < 4; ++k)
        at.segment<6>(6 * static_cast<Eigen::Index>(k)) = freedoms_->at(mesh.node[k], u);
    const Matrix24 stress = Eigen::Map<const Matrix24>(s.data());
    const Vector24 r = stress * (ToRun(mesh) * at);
    const Eigen::Index row = 6 * (corner - 1);
    return RunMoments(tank_, index, r(row + 3), r(row + 4), r(row + 5), axes);
}

namespace {

// Horizontal shares of the corners of an edge, upper (1-2) and lower (3-4), with depths d12 and d34 below the level.
struct EdgeShares {
    double upper = 0.0, lower = 0.0;
};

EdgeShares Exact(const MeshPressure &p) {
    const bool turned = p.d12 > p.d34; // edge 1-2 is the lower one
    const double dt = turned ? p.d34 : p.d12, db = turned ? p.d12 : p.d34;
    EdgeShares e;
    if (db > 0.0 && dt >= 0.0) {
        e.upper = p.density * p.length * p.height * (2.0 * dt + db) / 6.0;
        e.lower = p.density * p.length * p.height * (dt + 2.0 * db) / 6.0;
    } else if (db > 0.0) {
        e.upper = p.density * p.length * db * db * db / (6.0 * (db - dt));
        e.lower = p.density * p.length * db * db / 2.0 - e.upper;
    }
    return turned ? EdgeShares{e.lower / 2.0, e.upper / 2.0} : EdgeShares{e.upper / 2.0, e.lower / 2.0};
}

// The run's force on each corner, with its rules put right up to the step.
MeshPressure Mended(MeshPressure p, LoadStep step) {
    if (!p.wall) {
        if (p.pressure == Pressure::Water && step >= LoadStep::UpliftDatum)
            p.fz.fill(-std::max(0.0, p.level - p.z) * p.density * p.area / 4.0);
        return p;
    }
    const bool reached = p.d12 > 0.0 || p.d34 > 0.0;
    if (step >= LoadStep::NoCarryOver && p.rule == ShareRule::Kept) {
        p.fx.fill(0.0);
        p.fy.fill(0.0);
    }
    if (step < LoadStep::LevelsOnEdges || !reached)
        return p;
    const MeshNodes &m = p.nodes;
    const double inward = p.pressure == Pressure::Liquid ? 1.0 : -1.0;
    const double nx = inward * OutlineSign() * (m.y[1] - m.y[2]) / p.length;
    const double ny = -inward * OutlineSign() * (m.x[1] - m.x[2]) / p.length;
    const EdgeShares e = Exact(p);
    for (std::size_t k = 1; k <= 4; ++k) {
        p.fx[k] = nx * (k <= 2 ? e.upper : e.lower);
        p.fy[k] = ny * (k <= 2 ? e.upper : e.lower);
    }
    return p;
}

void AddWallWeight(const Tank &tank, std::vector<Vector3> &loads) {
    for (const TankMesh &mesh : tank.meshes) {
        const TankPanel &panel = tank.panelOf(mesh);
        if (!panel.ownWeightAssumed)
            continue;
        const Sides s = SidesOf(CornersOf(tank, mesh));
        for (const int n : mesh.node)
            loads[static_cast<std::size_t>(n)].z -= panel.dead * s.a * s.b / 4.0;
    }
}

} // namespace

std::vector<std::vector<Vector3>> RunLoads(const Tank &tank, LoadStep step) {
    const std::vector<RunColumn> columns = RunColumns();
    std::vector<std::vector<Vector3>> loads(columns.size(), std::vector<Vector3>(tank.nodes.size()));
    for (std::size_t n = 1; n < tank.nodes.size(); ++n) // column 1 as it is; Rhs holds the negative of a load
        loads[0][n] = {-columns[0].load[FreedomAt(static_cast<int>(n), 1)],
                       -columns[0].load[FreedomAt(static_cast<int>(n), 2)],
                       -columns[0].load[FreedomAt(static_cast<int>(n), 3)]};
    if (step >= LoadStep::WallWeight)
        AddWallWeight(tank, loads[0]);
    ForEachPressure([&](const MeshPressure &asItIs) {
        const MeshPressure p = Mended(asItIs, step);
        for (std::size_t c = 1; c < columns.size(); ++c)
            if (TakesPressure(columns[c].code, p.pressure))
                for (std::size_t k = 1; k <= 4; ++k) {
                    Vector3 &f = loads[c][static_cast<std::size_t>(p.nodes.n[k])];
                    f = f - Vector3{p.fx[k], p.fy[k], p.fz[k]};
                }
    });
    return loads;
}

} // namespace havuz::consistent
