#include "consistent/stress_axes.h"

#include <cmath>
#include <map>
#include <optional>

namespace havuz::consistent {

namespace {

Eigen::Vector3d Of(const Vector3 &v) { return {v.x, v.y, v.z}; }

Eigen::Matrix3d Rows(const Eigen::Vector3d &first, const Eigen::Vector3d &second, const Eigen::Vector3d &third) {
    Eigen::Matrix3d m;
    m.row(0) = first;
    m.row(1) = second;
    m.row(2) = third;
    return m;
}

Eigen::Vector3d InPlane(const Eigen::Vector3d &v, const Eigen::Vector3d &normal) { return v - v.dot(normal) * normal; }

// 1 horizontal, 2 upward, 3 inward; nothing for a wall that lies flat.
std::optional<Eigen::Matrix3d> WallAxes(const Eigen::Vector3d &inward) {
    const Eigen::Vector3d up = InPlane(Eigen::Vector3d::UnitZ(), inward);
    if (up.norm() < 1e-6)
        return std::nullopt;
    const Eigen::Vector3d second = up.normalized();
    return Rows(second.cross(inward), second, inward);
}

// 1 along X, 2 along Y, 3 the normal that looks up; of a slab across X the second axis leads.
Eigen::Matrix3d SlabAxes(Eigen::Vector3d normal) {
    if (normal.z() < 0.0)
        normal = -normal;
    const Eigen::Vector3d x = InPlane(Eigen::Vector3d::UnitX(), normal);
    if (x.norm() > 1e-6)
        return Rows(x.normalized(), normal.cross(x.normalized()), normal);
    const Eigen::Vector3d y = InPlane(Eigen::Vector3d::UnitY(), normal).normalized();
    return Rows(y.cross(normal), y, normal);
}

// 1 around the centre, 2 away from it; at the centre X and Y.
Eigen::Matrix3d RoundAxes(const Tank &tank, const Eigen::Vector3d &at, Eigen::Vector3d normal) {
    if (normal.z() < 0.0)
        normal = -normal;
    const Eigen::Vector3d out(at.x() - tank.centre.x, at.y() - tank.centre.y, 0.0);
    const Eigen::Vector3d radial = InPlane(out, normal);
    if (out.norm() < 0.001 || radial.norm() < 0.001)
        return SlabAxes(normal);
    const Eigen::Vector3d second = radial.normalized();
    return Rows(normal.cross(second), second, normal);
}

AxesOfMesh AxesOf(const Tank &tank, const TankMesh &mesh, const WallSide &side) {
    const Corners p = CornersOf(tank, mesh);
    const Eigen::Vector3d normal = Of(AreaVector(p)).normalized();
    const int kind = tank.panelOf(mesh).kind;
    AxesOfMesh axes;
    const std::optional<Eigen::Matrix3d> wall = kind == 1 ? WallAxes(-Of(side.outward)) : std::nullopt;
    axes.fill(wall ? *wall : SlabAxes(normal));
    if (kind == 1 || !tank.circular)
        return axes;
    const Eigen::Vector3d centre = 0.25 * (Of(p[0]) + Of(p[1]) + Of(p[2]) + Of(p[3]));
    for (std::size_t k = 0; k < 5; ++k)
        axes[k] = RoundAxes(tank, k == 0 ? centre : Of(p[k - 1]), normal);
    return axes;
}

struct Plane {
    Eigen::Vector3d normal;
    double distance = 0.0;
    int kind = 0;
    bool flat = true;
    int number = -1;
};

bool OnPlane(const Plane &plane, const Tank &tank, const TankMesh &mesh) {
    for (std::size_t k = 0; k < 4; ++k)
        if (std::fabs(Of(tank.corner(mesh, k)).dot(plane.normal) - plane.distance) > kOnePlace)
            return false;
    return true;
}

} // namespace

std::vector<AxesOfMesh> StressAxes(const Tank &tank, const WallSides &walls) {
    std::vector<AxesOfMesh> axes;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        axes.push_back(AxesOf(tank, tank.meshes[i], walls.side[i]));
    return axes;
}

std::vector<int> PlanesOf(const Tank &tank, const std::vector<AxesOfMesh> &axes) {
    std::map<int, Plane> planes; // by panel
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const TankMesh &mesh = tank.meshes[i];
        const Eigen::Vector3d third = axes[i][0].row(2);
        auto [found, isNew] = planes.try_emplace(mesh.panel);
        Plane &plane = found->second;
        if (isNew)
            plane = {third, Of(tank.corner(mesh, 0)).dot(third), tank.panelOf(mesh).kind, true, -1};
        plane.flat = plane.flat && plane.normal.dot(third) > 1 - 1e-9 && OnPlane(plane, tank, mesh);
    }
    int next = 0;
    for (auto it = planes.begin(); it != planes.end(); ++it) {
        Plane &plane = it->second;
        for (auto before = planes.begin(); before != it && plane.flat && plane.number < 0; ++before) {
            const Plane &other = before->second;
            if (other.flat && other.kind == plane.kind && other.normal.dot(plane.normal) > 1 - 1e-9 &&
                std::fabs(other.distance - plane.distance) < kOnePlace)
                plane.number = other.number;
        }
        if (plane.number < 0)
            plane.number = next++;
    }
    std::vector<int> numbers;
    for (const TankMesh &mesh : tank.meshes)
        numbers.push_back(planes.at(mesh.panel).number);
    return numbers;
}

ShellResult InAxes(const LocalStress &s, const Eigen::Vector2d &shear, const Eigen::Matrix3d &local,
                   const Eigen::Matrix3d &axes) {
    const Eigen::Matrix<double, 2, 3> plane = local.topRows<2>();
    const Eigen::Vector2d e1 = plane * axes.row(0).transpose();
    const Eigen::Vector2d e2 = plane * axes.row(1).transpose();
    const double side = local.row(2).dot(axes.row(2)) < 0.0 ? -1.0 : 1.0; // moments and shear turn with the third axis
    Eigen::Matrix2d n;
    Eigen::Matrix2d m;
    n << s(0), s(2), s(2), s(1);
    m << s(3), s(5), s(5), s(4);
    ShellResult r;
    r.N11 = e1.dot(n * e1);
    r.N22 = e2.dot(n * e2);
    r.N12 = e1.dot(n * e2);
    r.M11 = side * e1.dot(m * e1);
    r.M22 = side * e2.dot(m * e2);
    r.M12 = side * e1.dot(m * e2);
    r.Q1 = side * e1.dot(shear);
    r.Q2 = side * e2.dot(shear);
    return r;
}

} // namespace havuz::consistent
