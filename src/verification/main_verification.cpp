// havuz_verification: makes the verification manual, or says whether a page is still what the program computes.
//   havuz_verification DOCS PROJECTS           DOCS/verification.md and DOCS/pictures/verification/*.svg at all widths,
//                                              and the program's figures in DOCS/ornekler.md and DOCS/ornek-*.md
//   havuz_verification --check DOCS PROJECTS   computes the coarse widths and compares them with these pages
//   havuz_verification --case KEY PROJECTS     one case at all widths, on standard output; KEY as its pictures are
//   named
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

bool IsSound(const Page &page) {
    for (const std::string &words : page.faults)
        std::cerr << "havuz_verification: " << words << "\n";
    return page.faults.empty();
}

int Make(const std::string &docs, const std::string &projects) {
    const SamplePages samples = FillSamples(ReadSamplePages(docs), projects); // fails in a folder that is not docs/
    const Page page = MakePage(AllChapters(projects), Depth::Whole);
    const std::string pictures = docs + "/pictures/verification";
    fs::remove_all(pictures);
    fs::create_directories(pictures);
    for (const auto &[name, svg] : page.pictures)
        WriteWholeFile(pictures + "/" + name, svg);
    WriteWholeFile(docs + "/verification.md", page.markdown);
    for (const auto &[name, text] : samples)
        WriteWholeFile(docs + "/" + name, text);
    return IsSound(page) ? 0 : 1;
}

// Says where a page is old.
bool IsCurrent(const std::string &page, const std::string &difference) {
    if (!difference.empty())
        std::cerr << "havuz_verification: " << page << " is old; docs/make-verification makes it anew\n"
                  << difference << "\n";
    return difference.empty();
}

int Check(const std::string &docs, const std::string &projects) {
    const std::string manual = docs + "/verification.md";
    const SamplePages samples = ReadSamplePages(docs);
    bool current = true;
    for (const auto &[name, text] : FillSamples(samples, projects))
        current = IsCurrent(docs + "/" + name, FirstDifference(text, samples.at(name))) && current;
    const Page page = MakePage(AllChapters(projects), Depth::Coarse);
    current = IsCurrent(manual, FirstDifference(page.markdown, TextOf(manual))) && current;
    return IsSound(page) && current ? 0 : 1;
}

// The figures of one case, while it is worked at.
int Show(const std::string &key, const std::string &projects) {
    for (const Chapter &chapter : AllChapters(projects))
        for (const Example &e : chapter.examples)
            if (e.key == key) {
                const Page page = MakePage({{chapter.title, "", {e}}}, Depth::Whole);
                std::cout << page.markdown.substr(page.markdown.find("### "));
                return IsSound(page) ? 0 : 1;
            }
    throw std::runtime_error("no case " + key);
}

} // namespace

} // namespace havuz::verification

int main(int count, char **words) {
    using namespace havuz::verification;
    const std::vector<std::string> word(words + 1, words + count);
    try {
        if (word.size() == 3 && word[0] == "--check")
            return Check(word[1], word[2]);
        if (word.size() == 3 && word[0] == "--case")
            return Show(word[1], word[2]);
        if (word.size() == 2)
            return Make(word[0], word[1]);
    } catch (const std::exception &failure) {
        std::cerr << "havuz_verification: " << failure.what() << "\n";
        return 1;
    }
    std::cerr << "usage: havuz_verification [--check] DOCS PROJECTS | --case KEY PROJECTS\n";
    return 2;
}
