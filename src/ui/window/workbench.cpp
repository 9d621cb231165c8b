#include "ui/window/workbench.h"

#include "model/failure.h"
#include "model/store.h"
#include "ui/commands/pointer.h"
#include "ui/forms/form.h"
#include "ui/window/recovery.h"
#include "ui/window/view_habits.h"
#include "view/fit.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"
#include "view/redraw.h"

namespace havuz {

Workbench::Workbench(Window &platform, LowerWindows lower, std::string executable)
    : LowerWindows(lower), window(platform), executable_(std::move(executable)) {}

Workbench::~Workbench() = default;

Form &Workbench::form(std::string_view name) {
    for (const auto &form : forms_)
        if (form->name() == name)
            return *form;
    throw RuntimeFailure({.fault = Fault::Unknown, .thing = Thing::Form, .text = std::string(name)});
}

// Shared operations

void Workbench::ShowLabel(const std::string &text, double left, double top) {
    window.SetText(kLabel1, text);
    window.Move(kLabel1, left, top);
    window.Show(kLabel1, true);
}

void Workbench::RedrawView() {
    if (GorunusModu == 1)
        SettlePlateView(*this);
    Redraw(scr(), view);
}
void Workbench::DrawPlateView() {
    SettlePlateView(*this);
    havuz::DrawPlateView(scr(), view);
}
void Workbench::DrawMeshView() { havuz::DrawMeshView(scr(), view); }
void Workbench::RefreshBounds() { PlateBoundsAndDepth(scr()); }

void Workbench::FitViews() {
    RefreshBounds();
    FitMeshView();
}

void Workbench::TakeRotated() {
    IsoView = 1;
    window.Enable(kNodeMoveTool, false);
    window.SetPicture(kIsometricTool, 18);
}

void Workbench::TakePlan() {
    IsoView = 0;
    window.Enable(kNodeMoveTool, true);
    window.SetPicture(kIsometricTool, 13);
}

// Failures

namespace {

// Tables and counts as they are before an edit.
struct ModelCopy {
    decltype(PlakTable) plak = PlakTable;
    decltype(PanelTable) panel = PanelTable;
    decltype(MeshTable) mesh = MeshTable;
    decltype(NoktaTable) nokta = NoktaTable;
    decltype(NokYukTable) yuk = NokYukTable;
    int plakCount = PlakCount, panelCount = PanelCount, meshCount = MeshCount, noktaCount = NoktaCount;
    int hamNoktaCount = HamNoktaCount, nodesHidden = NodesHidden;

    void restore() const {
        PlakTable = plak;
        PanelTable = panel;
        MeshTable = mesh;
        NoktaTable = nokta;
        NokYukTable = yuk;
        PlakCount = plakCount;
        PanelCount = panelCount;
        MeshCount = meshCount;
        NoktaCount = noktaCount;
        HamNoktaCount = hamNoktaCount;
        NodesHidden = nodesHidden;
    }
};

} // namespace

bool Workbench::RunEdit(const std::string &name, const std::function<void()> &job) {
    const auto before = std::make_unique<ModelCopy>();
    try {
        job();
        return true;
    } catch (const RuntimeFailure &failure) {
        before->restore();
        endCommand(name, failure);
        return false;
    }
}

bool Workbench::RunLook(const std::string &name, const std::function<void()> &job) {
    try {
        job();
        return true;
    } catch (const RuntimeFailure &failure) {
        endCommand(name, failure);
        return false;
    }
}

void Workbench::endCommand(const std::string &name, const RuntimeFailure &failure) {
    AbandonCommand(*this);
    RedrawView();
    Prompt(name + " YAPILAMADI, " + FailureInTurkish(failure));
}

} // namespace havuz
