#include "fea/scratch_file.h"

#include "model/failure.h"
#include "model/temporary_files.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace havuz {

std::unique_ptr<RecordFile> OpenScratchFile() {
    const SignalDelay delay;
    const char *wanted = std::getenv("TMPDIR");
    const std::string folder = wanted != nullptr && *wanted != '\0' ? wanted : "/tmp";
    std::string own = folder + "/havuz-XXXXXX";
    if (mkdtemp(own.data()) == nullptr)
        FailFile(Fault::CannotCreateScratch, folder, errno);
    const std::string path = own + "/STIF001";
    std::unique_ptr<RecordFile> records;
    try {
        records = std::make_unique<RecordFile>(path, sizeof(ElementRecord));
    } catch (const RuntimeFailure &) {
        rmdir(own.c_str());
        throw;
    }
    unlink(path.c_str());
    rmdir(own.c_str());
    return records;
}

} // namespace havuz
