// The fitted transforms of the two views and the zooms that replace the mesh view's for a while. The model sits 30
// pixels from the left and the top, and at least 70 from the right and 20 from the bottom: room for the axis mark.
#pragma once

namespace havuz {

// Fits the plate view to the bounding record. False when there is nothing to fit: the rotated view shows no width or no
// height. PlateScale is 1 then. Under KeepPlateFit the transform stays as it is.
bool FitPlateView();

// Fits the mesh view: in plan to the bounding record, in the rotated view to the projected nodes. With 30 nodes or
// fewer the projected bounds start from those of the bounding record, so that a small model keeps the extent of its
// plates. Writes the projected part of the bounding record, the mesh transform and the home transform.
void FitMeshView();

// Mesh transform that shows the part of a picture from (left, top), of width * height pixels under the transform
// (scale, offsetX, offsetY), at the place of the fitted model. Zero width, height or scale is DivisionByZero.
void ZoomMeshView(double left, double top, double width, double height, double scale, double offsetX, double offsetY);

// Widens the projected bounds by a model point.
void WidenProjected(double x, double y, double z);

// The empty projected bounds: a model beyond them is fitted right only when it reaches back inside. Wanted.
void ClearProjected();

} // namespace havuz
