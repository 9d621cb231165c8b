// The manual as one Markdown page and its pictures. Numbers with four digits, so that
// the page is the same text wherever it is made.
#pragma once

#include "verification/example.h"

#include <map>
#include <string>
#include <vector>

namespace havuz::verification {

struct Chapter {
    std::string title, words;
    std::vector<Example> examples;
};
std::vector<Chapter> AllChapters(const std::string &projects); // folder of the sample projects

// Coarse: the first mesh and what does not hang on a mesh; every other number stands as kOpen.
enum class Depth { Coarse, Whole };
constexpr const char *kOpen = "~";

struct Page {
    std::string markdown;
    std::map<std::string, std::string> pictures; // SVG by file name; of a whole page alone
    std::vector<std::string> faults;             // differences above 2 % without a sentence, targets that moved
};
Page MakePage(const std::vector<Chapter> &chapters, Depth depth);

// The first place where a page differs from a coarse one, in words; "" when all that stands in the coarse one is there.
std::string FirstDifference(const std::string &coarse, const std::string &page);

// Four digits of what is as great as the scale: 0.00406235 of 0.0041 is "0.004062"; never "-0"; "–" for what is no
// number.
std::string Digits(double value, double scale);

} // namespace havuz::verification
