// A desk to work at: a program folder, a headless window, the main window started in it. Positions in the plate view
// are given in metres where it helps.
#pragma once

#include "program_folder.h"
#include "recording_surface.h"
#include "ui/window/command_state.h"
#include "ui/window/headless_window.h"
#include "ui/window/main_window.h"
#include "ui/window/model_state.h"
#include "view/projection.h"

#include <functional>
#include <string>

namespace havuz {

// The model as it is.
inline ModelState Now() {
    ModelState state;
    state.take();
    return state;
}

struct Desk {
    explicit Desk(const std::function<void(const ProgramFolder &)> &prepare = {}, const std::string &project = "") {
        if (prepare)
            prepare(program);
        main.Start(project.empty() ? "" : program.file(project));
    }

    ProgramFolder program;
    RecordingSurface scr{605, 455};
    HeadlessWindow window{scr};
    MainWindow main{window, HAVUZ_CLI};

    std::string prompt() { return window.Text(kAltnot); }
    std::string note() { return window.Shown(kLabel1) ? window.Text(kLabel1) : "hidden"; }
    bool click(Element element) { return window.Click(element); }

    // The pointer over SCR, in pixels.
    void press(ScreenPoint p) { window.PressAt(kScr, kLeftButton, p.x, p.y); }
    void move(ScreenPoint p) { window.MoveTo(kScr, 0, p.x, p.y); }
    void drag(ScreenPoint p) { window.MoveTo(kScr, kLeftButton, p.x, p.y); }
    void cancel() { window.ReleaseAt(kScr, kRightButton, 0, 0); }

    // Where a model point lies in the plate view.
    static ScreenPoint at(double x, double y, double z = 0.0) { return PlateScreen(x, y, z); }
};

// Status of the end that the job comes to, -1 without one.
inline int EndStatus(const std::function<void()> &job) {
    try {
        job();
    } catch (const ProgramEnd &end) {
        return end.status;
    }
    return -1;
}

} // namespace havuz
