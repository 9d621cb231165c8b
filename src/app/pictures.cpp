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
    const std::string name = std::string("/havuz-pictures") + platform::kLibraryEnd;
    return FileExists(folder + name) ? folder + name : folder + "/../lib/havuz/modules" + name;
}

static const PictureMaker &LoadedMaker() {
    const std::string path = LibraryPath();
    void *maker = platform::SymbolOf(path, "HavuzPictureMaker");
    if (maker == nullptr)
        FailFile(Fault::CannotOpen, path, errno);
    return *reinterpret_cast<const PictureMaker *(*)()>(maker)();
}

const PictureMaker &Pictures() {
    static const PictureMaker &maker = LoadedMaker();
    return maker;
}

} // namespace havuz
