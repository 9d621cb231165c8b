// What stands under the pointer of a result picture, in words: node or mesh, place, the value shown, and the values of
// all cases and combinations there.
#pragma once

#include "report/picture_results.h"

#include <QString>

namespace havuz {

struct ProbePlace {
    SceneHit hit;
    int corner = 0; // 1 to 4: the pointer is at this corner of the mesh; 0: inside
};

// quantity: nullptr where the picture shows none (steel). files: the values are those of .DEP and .SON; what cannot be
// read there is said. HTML.
QString ProbeWords(const TankAnswer &answer, const ResultScene &scene, const ProbePlace &place,
                   const Quantity *quantity, bool files);

} // namespace havuz
