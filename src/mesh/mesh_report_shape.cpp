// Mesh report: sides of meshes, and whether the meshes of a plate or panel keep to its outline and do not overlap.
#include "mesh/mesh_report_work.h"
#include "model/link_code.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace havuz {

namespace {

constexpr double kOffOutline = 0.05;  // m: how far the border of a panel's or plate's meshes may lie off its outline
constexpr double kCornerPlace = 0.01; // m: how near a node stands for a corner

bool HasMeshOf(int owner) {
    for (int i = 1; i <= MeshCount; ++i)
        if (MeshTable[i].PanelNo == owner)
            return true;
    return false;
}

// The corners of a circular pool's panels mark the square around it, nothing that its meshes could lie on.
bool PanelsHaveShape() {
    if (HavuzTip != 2)
        return true;
    for (int i = 1; i <= MeshCount; ++i)
        if (OwnerIsPlate(MeshTable[i].PanelNo))
            return true;
    return false;
}

SpacePoint Middle(const MeshSide &side) { return Along(NodePlace(side.a), NodePlace(side.b), 0.5); }

// A plate is compared in plan alone: heights are another matter.
std::vector<SpacePoint> Flattened(std::vector<SpacePoint> points) {
    for (SpacePoint &p : points)
        p.z = 0.0;
    return points;
}

bool LeavesOutline(const MeshSide &side, int owner, const std::vector<SpacePoint> &outline) {
    std::vector<SpacePoint> places = {NodePlace(side.a), Middle(side), NodePlace(side.b)};
    if (OwnerIsPlate(owner))
        places = Flattened(places);
    return std::any_of(places.begin(), places.end(),
                       [&outline](SpacePoint p) { return DistanceToOutline(p, outline) > kOffOutline; });
}

} // namespace

std::vector<int> ShapedOwners() {
    std::vector<int> owners;
    if (PanelsHaveShape())
        for (int w = 1; w <= PanelCount; ++w)
            if (HasMeshOf(w))
                owners.push_back(w);
    for (int p = 1; p <= PlakCount; ++p)
        if (HasMeshOf(PlateOwner(p)))
            owners.push_back(PlateOwner(p));
    return owners;
}

std::vector<SpacePoint> OutlineOf(int owner) {
    std::vector<SpacePoint> outline;
    if (OwnerIsPlate(owner)) {
        const PlakRecord &plate = PlakTable[OwnerPlate(owner)];
        for (int k = 1; k <= plate.NoktaSayisi; ++k)
            outline.push_back(PlakPoint(plate, k));
    } else {
        for (int k = 1; k <= 4; ++k)
            outline.push_back(PanelCorner(PanelTable[owner], k));
    }
    return outline;
}

std::vector<MeshSide> AllSides() {
    std::map<std::pair<int, int>, MeshSide> sides;
    for (int i = 1; i <= MeshCount; ++i) {
        const auto corners = CornersOf(i);
        if (!corners)
            continue;
        for (std::size_t k = 0; k < 4; ++k) {
            const int from = (*corners)[k], to = (*corners)[(k + 1) % 4];
            if (from == to)
                continue;
            MeshSide &side = sides[std::minmax(from, to)];
            side.a = std::min(from, to);
            side.b = std::max(from, to);
            side.uses.push_back({i, MeshTable[i].PanelNo});
        }
    }
    std::vector<MeshSide> all;
    for (const auto &[nodes, side] : sides)
        all.push_back(side);
    return all;
}

double DistanceToSegment(SpacePoint p, SpacePoint a, SpacePoint b) {
    const SpacePoint ab = Minus(b, a);
    const double length2 = Dot(ab, ab);
    const double t = length2 > 0.0 ? std::clamp(Dot(Minus(p, a), ab) / length2, 0.0, 1.0) : 0.0;
    return SpaceDistance(p, Along(a, b, t));
}

double DistanceToOutline(SpacePoint p, const std::vector<SpacePoint> &outline) {
    double least = 1e30;
    for (std::size_t k = 0; k < outline.size(); ++k)
        least = std::min(least, DistanceToSegment(p, outline[k], outline[(k + 1) % outline.size()]));
    return least;
}

// Nodes that the meshes of an owner use.
static std::set<int> NodesOf(int owner) {
    std::set<int> nodes;
    for (int i = 1; i <= MeshCount; ++i)
        if (const auto corners = CornersOf(i); corners && MeshTable[i].PanelNo == owner)
            nodes.insert(corners->begin(), corners->end());
    return nodes;
}

static int NearestOf(const std::set<int> &nodes, SpacePoint place) {
    return *std::min_element(nodes.begin(), nodes.end(), [place](int a, int b) {
        return SpaceDistance(NodePlace(a), place) < SpaceDistance(NodePlace(b), place);
    });
}

static void WarnOfLostCorner(int plak, int k, const std::set<int> &nodes, Warnings &found) {
    const SpacePoint corner = PlakPoint(PlakTable[plak], k);
    const auto where = [&] {
        return OwnerInWords(PlateOwner(plak)) + ": corner " + std::to_string(k) + " at " + PlaceInWords(corner);
    };
    const auto met = std::find_if(nodes.begin(), nodes.end(), [corner](int n) {
        return Distance2(NoktaTable[n].X - corner.x, NoktaTable[n].Y - corner.y) <= kCornerPlace;
    });
    if (met == nodes.end()) {
        found.markNode(NearestOf(nodes, corner));
        found.add([&] { return where() + " is no node of its meshes"; });
    } else if (std::fabs(NoktaTable[*met].Z - corner.z) > kCornerPlace) {
        found.markNode(*met);
        found.add([&] { return where() + " stands at height " + Meters(NoktaTable[*met].Z) + " in the mesh"; });
    }
}

Warnings WarnOfLostCorners() {
    Warnings found("plağın köşesi meshte yok");
    for (int p = 1; p <= PlakCount; ++p) {
        const std::set<int> nodes = NodesOf(PlateOwner(p));
        for (int k = 1; !nodes.empty() && k <= PlakTable[p].NoktaSayisi; ++k)
            WarnOfLostCorner(p, k, nodes, found);
    }
    return found;
}

// The border of an owner's meshes is made of the sides that one of them alone has.
static std::map<int, std::vector<const MeshSide *>> BordersByOwner(const std::vector<MeshSide> &sides) {
    std::map<int, std::vector<const MeshSide *>> borders;
    for (const MeshSide &side : sides) {
        std::map<int, int> uses;
        for (const MeshSide::Use &use : side.uses)
            ++uses[use.owner];
        for (const auto &[owner, count] : uses)
            if (count == 1)
                borders[owner].push_back(&side);
    }
    return borders;
}

Warnings WarnOfLeftOutlines(const std::vector<MeshSide> &sides) {
    std::map<int, std::vector<const MeshSide *>> borders = BordersByOwner(sides);
    Warnings found("sınırdan taşıyor");
    for (const int owner : ShapedOwners()) {
        const std::vector<SpacePoint> outline = OwnerIsPlate(owner) ? Flattened(OutlineOf(owner)) : OutlineOf(owner);
        int count = 0;
        const MeshSide *first = nullptr;
        for (const MeshSide *side : borders[owner]) {
            if (!LeavesOutline(*side, owner, outline))
                continue;
            for (const MeshSide::Use &use : side->uses)
                if (use.owner == owner)
                    found.markMesh(use.mesh);
            first = count++ == 0 ? side : first;
        }
        if (count > 0)
            found.add([&] {
                return OwnerInWords(owner) + ": the border of its meshes leaves its outline on " +
                       std::to_string(count) + (count == 1 ? " side, at " : " sides, first at ") +
                       PlaceInWords(Middle(*first));
            });
    }
    return found;
}

// From the line of a side square to the middle of one of its meshes, as a unit.
static SpacePoint TowardsMesh(const MeshSide &side, int mesh) {
    const Ring corners = *CornersOf(mesh);
    const SpacePoint middle = Along(Along(NodePlace(corners[0]), NodePlace(corners[1]), 0.5),
                                    Along(NodePlace(corners[2]), NodePlace(corners[3]), 0.5), 0.5);
    const SpacePoint a = NodePlace(side.a), ab = Minus(NodePlace(side.b), a);
    const double t = Dot(ab, ab) > 0.0 ? Dot(Minus(middle, a), ab) / Dot(ab, ab) : 0.0;
    const SpacePoint to = Minus(middle, Along(a, NodePlace(side.b), t));
    const double length = Length(to);
    return length > 0.0 ? SpacePoint{to.x / length, to.y / length, to.z / length} : SpacePoint{};
}

// Two meshes of one owner that stand on the same side of a side of theirs lie on each other.
static void WarnOfOverlapsAt(const MeshSide &side, Warnings &found) {
    std::vector<SpacePoint> towards;
    for (const MeshSide::Use &use : side.uses)
        towards.push_back(TowardsMesh(side, use.mesh));
    for (std::size_t s = 0; s < side.uses.size(); ++s)
        for (std::size_t t = s + 1; t < side.uses.size(); ++t) {
            const MeshSide::Use &a = side.uses[s], &b = side.uses[t];
            if (a.owner != b.owner || !(Dot(towards[s], towards[t]) > 0.5))
                continue;
            found.markMesh(a.mesh);
            found.markMesh(b.mesh);
            found.add([&] {
                return "meshes " + std::to_string(a.mesh) + " and " + std::to_string(b.mesh) + " of " +
                       OwnerInWords(a.owner) + " overlap at " + PlaceInWords(Middle(side));
            });
        }
}

Warnings WarnOfOverlaps(const std::vector<MeshSide> &sides) {
    Warnings found("üst üste");
    for (const MeshSide &side : sides)
        WarnOfOverlapsAt(side, found);
    return found;
}

} // namespace havuz
