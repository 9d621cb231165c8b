#include "fuzz/window_session.h"

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
#include <vector>

namespace havuz {

namespace {

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

class Session {
public:
    Session(const std::uint8_t *bytes, std::size_t size) : bytes_(bytes, size) {
        ResetStore();
        std::filesystem::copy_file(std::string(HAVUZ_SOURCE_DIR) + "/examples/sample_pool.POL",
                                   folder_.file("sample_pool.POL"));
        main_ = std::make_unique<MainWindow>(window_, "havuz");
        main_->Start("");
        start_ = now();
        before_ = start_;
    }

    SessionReport play() {
        try {
            while (!bytes_.over() && report_.broken.empty()) {
                act();
                ++report_.acts;
                check();
            }
            if (report_.broken.empty())
                takeAllBack();
        } catch (const ProgramEnd &end) {
            if (end.status != 0 || !mayEnd_)
                report_.broken = "the program ended with " + std::to_string(end.status);
        }
        return report_;
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

    template <class Holds>
    std::optional<Element> some(Holds holds) {
        std::vector<Element> found;
        for (const Element element : window_.elements())
            if (window_.reachable(element) && holds(element))
                found.push_back(element);
        if (found.empty())
            return {};
        return found[static_cast<std::size_t>(bytes_.below(static_cast<int>(found.size())))];
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
            if (what == 1 && PanelCount > 0) {
                const PanelRecord &panel = PanelTable[1 + bytes_.below(PanelCount)];
                const int k = 1 + bytes_.below(4);
                return PlateScreen(panel.X[k], panel.Y[k], panel.Z[k]);
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

    void openSomething() {
        static constexpr const char *kProjects[] = {"sample_pool", "yok"};
        const char *name = kProjects[bytes_.below(static_cast<int>(std::size(kProjects)))];
        window_.OpenFile(folder_.file(name + std::string(".POL")));
    }

    void check() {
        const ModelHistory &history = steps().history();
        const std::string failure = steps().takeFailure();
        report_.failures += failure.empty() ? 0 : 1;
        if (steps().underWay()) {
            open_ = true;
            return;
        }
        const ModelState after = now();
        if (!(after == history.state()))
            return breakWith("the model is not that of the last step");
        if (!failure.empty() && !open_ && !(after == before_))
            return breakWith("a command that failed changed the model: " + failure);
        open_ = false;
        before_ = after;
        if (!history.canUndo() || !window_.reachable(kUndoButton))
            return;
        ++report_.steps;
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

    void breakWith(const std::string &what) {
        report_.broken = what + " (act " + std::to_string(report_.acts) + ", " + window_.Text(kAltnot) + ")";
    }

    Bytes bytes_;
    ProgramFolder folder_;
    BlankSurface surface_{605, 455};
    HeadlessWindow window_{surface_};
    std::unique_ptr<MainWindow> main_;
    ModelState start_, before_;
    SessionReport report_;
    bool mayEnd_ = false, open_ = false;
};

} // namespace

SessionReport PlaySession(const std::uint8_t *bytes, std::size_t size) { return Session(bytes, size).play(); }

} // namespace havuz
