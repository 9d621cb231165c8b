// BILGI, the name a project is saved under; LOADFILE, opening a project; ENDKONT, the end of the program.
#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "ui/commands/pointer.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "ui/window/transactions.h"
#include "view/overview.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace havuz {

namespace fs = std::filesystem;

namespace {

// A title that the file gives back otherwise, or that breaks it, is written as it stands.
std::string TitleWarning() {
    const std::optional<std::string> asRead = TitleAsRead();
    if (asRead == ProjeIsmi)
        return "";
    return asRead ? " - PROJE ISMI BOYLE OKUNACAK: " + *asRead
                  : " - PROJE ISMINDEKI VIRGUL YA DA TIRNAK YUZUNDEN DOSYA GERI OKUNAMAZ";
}

class SaveNameDialog : public Form {
public:
    explicit SaveNameDialog(Workbench &owner) : Form(owner, "BILGI") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::TextBox, .name = "Tex", .label = "PROJE", .look = FieldLook::Name},
                OkButton(1),
                CancelButton(1)};
    }

    void show() {
        setText("Tex", 0, ProjeAdi);
        open();
        window.Focus(at("Tex"));
    }

private:
    void confirm() override {
        const std::string name = CutBlanks(text("Tex"));
        if (name.empty())
            return;
        if (name.find('/') != std::string::npos)
            return bench.Prompt("SAKLANAMADI: PROJE ISMINDE / OLAMAZ");
        if (UpToFirstDot(name).empty())
            return;
        ProjeAdi = UpToFirstDot(name);
        const std::string path = LocalPath(CalismaDizini + "\\") + ProjeAdi + ".POL";
        SaveProject(path, bench.project);
        ProjeDosyasi = path;
        bench.steps().saved();
        OnClose();
        bench.Prompt("SAKLANDI: " + path + TitleWarning());
    }
};

// The path of the file list stands in the label "Yol".
class OpenDialog : public Form {
public:
    explicit OpenDialog(Workbench &owner) : Form(owner, "LOADFILE") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::List, .name = "Surucu", .label = "Sürücü", .row = 0},
                {.kind = FieldKind::Label, .name = "Yol", .row = 1},
                {.kind = FieldKind::List, .name = "Dizin", .label = "Dizin", .row = 2, .look = FieldLook::Folders},
                {.kind = FieldKind::List,
                 .name = "Dosya",
                 .label = "*.POL",
                 .row = 2,
                 .column = 1,
                 .look = FieldLook::Open},
                {.kind = FieldKind::Label, .name = "Baslik", .label = "SECILEN DOSYA", .row = 3},
                {.kind = FieldKind::Label, .name = "Secilen", .row = 3, .column = 1},
                OkButton(4),
                CancelButton(4)};
    }

    void show() {
        window.SetItems(at("Surucu"), {"C:"});
        window.SelectItem(at("Surucu"), 0);
        setText("Secilen", 0, "");
        setDirectory(LocalPath(CalismaDizini));
        open();
    }
    void OnClick(Element element) override {
        if (element.name == "Dizin")
            changeDirectory();
        else if (element.name == "Dosya")
            setText("Secilen", 0, selected("Dosya"));
        else
            Form::OnClick(element);
    }

private:
    std::string selected(std::string_view list) const {
        const int item = window.SelectedItem(at(list));
        return item < 0 ? "" : window.Items(at(list))[static_cast<std::size_t>(item)];
    }
    void setDirectory(const std::string &path);
    void changeDirectory();
    void confirm() override;
};

bool IsProject(const fs::path &file) {
    std::string extension = file.extension().generic_string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return extension == ".POL";
}

void ReadProject(Workbench &bench, const std::string &path) {
    ProjeAdi = UpToFirstDot(fs::path(path).filename().generic_string());
    ProjeDosyasi = path;
    ClearModel();
    LoadProject(ProjeDosyasi, bench.project);
    ShowReadProject(bench);
    bench.steps().opened();
}

// A directory that cannot be read shows empty lists.
void OpenDialog::setDirectory(const std::string &path) {
    std::vector<std::string> directories, files;
    std::error_code error;
    for (fs::directory_iterator it(path, error), end; !error && it != end; it.increment(error)) {
        std::error_code none;
        const std::string name = it->path().filename().generic_string();
        if (it->is_directory(none))
            directories.push_back(name);
        else if (IsProject(it->path()))
            files.push_back(name);
    }
    std::sort(directories.begin(), directories.end());
    std::sort(files.begin(), files.end());
    directories.insert(directories.begin(), "..");
    setText("Yol", 0, path);
    setText("Secilen", 0, "");
    window.SetItems(at("Dizin"), directories);
    window.SetItems(at("Dosya"), files);
}

void OpenDialog::changeDirectory() {
    const std::string to = selected("Dizin");
    const fs::path from = fs::absolute(text("Yol")).lexically_normal();
    setDirectory(to == ".." ? from.parent_path().generic_string() : (from / to).generic_string());
}

void OpenDialog::confirm() {
    const std::string file = selected("Dosya");
    if (file.empty())
        return;
    ReadProject(bench, text("Yol") + "/" + file);
    OnClose();
}

// What the report of the last mesh says, a line each; the command fills the list.
class MeshWarnings : public Form {
public:
    explicit MeshWarnings(Workbench &owner) : Form(owner, "MESHRAP") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::List, .name = "Uyari", .look = FieldLook::Open}, OkButton(1)};
    }
    void show() { open(); }
};

class EndDialog : public Form {
public:
    explicit EndDialog(Workbench &owner) : Form(owner, "ENDKONT") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::Label, .name = "Not", .label = "FEA programı sonu, saklamadan çıkmayınız."},
                OkButton(1),
                CancelButton(1)};
    }
    void show(Place place) { open(place); }

private:
    void confirm() override {
        close();
        const std::string scratch = FindFile(LocalPath(CalismaDizini + "\\CADTEMP.CAD"));
        std::error_code error;
        fs::remove(scratch, error); // none is no error
        if (error)
            FailFile(Fault::CannotRemove, scratch, error.value());
        window.EndProgram(0);
    }
};

} // namespace

void AddProjectDialogs(Workbench &bench, Forms &forms) {
    forms.push_back(std::make_unique<SaveNameDialog>(bench));
    forms.push_back(std::make_unique<OpenDialog>(bench));
    forms.push_back(std::make_unique<MeshWarnings>(bench));
    forms.push_back(std::make_unique<EndDialog>(bench));
}

void ShowSaveName(Workbench &bench) { DialogOf<SaveNameDialog>(bench, "BILGI").show(); }

void ShowOpenProject(Workbench &bench) { DialogOf<OpenDialog>(bench, "LOADFILE").show(); }

// As after a new project nothing is pending and no node is hidden.
void ShowReadProject(Workbench &bench) {
    ZoomPending = 0; // the window is then as at the start, but for the view
    NodesHidden = 0;
    bench.TakeRotated();
    bench.FitViews();
    if (MeshCount > 0)
        bench.DrawMeshView();
    else
        bench.DrawPlateView();
    RefreshOverview(bench.view);
}

void OpenGivenProject(Workbench &bench, const std::string &path) {
    if (OpenRecovered(bench, path))
        return;
    const std::string name = fs::path(path).filename().generic_string();
    if (!IsProject(path))
        return bench.Prompt("ACILAMADI: " + name + " BIR .POL DOSYASI DEGIL");
    if (!FileExists(path))
        return bench.Prompt("ACILAMADI: " + name + " DOSYASI YOK");
    AbandonCommand(bench);
    UncheckMainTools(bench);
    ReadProject(bench, fs::absolute(FindFile(path)).generic_string());
}

void ShowMeshWarnings(Workbench &bench) {
    if (!bench.window.Items(kMeshWarnings).empty())
        DialogOf<MeshWarnings>(bench, "MESHRAP").show();
}

void ShowEndConfirm(Workbench &bench) {
    const double right = bench.window.ScreenWidth() * bench.window.TwipsPerPixel();
    DialogOf<EndDialog>(bench, "ENDKONT").show({right - bench.window.FormWidth("ENDKONT") - 90.0, 800.0});
}

} // namespace havuz
