#include "consistent/mechanism.h"

#include "consistent/failure.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace havuz::consistent {

namespace {

constexpr const char *kAxis = "XYZ";

std::string NodeWords(const Tank &tank, int node) {
    const Vector3 &at = tank.nodes[static_cast<std::size_t>(node)].at;
    char text[128];
    std::snprintf(text, sizeof text, "%d (%.3f, %.3f, %.3f)", node, at.x + 0.0, at.y + 0.0, at.z + 0.0);
    return text;
}

// By place of a master: the first place of its piece.
std::vector<int> Pieces(const Tank &tank, const Freedoms &freedoms) {
    std::vector<int> piece(static_cast<std::size_t>(freedoms.masters()));
    std::iota(piece.begin(), piece.end(), 0);
    const auto first = [&](int p) {
        while (piece[static_cast<std::size_t>(p)] != p)
            p = piece[static_cast<std::size_t>(p)] =
                piece[static_cast<std::size_t>(piece[static_cast<std::size_t>(p)])];
        return p;
    };
    for (const TankMesh &mesh : tank.meshes) {
        int one = -1;
        for (const int n : mesh.node)
            freedoms.eachLink(n, [&](int place, const Matrix6 &) {
                const int here = first(place);
                if (one < 0)
                    one = here;
                else if (here != one)
                    one = piece[static_cast<std::size_t>(std::max(one, here))] = std::min(one, here);
            });
    }
    for (int p = 0; p < freedoms.masters(); ++p)
        piece[static_cast<std::size_t>(p)] = first(p);
    return piece;
}

[[noreturn]] void RefuseLoose(const Tank &tank, const TankMesh &mesh, int meshes, bool noBedding) {
    const std::string node = NodeWords(tank, mesh.node[0]);
    const std::string count = std::to_string(meshes);
    const std::string panel = std::to_string(mesh.panel);
    throw AnalysisFailure("node " + node + " can move along X, Y and Z: the piece of " + count +
                              " meshes that it belongs to (mesh " + std::to_string(mesh.mesh) + " of panel " + panel +
                              ") has neither bed nor support" + (noBedding ? "; ZeminKo is 0" : ""),
                          node + " noktası X, Y ve Z yönünde serbest: ait olduğu " + count +
                              " meshlik parçanın (panel " + panel + ", mesh " + std::to_string(mesh.mesh) +
                              ") ne zemini ne mesnedi var" + (noBedding ? "; ZeminKo 0" : ""));
}

} // namespace

void RequireFooting(const Tank &tank, const Freedoms &freedoms, const std::vector<double> &bed) {
    const std::vector<int> piece = Pieces(tank, freedoms);
    std::vector<bool> stands(piece.size(), false);
    const auto pieceOf = [&](int node) {
        int place = 0;
        freedoms.eachLink(node, [&](int p, const Matrix6 &) { place = p; });
        return static_cast<std::size_t>(piece[static_cast<std::size_t>(place)]);
    };
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        if (tank.nodes[n].used && (bed[n] > 0.0 || (tank.nodes[n].held & (4 | 8 | 16 | 32)) != 0))
            stands[pieceOf(static_cast<int>(n))] = true;
    std::vector<int> meshes(piece.size(), 0);
    for (const TankMesh &mesh : tank.meshes)
        ++meshes[pieceOf(mesh.node[0])];
    for (const TankMesh &mesh : tank.meshes)
        if (const std::size_t p = pieceOf(mesh.node[0]); !stands[p])
            RefuseLoose(tank, mesh, meshes[p], tank.bedding == 0.0);
}

namespace {

// The node and freedom that a motion moves most; a turn counts where hardly anything moves.
struct Greatest {
    int node = 0;
    int freedom = 0;
    double size = 0.0;
};

Greatest GreatestOf(const Tank &tank, const Freedoms &freedoms, const Vector &u, int first) {
    Greatest greatest;
    for (std::size_t n = 1; n < tank.nodes.size(); ++n) {
        if (!tank.nodes[n].used)
            continue;
        const Eigen::Matrix<double, 6, 1> at = freedoms.at(static_cast<int>(n), u);
        for (int d = first; d < first + 3; ++d)
            if (std::fabs(at(d)) > greatest.size * (1 + 1e-9))
                greatest = {static_cast<int>(n), d, std::fabs(at(d))};
    }
    return greatest;
}

// How far the motion is from that of one rigid body, of its own size.
double Bending(const Tank &tank, const Freedoms &freedoms, const Vector &u) {
    Matrix6 normal = Matrix6::Zero();
    Eigen::Matrix<double, 6, 1> right = Eigen::Matrix<double, 6, 1>::Zero();
    const auto rows = [&](std::size_t n) {
        const Vector3 &p = tank.nodes[n].at;
        Eigen::Matrix<double, 3, 6> m;
        m << 1, 0, 0, 0, p.z, -p.y, 0, 1, 0, -p.z, 0, p.x, 0, 0, 1, p.y, -p.x, 0;
        return m;
    };
    double whole = 0.0;
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        if (tank.nodes[n].used) {
            const Eigen::Vector3d at = freedoms.at(static_cast<int>(n), u).head<3>();
            normal += rows(n).transpose() * rows(n);
            right += rows(n).transpose() * at;
            whole += at.squaredNorm();
        }
    const Eigen::Matrix<double, 6, 1> body = normal.fullPivLu().solve(right);
    double rest = 0.0;
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        if (tank.nodes[n].used)
            rest += (freedoms.at(static_cast<int>(n), u).head<3>() - rows(n) * body).squaredNorm();
    return whole > 0.0 ? std::sqrt(rest / whole) : 1.0;
}

} // namespace

void RequireStanding(const Tank &tank, const Freedoms &freedoms, const Factor &factor) {
    if (factor.lostEquation() < 0)
        return;
    const Vector u = freedoms.reduction() * factor.easiestMotion();
    const Greatest moves = GreatestOf(tank, freedoms, u, 0);
    const Greatest turns = GreatestOf(tank, freedoms, u, 3);
    const bool turn = moves.size < 1e-3 * turns.size; // m and rad
    const Greatest &g = turn ? turns : moves;
    const bool body = !turn && Bending(tank, freedoms, u) < 1e-2;
    const std::string node = NodeWords(tank, g.node);
    const std::string axis(1, kAxis[g.freedom % 3]);
    throw AnalysisFailure("node " + node + (turn ? " can turn about " : " can move along ") + axis + ": " +
                              (body ? "the structure moves there as one body and neither bed nor support holds it"
                                    : "a part of the structure moves there as on a hinge and nothing holds it"),
                          node + " noktası " + axis + (turn ? " etrafında dönebiliyor: " : " yönünde serbest: ") +
                              (body ? "yapı tek parça kayıyor, ne zemin ne mesnet tutuyor"
                                    : "yapının bir bölümü mafsal gibi oynuyor, tutan bir şey yok"));
}

} // namespace havuz::consistent
