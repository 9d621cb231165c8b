// The maker of pictures for test programs that hold the script player: linked, not loaded.
#include "app/pictures.h"

namespace havuz {

extern "C" const PictureMaker *HavuzPictureMaker();

const PictureMaker &Pictures() { return *HavuzPictureMaker(); }

} // namespace havuz
