#include "fea/scratch_file.h"

#include "model/failure.h"
#include "model/platform.h"
#include "model/temporary_files.h"

#include <cerrno>

namespace havuz {

std::unique_ptr<RecordFile> OpenScratchFile() {
    const SignalDelay delay;
    const std::string folder = platform::TemporaryDirectory();
    const int channel = platform::OpenNameless(folder);
    if (channel < 0)
        FailFile(Fault::CannotCreateScratch, folder, errno);
    return std::make_unique<RecordFile>(channel, sizeof(ElementRecord), folder + "/STIF001");
}

} // namespace havuz
