// The steel of one panel as an engineer draws it: the panel laid flat four times, for each face and direction, its
// zones with a bar as it lies, the width over which such bars are spread, and "Ø12/11" beside it. Lengths in m, the
// picture in pixels. Works on values.
#pragma once

#include "design/steel.h"
#include "view/result_canvas.h"
#include "view/result_scene.h"

#include <vector>

namespace havuz {

// A run of meshes of one zone that a bar crosses without a break.
struct SteelBar {
    std::vector<SpacePoint> along;  // flat axes: two points, more where the bar is bent around a circle
    std::vector<SpacePoint> across; // over which its like are spread, through its middle
    double length = 0.0;            // m, of the zone along the bar
};

struct SteelZone {
    std::size_t row = 0; // in the list of rows
    design::Zone zone = design::Zone::Span;
    std::vector<std::array<SpacePoint, 4>> meshes;
    std::vector<SteelBar> bars;
    SpacePoint governs; // middle of the mesh that governs
    bool hasPlace = false;
};

// Zones of the bars of one face and direction.
std::vector<SteelZone> ZonesOf(const consistent::Tank &tank, const std::vector<design::SteelRow> &rows, int panel,
                               design::Face face, int direction);

class SteelDrawing {
public:
    SteelDrawing(const consistent::Tank &tank, const std::vector<design::SteelRow> &rows, int panel, double width,
                 double height);
    // chosen: a row that is framed, with its governing place; none below 0.
    void draw(ResultCanvas &canvas, int chosen) const;
    int rowAt(double x, double y) const; // -1: none is there

private:
    struct Cell {
        design::Face face;
        int direction;
        double left, top;
        SceneTransform to;
        double stretch = 1.0; // of the height: a long low wall is drawn higher than it is
        std::vector<SteelZone> zones;
        ScreenPoint at(const SpacePoint &p) const { return {to.x + to.scale * p.x, to.y - to.scale * stretch * p.y}; }
    };
    void drawCell(ResultCanvas &canvas, const Cell &cell, int chosen) const;
    void drawZone(ResultCanvas &canvas, const Cell &cell, const SteelZone &zone, bool chosen) const;
    void drawBars(ResultCanvas &canvas, const Cell &cell) const;
    void fit(Cell &cell, double width, double height) const;

    const std::vector<design::SteelRow> &rows_;
    std::vector<Cell> cells_;
};

} // namespace havuz
