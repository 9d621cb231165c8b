#include "model/analysed_project.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/number_text.h"
#include "model/project_file.h"
#include "model/springs.h"
#include "model/store.h"

#include <vector>

namespace havuz {

namespace {

// Springs and places of all nodes, put back at the end.
class KeptNodes {
public:
    KeptNodes() {
        for (int i = 0; i <= kNoktaCapacity; ++i)
            nodes_.push_back({NoktaTable[i].X, NoktaTable[i].Y, NoktaTable[i].Yay});
    }
    ~KeptNodes() {
        for (int i = 0; i <= kNoktaCapacity; ++i) {
            const Node &node = nodes_[static_cast<std::size_t>(i)];
            NoktaTable[i].X = node.x;
            NoktaTable[i].Y = node.y;
            NoktaTable[i].Yay = node.spring;
        }
    }
    KeptNodes(const KeptNodes &) = delete;
    KeptNodes &operator=(const KeptNodes &) = delete;

private:
    struct Node {
        Float32 x, y, spring;
    };
    std::vector<Node> nodes_;
};

Float32 AsRead(Float32 value) { return Float32(ParseNumber(NumberText(value))); }

} // namespace

// A project file may hold springs of another subgrade; the analysis makes its own. They are those of the places that
// the file has, of seven digits: a model that was made and never read would else be another one than its own file.
std::string AnalysedText() {
    const KeptNodes kept;
    for (int i = 1; i <= NoktaCount; ++i) {
        NoktaTable[i].X = AsRead(NoktaTable[i].X);
        NoktaTable[i].Y = AsRead(NoktaTable[i].Y);
    }
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
