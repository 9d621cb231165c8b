#include "fea/system.h"

#include "model/failure.h"
#include "model/store.h"

#include <algorithm>
#include <cfloat>

namespace havuz {

static_assert(FLT_EVAL_METHOD == 0, "every operation must round to its own width");

int EquationCount, ProfileSize, RhsSize, ElementSwitch;
std::int32_t ProfileDiag[kLargestEquation + 2];
float S[kSCapacity + 1];
float Rhs[kRhsCapacity + 1];
Row<double, 16> VerticalLoad;

void ResetSystem() {
    std::fill_n(S, std::clamp(ProfileSize, 0, kSCapacity) + 1, 0.0F);
    std::fill(std::begin(Rhs), std::end(Rhs), 0.0F);
    std::fill(std::begin(ProfileDiag), std::end(ProfileDiag), 0);
    VerticalLoad = {};
    EquationCount = ProfileSize = RhsSize = ElementSwitch = 0;
}

int RhsIndex(int e, int c) { return YukSayisi * (e - 1) + c; }

// What does not fit, in words; empty when all does.
static std::string Overrun() {
    const std::string n = std::to_string(EquationCount) + " equations";
    if (EquationCount + 1 > kEquationCapacity)
        return n + ": ProfileDiag ends at " + std::to_string(kEquationCapacity);
    if (ProfileSize > kSCapacity)
        return n + " with a profile of " + std::to_string(ProfileSize) + " cells: S ends at " +
               std::to_string(kSCapacity);
    if (YukSayisi * (EquationCount + 1) > kRhsCapacity)
        return n + " with " + std::to_string(YukSayisi) + " load columns: Rhs ends at " + std::to_string(kRhsCapacity);
    return "";
}

void CheckSystemSizes() {
    if (const std::string words = Overrun(); !words.empty())
        throw RuntimeFailure(Subscript, words);
}

bool SystemFits() { return Overrun().empty(); }

} // namespace havuz
