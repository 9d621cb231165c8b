// The pointer on the drawing surface: one row an armed command and stage, with what a press, a move and the
// right-button release do in it. Positions are pixels of SCR.
#pragma once

#include "ui/window/main_window.h"

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
    void (*press)(MainWindow &main, Pointer at);
    void (*move)(MainWindow &main, Pointer at);
    void (*release)(MainWindow &main); // before the command ends
};

std::span<const ArmedRow> ArmedCommands();

void OnSurfacePress(MainWindow &main, int button, int shift, double x, double y);
void OnSurfaceMove(MainWindow &main, int button, int shift, double x, double y);
void OnSurfaceRelease(MainWindow &main, int button, int shift, double x, double y);

// Ends whatever is armed, as the right button does: CommandState 0, Check1 (0..4) and Check2 (0..7) off, CancelPending.
void DisarmCommand(MainWindow &main);

// The same for a command that failed: nothing of it stays in sight.
void AbandonCommand(MainWindow &main);

} // namespace havuz
