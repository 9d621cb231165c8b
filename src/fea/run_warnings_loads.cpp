// Warnings of the pressures: shares that a wall kept from another pressure, levels on mesh edges, uplift.
#include "fea/run_warnings_work.h"
#include "model/arithmetic.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace havuz {

namespace {

constexpr std::array kPressures = {Pressure::Liquid, Pressure::Soil, Pressure::Water};
constexpr double kLeastTons = 0.001;

SaidAmount NameOf(Pressure pressure) {
    switch (pressure) {
    case Pressure::Liquid:
        return {"liquid", "sıvı"};
    case Pressure::Soil:
        return {"soil", "zemin"};
    case Pressure::Water:
        break;
    }
    return {"groundwater", "yeraltı suyu"};
}

const char *LevelName(Pressure pressure) {
    return pressure == Pressure::Liquid ? "SiviKotu" : pressure == Pressure::Soil ? "ToprakKotu" : "YeraltiSuKotu";
}

// The levels of the pressures before this one, any of which may be taken over.
const char *LevelsBefore(Pressure pressure) { return pressure == Pressure::Soil ? "SiviKotu" : "SiviKotu, ToprakKotu"; }

// Wall meshes with the same fault: how many, where, how much.
struct WallGroup {
    int meshes = 0;
    double low = 0.0, high = 0.0; // z of their edges
    double tons = 0.0;

    void take(const MeshPressure &p, double t) {
        const double a = std::min(p.level - p.d12, p.level - p.d34), b = std::max(p.level - p.d12, p.level - p.d34);
        low = meshes == 0 ? a : std::min(low, a);
        high = meshes == 0 ? b : std::max(high, b);
        ++meshes;
        tons += std::fabs(t);
    }
};

// What one pressure did on the walls of the whole model.
struct WallPressure {
    double level = 0.0, applied = 0.0;
    WallGroup onEdge, upsideDown;
    std::array<WallGroup, kPressures.size()> keptFrom;
};

// Both corners of each edge.
double AppliedTons(const MeshPressure &p) { return 2.0 * (p.share12 + p.share34); }

void Take(WallPressure &w, const MeshPressure &p) {
    w.level = p.level;
    if (p.rule != ShareRule::Kept) {
        w.applied += std::fabs(AppliedTons(p));
        return;
    }
    // what the wetted part would carry: w L h d / 2 under a level on the upper edge
    if (p.d12 == 0.0 && p.d34 > 0.0)
        w.onEdge.take(p, p.density * p.length * p.height * p.d34 / 2.0);
    else if (p.d12 > 0.0)
        w.upsideDown.take(p, p.density * p.length * p.d12 * std::min(p.d12, p.height) / 2.0);
    if (p.keptFrom != p.pressure && AppliedTons(p) != 0.0)
        w.keptFrom.at(static_cast<std::size_t>(p.keptFrom)).take(p, AppliedTons(p));
}

void SayKept(Pressure pressure, const WallPressure &w, const SaidAmount &columns, std::vector<Warning> &warnings) {
    for (const Pressure from : kPressures) {
        const WallGroup &g = w.keptFrom.at(static_cast<std::size_t>(from));
        if (g.tons < kLeastTons)
            continue;
        warnings.push_back(Say(
            "carried-over",
            "the {0} (level {1} m) does not reach {2} wall meshes between {3} and {4} m, and they take over the "
            "pressure of the {5} in its place: {6} t that are not there, in load column {7}; for these columns run "
            "a copy of the project with {8} at or below the foot of the walls",
            "{0} ({1} m kotu) {3} ile {4} m arasındaki {2} duvar meshine ulaşmaz; yerine {5} basıncı kalır: {7} "
            "kolonunda olmayan {6} t; bu kolonlar için projenin bir kopyasını {8} duvar ayağında ya da altında olarak "
            "çözün",
            {NameOf(pressure), Level(w.level), Count(g.meshes), Level(g.low), Level(g.high), NameOf(from),
             Number(g.tons, 2), columns, Names(LevelsBefore(pressure))}));
    }
}

void SayOnEdge(Pressure pressure, const WallPressure &w, const SaidAmount &columns, std::vector<Warning> &warnings) {
    if (w.onEdge.tons >= kLeastTons)
        warnings.push_back(Say(
            "level-on-edge",
            "the level of the {0}, {1} m, lies on the upper edge of {2} wall meshes between {3} and {4} m, and the "
            "pressure below it is dropped there: {5} t of {6} t ({7} %) in load column {8}; set {9} a millimetre "
            "higher",
            "{0} kotu {1} m, {3} ile {4} m arasındaki {2} duvar meshinin üst kenarında; altındaki basınç orada düşer: "
            "{8} kolonunda {6} t yükün {5} t kadarı (%{7}) yok; {9} değerini bir milimetre yükseltin",
            {NameOf(pressure), Level(w.level), Count(w.onEdge.meshes), Level(w.onEdge.low), Level(w.onEdge.high),
             Number(w.onEdge.tons, 2), Number(w.applied + w.onEdge.tons, 2),
             Number(100.0 * w.onEdge.tons / (w.applied + w.onEdge.tons), 1), columns, Names(LevelName(pressure))}));
    if (w.upsideDown.tons >= kLeastTons)
        warnings.push_back(Say(
            "level-on-edge",
            "the level of the {0}, {1} m, lies within {2} wall meshes whose first edge is the lower one, and the "
            "pressure below it is dropped there: {3} t in load column {4}; give the panel its corners from the upper "
            "edge",
            "{0} kotu {1} m, ilk kenarı altta olan {2} duvar meshinin içinde; altındaki basınç orada düşer: {4} "
            "kolonunda {3} t; panelin köşelerini üst kenardan başlatın",
            {NameOf(pressure), Level(w.level), Count(w.upsideDown.meshes), Number(w.upsideDown.tons, 2), columns}));
}

} // namespace

void WarnOfWallPressures(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings) {
    std::array<WallPressure, kPressures.size()> walls;
    ForEachPressure([&walls](const MeshPressure &p) {
        if (p.wall)
            Take(walls.at(static_cast<std::size_t>(p.pressure)), p);
    });
    const auto each = [&](auto say) {
        for (const Pressure pressure : kPressures)
            if (const SaidAmount in = ColumnsOf(pressure, columns); !in.english.empty())
                say(pressure, walls.at(static_cast<std::size_t>(pressure)), in, warnings);
    };
    each(SayKept);
    each(SayOnEdge);
}

void WarnOfUplift(const std::vector<RunColumn> &columns, std::vector<Warning> &warnings) {
    double applied = 0.0, true_ = 0.0, thickest = 0.0, level = 0.0;
    ForEachPressure([&](const MeshPressure &p) {
        if (p.wall || p.pressure != Pressure::Water)
            return;
        level = p.level;
        applied += std::max(0.0, p.level - p.z - p.thickness) * p.area;
        true_ += std::max(0.0, p.level - p.z) * p.area;
        thickest = std::max(thickest, p.thickness);
    });
    const SaidAmount in = ColumnsOf(Pressure::Water, columns);
    if (in.english.empty() || true_ - applied < kLeastTons)
        return;
    warnings.push_back(
        Say("uplift-short",
            "uplift is counted above the upper face of the slab, {0} t in load column {1}; the water "
            "(level {2} m) lifts its underside with {3} t: {4} t ({5} %) short, on the unsafe side; check "
            "flotation with {3} t, or run this column alone with YeraltiSuKotu={6}",
            "kaldırma döşemenin üst yüzünden sayılır, {1} kolonunda {0} t; su ({2} m kotu) alt yüzü {3} t "
            "ile kaldırır: {4} t (%{5}) eksik, güvensiz yönde; yüzmeyi {3} t ile denetleyin ya da yalnız bu "
            "kolonu YeraltiSuKotu={6} ile çözün",
            {Number(applied, 2), in, Level(level), Number(true_, 2), Number(true_ - applied, 2),
             Number(100.0 * (true_ - applied) / true_, 1), Level(level + thickest)}));
}

} // namespace havuz
