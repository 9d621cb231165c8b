// BILGI, the name a project is saved under; LOADFILE, opening a project; ENDKONT, the end of the program.
#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "ui/commands/pointer.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace havuz {

namespace fs = std::filesystem;

namespace {

constexpr int kReadTool = 10, kSaveTool = 11; // "FEA bilgisi okuma", "FEA bilgisi saklama"
constexpr int kLastMainTool = 13;

class SaveNameDialog : public Form {
public:
    explicit SaveNameDialog(MainWindow &owner) : Form(owner, "BILGI", "FEA DOSYA ISMINI VERIN") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::TextBox, .name = "Tex", .label = "PROJE"}, OkButton(1), CancelButton(1)};
    }

    void show() {
        setText("Tex", 0, ProjeAdi);
        open(kToolPlace, Modality::Modeless, true);
        window.Focus(at("Tex"));
    }
    void OnClick(Element element) override {
        if (element.name == "Tamam")
            confirm();
        else if (element.name == "Iptal")
            OnClose();
    }
    void OnClose() override {
        close();
        main.ClearTool(kSaveTool);
        main.RefreshSurface();
    }

private:
    void confirm() {
        const std::string name = CutBlanks(text("Tex"));
        if (name.empty())
            return;
        ProjeAdi = UpToFirstDot(name);
        SaveProject(LocalPath(CalismaDizini + "\\" + ProjeAdi + ".POL"), main);
        OnClose();
    }
};

// The path of the file list stands in the label "Yol".
class OpenDialog : public Form {
public:
    explicit OpenDialog(MainWindow &owner) : Form(owner, "LOADFILE", "HAVUZ  DOSYASI OKUMA") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::List, .name = "Surucu", .label = "Surucu", .row = 0},
                {.kind = FieldKind::Label, .name = "Yol", .row = 1},
                {.kind = FieldKind::List, .name = "Dizin", .label = "Dizin", .row = 2},
                {.kind = FieldKind::List, .name = "Dosya", .label = "*.POL", .row = 2, .column = 1},
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
        open(kToolPlace, Modality::Modal, false);
    }
    void OnClick(Element element) override {
        if (element.name == "Dizin")
            changeDirectory();
        else if (element.name == "Dosya")
            setText("Secilen", 0, selected("Dosya"));
        else if (element.name == "Tamam")
            confirm();
        else if (element.name == "Iptal")
            OnClose();
    }
    void OnClose() override {
        close();
        main.ClearTool(kReadTool);
        main.RefreshSurface();
    }

private:
    std::string selected(std::string_view list) const {
        const int item = window.SelectedItem(at(list));
        return item < 0 ? "" : window.Items(at(list))[static_cast<std::size_t>(item)];
    }
    void setDirectory(const std::string &path);
    void changeDirectory();
    void confirm();
};

bool IsProject(const fs::path &file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return extension == ".POL";
}

// As after a new project nothing is pending and no node is hidden.
void ReadProject(MainWindow &main, const std::string &path) {
    ProjeAdi = UpToFirstDot(fs::path(path).filename().string());
    ProjeDosyasi = path;
    ClearModel();
    LoadProject(ProjeDosyasi, main);
    ZoomPending = 0; // the window is then as at the start, but for the view
    NodesHidden = 0;
    main.TakeRotated();
    main.ComputeExtents();
    if (MeshCount > 0)
        main.DrawMeshes();
    else
        main.DrawPlates();
    main.SetUpDynamicView();
}

// A directory that cannot be read shows empty lists.
void OpenDialog::setDirectory(const std::string &path) {
    std::vector<std::string> directories, files;
    std::error_code error;
    for (fs::directory_iterator it(path, error), end; !error && it != end; it.increment(error)) {
        std::error_code none;
        const std::string name = it->path().filename().string();
        if (it->is_directory(none))
            directories.push_back(name);
        else if (IsProject(it->path()))
            files.push_back(name);
    }
    std::sort(directories.begin(), directories.end());
    std::sort(files.begin(), files.end());
    directories.insert(directories.begin(), "..");
    setText("Yol", 0, path);
    window.SetItems(at("Dizin"), directories);
    window.SetItems(at("Dosya"), files);
}

void OpenDialog::changeDirectory() {
    const std::string to = selected("Dizin");
    const fs::path from = fs::absolute(text("Yol")).lexically_normal();
    setDirectory(to == ".." ? from.parent_path().string() : (from / to).string());
}

void OpenDialog::confirm() {
    const std::string file = selected("Dosya");
    if (file.empty())
        return;
    ReadProject(main, text("Yol") + "/" + file);
    OnClose();
}

class EndDialog : public Form {
public:
    explicit EndDialog(MainWindow &owner) : Form(owner, "ENDKONT", "Program end") {}
    std::vector<Field> fields() const override {
        return {{.kind = FieldKind::Label, .name = "Not", .label = "FEA programı sonu, saklamadan çıkmayınız."},
                OkButton(1),
                CancelButton(1)};
    }
    void show(Place place) { open(place, Modality::Modeless, true); }
    void OnClick(Element element) override {
        if (element.name == "Tamam")
            confirm();
        else if (element.name == "Iptal")
            OnClose();
    }

private:
    void confirm() {
        close();
        const std::string scratch = FindFile(LocalPath(CalismaDizini + "\\CADTEMP.CAD"));
        std::error_code error;
        fs::remove(scratch, error); // none is no error
        if (error)
            throw RuntimeFailure(File, scratch + ": " + error.message());
        window.EndProgram(0);
    }
};

} // namespace

void AddProjectDialogs(MainWindow &main, Forms &forms) {
    forms.push_back(std::make_unique<SaveNameDialog>(main));
    forms.push_back(std::make_unique<OpenDialog>(main));
    forms.push_back(std::make_unique<EndDialog>(main));
}

void ShowSaveName(MainWindow &main) { DialogOf<SaveNameDialog>(main, "BILGI").show(); }

void ShowOpenProject(MainWindow &main) { DialogOf<OpenDialog>(main, "LOADFILE").show(); }

void OpenGivenProject(MainWindow &main, const std::string &path) {
    const std::string name = fs::path(path).filename().string();
    if (!IsProject(path))
        return main.Prompt("ACILAMADI: " + name + " BIR .POL DOSYASI DEGIL");
    if (!FileExists(path))
        return main.Prompt("ACILAMADI: " + name + " DOSYASI YOK");
    AbandonCommand(main);
    for (int i = 0; i <= kLastMainTool; ++i)
        main.ClearTool(i);
    ReadProject(main, fs::absolute(FindFile(path)).string());
}

void ShowEndConfirm(MainWindow &main) {
    const double right = main.window.ScreenWidth() * main.window.TwipsPerPixel();
    DialogOf<EndDialog>(main, "ENDKONT").show({right - main.window.FormWidth("ENDKONT") - 90.0, 800.0});
}

} // namespace havuz
