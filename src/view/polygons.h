// Filled polygons over the first pairs of PointBuffer. Each leaves the pen as plain drawing wants it: no fill, black,
// solid line.
#pragma once

#include "view/projection.h"
#include "view/surface.h"

namespace havuz {

// Puts a position into PointBuffer(k). More than 200 pairs is Subscript.
void PutPoint(int k, ScreenPoint p);

// edge and fill are QB colours; edge 11 is drawn dotted.
void FillPolygon(Surface &scr, int count, int edge, int fill);

// With hatch above 0 a second polygon over it, dark blue in the fill style of that number.
void FillPolygonHatched(Surface &scr, int count, int edge, int fill, int hatch);

// The line between two positions, in a QB colour.
void DrawSide(Surface &scr, ScreenPoint from, ScreenPoint to, int colour);

} // namespace havuz
