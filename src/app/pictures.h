// The maker of pictures and pages of havuz-cli.
#pragma once

#include "view/picture_maker.h"

namespace havuz {

// Loaded with all its libraries when it is first asked for: most commands make no picture and start in a third of the
// time. A library that is missing or does not load is File.
const PictureMaker &Pictures();

} // namespace havuz
