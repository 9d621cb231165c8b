#include "ui/window/workbench.h"

#include "model/failure.h"
#include "model/store.h"
#include "ui/forms/form.h"
#include "ui/window/recovery.h"
#include "ui/window/transactions.h"
#include "ui/window/view_habits.h"
#include "view/fit.h"
#include "view/mesh_drawing.h"
#include "view/plate_drawing.h"
#include "view/redraw.h"

namespace havuz {

Workbench::Workbench(Window &platform, LowerWindows lower, std::string executable)
    : LowerWindows(lower), window(platform), executable_(std::move(executable)),
      steps_(std::make_unique<Transactions>(*this)) {}

Workbench::~Workbench() = default;

Form &Workbench::form(std::string_view name) {
    for (const auto &form : forms_)
        if (form->name() == name)
            return *form;
    throw RuntimeFailure({.fault = Fault::Unknown, .thing = Thing::Form, .text = std::string(name)});
}

Form *Workbench::openForm() {
    for (const auto &form : forms_)
        if ((form->row().disablesMain || form->row().modality == Modality::Modal) && window.FormShown(form->name()))
            return form.get();
    return nullptr;
}

// Shared operations

void Workbench::ShowLabel(const std::string &text, double left, double top) {
    window.SetText(kLabel1, text);
    window.Move(kLabel1, left, top);
    window.Show(kLabel1, true);
}

void Workbench::HideLabel1() {
    window.Show(kLabel1, false);
    if (window.Shown(kSnapNote))
        window.Show(kSnapNote, false);
}

void Workbench::RedrawView() {
    if (GorunusModu == 1)
        SettlePlateView(*this);
    const StandingView stands;
    Redraw(scr(), view);
    tellUndrawn();
}
void Workbench::DrawPlateView() {
    SettlePlateView(*this);
    const StandingView stands;
    havuz::DrawPlateView(scr(), view);
}
void Workbench::DrawMeshView() {
    const StandingView stands;
    havuz::DrawMeshView(scr(), view);
    tellUndrawn();
}

void Workbench::tellUndrawn() {
    if (const int mesh = GorunusModu == 2 ? FirstUndrawnMesh() : 0; mesh > 0)
        Prompt("MESH " + std::to_string(mesh) + " CIZILEMEDI: KOSELERI NOKTA DEGIL");
}
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

} // namespace havuz
