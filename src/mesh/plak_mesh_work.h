// The plate in work while it is meshed: outline, grid, points and quadrilaterals, and the steps that fill them, in the
// order of their calls. Only the plak_mesh files use it.
#pragma once

#include "mesh/plak_mesh.h"
#include "model/failure.h"
#include "model/store.h"

#include <cstdint>
#include <string>
#include <vector>

namespace havuz {

// A value for each grid point, bounds 0..500 on both axes. Storage is as large as the plate needs: two rows lie behind
// the last one, which the steps look at but never fill.
template <class Cell>
class GridTable {
public:
    void size(int plak, Thing name, int imax, int jmax) {
        plak_ = plak;
        name_ = name;
        rows_ = jmax + 3;
        cell_.assign(imax < 0 || jmax < 0 ? 0 : static_cast<std::size_t>(imax + 3) * static_cast<std::size_t>(rows_),
                     Cell{});
    }
    Cell &operator()(int i, int j) {
        if (i < 0 || i > kPlakGrid || j < 0 || j > kPlakGrid)
            fail(i < 0 || i > kPlakGrid ? i : j);
        return cell_[static_cast<std::size_t>(i) * static_cast<std::size_t>(rows_) + static_cast<std::size_t>(j)];
    }

private:
    [[noreturn]] void fail(int no) const { FailSubscript({{Thing::Plate, plak_}}, name_, no, kPlakGrid); }
    int plak_ = 0, rows_ = 0;
    Thing name_ = Thing::Nothing;
    std::vector<Cell> cell_;
};

// States of a grid point.
enum Durumlar : std::uint8_t { Outside = 0, Inside = 1, OnEdge = 2, OnCorner = 3 };

struct PlakMeshWork {
    int plak = 0;
    int n = 0;                  // outline points
    std::vector<double> OX, OY; // the outline, closed: 0 repeats n and n + 1 repeats 1
    int ZminNo = 0, ZmaxNo = 0; // first lowest and first highest outline point
    double xmin = 0.0, xmax = 0.0, ymin = 0.0, ymax = 0.0;
    double h = 0.0, x0 = 0.0, y0 = 0.0; // grid step, place of grid point (0, 0)
    int imax = 0, jmax = 0;             // last grid point along X and Y
    GridTable<std::uint8_t> Durum;      // state of each grid point
    GridTable<int> GridNo;              // point of each grid point, 0 none
    GridTable<int> Hucre;               // quadrilateral that owns the cell with this lower corner, 0 none
    std::vector<double> GX, GY;         // place of each point; entry 0 is scratch, written and read as any other
    std::vector<int> GK;                // 0 interior, +a on edge a, -a at corner a
    std::vector<int> Kullanim;          // number of each point among those that meshes use, 0 unused
    int quads = 0;                      // records of DortluTable in use

    double gridX(int i) const { return x0 + i * h; }
    double gridY(int j) const { return y0 + j * h; }
    PlanPoint grid(int i, int j) const { return {gridX(i), gridY(j)}; }
    PlanPoint outline(int k) const {
        const auto at = static_cast<std::size_t>(k);
        return {OX[at], OY[at]};
    }
    int points() const { return static_cast<int>(GX.size()) - 1; }
    double &gx(int p) { return GX[static_cast<std::size_t>(p)]; }
    double &gy(int p) { return GY[static_cast<std::size_t>(p)]; }
    int &gk(int p) { return GK[static_cast<std::size_t>(p)]; }
    PlanPoint point(int p) { return {gx(p), gy(p)}; }
    void put(int p, PlanPoint at, int code);

    int newPoint();                                    // the next point number, with a blank place
    int newPointAt(int i, int j);                      // the same for grid point (i, j)
    int newQuad(const int (&kose)[4], int ci, int cj); // the next quadrilateral, with these points
};

// Empty tables; clears DortluTable (plak_mesh.cpp).
PlakMeshWork BeginPlak(int plak);
// Outline, bounds, grid, inside test (plak_mesh_grid.cpp).
void CopyOutline(PlakMeshWork &w);
void LayGrid(PlakMeshWork &w, double width);
void TestInside(PlakMeshWork &w);
// Points onto edges and corners (plak_mesh_edges.cpp).
void PullOntoEdges(PlakMeshWork &w);
void PinCorners(PlakMeshWork &w);
void EasePoints(PlakMeshWork &w);
// Quadrilaterals (plak_mesh_quads.cpp, plak_mesh_triangles.cpp).
void MakeFullCells(PlakMeshWork &w);
void MakeLoneCorners(PlakMeshWork &w);
void DoubleDiagonalPoints(PlakMeshWork &w);
void RepairTriangles(PlakMeshWork &w);
// Used points, heights, nodes and meshes (plak_mesh_output.cpp).
void NumberUsedPoints(PlakMeshWork &w);
void HandOverCorners(PlakMeshWork &w);
void AppendNodesAndMeshes(PlakMeshWork &w);

} // namespace havuz
