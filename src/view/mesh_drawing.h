// The mesh view: shell meshes, nodes, numbers, supports, loads or displacements.
#pragma once

#include "view/surface.h"
#include "view/view_window.h"

namespace havuz {

// Draws the mesh view and makes it the current one. Writes Derinlik and Sira of the meshes in the rotated view.
void DrawMeshView(Surface &scr, ViewWindow &window);

// The first mesh that is left out since it cannot be drawn (pick.h), 0 for none.
int FirstUndrawnMesh();

// Outlines of all meshes, also those off, with no fill and no sort: what a drag can draw often enough.
void QuickMeshOutline(Surface &scr);

} // namespace havuz
