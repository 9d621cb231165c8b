// STIF001 of one run, in a private temporary directory. No name of it is left once it is open, so that nothing stays
// behind however the run ends.
#pragma once

#include "fea/record_file.h"

#include <memory>

namespace havuz {

// In $TMPDIR, else /tmp. A directory that cannot be made there is File.
std::unique_ptr<RecordFile> OpenScratchFile();

} // namespace havuz
