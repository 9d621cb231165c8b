#include "fea/analysis.h"

#include "fea/assembly.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/loads.h"
#include "fea/plane_stress.h"
#include "fea/profile_solve.h"
#include "fea/progress_bar.h"
#include "fea/record_file.h"
#include "fea/result_pass.h"
#include "fea/system.h"
#include "model/analysed_project.h"
#include "model/code_page.h"
#include "model/files.h"
#include "model/store.h"

#include <cstdio>

namespace havuz {

double ConcreteE(double fck) { return fck < 170.0 ? 2700000.0 : fck < 250.0 ? 2850000.0 : 3000000.0; }

namespace {

// STIF001 of one run; it goes with the run, also with one that fails.
class ScratchFile {
public:
    explicit ScratchFile(std::string path) : path_(std::move(path)), records_(path_, sizeof(ElementRecord)) {}
    ~ScratchFile() { std::remove(path_.c_str()); }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;
    RecordFile &records() { return records_; }

private:
    std::string path_;
    RecordFile records_;
};

void PrepareScreen(AnalysisWindow &window) {
    window.ClearSurface();
    window.ShowProgressPicture(true);
    ProgressBar(0.0, window);
    window.MoveProgLab(10, 10);
    window.ShowProgLab(true);
}

void BuildEquations(AnalysisWindow &window) {
    MeshPass();
    NumberEquations();
    ProfileBuild(window);
    LoadColumnSetup(window);
    CheckSystemSizes();
}

void SolveSystem(double E, RecordFile &stif, AnalysisWindow &window) {
    ElementPass(E, stif, window);
    AssembleSystem(stif, window);
    SumVerticalLoads();
    window.ShowProgLab(false);
    ProfileSolve(window);
    window.ShowProgLab(true);
}

} // namespace

void AnalysisRun(const AnalysisPaths &paths, AnalysisWindow &window) {
    PrepareScreen(window);
    const double E = ConcreteE(Fck);
    FillPlaneD(E, PoissonRatio);
    ElementSwitch = 0;
    {
        ScratchFile stif(window.ScratchFile());
        RecordFile son(paths.project + ".SON", sizeof(SonRecord));
        RecordFile dep(paths.project + ".DEP", sizeof(DepRecord));
        BuildEquations(window);
        SolveSystem(E, stif.records(), window);
        WriteDisplacements(dep);
        ElementSwitch = 0;
        StressPass(E, son);
        window.ShowProgressPicture(false);
        window.ShowProgLab(false);
        WriteWholeFile(paths.project + ".HSP", AnalysedText());
        WriteWholeFile(paths.handOver, ToCodePage(paths.project) + "\r\n");
    }
    if (!paths.outputProgram.empty())
        window.StartProgram(paths.outputProgram, paths.project);
    window.EndProgram();
    throw ProgramEnd{0}; // EndProgram does not return
}

} // namespace havuz
