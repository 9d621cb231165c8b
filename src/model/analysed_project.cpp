#include "model/analysed_project.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/project_file.h"
#include "model/springs.h"
#include "model/store.h"

#include <vector>

namespace havuz {

namespace {

// The springs of all nodes, put back at the end.
class KeptSprings {
public:
    KeptSprings() {
        for (int i = 0; i <= kNoktaCapacity; ++i)
            yay_.push_back(NoktaTable[i].Yay);
    }
    ~KeptSprings() {
        for (int i = 0; i <= kNoktaCapacity; ++i)
            NoktaTable[i].Yay = yay_[static_cast<std::size_t>(i)];
    }
    KeptSprings(const KeptSprings &) = delete;
    KeptSprings &operator=(const KeptSprings &) = delete;

private:
    std::vector<Float32> yay_;
};

} // namespace

// A project file may hold springs of another subgrade; the analysis makes its own.
std::string AnalysedText() {
    const KeptSprings kept;
    SpringStiffness();
    return ProjectText();
}

ResultState ResultsBeside(const std::string &project) {
    if (!FileExists(project + ".SON"))
        return ResultState::None;
    const std::string analysed = FindFile(project + ".HSP");
    if (!FileExists(analysed))
        return ResultState::Older;
    try {
        return ReadWholeFile(analysed) == AnalysedText() ? ResultState::Current : ResultState::Older;
    } catch (const RuntimeFailure &) { // a copy that cannot be read, a model that cannot be analysed: not of this model
        return ResultState::Older;
    }
}

} // namespace havuz
