#include "design/steel.h"

#include "design/wood.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace havuz::design {

using consistent::CaseResult;
using consistent::ShellResult;
using consistent::Tank;

namespace {

// Bars of one zone and direction of a panel: both faces are chosen together.
using GroupKey = std::tuple<int, Zone, int>;                 // panel, zone, direction
using Groups = std::map<GroupKey, std::vector<std::size_t>>; // places in Tank::meshes
using Shear = std::array<ShearPlace, 2>;                     // of the two faces

struct Work {
    const Tank &tank;
    const Basis &basis;
    const std::vector<CaseResult> &results;
    std::vector<MeshPlace> places;
};

Groups MakeGroups(const Work &w) {
    Groups groups;
    for (std::size_t i = 0; i < w.tank.meshes.size(); ++i)
        for (int direction = 1; direction <= 2; ++direction)
            groups[{w.tank.meshes[i].panel, w.places[i].zone[static_cast<std::size_t>(direction - 1)], direction}]
                .push_back(i);
    return groups;
}

// The strength method designs under the factored combinations, the elastic one under those in service.
bool CountsForStrength(const Basis &basis, const DesignCombination &c) {
    return c.factored == (basis.materials.method == DesignMethod::Strength);
}

double NormalForce(const ShellResult &r, int direction) { return (direction == 1 ? r.N11 : r.N22) + std::fabs(r.N12); }

void AddCornerDemand(const ShellResult &r, int direction, const DesignCombination &c, const Basis &basis,
                     const Demand &place, std::vector<LayerDemand> &faces) {
    const auto way = static_cast<std::size_t>(direction - 1);
    for (std::size_t face = 0; face < 2; ++face) {
        const double side = face == 0 ? 1.0 : -1.0;
        Demand d = place;
        d.M = WoodMoments(side * r.M11, side * r.M22, r.M12)[way];
        d.N = NormalForce(r, direction);
        if (CountsForStrength(basis, c))
            faces[face].strength.push_back(d);
        if (!c.factored)
            faces[face].service.push_back(d);
    }
}

std::vector<LayerDemand> Demands(const Work &w, const std::vector<std::size_t> &meshes, int direction) {
    std::vector<LayerDemand> faces(2);
    faces[0].cover = w.basis.settings.coverInner;
    faces[1].cover = w.basis.settings.coverOuter;
    for (std::size_t c = 0; c < w.results.size(); ++c)
        for (const std::size_t i : meshes)
            for (int corner = 1; corner <= 4; ++corner) {
                const ShellResult &r = w.results[c].meshes[i][static_cast<std::size_t>(corner)];
                const Demand place{0, 0, w.tank.meshes[i].mesh, corner, static_cast<int>(c)};
                AddCornerDemand(r, direction, w.basis.combinations[c], w.basis, place, faces);
            }
    return faces;
}

// Q, M and N of one direction at a place.
struct Forces {
    double Q = 0, M = 0, N = 0;
};
Forces Take(const ShellResult &r, int direction) {
    return direction == 1 ? Forces{r.Q1, r.M11, r.N11} : Forces{r.Q2, r.M22, r.N22};
}
Forces Between(const Forces &a, const Forces &b, double t) {
    return {a.Q + t * (b.Q - a.Q), a.M + t * (b.M - a.M), a.N + t * (b.N - a.N)};
}

// The loads of the elastic method have no factors: the strength is divided by one.
double AllowedShear(const Basis &basis, const ShearStrength &strength) {
    return strength.vrd / (basis.materials.method == DesignMethod::Elastic ? basis.settings.shearSafety : 1.0);
}

// The shear of one zone and direction, kept for the face that the moment beside it pulls.
class ShearSearch {
public:
    ShearSearch(const Work &w, int direction, const std::vector<LayerChoice> &bars)
        : w_(w), direction_(direction), bars_(bars) {}

    // Every place of the meshes at one effective depth from the support and further in.
    Shear find(const std::vector<std::size_t> &meshes) {
        search(meshes, std::max(bars_[0].section.d, bars_[1].section.d) / 100.0);
        if (found_[0].mesh == 0 && found_[1].mesh == 0)
            search(meshes, 0.0); // the zone is no deeper than the section
        return found_;
    }

private:
    void search(const std::vector<std::size_t> &meshes, double depth) {
        for (std::size_t c = 0; c < w_.results.size(); ++c)
            if (CountsForStrength(w_.basis, w_.basis.combinations[c]))
                for (const std::size_t i : meshes)
                    searchMesh(i, depth, static_cast<int>(c));
    }

    void searchMesh(std::size_t i, double depth, int combination) {
        const consistent::MeshResult &r = w_.results[static_cast<std::size_t>(combination)].meshes[i];
        const std::array<double, 4> &far = w_.places[i].toSupport;
        for (std::size_t k = 0; k < 4; ++k) {
            const std::size_t next = (k + 1) % 4;
            const Forces here = Take(r[k + 1], direction_), there = Take(r[next + 1], direction_);
            if (far[k] >= depth)
                offer(here, i, combination);
            if ((far[k] >= depth) != (far[next] >= depth) && std::isfinite(far[k]) && std::isfinite(far[next]))
                offer(Between(here, there, (depth - far[k]) / (far[next] - far[k])), i, combination);
        }
    }

    void offer(const Forces &at, std::size_t i, int combination) {
        const std::size_t face = at.M >= 0.0 ? 0 : 1;
        ShearPlace place;
        place.V = std::fabs(at.Q);
        place.M = at.M;
        place.N = at.N;
        place.strength = ShearWithoutLinks(w_.basis.materials, bars_[face].section, bars_[face].bars.area(), at.N);
        place.allowed = AllowedShear(w_.basis, place.strength);
        place.mesh = w_.tank.meshes[i].mesh;
        place.combination = combination;
        ShearPlace &kept = found_[face];
        if (kept.mesh == 0 || place.V * kept.allowed > kept.V * place.allowed ||
            (place.V * kept.allowed == kept.V * place.allowed && place.V > kept.V))
            kept = place;
    }

    const Work &w_;
    int direction_;
    const std::vector<LayerChoice> &bars_;
    Shear found_{};
};

// Head of the water that may stand at the panel: liquid on one side, groundwater on the other.
double HeadAt(const Tank &tank, int panel, const PanelSize &size) {
    const consistent::TankPanel &p = tank.panels.at(panel);
    const double inside = p.kind == 1 ? size.lowest : size.lowest + p.thickness;
    return std::max({0.0, tank.liquidLevel - inside, tank.groundwaterLevel - size.lowest});
}

// The thickness at which the heaviest bars would carry the governing demand; 0 when none up to 3 m does.
double ThickerForBending(const Basis &basis, const SteelRow &row) {
    if (basis.diameters.empty())
        return 0.0;
    const double most = Bars{basis.diameters.back(), basis.settings.spacingLeast}.area();
    const double behind = row.layer.section.h - row.layer.section.d;
    for (double h = std::ceil(row.layer.section.h + 1e-9); h <= 300.0; h += 1.0) {
        const SteelNeed need =
            RequiredSteel(basis.materials, {h, h - behind}, row.layer.governs.M, row.layer.governs.N);
        if (need.met && need.area <= most)
            return h;
    }
    return 0.0;
}

SteelRow MakeRow(const Work &w, const GroupKey &key, std::size_t face, const LayerDemand &demand,
                 const LayerChoice &layer, const ShearPlace &shear) {
    SteelRow row;
    row.panel = std::get<0>(key);
    row.kind = w.tank.panels.at(row.panel).kind;
    row.zone = std::get<1>(key);
    row.direction = std::get<2>(key);
    row.face = face == 0 ? Face::Inner : Face::Outer;
    row.layer = layer;
    row.cover = demand.cover;
    row.crackLimit = demand.crackLimit;
    row.shear = shear;
    if (shear.mesh == 0) { // nothing to carry here: what the section could
        row.shear.strength = ShearWithoutLinks(w.basis.materials, layer.section, layer.bars.area(), 0.0);
        row.shear.allowed = AllowedShear(w.basis, row.shear.strength);
    }
    if (!row.strengthMet())
        row.thickerForBending = ThickerForBending(w.basis, row);
    if (!row.shearMet())
        row.thickerForShear = ThicknessForShear(w.basis.materials, layer.section, layer.bars.area(), shear.N,
                                                shear.V * shear.strength.vrd / shear.allowed);
    return row;
}

} // namespace

bool SteelRow::strengthMet() const {
    return layer.need.met && layer.totalMet && layer.bars.area() >= std::max(layer.need.area, layer.least);
}

bool SteelRow::crackMet() const { return layer.crack.wk <= crackLimit; }

std::vector<SteelRow> DesignSteel(const Tank &tank, const Basis &basis, const std::vector<CaseResult> &results) {
    const Work w{tank, basis, results, FindPlaces(tank)};
    std::map<int, PanelSize> sizes;
    for (const auto &[number, panel] : tank.panels)
        sizes[number] = SizeOf(tank, number);
    std::vector<SteelRow> rows;
    for (const auto &[key, meshes] : MakeGroups(w)) {
        const int panel = std::get<0>(key);
        const double h = tank.panels.at(panel).thickness * 100.0, head = HeadAt(tank, panel, sizes.at(panel));
        std::vector<LayerDemand> faces = Demands(w, meshes, std::get<2>(key));
        for (LayerDemand &face : faces)
            face.crackLimit = basis.settings.crackLimit > 0.0 ? basis.settings.crackLimit : CrackLimit(head, h);
        const std::vector<LayerChoice> bars = ChooseBars(basis.materials, h, basis.settings, basis.diameters, faces);
        const Shear shear = ShearSearch(w, std::get<2>(key), bars).find(meshes);
        for (std::size_t face = 0; face < 2; ++face) {
            rows.push_back(MakeRow(w, key, face, faces[face], bars[face], shear[face]));
            rows.back().head = head;
        }
    }
    return rows;
}

const char *FaceName(const SteelRow &row) {
    if (row.kind == 1)
        return row.face == Face::Inner ? "inner" : "outer";
    return row.face == Face::Inner ? "upper" : "lower";
}

const char *TurkishFaceName(const SteelRow &row) {
    if (row.kind == 1)
        return row.face == Face::Inner ? "iç" : "dış";
    return row.face == Face::Inner ? "üst" : "alt";
}

double SteelWeight(const Tank &tank, const std::vector<SteelRow> &rows) {
    const std::vector<MeshPlace> places = FindPlaces(tank);
    std::map<GroupKey, double> perArea; // t/m2
    for (const SteelRow &row : rows)
        perArea[{row.panel, row.zone, row.direction}] += row.layer.bars.area() * 1e-4 * 7.85;
    double weight = 0.0;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const consistent::TankMesh &m = tank.meshes[i];
        const Vector3 twice = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
        for (int direction = 1; direction <= 2; ++direction)
            weight += perArea[{m.panel, places[i].zone[static_cast<std::size_t>(direction - 1)], direction}] *
                      std::sqrt(Dot(twice, twice)) / 2.0;
    }
    return weight;
}

} // namespace havuz::design
