// libFuzzer's way in: HAVUZ_FUZZ_TARGET names one of the entry points of fuzz.h. The first input changes the current
// directory, so names of corpora are made whole before, and what breaks a rule is left where the program was started.
#include "fuzz/fuzz.h"

#include <filesystem>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    namespace fs = std::filesystem;
    static std::vector<std::string> words(*argv, *argv + *argc);
    static std::vector<char *> pointers;
    bool prefixed = false;
    for (std::size_t k = 1; k < words.size(); ++k) {
        prefixed = prefixed || words[k].rfind("-artifact_prefix=", 0) == 0;
        if (words[k].front() != '-')
            words[k] = fs::absolute(words[k]).string();
    }
    if (!prefixed)
        words.push_back("-artifact_prefix=" + fs::current_path().string() + "/");
    for (std::string &word : words)
        pointers.push_back(word.data());
    *argc = static_cast<int>(pointers.size());
    pointers.push_back(nullptr);
    *argv = pointers.data();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    havuz::fuzz::HAVUZ_FUZZ_TARGET(data, size);
    return 0;
}
