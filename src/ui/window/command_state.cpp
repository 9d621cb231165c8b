#include "ui/window/command_state.h"

namespace havuz {

int SnapsToCorners = 1;
int PickStage, ZoomPending, DragRotated, PlateViewMoved, MeshViewMoved;
double RubberX, RubberY;
Row<double, kPolyPoints> PolyX, PolyY;
int PolyCount;
Row<double, 2> CutLineX, CutLineY;

std::vector<EdgeItem> EdgeItems;
EdgeItem FixedItem;
int SeciliKenar, NoktaModu, KenarYonu, SurukleBasladi, EdgeDragActive, EdgeDragFixed, SabitTuru;
std::array<PanelRecord, kDraggedItems> DraggedPanel;

int ShownResult = -1;
std::array<int, 4> HotTool = {-1, -1, -1, -1};

void ClearEdgeState() {
    EdgeHitCount = EdgeDragFixed = EdgeDragActive = 0;
    EdgeItems.clear();
}

void ResetCommandState() {
    for (int *p :
         {&CommandState, &SelectedPanel, &PickStage, &ZoomPending, &DragRotated, &PlateViewMoved, &MeshViewMoved,
          &PolyCount, &SeciliKenar, &NoktaModu, &SurukleBasladi, &SabitTuru, &SeciliNo, &NodesHidden})
        *p = 0;
    for (double *p : {&AnchorX, &AnchorY, &RubberX, &RubberY, &EdgeMarkerX, &EdgeMarkerY})
        *p = 0.0;
    KenarYonu = SnapsToCorners = 1;
    ClearEdgeState();
    PolyX = PolyY = {};
    CutLineX = CutLineY = {};
    EdgeItems.clear();
    FixedItem = {};
    DraggedPanel = {};
    HotTool.fill(-1);
    ShownResult = -1;
}

} // namespace havuz
