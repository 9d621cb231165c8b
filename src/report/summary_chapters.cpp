#include "report/summary_chapters.h"

#include "design/number_words.h"
#include "design/places.h"
#include "mesh/space_point.h"
#include "model/store.h"

#include <algorithm>
#include <cmath>

namespace havuz::report {

using consistent::Tank;
using consistent::TankMesh;
using design::Turkish;

namespace {

using Rows = std::vector<std::vector<std::string>>;

double MeshArea(const Tank &tank, int panel) {
    double area = 0.0;
    for (const TankMesh &m : tank.meshes)
        if (m.panel == panel) {
            const Vector3 twice = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
            area += std::sqrt(Dot(twice, twice)) / 2.0;
        }
    return area;
}

struct HandArea {
    double area = 0.0; // m2
    std::string formula;
};

// Of the wall of a circular pool.
double RadiusOf(const Tank &tank, int panel) {
    for (const TankMesh &m : tank.meshes)
        if (m.panel == panel)
            return std::hypot(tank.corner(m, 0).x - tank.centre.x, tank.corner(m, 0).y - tank.centre.y);
    return 0.0;
}

// Of the outline of a plate of the model, in plan.
double OutlineArea(const PlakRecord &plate) {
    double twice = 0.0;
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        const SpacePoint a = PlakPoint(plate, k), b = PlakPoint(plate, k % plate.NoktaSayisi + 1);
        twice += a.x * b.y - b.x * a.y;
    }
    return std::fabs(twice) / 2.0;
}

// By the sizes of the panel where its meshes fill them (a round one to what its corners cut off), else by its meshes.
HandArea AreaByHand(const Tank &tank, int panel) {
    constexpr double kFilled = 1e-3, kRound = .05; // parts of the area
    const design::PanelSize size = design::SizeOf(tank, panel);
    const double meshes = MeshArea(tank, panel), box = size.length * size.width;
    const int plate = panel - 1000;
    const double outline = plate >= 1 && plate <= PlakCount ? OutlineArea(PlakTable[plate]) : 0.0;
    const bool floor = tank.panels.at(panel).kind != 1;
    if (std::fabs(meshes - box) <= kFilled * box)
        return {box, Turkish(size.length, 2) + "·" + Turkish(size.width, 2)};
    const double radius = size.length / 2.0, disc = std::acos(-1.0) * radius * radius;
    if (tank.circular && floor && std::fabs(meshes - disc) <= kRound * disc)
        return {disc, "π·" + Turkish(radius, 2) + "²"};
    const double around = 2.0 * std::acos(-1.0) * RadiusOf(tank, panel) * size.width;
    if (tank.circular && !floor && std::fabs(meshes - around) <= kRound * around)
        return {around, "2π·" + Turkish(RadiusOf(tank, panel), 2) + "·" + Turkish(size.width, 2)};
    if (outline > 0.0)
        return {outline, "½ |Σ (xi yi+1 − xi+1 yi)|, " + std::to_string(PlakTable[plate].NoktaSayisi) + " köşe"};
    return {meshes, "meshlerden"};
}

double Difference(double value, double byHand) { return byHand != 0.0 ? 100.0 * (value - byHand) / byHand : 0.0; }

std::string DifferenceText(double value, double byHand) {
    const double percent = Difference(value, byHand);
    return (percent < -.005 ? "-" : "") + std::string("%") + Turkish(std::fabs(percent), 2);
}

} // namespace

void WeightChapter(Html &html, const Source &s) {
    const Tank &tank = s.tank();
    const double dead = -s.design.cases[consistent::kDead].proof.load[2];
    const double liquid = -s.design.cases[consistent::kLiquid].proof.load[2];
    double weight = 0.0, volume = 0.0;
    Rows rows;
    for (const auto &[number, panel] : tank.panels) {
        const HandArea a = AreaByHand(tank, number);
        weight += a.area * panel.dead;
        rows.push_back({PanelName(tank, number), a.formula + " = " + WithUnit(a.area, 2, "m²"),
                        WithUnit(panel.dead, 3, "t/m²"), WithUnit(a.area * panel.dead, 2, "t")});
        if (panel.kind == 0)
            volume += a.area * std::max(0.0, tank.liquidLevel - design::SizeOf(tank, number).lowest - panel.thickness);
    }
    html.heading(2, "Ağırlık ve sıvı hacmi");
    html.table({"Panel", "Alan, elle", "G", "Ağırlık"}, rows);
    Rows sums = {{"Ağırlık", WithUnit(dead, 2, "t"), WithUnit(weight, 2, "t"), DifferenceText(dead, weight)}};
    if (tank.liquidDensity > 0.0 && volume > 0.0)
        sums.push_back({"Sıvı hacmi, Σ A (sıvı kotu − taban üstü)", WithUnit(liquid / tank.liquidDensity, 2, "m³"),
                        WithUnit(volume, 2, "m³"), DifferenceText(liquid / tank.liquidDensity, volume)});
    html.table({"", "Hesapta", "Elle", "Fark"}, sums);
    if (s.design.cases[consistent::kPoint].proof.load[2] != 0.0)
        html.paragraph("Tekil yükler ağırlığa girmez.");
}

void MeshChapter(Html &html, const Source &s) {
    const std::vector<MeshFault> &faults = s.input.meshFaults;
    if (faults.empty())
        return;
    constexpr std::size_t kShown = 12;
    Rows rows;
    for (const MeshFault &fault : faults) {
        std::string list;
        for (std::size_t i = 0; i < fault.meshes.size() && i < kShown; ++i)
            list += (i == 0 ? "" : ", ") + std::to_string(fault.meshes[i]);
        rows.push_back(
            {fault.turkish, std::to_string(fault.meshes.size()), list + (fault.meshes.size() > kShown ? ", ..." : "")});
    }
    html.heading(2, "Mesh raporu");
    html.paragraph(std::to_string(s.tank().meshes.size()) +
                       " meshten kusurlu yerlerde olanlar; raporcunun \"Resim\" sayfasında çerçevelidir.",
                   "notice");
    html.table({"Kusur", "Mesh sayısı", "Meshler"}, rows);
}

} // namespace havuz::report
