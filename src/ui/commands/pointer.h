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

// Which handlers of a row write the model. A failure in a row that edits ends the command alone.
enum class Edits { Nothing, ByPress, ByDrag };

struct ArmedRow {
    int state;        // CommandState
    int stage;        // PickStage, or kAnyStage
    const char *name; // in the prompt of a failure
    Edits edits;
    void (*press)(Workbench &bench, Pointer at);
    void (*move)(Workbench &bench, Pointer at);
    void (*release)(Workbench &bench); // before the command ends
};

std::span<const ArmedRow> ArmedCommands();

void OnSurfacePress(Workbench &bench, int button, int shift, double x, double y);
void OnSurfaceMove(Workbench &bench, int button, int shift, double x, double y);
void OnSurfaceRelease(Workbench &bench, int button, int shift, double x, double y);

// Ends whatever is armed, as the right button does: CommandState 0, Check1 (0..4) and Check2 (0..7) off, CancelPending.
void DisarmCommand(Workbench &bench);

// The same for a command that failed: nothing of it stays in sight.
void AbandonCommand(Workbench &bench);

} // namespace havuz
