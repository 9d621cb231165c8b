// havuz_fuzz: the plain driver. Mutates seeds by a seeded generator and hands them to the entry points, so that a run
// can be repeated to the byte with any compiler.
//   havuz_fuzz [--target NAME] [--inputs N] [--seed S] [FILE...]     with files: those inputs alone
//   havuz_fuzz --list                                                names of the targets
// An input that crashes or takes more than 20 s of work is left as havuz-fuzz-NAME.input in the current directory.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/time.h>
#include <unistd.h>

namespace havuz::fuzz {

namespace fs = std::filesystem;

namespace {

constexpr long kLongestRun = 20;       // s of work
constexpr unsigned kLongestWait = 300; // s, on a busy machine
constexpr std::size_t kLongestInput = 20000, kLongestSession = 3000;
constexpr long kPerSession = 10; // inputs of files that one session counts as

// For the signal handler: the input at hand and where to leave it.
const std::uint8_t *current = nullptr;
std::size_t currentSize = 0;
std::array<char, 4096> leftover{};

void LeaveInput(int signal) {
    const int channel = open(leftover.data(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (channel >= 0 && write(channel, current, currentSize) >= 0)
        close(channel);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

std::string BytesOf(const fs::path &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> SeedsOf(const Target &target) {
    std::vector<std::string> paths, seeds;
    for (const std::string &name : target.seeds)
        for (const auto &entry : fs::recursive_directory_iterator(std::string(HAVUZ_SOURCE_DIR) + "/" + name))
            if (entry.is_regular_file())
                paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    for (const std::string &path : paths)
        if (const std::string bytes = BytesOf(path); bytes.size() <= kLongestInput)
            seeds.push_back(bytes);
    if (!target.seeds.empty())
        seeds.emplace_back(512, '\0');
    return seeds;
}

class Mutator {
public:
    explicit Mutator(unsigned seed) : random_(seed) {}
    std::size_t below(std::size_t n) { return n == 0 ? 0 : random_() % n; }

    std::string from(const std::vector<std::string> &seeds) {
        if (seeds.empty())
            return bytes(below(kLongestSession));
        std::string input = seeds[below(seeds.size())];
        for (std::size_t times = 1 + below(8); times > 0; --times)
            change(input, seeds);
        input.resize(std::min(input.size(), kLongestInput));
        return input;
    }

private:
    std::string bytes(std::size_t size) {
        std::string s(size, '\0');
        for (char &c : s)
            c = static_cast<char>(random_());
        return s;
    }

    void change(std::string &s, const std::vector<std::string> &seeds) {
        static constexpr std::array words = {"0", "-1",   "32768", "1E+39", "1E-50", "nan",
                                             ",", "\r\n", "\"",    "5001",  "",      "99999999"};
        const std::size_t at = below(s.size() + 1), length = below(std::min<std::size_t>(s.size() - at, 40) + 1);
        switch (below(7)) {
        case 0:
            s.replace(at, length, "");
            break;
        case 1:
            s.insert(at, s, at, length);
            break;
        case 2:
            s.insert(at, words[below(words.size())]);
            break;
        case 3: { // a whole field
            const std::size_t end = std::min(s.find_first_of(",\r\n \t", at), s.size());
            s.replace(at, end - at, words[below(words.size())]);
            break;
        }
        case 4:
            s.resize(at);
            break;
        case 5: { // a piece of another seed
            const std::string &other = seeds[below(seeds.size())];
            const std::size_t from = below(other.size() + 1);
            s.insert(at, other, from, below(200));
            break;
        }
        default:
            for (std::size_t k = at; k < std::min(at + 1 + length / 8, s.size()); ++k)
                s[k] = static_cast<char>(random_());
        }
    }
    std::mt19937 random_;
};

void RunOne(const Target &target, const std::string &input) {
    current = reinterpret_cast<const std::uint8_t *>(input.data());
    currentSize = input.size();
    const itimerval work = {{}, {kLongestRun, 0}}, none = {};
    alarm(kLongestWait);
    setitimer(ITIMER_VIRTUAL, &work, nullptr);
    target.run(current, currentSize);
    setitimer(ITIMER_VIRTUAL, &none, nullptr);
    alarm(0);
}

struct Arguments {
    std::string target;
    long inputs = 1000;
    unsigned seed = 1;
    std::vector<std::string> files;
};

void Run(const Target &target, const Arguments &a, const std::string &folder) {
    std::snprintf(leftover.data(), leftover.size(), "%s/havuz-fuzz-%s.input", folder.c_str(), target.name);
    const auto start = std::chrono::steady_clock::now();
    long count = 0;
    if (a.files.empty()) {
        const std::vector<std::string> seeds = SeedsOf(target);
        Mutator mutator(a.seed);
        for (const std::string &seed : seeds)
            RunOne(target, seed);
        for (const long inputs = seeds.empty() ? a.inputs / kPerSession : a.inputs; count < inputs; ++count)
            RunOne(target, mutator.from(seeds));
    }
    for (const std::string &file : a.files) {
        RunOne(target, BytesOf(file));
        ++count;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    const std::string told = target.told == nullptr ? "" : ": " + target.told();
    std::printf("%-18s %8ld inputs in %.1f s%s\n", target.name, count, seconds.count(), told.c_str());
    std::fflush(stdout);
}

int ListTargets() {
    for (const Target &target : Targets())
        std::printf("%s\n", target.name);
    return 0;
}

} // namespace

} // namespace havuz::fuzz

int main(int argc, char **argv) {
    using namespace havuz::fuzz;
    Arguments a;
    for (int k = 1; k < argc; ++k) {
        const bool valued = k + 1 < argc;
        if (std::strcmp(argv[k], "--target") == 0 && valued)
            a.target = argv[++k];
        else if (std::strcmp(argv[k], "--inputs") == 0 && valued)
            a.inputs = std::atol(argv[++k]);
        else if (std::strcmp(argv[k], "--seed") == 0 && valued)
            a.seed = static_cast<unsigned>(std::atol(argv[++k]));
        else if (std::strcmp(argv[k], "--list") == 0)
            return ListTargets();
        else
            a.files.push_back(fs::absolute(argv[k]).string());
    }
    const std::string folder = fs::current_path().string();
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGALRM, SIGVTALRM})
        std::signal(signal, LeaveInput);
    Sandbox();
    for (const Target &target : Targets())
        if (a.target.empty() || a.target == target.name)
            Run(target, a, folder);
    return 0;
}
