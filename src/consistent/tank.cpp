#include "consistent/tank.h"

#include "consistent/failure.h"
#include "fea/analysis.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/store.h"
#include "model/supports.h"

#include <algorithm>
#include <cmath>

namespace havuz::consistent {

namespace {

constexpr double kFarthest = 1e6;       // coordinate of a node, m
constexpr double kConcreteWeight = 2.5; // t/m3

std::string Number(int n) { return std::to_string(n); }

void RequireAbove0(double value, const std::string &what) {
    if (!(value > 0.0))
        throw AnalysisFailure(what + " is not above 0", what + " 0'dan büyük değil");
}

TankPanel PlateOf(int owner) {
    const int plate = OwnerPlate(owner);
    if (plate < 1 || plate > PlakCount)
        throw AnalysisFailure("a mesh belongs to plate " + Number(plate) + ", and there is none",
                              "bir mesh " + Number(plate) + " numaralı plağa ait, öyle bir plak yok");
    const PlakRecord &p = PlakTable[plate];
    RequireAbove0(p.Kalinlik, "Kalinlik(" + Number(plate) + ")");
    TankPanel panel;
    panel.number = owner;
    panel.thickness = p.Kalinlik / 100.0;
    panel.dead = kConcreteWeight * panel.thickness;
    return panel;
}

// The plate that a link code of the foot edge names.
int PlateUnder(const PanelRecord &p) {
    const int code = p.KenarKomsu[3];
    return code < 0 ? -code / 100 : 0;
}

TankPanel PanelOf(int number) {
    if (number < 1 || number > PanelCount)
        throw AnalysisFailure("a mesh belongs to panel " + Number(number) + ", and there is none",
                              "bir mesh " + Number(number) + " numaralı panele ait, öyle bir panel yok");
    const PanelRecord &p = PanelTable[number];
    RequireAbove0(p.D, "D(" + Number(number) + ")");
    TankPanel panel;
    panel.number = number;
    panel.kind = p.Tip;
    panel.thickness = p.D / 100.0;
    panel.dead = p.G;
    panel.live = p.P;
    panel.onPlate = PlateUnder(p);
    panel.ownWeightAssumed = panel.kind == 1 && panel.dead == 0.0 && PlakCount > 0;
    if (panel.ownWeightAssumed)
        panel.dead = kConcreteWeight * panel.thickness;
    return panel;
}

void TakeNodes(Tank &tank) {
    tank.nodes.resize(static_cast<std::size_t>(NoktaCount) + 1);
    for (int i = 1; i <= NoktaCount; ++i) {
        const NoktaRecord &n = NoktaTable[i];
        TankNode &node = tank.nodes[static_cast<std::size_t>(i)];
        node.at = {n.X, n.Y, n.Z};
        node.held = n.Mesnet & (kRotationXHeld | kRotationYHeld | kTranslationHeld);
        node.load = {-NokYukTable[i].FX, -NokYukTable[i].FY, -NokYukTable[i].FZ};
    }
}

void TakeMesh(Tank &tank, int number) {
    const MeshRecord &m = MeshTable[number];
    if (IsSwitchedOff(m))
        return;
    TankMesh mesh;
    mesh.mesh = number;
    mesh.node = MeshCorners(m);
    mesh.panel = m.PanelNo;
    mesh.loaded = TakesSprings(m);
    for (const int n : mesh.node) {
        if (n < 1 || n > NoktaCount)
            throw AnalysisFailure("mesh " + Number(number) + " has a corner at node " + Number(n) + ", outside 1.." +
                                      Number(NoktaCount),
                                  Number(number) + " numaralı meshin köşesi " + Number(n) + " numaralı nokta, 1.." +
                                      Number(NoktaCount) + " dışında");
        TankNode &node = tank.nodes[static_cast<std::size_t>(n)];
        node.used = true;
        if (!(std::max({std::fabs(node.at.x), std::fabs(node.at.y), std::fabs(node.at.z)}) <= kFarthest))
            throw AnalysisFailure("node " + Number(n) + " lies farther than 1000 km from the origin",
                                  Number(n) + " numaralı nokta başlangıçtan 1000 km'den uzak");
    }
    if (tank.panels.count(mesh.panel) == 0)
        tank.panels[mesh.panel] = OwnerIsPlate(mesh.panel) ? PlateOf(mesh.panel) : PanelOf(mesh.panel);
    tank.meshes.push_back(mesh);
}

void TakeParameters(Tank &tank) {
    tank.E = ConcreteE(Fck);
    tank.poisson = PoissonRatio;
    tank.bedding = ZeminKo;
    tank.liquidLevel = SiviKotu;
    tank.liquidDensity = SiviYogunluk;
    tank.soilLevel = ToprakKotu;
    tank.soilKa = ZeminKa;
    tank.soilDensity = ZeminYogunluk;
    tank.groundwaterLevel = YeraltiSuKotu;
    tank.circular = HavuzTip == 2.0 && PlakCount == 0;
    const PanelRecord &square = PanelTable[1]; // around the circle
    tank.centre = {(square.X[1] + square.X[3]) / 2.0, (square.Y[1] + square.Y[3]) / 2.0, 0.0};
}

} // namespace

Tank ReadTank() {
    Tank tank;
    TakeParameters(tank);
    TakeNodes(tank);
    for (int i = 1; i <= MeshCount; ++i)
        TakeMesh(tank, i);
    if (tank.meshes.empty())
        throw AnalysisFailure("the model has no active mesh; havuz-cli mesh makes one",
                              "modelde etkin mesh yok; önce \"auto mesh\"");
    return tank;
}

} // namespace havuz::consistent
