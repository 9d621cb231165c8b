// The pointer in the mesh editing commands: point loads, supports, meshes on and off, node moves.
#include "mesh/node_move.h"
#include "model/store.h"
#include "ui/commands/pointer_commands.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "view/node_move.h"
#include "view/pick.h"

#include <cstdlib>

namespace havuz {

static void ShowBeside(Workbench &bench, const std::string &text, Pointer at) {
    bench.ShowLabel(text, at.x + 10.0, at.y + 20.0);
}

static std::string NodeNote() { return "Nokta:" + std::to_string(SeciliNo); }

void PressPointLoad(Workbench &bench, Pointer /*at*/) {
    if (SeciliNo > 0)
        ShowPointLoad(bench);
}

void PressSupport(Workbench &bench, Pointer /*at*/) {
    if (SeciliNo > 0)
        ShowSupportType(bench);
}

void MoveOverNodes(Workbench &bench, Pointer at) {
    PickNode(at.x, at.y);
    if (SeciliNo > 0)
        ShowBeside(bench, NodeNote(), at);
    else
        bench.HideLabel1();
}

void PressMeshOnOff(Workbench &bench, Pointer /*at*/) {
    if (SeciliNo <= 0)
        return;
    MeshRecord &mesh = MeshTable[SeciliNo];
    mesh.Sil = std::abs(1 - mesh.Sil);
    bench.DrawMeshView();
}

void MoveOverMeshes(Workbench &bench, Pointer at) {
    std::string note;
    PickMesh(at.x, at.y, note);
    if (SeciliNo > 0)
        ShowBeside(bench, note, at);
    else
        bench.HideLabel1();
}

void PressTakeNode(Workbench &bench, Pointer /*at*/) {
    if (SeciliNo <= 0)
        return;
    PickStage = 1;
    BeginNodeMove(bench.view);
}

void PressPlaceNode(Workbench &bench, Pointer at) {
    PickStage = 0;
    FinishNodeMove(at.x, at.y);
    bench.DrawMeshView();
    HidePol(bench);
}

void MoveOverTakable(Workbench &bench, Pointer at) {
    PickNode(at.x, at.y);
    ShowBeside(bench, SeciliNo > 0 ? NodeNote() : "Nokta secin", at);
}

// The note is the bare text: its numbers are not filled in, wanted.
void MoveTakenNode(Workbench &bench, Pointer at) {
    for (int i = 1; i <= NeighbourNodeCount; ++i) {
        LineEnds ends = bench.window.Line(Pol(i));
        ends.x1 = at.x;
        ends.y1 = at.y;
        bench.window.SetLine(Pol(i), ends);
    }
    ShowBeside(bench, "X=,Y=", at);
}

void HidePol(Workbench &bench) {
    for (int i = 0; i <= kPolLast; ++i)
        bench.window.Show(Pol(i), false);
}

} // namespace havuz
