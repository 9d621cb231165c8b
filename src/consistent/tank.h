// The tank as the consistent analysis sees it: a snapshot of the model store in doubles, metres and tons. Everything of
// this folder works on such a value, so that tests and variants can hold many; none of it reads or writes the store.
#pragma once

#include "fea/vector3.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace havuz::consistent {

struct TankNode {
    Vector3 at; // m
    // Bits: 1 rotation about X, 2 rotation about Y, 4 all three translations; in models made by hand also 8, 16, 32 the
    // translation along X, Y, Z alone, 64 the rotation about Z.
    int held = 0;
    Vector3 load; // point load as a force along the axes, t: the run takes FX, FY, FZ against them (FZ presses down)
    bool used = false; // a corner of an active mesh
};

// What meshes are cut from: a panel by its number, a plate by 1000 + its number.
struct TankPanel {
    int number = 0;
    int kind = 0;                  // 0 floor (plates too), 1 wall, 2 strip
    double thickness = 0.0;        // m
    double dead = 0.0;             // area load, t/m2
    double live = 0.0;             // area load, t/m2
    bool ownWeightAssumed = false; // dead was 0 on a wall of a polygon pool and counts 2.5 t/m3
    int onPlate = 0;               // plate on whose edge a wall's foot stands, by the model's link codes; 0 none
};

// An active mesh.
struct TankMesh {
    int mesh = 0;              // number in the project
    std::array<int, 4> node{}; // project numbers, in the stored order
    int panel = 0;             // key into Tank::panels
    bool loaded = true;        // false above Sil 1: stiffness and weight, neither spring nor pressure
};

struct Tank {
    std::vector<TankNode> nodes; // by project number; element 0 is unused
    std::vector<TankMesh> meshes;
    std::map<int, TankPanel> panels; // those that active meshes name
    double E = 0.0;                  // t/m2
    double poisson = 0.25;
    double bedding = 0.0; // ZeminKo, t/m3
    double liquidLevel = 0.0, liquidDensity = 0.0;
    double soilLevel = 0.0, soilKa = 0.0, soilDensity = 0.0;
    double groundwaterLevel = 0.0;
    bool circular = false; // of the library: axes of floors and strips run around and out
    Vector3 centre;        // of a circular pool, in plan

    const TankPanel &panelOf(const TankMesh &m) const { return panels.at(m.panel); }
    const Vector3 &corner(const TankMesh &m, std::size_t k) const { // k from 0
        return nodes.at(static_cast<std::size_t>(m.node[k])).at;
    }
};

// Reads the store and writes nothing. A corner outside 1..NoktaCount, a mesh without an owner, a thickness or number
// that is not above 0 is an AnalysisFailure that names it; so is a model without an active mesh.
Tank ReadTank();

} // namespace havuz::consistent
