#include "consistent/tables.h"

#include <array>
#include <charconv>
#include <cmath>

namespace havuz::consistent {

namespace {

struct Extreme {
    double value = 0.0;
    std::size_t mesh = 0;
    int corner = 0;
};

// By panel, the greatest of each quantity.
std::map<int, std::array<Extreme, 8>> Extremes(const Tank &tank, const CaseResult &r) {
    std::map<int, std::array<Extreme, 8>> extremes;
    for (std::size_t i = 0; i < r.meshes.size(); ++i)
        for (std::size_t corner = 0; corner < 5; ++corner) {
            const std::array<double, 8> values = ValuesOf(r.meshes[i][corner]);
            const auto [found, isNew] = extremes.try_emplace(tank.meshes[i].panel);
            for (std::size_t q = 0; q < values.size(); ++q)
                if (isNew || std::fabs(values[q]) > std::fabs(found->second[q].value))
                    found->second[q] = {values[q], i, static_cast<int>(corner)};
        }
    return extremes;
}

Vector3 PlaceOf(const Tank &tank, const TankMesh &m, int corner) {
    if (corner > 0)
        return tank.corner(m, static_cast<std::size_t>(corner - 1));
    return 0.25 * (tank.corner(m, 0) + tank.corner(m, 1) + tank.corner(m, 2) + tank.corner(m, 3));
}

int NodeOf(const TankMesh &m, int corner) { return corner == 0 ? 0 : m.node[static_cast<std::size_t>(corner - 1)]; }

} // namespace

std::array<double, 8> ValuesOf(const ShellResult &r) { return {r.N11, r.N22, r.N12, r.M11, r.M22, r.M12, r.Q1, r.Q2}; }

ResultTable NodesTable(const Tank &tank, const CaseList &results) {
    ResultTable t{"nodes", {"node", "x", "y", "z", "case", "ux", "uy", "uz", "rx", "ry", "rz", "soil", "reaction"}, {}};
    t.eachRow = [&tank, results](const auto &take) {
        TableRow row;
        for (const CaseResult *r : results)
            for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
                if (!tank.nodes[n].used)
                    continue;
                const Vector3 &at = tank.nodes[n].at;
                row = {static_cast<int>(n), at.x, at.y, at.z, r->key};
                row.insert(row.end(), r->nodes[n].u.begin(), r->nodes[n].u.end());
                row.insert(row.end(), {r->nodes[n].soil, r->nodes[n].reaction});
                take(row);
            }
    };
    return t;
}

ResultTable CornersTable(const Tank &tank, const CaseList &results) {
    ResultTable t{"corners", {"mesh", "corner", "node", "panel", "kind", "case"}, {}};
    t.columns.insert(t.columns.end(), kQuantities.begin(), kQuantities.end());
    t.eachRow = [&tank, results](const auto &take) {
        TableRow row;
        for (const CaseResult *r : results)
            for (std::size_t i = 0; i < tank.meshes.size(); ++i)
                for (int corner = 0; corner <= 4; ++corner) {
                    const TankMesh &m = tank.meshes[i];
                    row = {m.mesh, corner, NodeOf(m, corner), m.panel, tank.panelOf(m).kind, r->key};
                    const std::array<double, 8> values = ValuesOf(r->meshes[i][static_cast<std::size_t>(corner)]);
                    row.insert(row.end(), values.begin(), values.end());
                    take(row);
                }
    };
    return t;
}

ResultTable WallsTable(const CaseList &results) {
    ResultTable t{"walls", {"panel", "case", "length", "height", "F", "M"}, {}};
    t.eachRow = [results](const auto &take) {
        for (const CaseResult *r : results)
            for (const WallForce &w : r->walls)
                take({w.panel, r->key, w.length, w.height, w.force, w.moment});
    };
    return t;
}

ResultTable ProofTable(const CaseList &results) {
    ResultTable t{"proof", {"case", "component", "load", "spring", "reaction", "sum", "residual"}, {}};
    t.eachRow = [results](const auto &take) {
        for (const CaseResult *r : results)
            for (std::size_t k = 0; k < kComponents.size(); ++k)
                take({r->key, std::string(kComponents[k]), r->proof.load[k], r->proof.spring[k], r->proof.reaction[k],
                      r->proof.sum[k], r->proof.residual});
    };
    return t;
}

ResultTable PanelsTable(const Tank &tank, const CaseList &results) {
    ResultTable t{
        "panels", {"panel", "kind", "case", "quantity", "value", "mesh", "corner", "node", "x", "y", "z"}, {}};
    t.eachRow = [&tank, results](const auto &take) {
        for (const CaseResult *r : results)
            for (const auto &[panel, extremes] : Extremes(tank, *r))
                for (std::size_t q = 0; q < kQuantities.size(); ++q) {
                    const Extreme &e = extremes[q];
                    const TankMesh &m = tank.meshes[e.mesh];
                    const Vector3 at = PlaceOf(tank, m, e.corner);
                    take({panel, tank.panelOf(m).kind, r->key, std::string(kQuantities[q]), e.value, m.mesh, e.corner,
                          NodeOf(m, e.corner), at.x, at.y, at.z});
                }
    };
    return t;
}

std::string ShortNumber(double value) {
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value == 0.0 ? 0.0 : value,
                                   std::chars_format::general, 12);
    return {text.data(), end.ptr};
}

} // namespace havuz::consistent
