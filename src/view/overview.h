// Window zoom and dynamic zoom of the mesh view. The overview window shows a one-fifth picture of the surface and a
// rectangle that the pointer places and sizes; positions inside it are in pixels of its picture.
#pragma once

#include "view/surface.h"
#include "view/view_window.h"

namespace havuz {

// Window zoom: shows the rectangle of the mesh view from (left, top), width * height pixels, as large as it fits, and
// draws the current view under that transform. Zero width or height is DivisionByZero.
void ZoomWindow(double left, double top, double width, double height, Surface &scr, ViewWindow &window);

void RefreshOverview(ViewWindow &window);

void OpenOverview(ViewWindow &window);         // a click on SCR1: mesh view only
void OnOverviewDeactivate(ViewWindow &window); // the overview window is active no more

void OnOverviewPress(int button, double x, double y, Surface &scr, ViewWindow &window);
void OnOverviewMove(double x, double y, ViewWindow &window);
void OnOverviewRelease(int button);

} // namespace havuz
