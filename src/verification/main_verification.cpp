// havuz_verification: makes the verification manual, or says whether a page is still what the program computes.
//   havuz_verification DOCS PROJECTS           DOCS/verification.md and DOCS/pictures/verification/*.svg, at all
//   widths,
//                                              and the program's figures in DOCS/ornekler.md
//   havuz_verification --check DOCS PROJECTS   computes the coarse widths and compares them with both pages
// PROJECTS: folder of the sample projects. Ends with 1 when the page differs or a difference above 2 % has no sentence.
#include "model/failure.h"
#include "model/write_file.h"
#include "verification/page.h"
#include "verification/samples.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace havuz::verification {

namespace {

namespace fs = std::filesystem;

std::string TextOf(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool IsExplained(const Page &page) {
    for (const std::string &words : page.unexplained)
        std::cerr << "havuz_verification: not explained: " << words << "\n";
    return page.unexplained.empty();
}

int Make(const std::string &docs, const std::string &projects) {
    const std::string samples =
        FillSamples(TextOf(docs + "/ornekler.md"), projects); // fails in a folder that is not docs/
    const Page page = MakePage(AllChapters(projects), Depth::Whole);
    const std::string pictures = docs + "/pictures/verification";
    fs::remove_all(pictures);
    fs::create_directories(pictures);
    for (const auto &[name, svg] : page.pictures)
        WriteWholeFile(pictures + "/" + name, svg);
    WriteWholeFile(docs + "/verification.md", page.markdown);
    WriteWholeFile(docs + "/ornekler.md", samples);
    return IsExplained(page) ? 0 : 1;
}

// Says where a page is old.
bool IsCurrent(const std::string &page, const std::string &difference) {
    if (!difference.empty())
        std::cerr << "havuz_verification: " << page << " is old; docs/make-verification makes it anew\n"
                  << difference << "\n";
    return difference.empty();
}

int Check(const std::string &docs, const std::string &projects) {
    const std::string manual = docs + "/verification.md", samples = docs + "/ornekler.md", text = TextOf(samples);
    const bool current = IsCurrent(samples, FirstDifference(FillSamples(text, projects), text));
    const Page page = MakePage(AllChapters(projects), Depth::Coarse);
    const bool same = IsCurrent(manual, FirstDifference(page.markdown, TextOf(manual)));
    return IsExplained(page) && same && current ? 0 : 1;
}

} // namespace

} // namespace havuz::verification

int main(int count, char **words) {
    const std::vector<std::string> word(words + 1, words + count);
    const bool check = !word.empty() && word[0] == "--check";
    if (word.size() != (check ? 3U : 2U)) {
        std::cerr << "usage: havuz_verification [--check] DOCS PROJECTS\n";
        return 2;
    }
    try {
        return check ? havuz::verification::Check(word[1], word[2]) : havuz::verification::Make(word[0], word[1]);
    } catch (const std::exception &failure) {
        std::cerr << "havuz_verification: " << failure.what() << "\n";
        return 1;
    }
}
