#include "report/tank_answer.h"

#include "fea/equations.h"
#include "fea/result_summary.h"
#include "model/analysed_project.h"
#include "model/files.h"
#include "model/store.h"

namespace havuz {

namespace {

// Columns as the run numbers them.
std::vector<std::string> ColumnNames() {
    AnalysisWindow none;
    LoadColumnSetup(none);
    std::vector<std::string> names = {LoadCodeInTurkish(0)};
    for (int c = 2; c <= YukSayisi; ++c)
        names.push_back(LoadCodeInTurkish(YukListesi[c]));
    return names;
}

bool SameBytes(const std::string &a, const std::string &b) { return ReadWholeFile(a) == ReadWholeFile(b); }

} // namespace

TankAnswer ReadAnswer(const std::string &project, const std::function<void(const std::string &path)> &open) {
    TankAnswer answer;
    answer.stem = project;
    const std::string own = FindFile(project + ".POL"), analysed = FindFile(project + ".HSP");
    answer.origin = FileExists(analysed) ? ModelOrigin::Analysed : ModelOrigin::Project;
    open(answer.origin == ModelOrigin::Analysed ? analysed : own);
    answer.changed = answer.origin == ModelOrigin::Analysed && FileExists(own) && !SameBytes(own, analysed);
    answer.hasFiles = ResultsBeside(project) == ResultState::Current && FileExists(project + ".DEP");
    answer.tank = consistent::ReadTank();
    answer.settings = design::ReadSettings(project + ".RAP");
    answer.basis = design::MakeBasis(answer.settings.settings);
    answer.columns = ColumnNames();
    return answer;
}

void AnalyseAnswer(TankAnswer &answer, const std::function<void(const std::string &step)> &step) {
    consistent::Options options;
    options.loads.saturatedDensity = answer.basis.settings.saturatedDensity;
    options.loads.surcharge = answer.basis.settings.surcharge;
    options.threads = consistent::AllowedThreads();
    step("denklemler kuruluyor ve çözülüyor");
    answer.analysis = std::make_shared<const consistent::Analysis>(answer.tank, options);
    step("kesitler kontrol ediliyor");
    answer.design = design::DesignTank(*answer.analysis, answer.basis);
    step("hazır");
}

} // namespace havuz
