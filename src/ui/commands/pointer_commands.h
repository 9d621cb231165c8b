// What presses, moves and releases do in each armed command. Only the table of pointer.cpp calls them.
#pragma once

#include "model/points.h"
#include "ui/commands/pointer.h"
#include "view/projection.h"

#include <optional>

namespace havuz {

// Mesh editing
void PressPointLoad(Workbench &bench, Pointer at);
void PressSupport(Workbench &bench, Pointer at);
void PressMeshOnOff(Workbench &bench, Pointer at);
void PressTakeNode(Workbench &bench, Pointer at);
void PressPlaceNode(Workbench &bench, Pointer at);
void MoveOverNodes(Workbench &bench, Pointer at);
void MoveOverMeshes(Workbench &bench, Pointer at);
void MoveOverTakable(Workbench &bench, Pointer at);
void MoveTakenNode(Workbench &bench, Pointer at);
void HidePol(Workbench &bench);

// Copying, moving, deleting panels
void PressTakePanel(Workbench &bench, Pointer at);
void PressFirstCorner(Workbench &bench, Pointer at);
void PressSecondCorner(Workbench &bench, Pointer at);
void PressDeletePanel(Workbench &bench, Pointer at);
void PlakAraAt(Workbench &bench, Pointer at);
void MoveBand(Workbench &bench, Pointer at);
void HideBand(Workbench &bench); // Line1 .. Line4, PickStage 0 is the caller's
void ShowBand(Workbench &bench, ScreenPoint from, ScreenPoint to);

// Edges
void PressFixEdge(Workbench &bench, Pointer at);
void PressTakeEdge(Workbench &bench, Pointer at);
void PressEdgeSupport(Workbench &bench, Pointer at);
void HoverEdges(Workbench &bench, Pointer at);
void MoveTakenEdge(Workbench &bench, Pointer at);
void KenarAraAt(Workbench &bench, Pointer at);
void ForgetEdges(Workbench &bench);

// Drawing and cutting
void PressFirstEnd(Workbench &bench, Pointer at);
void PressNextEnd(Workbench &bench, Pointer at);
void PressFirstPoint(Workbench &bench, Pointer at);
void PressNextPoint(Workbench &bench, Pointer at);
void PressCutStart(Workbench &bench, Pointer at);
void PressCutEnd(Workbench &bench, Pointer at);
void MoveLine(Workbench &bench, Pointer at);
void HideLine(Workbench &bench);
void EndPolygon(Workbench &bench);
void FillPolygonSoFar(Workbench &bench); // the polygon being drawn; nothing in other commands

// The place in plan of a pixel in the plate view, and back.
PlanPoint ToModel(ScreenPoint p);
ScreenPoint ToScreen(PlanPoint m);

// The first panel corner within 0.1 m of the point in both axes, in panel order; without one the point itself.
void SnapToPanelCorner(double &mx, double &my);
std::optional<PlanPoint> PanelCornerNear(PlanPoint m);

// The note at the place that a press takes or a typed point took, with its coordinates to the millimetre; none hides
// it.
void ShowSnapNote(Workbench &bench, std::optional<PlanPoint> at);

} // namespace havuz
