// A window session out of bytes: each few of them become an act of a person on the headless window - a click, a text, a
// key, the pointer, a file - on whatever can be reached then.
#include "fuzz/fuzz.h"
#include "mesh/polygon_pool.h"
#include "model/failure.h"
#include "model/options.h"
#include "model/project_file.h"
#include "model/store.h"
#include "program_folder.h"
#include "support.h"
#include "ui/forms/form.h"
#include "ui/window/command_state.h"
#include "ui/window/headless_window.h"
#include "ui/window/main_window.h"
#include "ui/window/transactions.h"
#include "view/blank_surface.h"
#include "view/projection.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <random>
#include <vector>

namespace havuz::fuzz {

namespace {

struct Totals {
    long acts = 0, failures = 0, steps = 0, ends = 0;
} totals;

class Bytes {
public:
    Bytes(const std::uint8_t *bytes, std::size_t size) : at_(bytes), end_(bytes + size) {}
    bool over() const { return at_ == end_; }
    int next() { return over() ? 0 : *at_++; }
    int below(int bound) { return bound <= 0 ? 0 : (next() | next() << 8) % bound; }

private:
    const std::uint8_t *at_, *end_;
};

constexpr const char *kTexts[] = {"",    "0",     "1",     "2",   "-1",    "0.5", "2,5",   "5",      "12",  "30",
                                  "400", "41858", "99999", "1e6", "-1e39", "abc", "1e300", "Depo 1", "a/b", "3.0"};

struct Project {
    std::string name, text;
};

std::string PolygonPoolText() {
    ResetAll();
    BuildPolygonPool({{{0, 0}, {8, 0}, {8, 5}, {4, 7}, {0, 5}}, 30, 40, 3, 0});
    return ProjectText();
}

const std::vector<Project> &Projects() {
    static const std::string examples = std::string(HAVUZ_SOURCE_DIR) + "/examples/";
    static const std::vector<Project> projects = {{"sample_pool.POL", ReadBytes(examples + "sample_pool.POL")},
                                                  {"circular_pool.POL", ReadBytes(examples + "circular_pool.POL")},
                                                  {"polygon.POL", PolygonPoolText()},
                                                  {"yok.POL", ""}};
    return projects;
}

class Session {
public:
    Session(const std::uint8_t *bytes, std::size_t size) : bytes_(bytes, size) {
        Projects();
        ResetAll();
        main_ = std::make_unique<MainWindow>(window_, "havuz");
        main_->Start("");
        start_ = now();
        before_ = start_;
    }

    void play() {
        try {
            while (!bytes_.over()) {
                act();
                ++acts_;
                ++totals.acts;
                check();
            }
            takeAllBack();
        } catch (const ProgramEnd &end) {
            if (end.status != 0 || !mayEnd_)
                breakWith("the program ended with " + std::to_string(end.status));
            ++totals.ends;
        }
    }

private:
    static ModelState now() {
        ModelState state;
        state.take();
        return state;
    }
    Transactions &steps() { return main_->steps(); }

    void act() {
        mayEnd_ = false;
        switch (bytes_.below(12)) {
        case 0:
        case 1:
        case 2:
            return clickSomething();
        case 3:
            return typeSomething();
        case 4:
            window_.Press(kKeyNames[bytes_.below(static_cast<int>(std::size(kKeyNames)))].key);
            return;
        case 5:
        case 6:
        case 7:
            return pointSomewhere();
        case 8:
            return scrollOrChoose();
        case 9:
            window_.TurnWheel(kScr, bytes_.below(7) - 3, bytes_.below(600), bytes_.below(450));
            return;
        case 10:
            return openSomething();
        default:
            bytes_.below(2) == 0 ? window_.Leave() : window_.Tick();
        }
    }

    // One that holds, each as likely as the other.
    template <class Holds>
    std::optional<Element> some(Holds holds) {
        const std::vector<Element> elements = window_.elements();
        std::minstd_rand pick(static_cast<unsigned>(bytes_.below(1 << 16)) + 1);
        for (std::size_t tries = 0; tries < 2 * elements.size(); ++tries) {
            const Element element = elements[pick() % elements.size()];
            if (window_.formReachable(element.form) && holds(element) && window_.reachable(element))
                return element;
        }
        return {};
    }

    // The analysis of a whole model, the results and the end confirmation end the program, as they say.
    void clickSomething() {
        const auto clickable = [&](Element element) {
            const FieldKind kind = window_.state(element).kind;
            return kind != FieldKind::Picture && kind != FieldKind::Line && kind != FieldKind::Frame;
        };
        if (const auto element = some(clickable)) {
            mayEnd_ = *element == kAnalysisTool || *element == kResultsTool || element->form == "ENDKONT";
            window_.Click(*element);
        }
    }

    void typeSomething() {
        const auto box = some([&](Element element) { return window_.state(element).kind == FieldKind::TextBox; });
        if (box)
            window_.Type(*box, kTexts[bytes_.below(static_cast<int>(std::size(kTexts)))]);
    }

    // A node, a panel's corner, a point of a plate, or anywhere.
    ScreenPoint place() {
        const int what = bytes_.below(4);
        try {
            if (what == 0 && NoktaCount > 0)
                return NodePixels(1 + bytes_.below(NoktaCount));
            if (what == 1 && PanelCount > 0 && (PlakCount == 0 || bytes_.below(2) == 0)) {
                const PanelRecord &panel = PanelTable[1 + bytes_.below(PanelCount)];
                const int k = 1 + bytes_.below(4);
                return PlateScreen(panel.X[k], panel.Y[k], panel.Z[k]);
            }
            if (what == 1 && PlakCount > 0) {
                const PlakRecord &plak = PlakTable[1 + bytes_.below(PlakCount)];
                const int k = 1 + bytes_.below(plak.NoktaSayisi);
                return PlateScreen(plak.X[k], plak.Y[k], plak.Z[k]);
            }
            if (what == 2 && PanelCount > 0) {
                const PanelRecord &panel = PanelTable[1 + bytes_.below(PanelCount)];
                return PlateScreen((panel.X[1] + panel.X[3]) / 2, (panel.Y[1] + panel.Y[3]) / 2,
                                   (panel.Z[1] + panel.Z[3]) / 2);
            }
        } catch (const RuntimeFailure &) { // beyond what can be shown
        }
        return {static_cast<double>(bytes_.below(605)), static_cast<double>(bytes_.below(455))};
    }

    void pointSomewhere() {
        const ScreenPoint p = place();
        switch (bytes_.below(5)) {
        case 0:
            window_.MoveTo(kScr, 0, p.x, p.y);
            window_.PressAt(kScr, kLeftButton, p.x, p.y);
            return;
        case 1:
            window_.MoveTo(kScr, kLeftButton, p.x, p.y);
            return;
        case 2:
            window_.ReleaseAt(kScr, bytes_.below(3) == 0 ? kRightButton : kLeftButton, p.x, p.y);
            return;
        case 3:
            window_.PanBy(kScr, p.x - 300, p.y - 220);
            return;
        default:
            window_.MoveTo(kScr, 0, p.x, p.y);
        }
    }

    void scrollOrChoose() {
        const auto bar = some([&](Element element) { return window_.state(element).kind == FieldKind::ScrollBar; });
        if (bar)
            window_.Scroll(*bar, bytes_.below(window_.state(*bar).maximum + 1));
        const auto list = some([&](Element element) { return window_.state(element).kind == FieldKind::List; });
        if (list && list->form != "LOADFILE") // directories of the machine
            window_.Choose(*list, bytes_.below(static_cast<int>(window_.state(*list).items.size())));
    }

    // A project, put into the session's own folder, or one that is not there.
    void openSomething() {
        const Project &project = Projects()[static_cast<std::size_t>(bytes_.below(4))];
        const std::string file = folder_.file(project.name);
        if (!project.text.empty() && !std::filesystem::exists(file))
            WriteBytes(file, project.text);
        window_.OpenFile(file);
    }

    void check() {
        const ModelHistory &history = steps().history();
        const std::string failure = steps().takeFailure();
        totals.failures += failure.empty() ? 0 : 1;
        if (steps().underWay()) {
            open_ = true;
            return;
        }
        const ModelState after = now();
        if (!(after == history.state()))
            breakWith("the model is not that of the last step");
        if (!failure.empty() && !open_ && !(after == before_))
            breakWith("a command that failed changed the model: " + failure);
        open_ = false;
        before_ = after;
        if (!history.canUndo() || !window_.reachable(kUndoButton))
            return;
        ++totals.steps;
        window_.Click(kUndoButton);
        window_.Click(kRedoButton);
        if (!(now() == after))
            breakWith("a step made again gives another model");
    }

    void takeAllBack() {
        for (const Element element : window_.elements())
            if (element.form != kMain && window_.formReachable(element.form))
                window_.CloseForm(element.form);
        while (steps().history().canUndo())
            steps().undo();
        if (!(now() == start_) && steps().history().steps() < ModelHistory::kLeastSteps)
            breakWith("all steps taken back do not give the start");
    }

    [[noreturn]] void breakWith(const std::string &what) {
        Broken(what + " (act " + std::to_string(acts_) + ", " + window_.Text(kAltnot) + ")");
    }

    Bytes bytes_;
    ProgramFolder folder_;
    BlankSurface surface_{605, 455};
    HeadlessWindow window_{surface_};
    std::unique_ptr<MainWindow> main_;
    ModelState start_, before_;
    long acts_ = 0;
    bool mayEnd_ = false, open_ = false;
};

} // namespace

// Held after every act: the model is that of the last step unless a dialog, a table or a drag is open; a step taken
// back and made again gives the model after it to the byte. At the end all steps are taken back, and the model must be
// that of the start. No act may end the program but those that say so.
void WindowSession(const std::uint8_t *data, std::size_t size) {
    Sandbox();
    Session(data, size).play();
}

std::string WindowSessionsTold() {
    return std::to_string(totals.acts) + " acts, " + std::to_string(totals.failures) +
           " that failed and changed nothing, " + std::to_string(totals.steps) + " steps taken back, " +
           std::to_string(totals.ends) + " ends as asked for";
}

} // namespace havuz::fuzz
