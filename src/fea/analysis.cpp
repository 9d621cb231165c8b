// The driver of a run, in this order: sections and free freedoms of the meshes, equation numbers, profile, load
// columns, element matrices into STIF001, assembly, solution, .DEP, .SON. Nothing of it is iterative: one elimination
// serves all load columns. Units: m, t.
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
#include "fea/scratch_file.h"
#include "fea/system.h"
#include "model/analysed_project.h"
#include "model/code_page.h"
#include "model/project_lock.h"
#include "model/store.h"
#include "model/write_file.h"

#include <memory>

namespace havuz {

double ConcreteE(double fck) { return fck < 170.0 ? 2700000.0 : fck < 250.0 ? 2850000.0 : 3000000.0; }

namespace {

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

// Each file is written beside its place; all of them take it together, or the run before keeps its own.
void WriteResults(const AnalysisPaths &paths, double E, AnalysisWindow &window) {
    const ProjectLock lock(paths.project);
    BesideFile son(paths.project + ".SON", Special::Refused), dep(paths.project + ".DEP", Special::Refused);
    BesideFile hsp(paths.project + ".HSP", Special::Refused), handOver(paths.handOver, Special::Refused);
    {
        const std::unique_ptr<RecordFile> stif = OpenScratchFile();
        RecordFile sonRecords(son.path(), sizeof(SonRecord), RecordFile::ReadWrite, son.target());
        RecordFile depRecords(dep.path(), sizeof(DepRecord), RecordFile::ReadWrite, dep.target());
        BuildEquations(window);
        SolveSystem(E, *stif, window);
        WriteDisplacements(depRecords);
        ElementSwitch = 0;
        StressPass(E, sonRecords);
        window.ShowProgressPicture(false);
        window.ShowProgLab(false);
    }
    son.keepTail(); // of a larger model before: wanted
    dep.keepTail();
    hsp.write(AnalysedText());
    handOver.write(ToCodePage(paths.project) + "\r\n");
    ReplaceTogether({&dep, &son, &hsp, &handOver});
}

} // namespace

void AnalysisRun(const AnalysisPaths &paths, AnalysisWindow &window) {
    PrepareScreen(window);
    const double E = ConcreteE(Fck);
    FillPlaneD(E, PoissonRatio);
    ElementSwitch = 0;
    WriteResults(paths, E, window);
    if (!paths.outputProgram.empty())
        window.StartProgram(paths.outputProgram, paths.project);
    window.EndProgram();
    throw ProgramEnd{0}; // EndProgram does not return
}

} // namespace havuz
