// The pointer on the drawing surface: one row an armed command and stage, with what a press, a move and the
// right-button release do in it. Positions are pixels of SCR.
#pragma once

#include "ui/window/workbench.h"

#include <span>

namespace havuz {

struct Pointer {
    bool left = false; // the left button is down
    double x = 0.0, y = 0.0;
};

constexpr int kAnyStage = -9;

struct ArmedRow {
    int state;        // CommandState
    int stage;        // PickStage, or kAnyStage
    const char *name; // in the prompt of a failure and in the steps of undo
    bool dragEdits;   // a move with the left button held changes the model
    void (*press)(Workbench &bench, Pointer at);
    void (*move)(Workbench &bench, Pointer at);
    void (*release)(Workbench &bench); // before the command ends
};

std::span<const ArmedRow> ArmedCommands();

// What the pointer does now, in the words of the table; and whether its moves change the model.
std::string ArmedName();
bool MovesEdit(int buttonsHeld);

void OnSurfacePress(Workbench &bench, int button, int shift, double x, double y);
void OnSurfaceMove(Workbench &bench, int button, int shift, double x, double y);
void OnSurfaceRelease(Workbench &bench, int button, int shift, double x, double y);

// Ends whatever is armed, as the right button does: CommandState 0, Check1 (0..4) and Check2 (0..7) off, CancelPending.
void DisarmCommand(Workbench &bench);

// The same for a command that failed: nothing of it stays in sight.
void AbandonCommand(Workbench &bench);

} // namespace havuz
