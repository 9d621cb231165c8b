// The pointer in the mesh editing commands: point loads, supports, meshes on and off, node moves.
#include "model/store.h"
#include "ui/commands/pointer_commands.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "view/node_move.h"
#include "view/pick.h"

#include <cstdlib>

namespace havuz {

static void ShowBeside(MainWindow &main, const std::string &text, Pointer at) {
    main.ShowLabel(text, at.x + 10.0, at.y + 20.0);
}

static std::string NodeNote() { return "Nokta:" + std::to_string(SeciliNo); }

void PressPointLoad(MainWindow &main, Pointer /*at*/) {
    if (SeciliNo > 0)
        ShowPointLoad(main);
}

void PressSupport(MainWindow &main, Pointer /*at*/) {
    if (SeciliNo > 0)
        ShowSupportType(main);
}

void MoveOverNodes(MainWindow &main, Pointer at) {
    PickNode(at.x, at.y);
    if (SeciliNo > 0)
        ShowBeside(main, NodeNote(), at);
    else
        main.HideLabel1();
}

void PressMeshOnOff(MainWindow &main, Pointer /*at*/) {
    if (SeciliNo <= 0)
        return;
    MeshRecord &mesh = MeshTable[SeciliNo];
    mesh.Sil = std::abs(1 - mesh.Sil);
    main.DrawMeshView();
}

void MoveOverMeshes(MainWindow &main, Pointer at) {
    std::string note;
    PickMesh(at.x, at.y, note);
    if (SeciliNo > 0)
        ShowBeside(main, note, at);
    else
        main.HideLabel1();
}

void PressTakeNode(MainWindow &main, Pointer /*at*/) {
    if (SeciliNo <= 0)
        return;
    PickStage = 1;
    BeginNodeMove(main);
}

void PressPlaceNode(MainWindow &main, Pointer at) {
    PickStage = 0;
    FinishNodeMove(at.x, at.y, main.scr(), main);
    HidePol(main);
}

void MoveOverTakable(MainWindow &main, Pointer at) {
    PickNode(at.x, at.y);
    ShowBeside(main, SeciliNo > 0 ? NodeNote() : "Nokta secin", at);
}

// The note is the bare text: its numbers are not filled in, wanted.
void MoveTakenNode(MainWindow &main, Pointer at) {
    for (int i = 1; i <= NeighbourNodeCount; ++i) {
        LineEnds ends = main.window.Line(Pol(i));
        ends.x1 = at.x;
        ends.y1 = at.y;
        main.window.SetLine(Pol(i), ends);
    }
    ShowBeside(main, "X=,Y=", at);
}

void HidePol(MainWindow &main) {
    for (int i = 0; i <= kPolLast; ++i)
        main.window.Show(Pol(i), false);
}

} // namespace havuz
