// KURTAR: what earlier sessions left unsaved, offered at the start until it is opened or thrown away.
#include "model/platform.h"
#include "model/project_file.h"
#include "model/store.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/window/recovery.h"
#include "ui/window/transactions.h"

#include <array>
#include <filesystem>

namespace havuz {

namespace {

std::string Time(std::time_t time) {
    const std::tm parts = platform::LocalTime(time);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%d.%m.%Y %H:%M", &parts);
    return text.data();
}

// Project, time, reason.
std::string Line(const RecoveryCopy &copy) {
    const std::string name = std::filesystem::path(copy.project).stem().generic_string();
    return (name.empty() ? "adsız" : name) + "   " + Time(copy.time) + "   " +
           (copy.reason.empty() ? "program yarıda kesildi" : copy.reason);
}

// First in "Son projeler".
void Offer(Workbench &bench, const std::vector<RecoveryCopy> &copies) {
    std::vector<OfferedProject> offered;
    for (const RecoveryCopy &copy : copies)
        offered.push_back({copy.file, "KURTARMA: " + Line(copy)});
    bench.window.OfferProjects(offered);
}

class RecoveryDialog : public Form {
public:
    explicit RecoveryDialog(Workbench &owner) : Form(owner, "KURTAR") {}
    std::vector<Field> fields() const override {
        Field open = OkButton(2), later = CancelButton(2);
        open.label = "AÇ";
        later.label = "SONRA";
        return {{.kind = FieldKind::Label, .name = "Not", .label = "Kaydedilmeden kalan çalışmalar:"},
                {.kind = FieldKind::List, .name = "Kopya", .row = 1, .look = FieldLook::Open},
                open,
                {.kind = FieldKind::Button, .name = "Sil", .label = "SİL", .row = 2, .column = 1},
                later};
    }

    void show() {
        fill();
        if (copies_.empty())
            return;
        open();
        window.Focus(at("Kopya"));
    }
    void OnClick(Element element) override {
        if (element == at("Sil"))
            throwAway();
        else
            Form::OnClick(element);
    }

private:
    void fill() {
        copies_ = bench.recovery->left();
        std::vector<std::string> lines;
        for (const RecoveryCopy &copy : copies_)
            lines.push_back(Line(copy));
        window.SetItems(at("Kopya"), lines);
        window.SelectItem(at("Kopya"), lines.empty() ? -1 : 0);
        Offer(bench, copies_);
    }

    const RecoveryCopy *chosen() const {
        const int item = window.SelectedItem(at("Kopya"));
        return item < 0 ? nullptr : &copies_.at(static_cast<std::size_t>(item));
    }

    void confirm() override {
        const RecoveryCopy *copy = chosen();
        if (copy != nullptr && !OpenRecovered(bench, copy->file))
            bench.Prompt("KURTARMA KOPYASI ARTIK YOK"); // another session has taken it
        close();
    }

    void throwAway() {
        if (const RecoveryCopy *copy = chosen())
            Recovery::remove(*copy);
        fill();
        if (copies_.empty())
            close();
    }

    std::vector<RecoveryCopy> copies_;
};

} // namespace

void AddRecoveryDialog(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<RecoveryDialog>(bench)); }

void OfferRecovery(Workbench &bench) {
    if (bench.recovery != nullptr)
        DialogOf<RecoveryDialog>(bench, "KURTAR").show();
}

// The copy of before goes when this session has one of its own.
bool OpenRecovered(Workbench &bench, const std::string &file) {
    const auto copy = bench.recovery == nullptr ? std::nullopt : ReadRecoveryCopy(file);
    if (!copy)
        return false;
    AbandonCommand(bench);
    UncheckMainTools(bench);
    for (std::string *name : {&ProjeAdi, &ProjeYolu, &ProjeDosyasi})
        name->clear();
    ClearModel();
    ProjectWindow none;
    LoadProject(file, none);
    ProjeIsmi = copy->title;
    ProjeYolu.clear();
    bench.window.Enable(kAnalysisTool, false); // it has no file yet
    bench.window.Enable(kResultsTool, false);
    ShowReadProject(bench);
    bench.steps().openedUnnamed();
    bench.recovery->keep("");
    Recovery::remove(*copy);
    Offer(bench, bench.recovery->left());
    bench.Prompt("KURTARILDI: " + Line(*copy));
    return true;
}

} // namespace havuz
