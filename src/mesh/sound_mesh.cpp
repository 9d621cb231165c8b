#include "mesh/sound_mesh.h"

#include "mesh/panel_blocks.h"
#include "mesh/sound_work.h"
#include "model/dead_load.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/number_text.h"
#include "model/parameters.h"

#include <cmath>

namespace havuz {

namespace {

using namespace sound;

constexpr int kRounds = 20;
constexpr double kWidest = 1e5;      // m: a width at which nothing fits any more is none
constexpr double kNearLeast = 0.004; // part by which the width that is told may be above the least one

std::string LengthText(double length) { return PictureText(length, "#######0.######"); }

struct Built {
    Model model;
    Divisions divisions;
    Mesh mesh;
};

// What panels have for their own after a run is what they begin the next one with: the divisions are agreed until they
// stay, so that a second run gives the same.
Divisions DivideUntilTheyStay(const Model &model, Wish wish) {
    for (int w = 1; w <= PanelCount; ++w)
        wish.own[w] = {PanelTable[w].Nx, PanelTable[w].Ny};
    for (int round = 0;; ++round) {
        Divisions divisions = AgreeDivisions(model, wish);
        Wish next = wish;
        for (const Part &part : model.part)
            if (!part.plate && part.shape == Shape::Grid)
                next.own[part.owner] = PanelDivisions(part, divisions);
        if (next.own == wish.own || !wish.ownDivisions || round == kRounds)
            return divisions;
        wish = next;
    }
}

Built Build(const Wish &wish) {
    Built built;
    built.model = ReadParts();
    AgreeLines(built.model, wish);
    TakeLiteralGrids(built.model, wish);
    built.divisions = DivideUntilTheyStay(built.model, wish);
    if (CircularPanels() > 0)
        MeshCircularPool(wish, built.mesh);
    MeshParts(built.model, built.divisions, wish, built.mesh);
    return built;
}

bool Fits(Wish wish, double width) {
    try {
        wish.width = width;
        wish.ownDivisions = false;
        Build(wish);
        return true;
    } catch (const TooFine &) {
        return false;
    }
}

// Up to three digits that stay above the value.
double RoundedUp(double width) {
    const double unit = std::pow(10.0, std::floor(std::log10(width)) - 2.0);
    return std::ceil(width / unit - 1e-9) * unit;
}

// The least width that fits, nearly; 0 when none does.
double LeastWidth(const Wish &wish) {
    double low = wish.width, high = low;
    do {
        low = high;
        high *= 1.3;
        if (high > kWidest)
            return 0.0;
    } while (!Fits(wish, high));
    while (high / low > 1.0 + kNearLeast) {
        const double middle = std::sqrt(low * high);
        (Fits(wish, middle) ? high : low) = middle;
    }
    double told = RoundedUp(high);
    while (!Fits(wish, told))
        told = RoundedUp(told * 1.01);
    return told;
}

[[noreturn]] void FailTooFine(const Wish &wish) {
    const double least = LeastWidth(wish);
    throw RuntimeFailure({.fault = least > 0.0 ? Fault::MeshTooFine : Fault::NoWidthFits,
                          .number = least,
                          .first = kNoktaCapacity,
                          .bound = kMeshCapacity,
                          .text = LengthText(wish.width)});
}

Built BuildOrFail(const Wish &wish) {
    try {
        return Build(wish);
    } catch (const TooFine &) {
        FailTooFine(wish);
    }
}

Wish WishOf(const SoundOptions &options) {
    const double width = options.width != 0.0 ? options.width : MeshWidth();
    if (width == 0.0)
        throw RuntimeFailure({.fault = Fault::Divided, .thing = Thing::MeshGenisligi});
    if (!(width > 0.0) || !std::isfinite(width))
        throw RuntimeFailure({.fault = Fault::NoMeshWidth, .thing = Thing::MeshGenisligi, .text = LengthText(width)});
    if (!(options.foot >= 0.0) || !std::isfinite(options.foot))
        throw RuntimeFailure({.fault = Fault::NoRowHeight, .text = LengthText(options.foot)});
    return {width, options.width == 0.0 && options.foot == 0.0, {}, options.foot};
}

// A node of the mesh before, with what a person gave it.
struct OldNode {
    int number = 0;
    SpacePoint at;
    int support = 0;
    NokYukRecord load;
};

struct OldMesh {
    std::vector<OldNode> node;
    int switchedOff = 0;
};

OldMesh KeepOldMesh() {
    OldMesh old;
    for (int n = 1; n <= NoktaCount; ++n)
        if (NoktaTable[n].Mesnet != 0 || HasPointLoad(NokYukTable[n]))
            old.node.push_back({n, NodePlace(n), NoktaTable[n].Mesnet, NokYukTable[n]});
    for (int i = 1; i <= MeshCount; ++i)
        old.switchedOff += IsFullyOn(MeshTable[i]) ? 0 : 1;
    return old;
}

double DistanceToEdge(SpacePoint p, SpacePoint a, SpacePoint b) {
    const SpacePoint d = Minus(b, a);
    const double length2 = Dot(d, d);
    const double t = length2 > 0.0 ? std::clamp(Dot(Minus(p, a), d) / length2, 0.0, 1.0) : 0.0;
    return SpaceDistance(p, Along(a, b, t));
}

bool OnSupportedEdge(const PanelRecord &panel, SpacePoint p) {
    for (int e = 1; e <= 4; ++e)
        if (panel.KenarMesnet[e] != 0 &&
            DistanceToEdge(p, PanelCorner(panel, e), PanelCorner(panel, e % 4 + 1)) <= kJoin)
            return true;
    return false;
}

bool OnSupportedEdge(SpacePoint p) {
    for (int w = CircularPanels() + 1; w <= PanelCount; ++w)
        if (OnSupportedEdge(PanelTable[w], p))
            return true;
    return false;
}

// Number of each node of the mesh in the table, 0 for one that no mesh uses.
std::vector<int> StoreNodes(const Mesh &mesh) {
    const std::vector<int> order = ShortProfile(mesh);
    std::vector<int> number(static_cast<std::size_t>(mesh.node.count()), 0);
    NoktaCount = HamNoktaCount = Count(order);
    for (int k = 0; k < Count(order); ++k) {
        const SpacePoint p = mesh.node.at(At(order, k));
        NoktaRecord &node = NoktaTable[k + 1];
        node.X = p.x;
        node.Y = p.y;
        node.Z = p.z;
        node.AnaNo = node.YeniNo = k + 1;
        At(number, At(order, k)) = k + 1;
    }
    return number;
}

void StoreMeshes(const Mesh &mesh, const std::vector<int> &number) {
    for (const Quad &quad : mesh.quad) {
        MeshRecord &record = MeshTable[++MeshCount];
        int k = 0;
        for (Int16 *corner : CornerFields(record))
            *corner = At(number, At(quad.node, k++));
        record.PanelNo = quad.owner;
        if (OwnerIsPlate(quad.owner))
            continue;
        const PanelRecord &panel = PanelTable[quad.owner];
        for (const int n : quad.node) {
            NoktaRecord &node = NoktaTable[At(number, n)];
            if (node.PanelNo == 0)
                node.PanelNo = quad.owner;
            if (quad.owner > CircularPanels() && OnSupportedEdge(panel, mesh.node.at(n)))
                node.Mesnet = node.Mesnet | 4;
        }
    }
}

void AddLoad(int node, const NokYukRecord &load) {
    NokYukRecord &sum = NokYukTable[node];
    sum.Nokta = node;
    sum.FX += load.FX;
    sum.FY += load.FY;
    sum.FZ += load.FZ;
}

SoundLosses CarryOver(const OldMesh &old, const Mesh &mesh, const std::vector<int> &number) {
    SoundLosses losses;
    for (const OldNode &node : old.node) {
        const int found = mesh.node.find(node.at), to = found < 0 ? 0 : At(number, found);
        const std::string where = "node " + std::to_string(node.number) + " at " + PlaceText(node.at) +
                                  " is lost: no node of the new mesh stands there";
        if (to > 0) {
            NoktaTable[to].Mesnet = NoktaTable[to].Mesnet | node.support;
            if (HasPointLoad(node.load))
                AddLoad(to, node.load);
            continue;
        }
        if (node.support != 0 && !(node.support == 4 && OnSupportedEdge(node.at)))
            losses.push_back("the support of " + where);
        if (HasPointLoad(node.load))
            losses.push_back("the point load of " + where);
    }
    if (old.switchedOff > 0)
        losses.push_back(std::to_string(old.switchedOff) + " meshes that were switched off are on again");
    return losses;
}

// Nx and Ny of the panels as they were meshed. In a model with plates Nx of a wall holds the nodes of its foot.
void StoreDivisions(const Built &built) {
    for (const Part &part : built.model.part) {
        if (part.plate)
            continue;
        PanelRecord &panel = PanelTable[part.owner];
        if (part.shape == Shape::Grid) {
            const auto [nx, ny] = PanelDivisions(part, built.divisions);
            panel.Nx = nx + (part.wall && PlakCount > 0 ? 1 : 0);
            panel.Ny = ny;
        } else {
            panel.Nx = static_cast<int>(std::count_if(built.mesh.quad.begin(), built.mesh.quad.end(),
                                                      [&](const Quad &q) { return q.owner == part.owner; }));
            panel.Ny = 1;
        }
    }
}

// Columns and rows of a circular pool.
void StoreCircularDivisions(const Mesh &mesh) {
    for (int w = 1; w <= CircularPanels(); ++w)
        PanelTable[w].Nx = mesh.circleColumns;
    if (CircularPanels() > 0)
        PanelTable[2].Ny = mesh.circleRows;
}

void GiveWallsWeight() {
    for (int w = 1; w <= PanelCount; ++w)
        if (PanelRecord &wall = PanelTable[w]; wall.Tip == 1 && wall.KenarKomsu[3] < 0 && wall.G == 0.0)
            wall.G = PanelDeadLoad(wall.D);
}

} // namespace

SoundLosses SoundMesh(MeshWindow &window, const SoundOptions &options) {
    const Built built = BuildOrFail(WishOf(options));
    const OldMesh old = KeepOldMesh();
    ClearMeshTables();
    const std::vector<int> number = StoreNodes(built.mesh);
    StoreMeshes(built.mesh, number);
    StoreDivisions(built);
    StoreCircularDivisions(built.mesh);
    GiveWallsWeight();
    const SoundLosses losses = CarryOver(old, built.mesh, number);
    window.ComputeExtents();
    if (PlakCount == 0)
        window.DrawMeshes();
    else
        window.RefreshDrawing();
    return losses;
}

} // namespace havuz
