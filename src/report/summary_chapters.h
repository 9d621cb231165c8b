// Weight and volume of liquid by the outer sizes of the tank, and the places that the mesh report names.
#pragma once

#include "report/chapters.h"

namespace havuz::report {

// The sums of the cases G and L beside the same from the sizes of the panels: length times height or width, of a round
// floor pi r^2, of a plate its corners (model store). Panels that are neither are counted by their meshes, which is
// said.
void WeightChapter(Html &html, const Source &s);

// Nothing for a mesh without a fault.
void MeshChapter(Html &html, const Source &s);

} // namespace havuz::report
