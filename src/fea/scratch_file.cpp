#include "fea/scratch_file.h"

#include "model/failure.h"
#include "model/platform.h"
#include "model/temporary_files.h"

#include <cerrno>

namespace havuz {

std::unique_ptr<RecordFile> OpenScratchFile() {
    const SignalDelay delay;
    const std::string folder = platform::TemporaryDirectory();
    const std::string own = platform::MakePrivateDirectory(folder);
    if (own.empty())
        FailFile(Fault::CannotCreateScratch, folder, errno);
    const std::string path = own + "/STIF001";
    std::unique_ptr<RecordFile> records;
    try {
        records = std::make_unique<RecordFile>(path, sizeof(ElementRecord));
    } catch (const RuntimeFailure &) {
        platform::RemoveDirectory(own);
        throw;
    }
    platform::Remove(path.c_str());
    platform::RemoveDirectory(own);
    return records;
}

} // namespace havuz
