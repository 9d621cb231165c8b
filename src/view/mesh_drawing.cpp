#include "view/mesh_drawing.h"

#include "model/analysed_project.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/store.h"
#include "model/supports.h"
#include "view/far_to_near.h"
#include "view/fit.h"
#include "view/marks.h"
#include "view/pick.h"
#include "view/polygons.h"
#include "view/projection.h"
#include "view/view_frames.h"
#include "view/view_state.h"

#include <array>
#include <optional>
#include <vector>

namespace havuz {

static bool Held(int node) { return HoldsTranslation(NoktaTable[node].Mesnet); }

using RingPlaces = std::array<ScreenPoint, 5>;

// Where the nodes stand on the surface, each worked out once a drawing, when it is first asked for.
class NodePlaces {
public:
    ScreenPoint of(int node) {
        std::optional<ScreenPoint> &place = place_[static_cast<std::size_t>(node)];
        if (!place)
            place = NodePixels(node);
        return *place;
    }
    RingPlaces ring(int mesh) {
        const std::array<int, 4> n = MeshNodes(mesh);
        return {of(n[0]), of(n[1]), of(n[2]), of(n[3]), of(n[0])};
    }

private:
    std::vector<std::optional<ScreenPoint>> place_{static_cast<std::size_t>(NoktaCount) + 1};
};

static void DrawMesh(Surface &scr, int mesh, const RingPlaces &ring, int fill) {
    for (int k = 1; k <= 5; ++k)
        PutPoint(k, ring[static_cast<std::size_t>(k - 1)]);
    FillPolygon(scr, 5, kQbWhite, fill);
    const std::array<int, 4> n = MeshNodes(mesh);
    for (std::size_t k = 0; k < 4; ++k)
        DrawSide(scr, ring[k], ring[k + 1], Held(n[k]) && Held(n[(k + 1) % 4]) ? kQbLightRed : kQbWhite);
}

static void DrawNumber(Surface &scr, int node, ScreenPoint p) {
    DrawLabel(scr, std::to_string(node), p.x, p.y - 2.0, kQbBrightWhite);
}

static void DrawNodeCircle(Surface &scr, ScreenPoint p, int colour) {
    scr.Circle(ToPixel(p.x), ToPixel(p.y), 1, QbColour(colour));
}

// Rotated view

static double MeshDistance(int no) {
    if (!Drawable(no))
        return 0.0;
    const std::array<int, 4> corners = MeshCorners(MeshTable[no]);
    const NoktaRecord &a = NoktaTable[corners[0]];
    const NoktaRecord &c = NoktaTable[corners[2]];
    return Distance3((a.X + c.X) / 2.0 - ViewerX, (a.Y + c.Y) / 2.0 - ViewerY, (a.Z + c.Z) / 2.0 - ViewerZ);
}

// Leaves in Sira of record k the number of the k-th mesh, far to near, and its distance in Derinlik.
static void SortMeshes() {
    std::vector<std::pair<double, int>> order;
    order.reserve(static_cast<std::size_t>(MeshCount));
    for (int i = 1; i <= MeshCount; ++i)
        order.emplace_back(Float32(MeshDistance(i)), i);
    SortFarToNear(order);
    for (int k = 1; k <= MeshCount; ++k) {
        MeshTable[k].Derinlik = order[static_cast<std::size_t>(k - 1)].first;
        MeshTable[k].Sira = order[static_cast<std::size_t>(k - 1)].second;
    }
}

static int MeshFill(int owner) { return !OwnerIsPlate(owner) && PanelTable[owner].Tip != 0 ? kQbLightBlue : kQbBlue; }

static void DrawMeshesRotated(Surface &scr, NodePlaces &places) {
    for (int k = 1; k <= MeshCount; ++k) {
        const int mesh = MeshTable[k].Sira;
        if (IsSwitchedOff(MeshTable[mesh]) || !Drawable(mesh))
            continue;
        const RingPlaces ring = places.ring(mesh);
        DrawMesh(scr, mesh, ring, MeshFill(MeshTable[mesh].PanelNo));
        for (std::size_t i = 0; i < 4; ++i)
            scr.Point(ToPixel(ring[i].x), ToPixel(ring[i].y), QbColour(kQbYellow));
    }
}

static void DrawSupportTriangle(Surface &scr, ScreenPoint p) {
    const ScreenPoint right = p + Pixel{2, 4};
    const ScreenPoint left = p + Pixel{-2, 4};
    DrawSide(scr, p, right, kQbLightMagenta);
    DrawSide(scr, right, left, kQbLightMagenta);
    DrawSide(scr, left, p, kQbLightMagenta);
}

static void DrawNodesRotated(Surface &scr, NodePlaces &places, const std::optional<LoadCase> &result) {
    for (int i = 1; i <= NoktaCount; ++i) {
        const ScreenPoint p = places.of(i);
        if (Held(i))
            DrawSupportTriangle(scr, p);
        else
            DrawNodeCircle(scr, p, kQbYellow);
        if (NodesHidden == 0)
            DrawNumber(scr, i, p);
        if (result)
            DrawDisplacement(scr, i, *result);
        else
            DrawPointLoadArrow(scr, i);
    }
}

// Plan view

static void DrawMeshesPlan(Surface &scr, NodePlaces &places) {
    for (int i = 1; i <= MeshCount; ++i)
        if (!IsSwitchedOff(MeshTable[i]) && Drawable(i))
            DrawMesh(scr, i, places.ring(i), kQbLightBlue);
}

static void DrawNodesPlan(Surface &scr, NodePlaces &places) {
    for (int i = 1; i <= NoktaCount; ++i) {
        const ScreenPoint p = places.of(i);
        DrawNodeCircle(scr, p, Held(i) ? kQbLightMagenta : kQbYellow);
        DrawNumber(scr, i, p);
    }
}

// Number 1..5 of the first result that is chosen, 0 for none.
static int ChosenResult(ViewWindow &window) {
    for (int i = 0; i < kResultOptions; ++i)
        if (window.ResultChosen(i))
            return i + 1;
    return 0;
}

// Results of another model move no node.
static LoadCase CurrentLoadCase(int column, ViewWindow &window) {
    const ResultState state = ResultsBeside(ProjeYolu);
    if (state == ResultState::Older)
        window.TellOlderResults();
    LoadCase none;
    none.node.resize(static_cast<std::size_t>(NoktaCount) + 1);
    return state == ResultState::Current ? ReadLoadCase(column) : none;
}

int FirstUndrawnMesh() {
    for (int i = 1; i <= MeshCount; ++i)
        if (!Drawable(i))
            return i;
    return 0;
}

void DrawMeshView(Surface &scr, ViewWindow &window) {
    scr.Clear();
    TakeView(2, window);
    const int result = ChosenResult(window);
    if (KeepZoom == 0)
        FitMeshView();
    NodePlaces places;
    if (RotatedView()) {
        DrawAxisMark(scr); // sets the eye point
        SortMeshes();
        DrawMeshesRotated(scr, places);
        DrawNodesRotated(scr, places, result > 0 ? std::optional(CurrentLoadCase(result, window)) : std::nullopt);
    } else {
        DrawMeshesPlan(scr, places);
        if (NodesHidden == 0)
            DrawNodesPlan(scr, places);
    }
    DrawAxisMark(scr);
}

void QuickMeshOutline(Surface &scr) {
    scr.Clear();
    FitMeshView();
    NodePlaces places;
    for (int i = 1; i <= MeshCount; ++i) {
        if (!Drawable(i))
            continue;
        const RingPlaces ring = places.ring(i);
        for (std::size_t k = 0; k < 4; ++k)
            DrawSide(scr, ring[k], ring[k + 1], kQbWhite);
    }
    DrawAxisMark(scr);
}

} // namespace havuz
