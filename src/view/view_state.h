// The variables of the views that are not run-time state of the model store: transforms, surface size, eye point,
// bounds, picks, and what the drawings read of the armed command. Lengths in m on the model side, pixels on the screen
// side.
#pragma once

#include "model/fields.h"
#include "model/store.h"
#include "view/surface.h"

namespace havuz {

// Fitted transforms: pixel = offset + scale * value.
extern double PlateScale, PlateOffsetX, PlateOffsetY; // plate view
extern double MeshScale, MeshOffsetX, MeshOffsetY;    // mesh view
extern double HomeScale, HomeOffsetX, HomeOffsetY;    // mesh transform of the last fit
extern int KeepZoom;                                  // 1: the mesh view's drawing does not refit
extern int KeepPlateFit;                              // 1: no drawing refits the plate view
extern Int16 ViewWidth, ViewHeight;                   // surface width and height less 5

// Bounding record kept by PlateBoundsAndDepth: plan and projected, m. FitMeshView widens the projected part.
extern double Xmin, Xmax, Ymin, Ymax, Zmin, Zmax;
extern double Pxmin, Pxmax, Pymin, Pymax;

// Displacements in the mesh view, from the displacement file.
extern double DeformScale; // magnification added to node positions; 0 leaves the file unread
extern int ActiveLoadCase; // column whose displacement is added

extern double ViewerX, ViewerY, ViewerZ; // eye point, for distances only, m

// Depth order of the rotated plate view, far to near: entries 1..PanelCount + PlakCount. DepthOrder holds a panel
// number, or 1000 + plate number.
constexpr int kDepthEntries = kPanelCapacity + kPlakCapacity;
extern Row<double, kDepthEntries> DepthKey; // m
extern Row<int, kDepthEntries> DepthOrder;

constexpr int kBufferPoints = 200;
extern Row<Pixel, kBufferPoints> PointBuffer; // elements 1..200

// Picks: pixel position of the last hit, and what is rebuilt around a node that is being moved.
extern double AnchorX, AnchorY;
constexpr int kNeighbourNodes = 15;
extern int NeighbourMeshCount, NeighbourNodeCount;
extern Row<int, 4 * kMeshCapacity> NeighbourMeshList; // elements 1..NeighbourMeshCount
extern Row<int, kNeighbourNodes> NeighbourNodeList;   // elements 1..NeighbourNodeCount

// Dynamic zoom.
extern int DynStage;                         // 0 closed, 1 the rectangle follows the pointer, 2 it is being sized
extern double DynWidthRatio, DynHeightRatio; // rectangle size as a share of the overview
extern double DynLeft, DynTop;               // remembered place of the overview window, twips
extern double DynRectLeft, DynRectTop, DynRectRight, DynRectBottom; // the rectangle, overview pixels

// What is armed and what lies under the pointer, as far as the drawings show it.
extern int CommandState;                // 0 idle, else the armed command
extern int SelectedPanel;               // panel number, or 1000 + plate number, 0 none
extern int EdgeHitCount;                // edges or points caught by the pointer
extern double EdgeMarkerX, EdgeMarkerY; // reference point of the caught ones, pixels

// Initial values of all of them.
void ResetView();

// ViewWidth and ViewHeight of a surface. A surface that no 16-bit number can measure is Overflow.
void TakeSurfaceSize(const Surface &scr);

} // namespace havuz
