#include "view/view_state.h"

namespace havuz {

double PlateScale, PlateOffsetX, PlateOffsetY;
double MeshScale, MeshOffsetX, MeshOffsetY;
double HomeScale, HomeOffsetX, HomeOffsetY;
int KeepZoom, KeepPlateFit;
Int16 ViewWidth, ViewHeight;

double Xmin, Xmax, Ymin, Ymax, Zmin, Zmax;
double Pxmin, Pxmax, Pymin, Pymax;

double DeformScale;
int ActiveLoadCase;

double ViewerX, ViewerY, ViewerZ;
Row<double, kDepthEntries> DepthKey;
Row<int, kDepthEntries> DepthOrder;
Row<Pixel, kBufferPoints> PointBuffer;

double AnchorX, AnchorY;
int NeighbourMeshCount, NeighbourNodeCount;
Row<int, 4 * kMeshCapacity> NeighbourMeshList;
Row<int, kNeighbourNodes> NeighbourNodeList;

int DynStage;
double DynWidthRatio, DynHeightRatio;
double DynLeft, DynTop;
double DynRectLeft, DynRectTop, DynRectRight, DynRectBottom;

int CommandState, SelectedPanel, EdgeHitCount;
double EdgeMarkerX, EdgeMarkerY;

// The design size of the surface until it is known.
static constexpr int kDesignWidth = 1024, kDesignHeight = 768;

static void SetViewSize(int width, int height) {
    ViewWidth = width - 5;
    ViewHeight = height - 5;
}

void ResetView() {
    for (double *p : {&PlateScale,  &PlateOffsetX, &PlateOffsetY, &MeshScale,     &MeshOffsetX, &MeshOffsetY,
                      &HomeOffsetX, &HomeOffsetY,  &Xmin,         &Xmax,          &Ymin,        &Ymax,
                      &Zmin,        &Zmax,         &Pxmin,        &Pxmax,         &Pymin,       &Pymax,
                      &DeformScale, &ViewerX,      &ViewerY,      &ViewerZ,       &AnchorX,     &AnchorY,
                      &DynRectLeft, &DynRectTop,   &DynRectRight, &DynRectBottom, &EdgeMarkerX, &EdgeMarkerY})
        *p = 0.0;
    for (int *p : {&KeepZoom, &KeepPlateFit, &NeighbourMeshCount, &NeighbourNodeCount, &DynStage, &CommandState,
                   &SelectedPanel, &EdgeHitCount})
        *p = 0;
    HomeScale = 1.0;
    ActiveLoadCase = 1;
    DynWidthRatio = DynHeightRatio = 0.3;
    DynLeft = 800.0;
    DynTop = 900.0;
    DepthKey = {};
    DepthOrder = {};
    PointBuffer = {};
    NeighbourMeshList = {};
    NeighbourNodeList = {};
    SetViewSize(kDesignWidth, kDesignHeight);
}

void TakeSurfaceSize(const Surface &scr) { SetViewSize(scr.width(), scr.height()); }

} // namespace havuz
