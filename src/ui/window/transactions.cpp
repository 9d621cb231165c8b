#include "ui/window/transactions.h"

#include "model/failure.h"
#include "model/files.h"
#include "model/project_file.h"
#include "model/store.h"
#include "ui/commands/point_entry.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/form.h"
#include "ui/window/command_state.h"
#include "view/overview.h"

#include <exception>
#include <new>
#include <utility>

namespace havuz {

// What a handler may have changed of the window and of the run-time state before it failed.
struct Transactions::WindowMemory {
    explicit WindowMemory(Window &window)
        : analysis(window.Enabled(kAnalysisTool)), results(window.Enabled(kResultsTool)) {}

    void put(Workbench &bench) const {
        names.put();
        KartAdi = kartAdi;
        YukListesi = yukListesi;
        YukSayisi = yukSayisi;
        ViewAngleA = angles[0];
        ViewAngleB = angles[1];
        ViewAngleC = angles[2];
        ViewDistance = angles[3];
        NodesHidden = nodesHidden;
        TabloUst = tabloUst;
        GorunusModu = gorunusModu;
        isoView == 1 ? bench.TakeRotated() : bench.TakePlan();
        bench.view.ShowViewPicture(GorunusModu);
        bench.window.Enable(kAnalysisTool, analysis);
        bench.window.Enable(kResultsTool, results);
    }

    ProjectNames names = ProjectNames::now();
    std::string kartAdi = KartAdi;
    decltype(YukListesi) yukListesi = YukListesi;
    double angles[4] = {ViewAngleA, ViewAngleB, ViewAngleC, ViewDistance};
    int yukSayisi = YukSayisi, nodesHidden = NodesHidden, tabloUst = TabloUst, gorunusModu = GorunusModu,
        isoView = IsoView;
    bool analysis, results;
};

namespace {

std::string Capitals(std::string text) {
    for (char &c : text)
        c = 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

// What the command of an element is called.
std::string NameOf(Element element) {
    if (element == kScr)
        return ArmedName();
    if (element == kScr1) // wheel and middle button too
        return "ZOOM";
    if (element.form != kMain && element.form != kOverview && element.form != kDyuk) {
        const FormRow &form = RowOfForm(element.form);
        if (form.tool.name.empty())
            return form.command;
        element = form.tool;
    }
    const ToolRow *tool = ToolOf(element);
    return tool != nullptr ? Capitals(tool->tooltip) : "GORUNUS";
}

// Counts the handlers that run; also down when one ends the program.
struct Running {
    explicit Running(int &depth) : depth_(depth) { ++depth_; }
    ~Running() { --depth_; }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;
    int &depth_;
};

} // namespace

void Transactions::begin() {
    history_.begin();
    history_.markSaved();
    open_ = false;
    file_ = File::Untouched;
    failure_.clear();
    if (afterStep)
        afterStep(false);
}

bool Transactions::changed() const { return history_.changed(); }

std::string Transactions::takeFailure() { return std::exchange(failure_, {}); }

// The door

bool Transactions::attempt(const Command &command, const std::function<void()> &handler, const ModelState *before,
                           const WindowMemory *window) {
    try {
        handler();
        return true;
    } catch (const RuntimeFailure &failure) {
        failure_ = failure.what();
        fail(command, FailureInTurkish(failure), before, window);
    } catch (const std::bad_alloc &) {
        failure_ = "the memory does not suffice";
        fail(command, "BELLEK YETMIYOR", before, window);
    } catch (const std::exception &failure) {
        failure_ = failure.what();
        fail(command, "BEKLENMEYEN HATA: " + failure_, before, window);
    }
    return false;
}

void Transactions::fail(const Command &command, const std::string &turkish, const ModelState *before,
                        const WindowMemory *window) {
    if (before != nullptr)
        before->put();
    if (window != nullptr)
        window->put(bench_);
    file_ = File::Untouched;
    showFailed(command.element);
    bench_.Prompt(command.name + " YAPILAMADI, " + turkish);
}

// A form that is open stays, with what the model holds; else nothing stays armed or down. A view that cannot be drawn
// stays blank.
void Transactions::showFailed(Element element) {
    try {
        if (Form *form = bench_.openForm()) {
            form->OnFailed(element);
            return;
        }
        bench_.window.EnableForm(kMain, true);
        bench_.window.Show(kVekProgBar, false);
        bench_.window.Show(kProgLab, false);
        AbandonCommand(bench_);
        UncheckMainTools(bench_);
        bench_.RedrawView();
    } catch (const std::exception &) {
        bench_.scr().Clear();
    }
}

void Transactions::edit(Element element, const std::function<void()> &handler) {
    const Command command{element, NameOf(element)};
    ModelState before;
    before.take();
    if (depth_ > 0) {
        const Running running(depth_);
        attempt(command, handler, &before, nullptr);
        return;
    }
    if (!open_ && !(before == history_.state()))
        history_.amend(); // by another hand than a person's
    const WindowMemory window(bench_.window);
    try {
        const Running running(depth_);
        attempt(command, handler, &before, &window);
    } catch (const ProgramEnd &) {
        if (atEnd)
            atEnd(command.name);
        throw;
    }
    attempt(
        command, [&] { settle(command.name); }, &before, &window);
}

void Transactions::look(Element element, const std::function<void()> &handler) {
    const Command command{element, NameOf(element)};
    {
        const Running running(depth_);
        attempt(command, handler, nullptr, nullptr);
    }
    if (depth_ == 0 && open_ && !underWay())
        settle(command.name); // a drag ended with a move that has no button
}

// What follows the state after every command.
void Transactions::showState() {
    Window &window = bench_.window;
    if (window.Checked(kHideNodesTool) != (NodesHidden != 0))
        window.SetChecked(kHideNodesTool, NodesHidden != 0);
    if (window.Shown(kPointEntry) != AwaitsPoint())
        window.Show(kPointEntry, AwaitsPoint());
}

// A panel that is copied or moved waits for its second corner; an edge is being dragged.
bool Transactions::underWay() const {
    if (bench_.openForm() != nullptr)
        return true;
    const bool corner = (CommandState == kPanelCopy || CommandState == kPanelMove) && PickStage == 2;
    return corner || (CommandState == kEdgeMove && PickStage == 1 && SurukleBasladi == 1);
}

void Transactions::settle(const std::string &name) {
    showState();
    const File file = std::exchange(file_, File::Untouched);
    if (file == File::Saved)
        history_.amend();
    open_ = underWay();
    ModelState now;
    now.take();
    const bool meshIsOld = !open_ && file == File::Untouched && MeshCount > 0 && now.sameMesh(history_.state()) &&
                           !now.samePlates(history_.state());
    const bool changed = open_ ? !(now == history_.state()) : history_.keep(name, std::move(now));
    if (meshIsOld)
        bench_.Prompt("MESH ESKI: PLAKLAR DEGISTI, auto mesh YENILER");
    if (file == File::Saved || file == File::Opened)
        history_.markSaved();
    else if (file == File::Unnamed)
        history_.markUnnamed();
    if ((changed || file != File::Untouched) && afterStep)
        afterStep(history_.changed(open_ ? now : history_.state()));
}

// Steps

// The model is another one: nothing that was picked of it stands.
void Transactions::showCrossed(const std::string &prompt) {
    open_ = false;
    SeciliNo = SelectedPanel = 0;
    AbandonCommand(bench_);
    UncheckMainTools(bench_);
    if (MeshCount == 0)
        GorunusModu = 1;
    bench_.window.Enable(kAnalysisTool, !ProjeYolu.empty());
    bench_.window.Enable(kResultsTool, !ProjeYolu.empty() && FileExists(ProjeYolu + ".SON"));
    look(kScr, [this] {
        bench_.FitViews();
        bench_.RedrawView();
        RefreshOverview(bench_.view);
    });
    if (failure_.empty())
        bench_.Prompt(prompt);
    if (afterStep)
        afterStep(history_.changed(history_.state()));
}

void Transactions::undo() {
    if (depth_ > 0)
        return;
    history_.keep(ArmedName()); // of a drag that is under way
    if (!history_.canUndo())
        return bench_.Prompt("GERI ALINACAK ADIM YOK");
    const std::string name = history_.undoName();
    history_.undo();
    showCrossed("GERI ALINDI: " + name);
}

void Transactions::redo() {
    if (depth_ > 0)
        return;
    history_.keep(ArmedName());
    if (!history_.canRedo())
        return bench_.Prompt("YINELENECEK ADIM YOK");
    const std::string name = history_.redoName();
    history_.redo();
    showCrossed("YINELENDI: " + name);
}

} // namespace havuz
