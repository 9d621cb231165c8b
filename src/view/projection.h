// From model points to pixels: the one 3D projection, and the plan and rotated mappings of the two views. Model lengths
// in m, angles in radians. Positions stay double until they are handed to a surface.
#pragma once

#include "model/arithmetic.h"
#include "view/surface.h"

namespace havuz {

struct ScreenPoint {
    double x = 0.0, y = 0.0; // pixels
};

inline ScreenPoint operator+(ScreenPoint p, Pixel by) { return {p.x + by.x, p.y + by.y}; }

// A model point on the view plane, under ViewAngleA, ViewAngleB, ViewAngleC and ViewDistance. A point in the plane of
// the eye is DivisionByZero.
void ProjectToView(double x, double y, double z, double &sx, double &sy);

// The same with the distance before the eye, m: what is farther away has more of it.
void ProjectToView(double x, double y, double z, double &sx, double &sy, double &depth);

// Mesh view pixels of a node in the rotated view, with its support code. With DeformScale above 0 the displacements of
// ActiveLoadCase are added to the node's position.
void NodeToScreen(int node, double &px, double &py, int &support);

bool RotatedView(); // IsoView above 0

// Mesh view and plate view pixels of a model point: projected in the rotated view, of X and Y alone in plan.
ScreenPoint MeshScreen(double x, double y, double z);
ScreenPoint PlateScreen(double x, double y, double z);

// Mesh view pixels of a node: NodeToScreen in the rotated view, of X and Y alone in plan.
ScreenPoint NodePixels(int node);

// What a surface takes: the nearest whole pixel, ties to even, as a store into a 32-bit integer. A position that does
// not fit is Overflow.
inline int ToPixel(double v) { return RoundToWhole32(v); }
inline Pixel ToPixel(ScreenPoint p) { return {ToPixel(p.x), ToPixel(p.y)}; }

} // namespace havuz
