// How fluid the window is: a person turns the fullest model with the mouse on an X display. The mesh view draws
// outlines while the button is held. Each frame is timed from the moment the X server is told of the motion to the end
// of the painting; the full drawing, which a frame would be without outlines, stands beside it in the same run. Then
// steps that change every node and mesh are taken back and made again by Ctrl+Z and Ctrl+Shift+Z, timed in the same
// way, and without the keys and the painting. Runs under tests/window/with_display.
#include "full_model.h"
#include "ui/window/transactions.h"
#include "window_desk.h"
#include "x_hand.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
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

constexpr int kSteps = 30;

void MakeSteps(WindowDesk &desk) {
    desk.main.steps().begin();
    for (int k = 1; k <= kSteps; ++k)
        desk.main.steps().edit(kAutoMeshTool, [k] {
            for (int i = 1; i <= NoktaCount; ++i)
                NoktaTable[i].Z = NoktaTable[i].Z + 0.001 * k * (i % 7);
            for (int i = 1; i <= MeshCount; ++i)
                MeshTable[i].Kalinlik = k;
        });
}

// Ctrl+Z, with shift Ctrl+Shift+Z.
Times Cross(WindowDesk &desk, bool shift) {
    Times times;
    for (int i = 0; i < kSteps; ++i) {
        const std::size_t before = desk.acts().size();
        QElapsedTimer clock;
        clock.start();
        hand::Key("z", true, shift);
        if (!desk.waitFor([&] { return desk.acts().size() > before; }))
            std::printf("a key was not heard\n");
        QApplication::processEvents(); // the painting
        times.ms.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return times;
}

Times CrossAlone(const std::function<void()> &step) {
    Times times;
    for (int i = 0; i < kSteps; ++i) {
        QElapsedTimer clock;
        clock.start();
        step();
        times.ms.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        QApplication::processEvents();
    }
    return times;
}

void ReportSteps(const char *what, Times by, Times alone) {
    std::printf("%-22s key to painting: median %6.2f ms, worst %6.2f ms; alone: median %6.2f ms, worst %6.2f ms\n",
                what, by.at(0.5), by.at(1.0), alone.at(0.5), alone.at(1.0));
}

void MeasureSteps(WindowDesk &desk) {
    MakeSteps(desk);
    Transactions &steps = desk.main.steps();
    const Times back = Cross(desk, false), again = Cross(desk, true);
    const Times backAlone = CrossAlone([&] { steps.undo(); }), againAlone = CrossAlone([&] { steps.redo(); });
    std::printf("%d steps that change every node and mesh\n", kSteps);
    ReportSteps("undo", back, backAlone);
    ReportSteps("redo", again, againAlone);
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
    MeasureSteps(desk);
}

} // namespace

} // namespace havuz

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    havuz::Measure();
    return 0;
}
