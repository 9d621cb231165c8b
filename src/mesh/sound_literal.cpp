// Sound mesh: a rectangle along the axes that the plate mesher serves well keeps that mesher's grid. It is asked in the
// store's own tables, which are given back as they were; its meshes count when they are sound. Lengths in m.
#include "mesh/plak_mesh.h"
#include "mesh/sound_work.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"

#include <cmath>
#include <set>

namespace havuz::sound {

namespace {

constexpr double kLeastSine = 0.5;    // of the corners of its meshes
constexpr double kTooManySteps = 120; // of a side: nothing that the tables of one plate hold

// What the plate mesher writes, kept and given back.
class KeptTables {
public:
    KeptTables()
        : nodes_(NoktaTable), meshes_(MeshTable), hits_(StoredHits), nodeCount_(NoktaCount), meshCount_(MeshCount) {}
    ~KeptTables() {
        NoktaTable = nodes_;
        MeshTable = meshes_;
        StoredHits = hits_;
        NoktaCount = nodeCount_;
        MeshCount = meshCount_;
    }
    KeptTables(const KeptTables &) = delete;
    KeptTables &operator=(const KeptTables &) = delete;

private:
    Table<NoktaRecord, kNoktaCapacity> nodes_;
    Table<MeshRecord, kMeshCapacity> meshes_;
    std::array<PlanPoint, 5> hits_;
    int nodeCount_, meshCount_;
};

bool PlainRectangle(const Part &part, double width) {
    if (!part.plate || part.shape != Shape::Grid || FourSided(part) || part.corner.size() != 4 || part.U.size() != 2 ||
        part.V.size() != 2 || std::fabs(part.ex.x * part.ex.y) > 1e-12)
        return false;
    const double lx = part.U[1] - part.U[0], ly = part.V[1] - part.V[0];
    return std::min(lx, ly) >= 2.0 * width && std::max(lx, ly) <= kTooManySteps * width;
}

LiteralGrid ReadTables() {
    LiteralGrid grid;
    for (int n = 1; n <= NoktaCount; ++n)
        grid.node.push_back({NoktaTable[n].X, NoktaTable[n].Y});
    for (int i = 1; i <= MeshCount; ++i) {
        const auto [a, b, c, d] = MeshCorners(MeshTable[i]);
        grid.quad.push_back({a - 1, b - 1, c - 1, d - 1});
    }
    return grid;
}

// No node missing, no corner sharper than 30 degrees, every side of at most two meshes, the whole area.
bool IsSound(const LiteralGrid &grid, double area) {
    std::map<LineKey, int> uses;
    double twice = 0.0;
    for (const auto &q : grid.quad) {
        if (*std::min_element(q.begin(), q.end()) < 0)
            return false;
        for (int k = 0; k < 4; ++k) {
            const PlanPoint a = At(grid.node, At(q, k)), b = At(grid.node, At(q, (k + 1) % 4)),
                            c = At(grid.node, At(q, (k + 3) % 4));
            const double product = PlanDistance(a, b) * PlanDistance(a, c);
            if (!(Twice(a, b, c) > kLeastSine * product) || ++uses[KeyOf(At(q, k), At(q, (k + 1) % 4))] > 2)
                return false;
        }
        twice += Twice(At(grid.node, q[0]), At(grid.node, q[1]), At(grid.node, q[2])) +
                 Twice(At(grid.node, q[0]), At(grid.node, q[2]), At(grid.node, q[3]));
    }
    return std::fabs(0.5 * twice - area) < 1e-5 * area;
}

// Places of the nodes on one edge as parts of its length, from its low end; the edge has v (or u) at the value given.
std::vector<double> PlacesOnEdge(const Part &part, const LiteralGrid &grid, bool alongU, double value) {
    const std::vector<double> &lines = alongU ? part.U : part.V;
    std::vector<double> at;
    for (const PlanPoint p : grid.node) {
        const PlanPoint uv = InPlane(part, {p.x, p.y, 0.0});
        if (std::fabs((alongU ? uv.y : uv.x) - value) < 1e-4)
            at.push_back(((alongU ? uv.x : uv.y) - lines[0]) / (lines[1] - lines[0]));
    }
    std::sort(at.begin(), at.end());
    if (at.size() < 2 || std::fabs(at.front()) > 1e-6 || std::fabs(at.back() - 1.0) > 1e-6)
        return {};
    at.front() = 0.0;
    at.back() = 1.0;
    return at;
}

// False when two edges across from each other are divided in different ways.
bool TakePlaces(const Part &part, LiteralGrid &grid) {
    const auto alike = [](double a, double b) { return std::fabs(a - b) < 1e-6; };
    for (const bool alongU : {true, false}) {
        const std::vector<double> &across = alongU ? part.V : part.U;
        const std::vector<double> low = PlacesOnEdge(part, grid, alongU, across[0]),
                                  high = PlacesOnEdge(part, grid, alongU, across[1]);
        if (low.empty() || !std::equal(low.begin(), low.end(), high.begin(), high.end(), alike))
            return false;
        grid.at[alongU ? 0 : 1] = low;
    }
    return true;
}

} // namespace

void TakeLiteralGrids(Model &model, const Wish &wish) {
    if (wish.foot > 0.0 || std::none_of(model.part.begin(), model.part.end(),
                                        [&](const Part &part) { return PlainRectangle(part, wish.width); }))
        return;
    const KeptTables kept;
    for (Part &part : model.part) {
        if (!PlainRectangle(part, wish.width))
            continue;
        NoktaCount = MeshCount = 0;
        ResetPlakMesh(); // what an earlier plate left would tell on this one
        try {
            PlakMeshle(OwnerPlate(part.owner), wish.width);
        } catch (const RuntimeFailure &) {
            continue; // past one of its limits: the grid is made here
        }
        LiteralGrid grid = ReadTables();
        const double area = (part.U[1] - part.U[0]) * (part.V[1] - part.V[0]);
        if (IsSound(grid, area) && TakePlaces(part, grid))
            part.literal = grid;
    }
}

} // namespace havuz::sound
