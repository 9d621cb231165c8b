#include "mesh/mesh_report.h"

#include "mesh/mesh_report_work.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/number_text.h"
#include "model/springs.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace havuz {

namespace {

constexpr double kFlat = 1e-4;      // part of the squared longer diagonal that counts as no area
constexpr double kOnePlace = 0.01;  // m
constexpr double kAreaPart = 0.005; // part of a plate's area that its meshes may miss

std::string MeshInWords(int mesh) {
    return "mesh " + std::to_string(mesh) + " of " + OwnerInWords(MeshTable[mesh].PanelNo);
}

bool IsNode(int n) { return n >= 1 && n <= NoktaCount; }

Warnings WarnOfMissingNodes() {
    Warnings found("köşesi nokta değil");
    for (int i = 1; i <= MeshCount; ++i) {
        if (CornersOf(i))
            continue;
        found.markMesh(i);
        found.add([i] {
            const Ring named = MeshCorners(MeshTable[i]);
            const int missing = *std::find_if_not(named.begin(), named.end(), IsNode);
            const auto *const there = std::find_if(named.begin(), named.end(), IsNode);
            return MeshInWords(i) + " names node " + std::to_string(missing) +
                   (there == named.end() ? "" : ", beside " + PlaceInWords(NodePlace(*there)));
        });
    }
    return found;
}

// Meshes in order, by the value of their owner.
std::map<int, std::vector<int>> MeshesOf() {
    std::map<int, std::vector<int>> meshes;
    for (int i = 1; i <= MeshCount; ++i)
        meshes[MeshTable[i].PanelNo].push_back(i);
    return meshes;
}

bool OwnerExists(int owner) {
    const int number = OwnerIsPlate(owner) ? OwnerPlate(owner) : owner;
    return number >= 1 && number <= (OwnerIsPlate(owner) ? PlakCount : PanelCount);
}

Warnings WarnOfMissingOwners() {
    Warnings found("paneli ya da plağı yok");
    for (const auto &entry : MeshesOf()) {
        const int owner = entry.first;
        const auto &meshes = entry.second;
        if (OwnerExists(owner))
            continue;
        for (const int mesh : meshes)
            found.markMesh(mesh);
        found.add([&] {
            return std::to_string(meshes.size()) + " meshes from mesh " + std::to_string(meshes.front()) +
                   " on belong to " + OwnerInWords(owner) + ", which is not there";
        });
    }
    return found;
}

Warnings WarnOfThickness() {
    Warnings found("kalınlığı yok");
    for (const auto &entry : MeshesOf()) {
        const int owner = entry.first;
        if (!OwnerExists(owner))
            continue;
        const double thickness =
            OwnerIsPlate(owner) ? PlakTable[OwnerPlate(owner)].Kalinlik + 0.0 : PanelTable[owner].D + 0.0;
        if (!(thickness > 0.0))
            found.add([&] { return OwnerInWords(owner) + " has a thickness of " + Meters(thickness) + " cm"; });
    }
    return found;
}

Warnings WarnOfDensities() {
    Warnings found("yoğunluk sıfır");
    for (const auto &kind : {std::pair("liquid", SiviYogunluk), std::pair("soil", ZeminYogunluk)})
        if (!(kind.second > 0.0))
            found.add([&] {
                return "the density of the " + std::string(kind.first) + " is " + Meters(kind.second) + " t/m3";
            });
    return found;
}

Warnings WarnOfDoubleCorners() {
    Warnings found("aynı nokta iki köşede");
    for (int i = 1; i <= MeshCount; ++i) {
        const auto corners = CornersOf(i);
        if (!corners)
            continue;
        Ring sorted = *corners;
        std::sort(sorted.begin(), sorted.end());
        const auto *const twice = std::adjacent_find(sorted.begin(), sorted.end());
        if (twice != sorted.end()) {
            found.markMesh(i);
            found.add([&] {
                return MeshInWords(i) + " uses node " + std::to_string(*twice) + " twice, at " +
                       PlaceInWords(NodePlace(*twice));
            });
        }
    }
    return found;
}

// "" for a sound mesh, else what is wrong with its shape.
std::string ShapeFault(const Ring &corners) {
    SpacePoint p[4];
    for (std::size_t k = 0; k < 4; ++k)
        p[k] = NodePlace(corners[k]);
    const SpacePoint d1 = Minus(p[2], p[0]), d2 = Minus(p[3], p[1]), normal = Cross(d1, d2);
    const double scale = std::max(Dot(d1, d1), Dot(d2, d2)), size = Length(normal);
    if (!(size / 2.0 > kFlat * scale))
        return "has no area";
    for (std::size_t k = 0; k < 4; ++k) {
        const SpacePoint turn = Cross(Minus(p[(k + 1) % 4], p[k]), Minus(p[(k + 3) % 4], p[k]));
        if (Dot(turn, normal) / size < -kFlat * scale)
            return "is folded";
    }
    return "";
}

Warnings WarnOfShapes(const std::string &fault, const char *turkish) {
    Warnings found(turkish);
    for (int i = 1; i <= MeshCount; ++i)
        if (const auto corners = CornersOf(i); corners && ShapeFault(*corners) == fault) {
            found.markMesh(i);
            found.add([&] { return MeshInWords(i) + " " + fault + " at " + PlaceInWords(NodePlace((*corners)[0])); });
        }
    return found;
}

// Nodes that meshes use, from the least x to the greatest.
std::vector<int> UsedNodes() {
    std::vector<int> used;
    for (int i = 1; i <= MeshCount; ++i)
        if (const auto corners = CornersOf(i))
            used.insert(used.end(), corners->begin(), corners->end());
    std::sort(used.begin(), used.end());
    used.erase(std::unique(used.begin(), used.end()), used.end());
    std::stable_sort(used.begin(), used.end(), [](int a, int b) { return NoktaTable[a].X < NoktaTable[b].X; });
    return used;
}

Warnings WarnOfNodesWithoutMesh() {
    std::vector<bool> isUsed(static_cast<std::size_t>(NoktaCount) + 1, false);
    for (const int node : UsedNodes())
        isUsed[static_cast<std::size_t>(node)] = true;
    Warnings found("meshi olmayan nokta");
    for (int i = 1; i <= NoktaCount; ++i)
        if (!isUsed[static_cast<std::size_t>(i)])
            found.add([i] { return "node " + std::to_string(i) + " is of no mesh, at " + PlaceInWords(NodePlace(i)); });
    return found;
}

Warnings WarnOfNodesInOnePlace() {
    const std::vector<int> used = UsedNodes();
    Warnings found("aynı yerde iki nokta");
    for (std::size_t s = 0; s < used.size(); ++s)
        for (std::size_t t = s + 1; t < used.size(); ++t) {
            const int a = used[s], b = used[t];
            if (NoktaTable[b].X - NoktaTable[a].X > kOnePlace)
                break;
            if (!(SpaceDistance(NodePlace(a), NodePlace(b)) < kOnePlace))
                continue;
            found.markNode(a);
            found.markNode(b);
            found.add([a, b] {
                return "nodes " + std::to_string(a) + " and " + std::to_string(b) +
                       " stand at one place and are not joined: " + PlaceInWords(NodePlace(a));
            });
        }
    return found;
}

std::map<int, int> MeshesByOwner() {
    std::map<int, int> meshes;
    for (int i = 1; i <= MeshCount; ++i)
        ++meshes[MeshTable[i].PanelNo];
    return meshes;
}

Warnings WarnOfPanelsWithoutMesh() {
    const std::map<int, int> meshes = MeshesByOwner();
    Warnings found("meshi olmayan panel");
    for (int w = 1; w <= PanelCount; ++w)
        if (PanelTable[w].No != 0 && meshes.count(w) == 0)
            found.add(
                [w] { return OwnerInWords(w) + " got no mesh, at " + PlaceInWords(PanelCorner(PanelTable[w], 4)); });
    return found;
}

// Panels meshed by their own divisions whose Nx or Ny has been raised since.
Warnings WarnOfRaisedDivisions() {
    Warnings found("bölmeleri sonradan arttı");
    if (!(HavuzTip < 2) || PlakCount > 0)
        return found;
    std::map<int, int> meshes = MeshesByOwner();
    for (int w = 1; w <= PanelCount; ++w) {
        const PanelRecord &panel = PanelTable[w];
        if (meshes[w] != 0 && meshes[w] != panel.Nx * panel.Ny)
            found.add([&] {
                return OwnerInWords(w) + " has " + std::to_string(meshes[w]) +
                       " meshes, its divisions were raised to " + std::to_string(panel.Nx) + " x " +
                       std::to_string(panel.Ny) + ": needs one more auto mesh, at " +
                       PlaceInWords(PanelCorner(panel, 1));
            });
    }
    return found;
}

} // namespace

Warnings::Warnings(const char *turkish)
    : turkish_(turkish), mesh_(static_cast<std::size_t>(MeshCount) + 1),
      node_(static_cast<std::size_t>(NoktaCount) + 1) {}

void Warnings::markMesh(int mesh) {
    if (mesh >= 1 && mesh <= MeshCount)
        mesh_[static_cast<std::size_t>(mesh)] = true;
}

void Warnings::markNode(int node) {
    if (IsNode(node))
        node_[static_cast<std::size_t>(node)] = true;
}

MeshFault Warnings::fault() const {
    MeshFault fault{turkish_, {}};
    for (int i = 1; i <= MeshCount; ++i) {
        const Ring corners = MeshCorners(MeshTable[i]);
        if (mesh_[static_cast<std::size_t>(i)] || std::any_of(corners.begin(), corners.end(), [this](int n) {
                return IsNode(n) && node_[static_cast<std::size_t>(n)];
            }))
            fault.meshes.push_back(i);
    }
    return fault;
}

void Warnings::appendTo(std::vector<std::string> &report) const {
    report.insert(report.end(), lines_.begin(), lines_.end());
    if (more_ > 0)
        report.push_back("... and " + std::to_string(more_) + " more like the last");
}

std::string OwnerInWords(int owner) {
    if (OwnerIsPlate(owner))
        return "plate " + std::to_string(OwnerPlate(owner));
    const int tip = owner >= 1 && owner <= PanelCount ? int(PanelTable[owner].Tip) : -1;
    return (tip == 0 ? "base panel " : tip == 1 ? "wall " : tip == 2 ? "strip " : "panel ") + std::to_string(owner);
}

std::string Meters(double length) { return PictureText(length, "#######0.##"); }

std::string PlaceInWords(SpacePoint at) {
    std::string place = "(";
    place += Meters(at.x) + ", " + Meters(at.y) + ", " + Meters(at.z) + ")";
    return place;
}

std::optional<Ring> CornersOf(int mesh) {
    const Ring named = MeshCorners(MeshTable[mesh]);
    return std::all_of(named.begin(), named.end(), IsNode) ? std::optional(named) : std::nullopt;
}

static double PlanArea(const std::vector<SpacePoint> &outline) {
    double twice = 0.0;
    for (std::size_t k = 0; k < outline.size(); ++k) {
        const SpacePoint a = outline[k], b = outline[(k + 1) % outline.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return std::fabs(twice) / 2.0;
}

Warnings WarnOfPlateAreas() {
    std::map<int, double> covered;
    for (int i = 1; i <= MeshCount; ++i)
        if (CornersOf(i))
            covered[MeshTable[i].PanelNo] += MeshPlanArea(i);
    Warnings found("plağın alanını tutmuyor");
    for (int p = 1; p <= PlakCount; ++p) {
        const double own = PlanArea(OutlineOf(PlateOwner(p))), meshes = covered[PlateOwner(p)];
        if (!(std::fabs(meshes - own) > kAreaPart * own))
            continue;
        const double part = own > 0.0 ? 100.0 * (meshes - own) / own : 0.0;
        found.add([&] {
            return OwnerInWords(PlateOwner(p)) + ": its meshes cover " + Meters(meshes) + " m2 in plan, its area is " +
                   Meters(own) + " m2 (" + (part > 0.0 ? "+" : "") + PictureText(part, "#######0.0") + " %), from " +
                   PlaceInWords(PlakPoint(PlakTable[p], 1));
        });
    }
    return found;
}

bool EveryCornerIsANode() {
    for (int i = 1; i <= MeshCount; ++i)
        if (!IsSwitchedOff(MeshTable[i]) && !CornersOf(i))
            return false;
    return true;
}

static std::vector<Warnings> AllWarnings() {
    const std::vector<MeshSide> sides = AllSides();
    return {WarnOfMissingNodes(),
            WarnOfMissingOwners(),
            WarnOfThickness(),
            WarnOfDensities(),
            WarnOfPanelsWithoutMesh(),
            WarnOfRaisedDivisions(),
            WarnOfPlateAreas(),
            WarnOfLostCorners(),
            WarnOfLeftOutlines(sides),
            WarnOfOverlaps(sides),
            WarnOfDoubleCorners(),
            WarnOfShapes("has no area", "alanı yok"),
            WarnOfShapes("is folded", "katlanmış"),
            WarnOfNodesWithoutMesh(),
            WarnOfNodesInOnePlace(),
            WarnOfOpenJoints(sides)};
}

std::vector<std::string> MeshReport() {
    std::vector<std::string> report;
    for (const Warnings &found : AllWarnings())
        found.appendTo(report);
    return report;
}

std::vector<MeshFault> MeshFaults() {
    std::vector<MeshFault> faults;
    for (const Warnings &found : AllWarnings())
        if (found.any())
            faults.push_back(found.fault());
    return faults;
}

} // namespace havuz
