// The summary of a run, from its result files and the model of the store: settlement -uz of nodes with a spring, wall
// displacement sqrt(ux^2 + uy^2) of nodes of walls, Mx and My of all corners by magnitude, and the balance
//   sum of spring forces, sum of Yay * -uz, against VerticalLoad of the column, which the run kept.
// The first of equal values counts. Units: m, t, t.m/m.
#include "fea/result_summary.h"

#include "fea/record_file.h"
#include "fea/system.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/load_codes.h"
#include "model/mesh_facts.h"
#include "model/store.h"

#include <cmath>

namespace havuz {

namespace {

struct CodeWords {
    int code;
    const char *english, *turkish;
};
constexpr CodeWords kCodeWords[] = {
    {0, "surface and point loads", "yüzey ve nokta yükleri"},
    {SituationCode(0), "liquid and soil", "sıvı ve zemin"},
    {SituationCode(1), "liquid", "sıvı"},
    {SituationCode(2), "soil", "zemin"},
    {SituationCode(3), "groundwater uplift", "yeraltı suyu"},
    {FillingCode(0), "liquid, all cells", "sıvı, bütün hücreler"},
    {FillingCode(1), "liquid, first chequered pattern", "sıvı, birinci dama düzeni"},
    {FillingCode(2), "liquid, second chequered pattern", "sıvı, ikinci dama düzeni"},
};

std::string WordsOf(int code, const char *CodeWords::*language, const char *other) {
    for (const CodeWords &words : kCodeWords)
        if (words.code == code)
            return words.*language;
    return other + std::to_string(code);
}

} // namespace

std::string LoadCodeWords(int code) { return WordsOf(code, &CodeWords::english, "code "); }
std::string LoadCodeInTurkish(int code) { return WordsOf(code, &CodeWords::turkish, "kod "); }

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
