// A tank with meshes of half the width: what the tables of the store have no room for. Metres.
#pragma once

#include "consistent/tank.h"

namespace havuz::verification {

// Each mesh as four. New nodes stand in the middle of sides and of meshes, of a circular tank half way around and half
// way out; they are held as both ends of their side are. Loads of nodes stay where they were.
consistent::Tank Halved(const consistent::Tank &coarse);

} // namespace havuz::verification
