#include "model/working_directory.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/options.h"
#include "model/write_file.h"

#include <filesystem>

namespace havuz {

static std::string WorkingFileText(const std::string &programDirectory) {
    const std::string sample = FindFile(programDirectory + "/VEK9DATA/WORKING");
    return FileExists(sample) ? ReadWholeFile(sample) : "HAVUZ\r\n";
}

void PrepareWorkingDirectory(const std::string &executable) {
    const std::string programDirectory = FindProgramDirectory(executable);
    const std::string written = WorkingDirectoryField(programDirectory);
    const std::string directory = LocalPath(written);
    if (written.rfind('~', 0) != 0 || directory.rfind('~', 0) == 0)
        return;
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error)
        FailFile(Fault::CannotCreate, directory, error.value());
    if (!FileExists(directory + "/WORKING"))
        WriteWholeFile(directory + "/WORKING", WorkingFileText(programDirectory));
}

} // namespace havuz
