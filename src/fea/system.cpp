// The equation system: storage and its bounds. S and Rhs are 32-bit cells, numbered from 1; cell 0 takes what nobody
// reads. Bounds: 19,999 equations, 10,000,000 cells of the profile, 150,000 of the right-hand sides, where one equation
// more than there are counts, since back substitution looks one cell past the last.
// S takes 40 MB, Rhs 0.6 MB, ProfileDiag 0.1 MB, whatever the model: they lie in the program's zeroed memory, of which
// the system hands out pages when they are touched, so a small run costs little. A row of mean length w and N equations
// fill N*w cells: 10,000 equations go with a mean length of 1000.
#include "fea/system.h"

#include "model/failure.h"
#include "model/platform.h"
#include "model/store.h"

#include <algorithm>
#include <cfloat>
#include <optional>

namespace havuz {

static_assert(FLT_EVAL_METHOD == 0, "every operation must round to its own width");

int EquationCount, ProfileSize, RhsSize, ElementSwitch;
std::int32_t ProfileDiag[kLargestEquation + 2];
float S[kSCapacity + 1];
float Rhs[kRhsCapacity + 1];
Row<double, 16> VerticalLoad;

// Only what the last run used of S: clearing all 40 MB would be felt in every test.
void ResetSystem() {
    std::fill_n(S, std::clamp(ProfileSize, 0, kSCapacity) + 1, 0.0F);
    std::fill(std::begin(Rhs), std::end(Rhs), 0.0F);
    std::fill(std::begin(ProfileDiag), std::end(ProfileDiag), 0);
    VerticalLoad = {};
    EquationCount = ProfileSize = RhsSize = ElementSwitch = 0;
}

// Pages of 2 MB for the part of S that fills them: the first touch of a large profile takes a tenth of the time. Where
// the system has none nothing is lost.
static void AskForLargePages() {
    constexpr std::uintptr_t kPage = 2U << 20;
    const auto address = [](const float *cell) { return reinterpret_cast<std::uintptr_t>(cell); };
    const std::uintptr_t from = (address(S) + kPage - 1) / kPage * kPage;
    const std::uintptr_t to = address(S + ProfileSize + 1) / kPage * kPage;
    if (from < to)
        platform::AskForLargePages(reinterpret_cast<void *>(from), to - from);
}

void ClearSystem() {
    AskForLargePages();
    std::fill_n(S + 1, ProfileSize, 0.0F);
    std::fill_n(Rhs + 1, RhsSize, 0.0F);
}

int RhsIndex(int e, int c) { return YukSayisi * (e - 1) + c; }

// What does not fit, nothing when all does.
static std::optional<FailureParts> Overrun() {
    const auto past = [](Fault fault, long long of, long long bound) {
        return FailureParts{.fault = fault, .number = EquationCount, .first = of, .bound = bound};
    };
    if (EquationCount + 1 > kEquationCapacity)
        return past(Fault::TooManyEquations, 0, kEquationCapacity);
    if (ProfileSize > kSCapacity)
        return past(Fault::ProfileTooLong, ProfileSize, kSCapacity);
    if (YukSayisi * (EquationCount + 1) > kRhsCapacity)
        return past(Fault::TooManyRhsCells, YukSayisi, kRhsCapacity);
    return {};
}

void CheckSystemSizes() {
    if (const auto overrun = Overrun())
        throw RuntimeFailure(*overrun);
}

bool SystemFits() { return !Overrun(); }

} // namespace havuz
