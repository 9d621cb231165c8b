// How fluid the window is: a person turns the fullest model with the mouse on an X display. The mesh view draws
// outlines while the button is held. Each frame is timed from the moment the X server is told of the motion to the end
// of the painting; the full drawing, which a frame would be without outlines, stands beside it in the same run. Runs
// under tests/window/with_display.
#include "full_model.h"
#include "window_desk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <vector>

namespace havuz {

namespace {

constexpr int kFrames = 200;

struct Times {
    std::vector<double> ms;
    double at(double part) {
        std::sort(ms.begin(), ms.end());
        return ms[static_cast<std::size_t>(part * static_cast<double>(ms.size() - 1))];
    }
};

// Frames of a drag to and fro over the surface.
Times Drag(WindowDesk &desk) {
    desk.press(400, 300);
    Times times;
    for (int i = 0; i < kFrames; ++i) {
        QElapsedTimer clock;
        clock.start();
        desk.move(403 + 3 * (i % 40), 301 + (i % 20)); // serves the painting too
        times.ms.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    desk.release(520, 320);
    return times;
}

Times FullDrawings(WindowDesk &desk) {
    Times times;
    for (int i = 0; i < 20; ++i) {
        ViewAngleB = ViewAngleB + 0.01;
        QElapsedTimer clock;
        clock.start();
        desk.main.RedrawView();
        desk.window.widget(kScr)->repaint();
        times.ms.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return times;
}

void Report(const char *what, Times frames, Times full) {
    std::printf(
        "%-22s frame: median %6.2f ms, 95%% %6.2f ms, worst %6.2f ms; full drawing: median %6.2f ms, ratio %.2f\n",
        what, frames.at(0.5), frames.at(0.95), frames.at(1.0), full.at(0.5), frames.at(0.5) / full.at(0.5));
}

void Measure() {
    WindowDesk desk;
    MakeFullModel();
    desk.main.TakeRotated();
    desk.main.ComputeExtents();
    desk.main.DrawMeshView();
    std::printf("%d meshes, %d nodes, surface %d x %d\n", MeshCount, NoktaCount, desk.main.scr().width(),
                desk.main.scr().height());
    Report("mesh view", Drag(desk), FullDrawings(desk));
}

} // namespace

} // namespace havuz

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    havuz::Measure();
    return 0;
}
