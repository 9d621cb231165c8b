#include "fea/result_summary.h"

#include "fea/record_file.h"
#include "fea/system.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/mesh_facts.h"
#include "model/store.h"

#include <cmath>

namespace havuz {

std::string LoadCodeWords(int code) {
    switch (code) {
    case 0:
        return "surface and point loads";
    case 1:
        return "liquid and soil";
    case 2:
        return "liquid";
    case 3:
        return "soil";
    case 4:
        return "groundwater uplift";
    case 11:
        return "liquid, all cells";
    case 12:
        return "liquid, first chequered pattern";
    case 13:
        return "liquid, second chequered pattern";
    default:
        return "code " + std::to_string(code);
    }
}

std::string LoadCodeInTurkish(int code) {
    switch (code) {
    case 0:
        return "yüzey ve nokta yükleri";
    case 1:
        return "sıvı ve zemin";
    case 2:
        return "sıvı";
    case 3:
        return "zemin";
    case 4:
        return "yeraltı suyu";
    case 11:
        return "sıvı, bütün hücreler";
    case 12:
        return "sıvı, birinci dama düzeni";
    case 13:
        return "sıvı, ikinci dama düzeni";
    default:
        return "kod " + std::to_string(code);
    }
}

static std::vector<bool> WallNodes() {
    std::vector<bool> isWall(kNoktaCapacity + 1, false);
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        if (IsSwitchedOff(mesh) || OwnerIsPlate(mesh.PanelNo) || PanelTable[mesh.PanelNo].Tip != 1)
            continue;
        for (const int n : MeshCorners(mesh))
            isWall[static_cast<std::size_t>(n)] = true;
    }
    return isWall;
}

static void TakeGreater(NodeExtreme &extreme, double value, int node) {
    if (extreme.node == 0 || value > extreme.value)
        extreme = {value, node, 0};
}

static void AddDisplacements(std::vector<ColumnSummary> &columns, const RecordFile &dep) {
    const std::vector<bool> isWall = WallNodes();
    RecordReader<DepRecord> records(dep);
    for (int i = 1; i <= NoktaCount; ++i) {
        const DepRecord &record = records.get(i);
        for (std::size_t c = 0; c < columns.size(); ++c) {
            const double ux = record[6 * c];
            const double uy = record[6 * c + 1];
            const double uz = record[6 * c + 2];
            if (NoktaTable[i].Yay > 0.0)
                TakeGreater(columns[c].settlement, -uz, i);
            if (isWall[static_cast<std::size_t>(i)])
                TakeGreater(columns[c].wall, Distance2(ux, uy), i);
            columns[c].springForce += NoktaTable[i].Yay * -uz;
        }
    }
}

static void AddMoments(std::vector<ColumnSummary> &columns, const RecordFile &son) {
    RecordReader<SonRecord> records(son);
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        if (IsSwitchedOff(mesh))
            continue;
        const std::array<int, 4> nodes = MeshCorners(mesh);
        const SonRecord &record = records.get(i);
        for (std::size_t c = 0; c < columns.size(); ++c)
            for (std::size_t k = 0; k < 4; ++k)
                for (std::size_t r : {std::size_t{3}, std::size_t{4}}) {
                    const double value = record[24 * c + 6 * k + r];
                    NodeExtreme &extreme = r == 3 ? columns[c].mx : columns[c].my;
                    if (extreme.node == 0 || std::fabs(value) > std::fabs(extreme.value))
                        extreme = {value, nodes[k], i};
                }
    }
}

std::vector<ColumnSummary> SummariseResults(const std::string &project) {
    std::vector<ColumnSummary> columns(static_cast<std::size_t>(YukSayisi));
    for (int c = 1; c <= YukSayisi; ++c) {
        ColumnSummary &column = columns[static_cast<std::size_t>(c - 1)];
        column.code = c == 1 ? 0 : YukListesi[c];
        column.verticalLoad = VerticalLoad[c];
    }
    AddDisplacements(columns, RecordFile(project + ".DEP", sizeof(DepRecord), RecordFile::ReadOnly));
    AddMoments(columns, RecordFile(project + ".SON", sizeof(SonRecord), RecordFile::ReadOnly));
    return columns;
}

} // namespace havuz
