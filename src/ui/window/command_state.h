// What the main window remembers between two events: the stage of the armed command, the pointer's picks, the edges it
// caught, the hot buttons. CommandState, SelectedPanel, EdgeHitCount, EdgeMarkerX, EdgeMarkerY, AnchorX, AnchorY stand
// with the views (view/view_state.h), as the drawings read them. Pixels on the screen side, metres on the model side.
#pragma once

#include "model/store.h"
#include "view/view_state.h"

#include <array>
#include <vector>

namespace havuz {

// Armed commands, values of CommandState.
enum Armed {
    kIdle = 0,
    kPointLoad = 1,
    kSupport = 2,
    kMeshOnOff = 3,
    kNodeMove = 4,
    kPanelCopy = 5,
    kPanelMove = 6,
    kPanelDelete = 7,
    kEdgeMove = 8,
    kEdgeSupport = 9,
    kVerticalPlate = 10,
    kPolygon = 11,
    kPolygonCut = 12
};

extern int SnapsToCorners;      // 0 while a typed point is placed: it lies where it was typed
extern int PickStage;           // 0 first pick, 1 and 2 later picks, -1 waits for the fixed item of an edge move
extern int ZoomPending;         // 1 while a window zoom is being picked: before CommandState
extern int DragRotated;         // 1 after a rotating drag until the full redraw
extern int PlateViewMoved;      // 1: wheel or middle button moved the plate view after its last fit
extern int MeshViewMoved;       // the same of the mesh view
extern int MeshViewMoved;       // the same of the mesh view
extern double RubberX, RubberY; // last corner of the zoom band, pixels

constexpr int kPolyPoints = kPlakPoints;
extern Row<double, kPolyPoints> PolyX, PolyY; // points of the polygon being drawn, elements 1..PolyCount, m
extern int PolyCount;
extern Row<double, 2> CutLineX, CutLineY; // ends of the polygon cut line, elements 1, 2, m

// The edge state: what the pointer caught of edges and points.
struct EdgeItem {
    int code = 0; // panel number, or 1000 + plate number
    int no = 0;   // edge, or point
    bool operator==(const EdgeItem &) const = default;
};
constexpr int kDraggedItems = 4;                            // acted on at once: the first of EdgeItems
extern std::vector<EdgeItem> EdgeItems;                     // EdgeHitCount of them
extern EdgeItem FixedItem;                                  // the item fixed by the user
extern int SeciliKenar;                                     // edge of SelectedPanel under the pointer, 0 for a plate
extern int NoktaModu;                                       // 0 an edge is caught, 1 a point
extern int KenarYonu;                                       // 1 the edge lies, 2 it stands on the screen
extern int SurukleBasladi;                                  // 0 until the first step of a drag saved where it began
extern int EdgeDragActive;                                  // -1 picked, 0 waiting at the marker, 1 dragging
extern int EdgeDragFixed;                                   // 1: FixedItem stands
extern int SabitTuru;                                       // the fixed item: 0 an edge, 1 a point
extern std::array<PanelRecord, kDraggedItems> DraggedPanel; // dragged panels as they were when the drag began

extern int ShownResult; // option of the result that the mesh view shows, -1 none

// Hot buttons of the four tool groups, -1 none.
extern std::array<int, 4> HotTool;

// EdgeHitCount, EdgeDragFixed and EdgeDragActive 0.
void ClearEdgeState();

// Initial values of all of them and of those in view_state.h that belong to the commands.
void ResetCommandState();

} // namespace havuz
