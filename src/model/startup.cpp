#include "model/startup.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/options.h"
#include "model/parameters.h"
#include "model/project_file.h"
#include "model/store.h"

#include <filesystem>

namespace havuz {

void StartWindow::EndProgram(int status) { throw ProgramEnd{status}; }

static std::string FullPath(const std::string &path) {
    return std::filesystem::absolute(path).lexically_normal().generic_string();
}

static void TakeNames(const std::string &commandLine) {
    ProjeYolu = ProjeAdi = "";
    if (commandLine.empty())
        return;
    ProjeYolu = ProjectPath(FullPath(commandLine));
    ProjeAdi = std::filesystem::path(ProjeYolu).filename().generic_string();
}

static void ReadOptions() {
    ReadCard();
    ReadWorkingFile();
    ReadDimensions();
    ReadLoadFactors();
}

static void SetViewDefaults() {
    ViewAngleA = -140.0 / 180.0 * kPi;
    ViewAngleB = 20.0 / 180.0 * kPi;
    ViewAngleC = 0.0;
    ViewDistance = 1000.0;
    GorunusModu = 1;
}

static void SetProjectDefaults() {
    StartParameterValues();
    ProjeIsmi.clear();
    KartAdi.clear();
    NoktaCount = MeshCount = 0;
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        YukKombinasyon[i] = 0.0;
    for (int i = 0; i <= kYukDurumLast; ++i)
        YukDurum[i] = 1.0;
}

static void SetDiameterDefaults() {
    for (int i = 1; i <= 13; ++i)
        if (DonatiCaplari[i] > 0)
            return;
    DonatiCaplari[1] = 8.0;
    DonatiCaplari[2] = 10.0;
    DonatiCaplari[3] = 12.0;
}

static void OpenCommandLine(const std::string &commandLine, StartWindow &window) {
    if (commandLine.empty()) {
        window.TakePlanState();
        IsoView = 0;
        GorunusModu = 1;
        window.DrawPlates();
        return;
    }
    ProjeDosyasi = FullPath(commandLine) + ".POL";
    LoadProject(FindFile(ProjeDosyasi), window);
    window.ComputeExtents();
    window.DrawMeshes();
}

// The steps in their order. The pool parameters take what the pool library shows at first only at the very end, so a
// project of the command line loses its saved ones: wanted.
static void RunSequence(const std::string &commandLine, const std::string &executable, StartWindow &window) {
    TakeNames(commandLine);
    ProgramDizini = FindProgramDirectory(executable);
    ReadWorkingDirectory();
    ReadOptions();
    SetViewDefaults();
    SetProjectDefaults();
    window.ResetViews();
    window.SizeSurface();
    ReadFont();
    SetDiameterDefaults();
    window.PutFirstState();
    IsoView = 1;
    ClearModel();
    OpenCommandLine(commandLine, window);
    window.SetUpDynamicView();
    TakePoolParameters();
}

void StartProgram(const std::string &commandLine, const std::string &executable, StartWindow &window) {
    window.AdjustStyle();
    window.LayOutChildFrame();
    if (window.AnotherInstanceRuns())
        window.EndProgram(0);
    try {
        RunSequence(commandLine, executable, window);
    } catch (const RuntimeFailure &failure) {
        window.ReportFailure(failure.what());
        window.EnableMainWindow();
        window.EndProgram(1);
    }
}

void StartModel(const std::string &executable) {
    StartWindow none;
    RunSequence("", executable, none);
}

} // namespace havuz
