#include "verification/literal_run.h"

#include "app/scratch_folder.h"
#include "consistent/run_model.h"
#include "consistent/stress_axes.h"
#include "fea/analysis.h"
#include "fea/equations.h"
#include "fea/record_file.h"
#include "fea/system.h"
#include "model/mesh_facts.h"
#include "model/result_records.h"
#include "model/springs.h"
#include "model/store.h"
#include "verification/pools.h"

#include <algorithm>
#include <stdexcept>

namespace havuz::verification {

using namespace consistent;

namespace {

void ReadNodes(const std::string &file, std::vector<CaseResult> &columns) {
    const RecordFile dep(file, sizeof(DepRecord), RecordFile::ReadOnly);
    for (int n = 1; n <= NoktaCount; ++n) {
        DepRecord record{};
        dep.GetRecord(record, n);
        for (std::size_t c = 0; c < columns.size(); ++c)
            for (std::size_t d = 0; d < 6; ++d)
                columns[c].nodes[static_cast<std::size_t>(n)].u[d] = record[6 * c + d];
    }
}

void ReadMeshes(const std::string &file, const Tank &tank, std::vector<CaseResult> &columns) {
    const RecordFile son(file, sizeof(SonRecord), RecordFile::ReadOnly);
    const std::vector<AxesOfMesh> axes = StressAxes(tank, FindWallSides(tank));
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        SonRecord record{};
        son.GetRecord(record, tank.meshes[i].mesh);
        for (std::size_t c = 0; c < columns.size(); ++c)
            for (std::size_t k = 0; k < 4; ++k) {
                const std::size_t at = 24 * c + 6 * k;
                const auto [m11, m22] =
                    RunMoments(tank, i, record[at + 3], record[at + 4], record[at + 5], axes[i][k + 1]);
                columns[c].meshes[i][k + 1].M11 = m11;
                columns[c].meshes[i][k + 1].M22 = m22;
            }
    }
}

void PutNodes(const Tank &tank, const std::vector<Vector3> &forces) {
    NoktaCount = static_cast<int>(tank.nodes.size()) - 1;
    for (int n = 1; n <= NoktaCount; ++n) {
        const TankNode &from = tank.nodes[static_cast<std::size_t>(n)];
        if ((from.held & ~7) != 0)
            throw std::logic_error("a project holds no single directions");
        NoktaRecord &node = NoktaTable[n];
        node = NoktaRecord{};
        node.X = from.at.x;
        node.Y = from.at.y;
        node.Z = from.at.z;
        node.Mesnet = from.held;
        const Vector3 &f = forces[static_cast<std::size_t>(n)];
        NokYukTable[n].Nokta = n;
        NokYukTable[n].FX = -f.x;
        NokYukTable[n].FY = -f.y;
        NokYukTable[n].FZ = -f.z;
    }
}

void PutMeshes(const Tank &tank) {
    for (const TankMesh &from : tank.meshes) {
        MeshRecord &mesh = MeshTable[from.mesh];
        mesh = MeshRecord{};
        PutCorners(mesh, from.node[0], from.node[1], from.node[2], from.node[3]);
        mesh.PanelNo = from.panel;
        MeshCount = std::max(MeshCount, from.mesh);
    }
    for (const auto &[number, from] : tank.panels) {
        PanelRecord &panel = PanelTable[number];
        panel = PanelRecord{};
        panel.No = number;
        panel.Tip = from.kind;
        panel.D = 100.0 * from.thickness;
        PanelCount = std::max(PanelCount, number);
    }
}

} // namespace

std::vector<CaseResult> RunStore(const Tank &tank) {
    const ScratchFolder folder;
    ResetSystem();
    AnalysisWindow quiet;
    try {
        AnalysisRun({folder.path() + "/P", folder.path() + "/WORKPOOL", ""}, quiet);
    } catch (const ProgramEnd &) { // the end of a run that went well
    }
    std::vector<CaseResult> columns(ColumnCodes().size());
    for (CaseResult &column : columns) {
        column.nodes.resize(tank.nodes.size());
        column.meshes.resize(tank.meshes.size());
    }
    ReadNodes(folder.path() + "/P.DEP", columns);
    ReadMeshes(folder.path() + "/P.SON", tank, columns);
    return columns;
}

std::size_t PlaceOfColumn(const std::vector<int> &codes, int code) {
    const auto found = std::find(codes.begin(), codes.end(), code);
    if (found == codes.end())
        throw std::runtime_error("the run has no column of code " + std::to_string(code));
    return static_cast<std::size_t>(found - codes.begin());
}

CaseResult RunLiteral(const Tank &tank, const std::vector<Vector3> &forces) {
    FreshModel();
    for (int i = 0; i <= kYukDurumLast; ++i)
        YukDurum[i] = 0.0;
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        YukKombinasyon[i] = 0.0;
    ZeminKo = tank.bedding;
    if (tank.E != ConcreteE(Fck) || tank.poisson != PoissonRatio)
        throw std::logic_error("a project has no such concrete");
    PutNodes(tank, forces);
    PutMeshes(tank);
    SpringStiffness();
    return RunStore(tank).front();
}

} // namespace havuz::verification
