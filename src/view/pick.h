// What lies under the pointer in the mesh view. Positions in pixels under the mesh transform.
#pragma once

#include <array>
#include <string>

namespace havuz {

// SeciliNo becomes the first node, in rising order, less than 7 pixels from (x, y) in both axes, or 0. The first hit
// wins, not the nearest: wanted. AnchorX, AnchorY take the pixel position of a hit.
void PickNode(double x, double y);

// SeciliNo becomes the first mesh whose outline encloses (x, y), on or off, or 0; text its note, or empty.
void PickMesh(double x, double y, std::string &text);

// The four corners of a mesh.
std::array<int, 4> MeshNodes(int mesh);

} // namespace havuz
