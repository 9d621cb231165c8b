// What presses, moves and releases do in each armed command. Only the table of pointer.cpp calls them.
#pragma once

#include "ui/commands/pointer.h"
#include "view/projection.h"

namespace havuz {

// Mesh editing
void PressPointLoad(MainWindow &main, Pointer at);
void PressSupport(MainWindow &main, Pointer at);
void PressMeshOnOff(MainWindow &main, Pointer at);
void PressTakeNode(MainWindow &main, Pointer at);
void PressPlaceNode(MainWindow &main, Pointer at);
void MoveOverNodes(MainWindow &main, Pointer at);
void MoveOverMeshes(MainWindow &main, Pointer at);
void MoveOverTakable(MainWindow &main, Pointer at);
void MoveTakenNode(MainWindow &main, Pointer at);
void HidePol(MainWindow &main);

// Copying, moving, deleting panels
void PressTakePanel(MainWindow &main, Pointer at);
void PressFirstCorner(MainWindow &main, Pointer at);
void PressSecondCorner(MainWindow &main, Pointer at);
void PressDeletePanel(MainWindow &main, Pointer at);
void PlakAraAt(MainWindow &main, Pointer at);
void MoveBand(MainWindow &main, Pointer at);
void HideBand(MainWindow &main); // Line1 .. Line4, PickStage 0 is the caller's
void ShowBand(MainWindow &main, ScreenPoint from, ScreenPoint to);

// Edges
void PressFixEdge(MainWindow &main, Pointer at);
void PressTakeEdge(MainWindow &main, Pointer at);
void PressEdgeSupport(MainWindow &main, Pointer at);
void HoverEdges(MainWindow &main, Pointer at);
void MoveTakenEdge(MainWindow &main, Pointer at);
void KenarAraAt(MainWindow &main, Pointer at);
void ForgetEdges(MainWindow &main);

// Drawing and cutting
void PressFirstEnd(MainWindow &main, Pointer at);
void PressNextEnd(MainWindow &main, Pointer at);
void PressFirstPoint(MainWindow &main, Pointer at);
void PressNextPoint(MainWindow &main, Pointer at);
void PressCutStart(MainWindow &main, Pointer at);
void PressCutEnd(MainWindow &main, Pointer at);
void MoveLine(MainWindow &main, Pointer at);
void HideLine(MainWindow &main);
void EndPolygon(MainWindow &main);
void FillPolygonSoFar(MainWindow &main); // the polygon being drawn; nothing in other commands

// Model point of a pixel in the plate view, and back.
struct ModelPoint {
    double x = 0.0, y = 0.0; // m
};
ModelPoint ToModel(ScreenPoint p);
ScreenPoint ToScreen(ModelPoint m);

// The first panel corner within 0.1 m of the point in both axes, in panel order; without one the point itself.
void SnapToPanelCorner(double &mx, double &my);

} // namespace havuz
