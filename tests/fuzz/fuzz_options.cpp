// The files that a start reads, in a program directory of the fuzzer's own.
#include "fuzz/fuzz.h"
#include "model/failure.h"
#include "model/options.h"
#include "model/startup.h"
#include "model/store.h"
#include "model/working_directory.h"

#include <array>
#include <fstream>

namespace havuz::fuzz {

static std::string BytesOf(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A start that fails names a file; one that does not has the two tables and a working directory.
void OptionFiles(const std::uint8_t *data, std::size_t size) {
    static constexpr std::array files = {"VEKCARD.OPS", "DIMS.OPS",         "VEK9.COD",
                                         "ROMANS.FON",  "VEK9DATA/WORKING", "WORKING.DIR"};
    if (size == 0)
        return;
    const std::string path = Sandbox() + "/program/" + files[data[0] % files.size()];
    const bool given = std::ifstream(path).good();
    const std::string before = BytesOf(path);
    std::ofstream(path, std::ios::binary) << std::string(reinterpret_cast<const char *>(data) + 1, size - 1);
    ResetStore();
    ResetOptions();
    try {
        StartModel(Sandbox() + "/program/havuz");
        if (CalismaDizini.empty() || ProgramDizini.empty())
            Broken("a start without its directories");
    } catch (const RuntimeFailure &) {}
    if (given)
        std::ofstream(path, std::ios::binary) << before;
    else
        std::remove(path.c_str());
}

} // namespace havuz::fuzz
