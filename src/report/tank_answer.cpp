#include "report/tank_answer.h"

#include "fea/equations.h"
#include "fea/result_summary.h"
#include "model/analysed_project.h"
#include "model/failure.h"
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

std::string WhyNoFiles(const std::string &project) {
    switch (ResultsBeside(project)) {
    case ResultState::None:
        return ".SON yok";
    case ResultState::Older:
        return ".SON bu modelin değil";
    case ResultState::Current:
        break;
    }
    return FileExists(project + ".DEP") ? "" : ".DEP yok";
}

// Opens the project for the question whether it is still what was analysed. One that cannot be read is not.
bool Differs(const std::string &own, const std::string &analysed,
             const std::function<void(const std::string &path)> &open) {
    try {
        open(own);
        return AnalysedText() != ReadWholeFile(analysed);
    } catch (const RuntimeFailure &) {
        return true;
    }
}

// What is wrong with a copy of an analysed model, Turkish; empty: it is as the analysis wrote it.
std::string Damage(const std::string &analysed, const std::function<void(const std::string &path)> &open) {
    try {
        open(analysed);
        return AnalysedText() == ReadWholeFile(analysed) ? "" : "dosya analizin yazdığı gibi değil";
    } catch (const RuntimeFailure &failure) {
        return FailureInTurkish(failure);
    }
}

} // namespace

TankAnswer AnswerOfModel(const std::string &project) {
    TankAnswer answer;
    answer.stem = project;
    answer.noFiles = WhyNoFiles(project);
    answer.hasFiles = answer.noFiles.empty();
    answer.tank = consistent::ReadTank();
    answer.settings = design::ReadSettings(project + ".RAP");
    answer.basis = design::MakeBasis(answer.settings.settings);
    answer.columns = ColumnNames();
    return answer;
}

TankAnswer ReadAnswer(const std::string &project, const std::function<void(const std::string &path)> &open) {
    const std::string own = FindFile(project + ".POL"), analysed = FindFile(project + ".HSP");
    const bool found = FileExists(analysed), hasOwn = FileExists(own);
    const bool changed = found && hasOwn && Differs(own, analysed, open);
    const std::string damage = found ? Damage(analysed, open) : "";
    const bool taken = found && (damage.empty() || !hasOwn); // else the project stands in for its copy
    open(taken ? analysed : own);
    TankAnswer answer = AnswerOfModel(project);
    answer.meshFaults = MeshFaults();
    answer.origin = taken ? ModelOrigin::Analysed : ModelOrigin::Project;
    answer.changed = taken && changed;
    if (!damage.empty() && !taken)
        answer.noAnalysed = ".HSP okunamadı, projenin kendisi alındı: " + damage;
    return answer;
}

void AnalyseAnswer(TankAnswer &answer, const std::function<void(const std::string &step)> &step) {
    step("denklemler kuruluyor ve çözülüyor");
    answer.analysis = std::make_shared<const consistent::Analysis>(answer.tank, design::AnalysisOptions(answer.basis));
    step("kesitler kontrol ediliyor");
    answer.design = design::DesignTank(*answer.analysis, answer.basis);
    step("hazır");
}

} // namespace havuz
