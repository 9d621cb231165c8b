#include "app/pictures.h"

#include "app/project.h"
#include "model/failure.h"
#include "model/files.h"
#include "model/platform.h"

#include <cerrno>

namespace havuz {

// Beside the program, as it is built, or where it is installed.
static std::string LibraryPath() {
    const std::string program = OwnProgram();
    const std::string folder = program.substr(0, program.rfind('/'));
    const std::string beside = folder + "/havuz-pictures.so";
    return FileExists(beside) ? beside : folder + "/../lib/havuz/modules/havuz-pictures.so";
}

static const PictureMaker &LoadedMaker() {
    const std::string path = LibraryPath();
    void *maker = platform::SymbolOf(path, "HavuzPictureMaker");
    if (maker == nullptr)
        FailFile(Fault::CannotOpen, path, FileExists(path) ? ELIBACC : ENOENT);
    return *reinterpret_cast<const PictureMaker *(*)()>(maker)();
}

const PictureMaker &Pictures() {
    static const PictureMaker &maker = LoadedMaker();
    return maker;
}

} // namespace havuz
