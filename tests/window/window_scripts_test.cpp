// The scripts of examples/scripts/ played by hand on a display: each runs to its end as it does without one, and leaves
// the same project.
#include "app/project.h"
#include "app/script_lines.h"
#include "app/script_player.h"
#include "app/script_stage.h"
#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "ui/window/recorder.h"
#include "window_desk.h"
#include "x_hand.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

namespace havuz {

namespace {

// The acts of a person as a hand does them at the display.
class HandStage : public Stage {
public:
    HandStage(WindowDesk &desk, const std::string &name) : Stage(desk.window, desk.main), desk_(desk), name_(name) {
        QObject::connect(&answers_, &QTimer::timeout, [this] { answer(); });
        answers_.start(50);
    }

    ~HandStage() override {
        if (held_ != 0)
            hand::Release(held_);
    }

    // Stage
    std::string Png() override {
        desk_.shot(name_ + "-" + std::to_string(++pictures_)); // the whole window beside the drawing
        return dynamic_cast<RasterSurface &>(desk_.window.Canvas(kScr)).png();
    }
    std::optional<Started> LastStarted() override {
        if (desk_.window.program.empty())
            return {};
        return Started{desk_.window.program, desk_.window.argument};
    }
    std::string LastErrorLine() override { return desk_.window.error; }

    // Person. A button that went down is let go before anything but a move that holds it.
    bool Do(const Act &act) override {
        const Element e = act.element;
        switch (act.kind) {
        case Act::PointerMove:
            return move(act);
        case Act::PointerRelease:
            return release(act);
        case Act::Hover:
            desk_.hover(e);
            return true;
        case Act::Tick:
            return desk_.waitFor([&, ticks = desk_.ticks()] { return desk_.ticks() > ticks; });
        case Act::Answer:
            given_.push_back(act.text);
            return true;
        case Act::Resize: // the surface is as large as the script says: the display is made for it
            return true;
        default:
            break;
        }
        letGo();
        switch (act.kind) {
        case Act::Click:
        case Act::GoTo:
            return ended(desk_.click(e));
        case Act::Type:
            return ended(desk_.type(e, act.text));
        case Act::Press:
            return ended(desk_.key(KeyName(act.key)));
        case Act::Choose:
            return ended(desk_.choose(e, act.first));
        case Act::Scroll:
            return ended(desk_.scroll(e, act.first));
        case Act::PointerPress:
            held_ = XButton(act.first);
            return ended(desk_.press(act.x, act.y, held_, e));
        case Act::CloseForm:
            return ended(desk_.close(e.form));
        default:
            return false; // no example does it
        }
    }

private:
    static int XButton(int button) { return button == 1 ? 1 : button == 2 ? 3 : 2; }
    static std::string KeyName(Key key) {
        switch (key) {
        case Key::Enter:
            return "Return";
        case Key::PageDown:
            return "Next";
        case Key::PageUp:
            return "Prior";
        case Key::Down:
            return "Down";
        case Key::Up:
            return "Up";
        case Key::Left:
            return "Left";
        case Key::Right:
            return "Right";
        case Key::Escape:
            return "Escape";
        }
        return "";
    }
    void letGo() {
        if (held_ == 0)
            return;
        hand::Release(std::exchange(held_, 0));
        desk_.settle();
    }
    bool move(const Act &act) {
        if (act.first == 0)
            letGo();
        else if (held_ == 0)
            hand::Press(held_ = XButton(act.first));
        return ended(desk_.move(act.x, act.y, act.element));
    }
    bool release(const Act &act) {
        const int button = XButton(act.first);
        if (held_ != button)
            letGo();
        if (held_ == 0) // no button comes up that was not down
            desk_.press(act.x, act.y, button, act.element);
        held_ = 0;
        return ended(desk_.release(act.x, act.y, button, act.element));
    }
    bool ended(bool done) {
        if (desk_.window.ended())
            throw ProgramEnd{desk_.window.status()};
        return done;
    }
    // A file dialog is open: the next answer is typed into it.
    void answer() {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow() || answering_)
            return;
        answering_ = true;
        if (given_.empty()) {
            hand::Key("Escape");
        } else {
            hand::Key("a", true);
            hand::Write(given_.front());
            hand::Key("Return");
            given_.pop_front();
        }
        QTimer::singleShot(300, dialog, [this] { answering_ = false; });
        QObject::connect(dialog, &QObject::destroyed, [this] { answering_ = false; });
    }

    WindowDesk &desk_;
    std::string name_;
    int pictures_ = 0;
    std::deque<std::string> given_;
    QTimer answers_;
    bool answering_ = false;
    int held_ = 0; // the button that is down
};

std::vector<std::string> ExampleScripts() {
    std::vector<std::string> names;
    for (const auto &file : std::filesystem::directory_iterator(std::string(HAVUZ_SOURCE_DIR) + "/examples/scripts"))
        names.push_back(file.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

class scripts : public testing::TestWithParam<std::string> {};

// The project as the model holds it.
std::string Project(MainWindow &main, const std::string &file) {
    StoreProject(file, main);
    return ReadBytes(file);
}

// A hand points at whole pixels: what a script expects of model points that it points at is left out.
std::string ForAHand(const std::string &text) {
    if (text.find(" at ") == std::string::npos)
        return text;
    std::istringstream lines(text);
    std::string line, kept;
    while (std::getline(lines, line))
        if (line.rfind("expect label", 0) != 0 && line.rfind("expect model", 0) != 0)
            kept += line + "\n";
    return kept;
}

// Started as the script's first line says, with the folder as the working directory.
std::string ProjectOf(const std::string &text, const std::string &folder) {
    const std::string mark = "# project ";
    if (text.rfind(mark, 0) != 0)
        return "";
    const std::string project = text.substr(mark.size(), text.find('\n') - mark.size());
    std::filesystem::copy_file(std::string(HAVUZ_SOURCE_DIR) + "/examples/" + project, folder + "/" + project);
    return folder + "/" + std::filesystem::path(project).stem().string();
}

void TakeFolder(const std::string &folder, const std::string &project) {
    CalismaDizini = folder;
    if (!project.empty())
        ProjeYolu = project;
}

} // namespace

TEST_P(scripts, ByHandAndWithoutAWindowLeaveTheSameProject) {
    const std::string name = GetParam() + ".txt";
    const std::string text = ReadBytes(std::string(HAVUZ_SOURCE_DIR) + "/examples/scripts/" + name);
    std::stringstream record;
    std::string byHand, without;
    {
        const TemporaryFolder folder;
        const std::string project = ProjectOf(text, folder.path());
        WindowDesk desk(project);
        TakeFolder(folder.path(), project);
        HandStage stage(desk, GetParam());
        Recorder recorder(desk.window, record, project);
        desk.window.SetLog(&desk);
        desk.also = &recorder;
        try {
            PlayScript(stage, name, SplitScript(name, ForAHand(text)));
        } catch (const std::exception &failure) {
            FAIL() << failure.what();
        }
        desk.also = nullptr;
        byHand = Project(desk.main, folder.file("SON.POL"));
    }
    {
        const TemporaryFolder folder;
        const ProgramFolder program;
        const std::string project = ProjectOf(text, folder.path());
        HeadlessStage stage(HAVUZ_CLI);
        stage.main.Start(project);
        TakeFolder(folder.path(), project);
        try {
            PlayScript(stage, "record", SplitScript("record", record.str()));
        } catch (const std::exception &failure) {
            FAIL() << failure.what() << "\n" << record.str();
        }
        without = Project(stage.main, folder.file("SON.POL"));
    }
    EXPECT_EQ(byHand, without) << record.str();
    EXPECT_NE(byHand, "");
}

INSTANTIATE_TEST_SUITE_P(Examples, scripts, testing::ValuesIn(ExampleScripts()), [](const auto &example) {
    std::string name = example.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace havuz
