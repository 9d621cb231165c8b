// The wheel and the middle button over the drawing surface: zoom about the pointer, and pan. Both move the transform of
// the current view for a while: the next drawing that fits the view fits it again. Pixels of SCR.
#pragma once

#include "ui/window/workbench.h"

namespace havuz {

inline constexpr double kZoomStep = 1.25;                           // a step of the wheel
inline constexpr double kSmallestScale = 0.01, kLargestScale = 1e6; // pixels per m that the wheel goes to

// Zooms by kZoomStep a step, in with steps above 0; the model point under (x, y) stands still.
void ZoomAbout(Workbench &bench, int steps, double x, double y);

// Moves the picture by (dx, dy).
void PanView(Workbench &bench, double dx, double dy);

// Comes before a drawing that fits the plate view: fits a view that was moved, and takes what waits on it in pixels to
// its new place. While a command is armed the view stays as it was moved to.
void SettlePlateView(Workbench &bench);
void FitMovedViews(Workbench &bench); // the same at once, also under a command

// As long as it lives, drawings leave a view that was moved under an armed command where it is.
class StandingView {
public:
    StandingView();
    ~StandingView();
    StandingView(const StandingView &) = delete;
    StandingView &operator=(const StandingView &) = delete;

private:
    int plate_, mesh_;
};

} // namespace havuz
