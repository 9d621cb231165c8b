#include "ui/raporcu/extremes_table.h"

#include "design/tables.h"
#include "report/picture_results.h"

#include <map>

namespace havuz {

using consistent::CaseResult;
using design::CsvText;

namespace {

struct Extreme {
    double least = 0.0, greatest = 0.0;
    int leastMesh = 0, greatestMesh = 0;
    std::string leastKey, greatestKey;

    void take(double value, int mesh, const std::string &key) {
        if (leastMesh == 0 || value < least)
            least = value, leastMesh = mesh, leastKey = key;
        if (greatestMesh == 0 || value > greatest)
            greatest = value, greatestMesh = mesh, greatestKey = key;
    }
    bool zero() const { return least == 0.0 && greatest == 0.0; }
};

using ByPanel = std::map<int, Extreme>;

void TakeScene(const ResultScene &scene, const std::string &key, ByPanel &extremes) {
    for (const ResultFace &face : scene.faces)
        for (std::size_t k = 0; k < 4 && face.hasValue; ++k)
            extremes[face.panel].take(face.value[k], face.mesh, key);
}

bool AtNodes(const Quantity &q) { return q.key[0] == 'U' || q.key == "SOIL"; }

void TakeResult(const TankAnswer &answer, const CaseResult &r, const Quantity &q, ByPanel &extremes) {
    if (AtNodes(q)) {
        TakeScene(SceneOf(*answer.analysis, r, q, {}), r.key, extremes);
        return;
    }
    for (std::size_t i = 0; i < answer.tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4; ++k)
            extremes[answer.tank.meshes[i].panel].take(q.factor * ValueOf(q, r.meshes[i][k]),
                                                       answer.tank.meshes[i].mesh, r.key);
}

void PutRow(CsvText &text, const TankAnswer &answer, int panel, const std::string &name, const Quantity &q,
            const Extreme &e, bool keys) {
    text.put(panel).put(answer.tank.panels.at(panel).kind).put(name).put(std::string(q.key)).put(std::string(q.unit));
    text.put(e.least).put(e.leastMesh);
    if (keys)
        text.put(e.leastKey);
    text.put(e.greatest).put(e.greatestMesh);
    if (keys)
        text.put(e.greatestKey);
    text.endRow();
}

void PutRows(CsvText &text, const TankAnswer &answer, const std::string &name, const Quantity &q,
             const ByPanel &extremes, bool keys) {
    for (const auto &[panel, e] : extremes)
        if (!e.zero())
            PutRow(text, answer, panel, name, q, e, keys);
}

constexpr const char *kHead = "panel,kind,case,result,unit,least,mesh_least,greatest,mesh_greatest";

} // namespace

std::string ExtremesTable(const TankAnswer &answer) {
    CsvText text(kHead, design::TableStyle::International);
    for (const auto *list : {&answer.design.combinations, &answer.design.cases})
        for (const CaseResult &r : *list)
            for (const Quantity &q : Quantities()) {
                ByPanel extremes;
                TakeResult(answer, r, q, extremes);
                PutRows(text, answer, r.key, q, extremes, false);
            }
    return text.text();
}

std::string EnvelopeTable(const TankAnswer &answer) {
    CsvText text("panel,kind,envelope,result,unit,least,mesh_least,case_least,greatest,mesh_greatest,case_greatest",
                 design::TableStyle::International);
    for (const bool factored : {false, true})
        for (const Quantity &q : Quantities()) {
            ByPanel extremes;
            for (const CaseResult *r : EnvelopeMembers(answer, factored))
                TakeResult(answer, *r, q, extremes);
            PutRows(text, answer, factored ? "factored" : "service", q, extremes, true);
        }
    return text.text();
}

std::string FileExtremesTable(const TankAnswer &answer) {
    CsvText text(kHead, design::TableStyle::International);
    for (std::size_t c = 0; c < answer.columns.size(); ++c)
        for (const Quantity &q : Quantities()) {
            if (!InFiles(q))
                continue;
            ByPanel extremes;
            TakeScene(SceneOfFiles(answer.stem, static_cast<int>(c) + 1, q, {}, answer.tank), "", extremes);
            PutRows(text, answer, answer.columns[c], q, extremes, false);
        }
    return text.text();
}

} // namespace havuz
