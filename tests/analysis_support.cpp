#include "analysis_support.h"

#include "fea/analysis.h"
#include "fea/system.h"
#include "model/store.h"

#include <cmath>

namespace havuz {

void RunInto(const TemporaryFolder &folder, RunWindow &window) {
    ResetSystem();
    try {
        AnalysisRun({folder.file("A"), folder.file("WORKPOOL"), "report"}, window);
    } catch (const ProgramEnd &) { // the end of a run that went well
    }
}

RunResults RunModel() {
    const TemporaryFolder folder;
    RunWindow window;
    RunInto(folder, window);
    RunResults results;
    const RecordFile dep(folder.file("A.DEP"), sizeof(DepRecord), RecordFile::ReadOnly);
    const RecordFile son(folder.file("A.SON"), sizeof(SonRecord), RecordFile::ReadOnly);
    results.dep.resize(static_cast<std::size_t>(NoktaCount) + 1);
    results.son.resize(static_cast<std::size_t>(MeshCount) + 1);
    for (int i = 1; i <= NoktaCount; ++i)
        dep.GetRecord(results.dep[static_cast<std::size_t>(i)], i);
    for (int i = 1; i <= MeshCount; ++i)
        son.GetRecord(results.son[static_cast<std::size_t>(i)], i);
    return results;
}

int NodeAt(double x, double y, double z) {
    for (int i = 1; i <= NoktaCount; ++i) {
        const NoktaRecord &n = NoktaTable[i];
        if (std::fabs(n.X - x) + std::fabs(n.Y - y) + std::fabs(n.Z - z) < 0.001)
            return i;
    }
    return 0;
}

} // namespace havuz
