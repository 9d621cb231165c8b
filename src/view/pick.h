// What lies under the pointer in the mesh view. Positions in pixels under the mesh transform.
#pragma once

#include "view/projection.h"

#include <array>
#include <span>
#include <string>

namespace havuz {

// SeciliNo becomes the first node, in rising order, less than 7 pixels from (x, y) in both axes, or 0. The first hit
// wins, not the nearest: wanted. AnchorX, AnchorY take the pixel position of a hit.
void PickNode(double x, double y);

// SeciliNo becomes the first mesh whose outline encloses (x, y), on or off, or 0; text its note, or empty.
void PickMesh(double x, double y, std::string &text);

// Whether (x, y) lies between the first two crossings of the vertical line through x with a ring, whose first point
// comes again at its end: the distances to both exceed the distance between them by less than slack, pixels.
bool RingEncloses(std::span<const ScreenPoint> ring, double x, double y, double slack);

// The four corners of a mesh.
std::array<int, 4> MeshNodes(int mesh);

// Whether each corner is a node of the model and the owner one that can be: what is not so is neither drawn nor picked.
bool Drawable(int mesh);

} // namespace havuz
