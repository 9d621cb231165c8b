// The window is killed at random moments of a save, an analysis and the writing of recovery copies, over and over, and
// what it leaves is read: the project old or new and whole, results of one run, a copy that opens. A few of each with
// the tests; HAVUZ_KILLS=N kills N times, HAVUZ_SEED begins elsewhere:
//   HAVUZ_KILLS=1000 tests/window/with_display build/test/havuz_window_tests '--gtest_filter=kills.*'
#include "model/analysed_project.h"
#include "model/project_file.h"
#include "model/project_window.h"
#include "model/store.h"
#include "ui/window/recovery.h"
#include "window_desk.h"
#include "window_machine.h"
#include "x_hand.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace havuz {

namespace fs = std::filesystem;

namespace {

// Where the program shows a tool, in pixels of the screen: as a desk here does.
QPoint PlaceOf(Element tool) {
    const WindowDesk desk;
    const QWidget *widget = desk.window.widget(tool);
    return widget->mapToGlobal(widget->rect().center());
}

double Since(const QElapsedTimer &clock) { return static_cast<double>(clock.nsecsElapsed()) / 1e6; } // ms

class Killed {
public:
    Killed() {
        WriteBytes(machine_.program.file("RAPORCU.EXE"), "#!/bin/sh\n"); // what an analysis starts
        fs::permissions(machine_.program.file("RAPORCU.EXE"), fs::perms::owner_all);
        EXPECT_EQ(shell("pool rectangular -o " + project_ + " --set Lx=10 --set Ly=8"), 0);
        plain_ = ReadBytes(project_);
        saveTime_ = saved(-1);
        meshed_ = ReadBytes(project_);
        EXPECT_TRUE(meshed_ != plain_);
        EXPECT_EQ(shell("set " + project_ + " SiviKotu=1"), 0);
        EXPECT_EQ(shell("run " + project_ + " --quiet"), 0);
        older_ = results();
        put(meshed_);
        analysisTime_ = analysed(-1);
        newer_ = results();
        EXPECT_TRUE(newer_[2] == meshed_);
        put(meshed_);
        put(plain_);
        copyTime_ = kept(-1);
        overTime_ = keptOver(-1);
        std::printf("ms of a save %.0f, an analysis %.0f, a pause and a copy %.0f, the end by a signal %.0f\n",
                    saveTime_, analysisTime_, copyTime_, overTime_);
    }

    void kill(int kind) {
        const double share = 2 * std::uniform_real_distribution<>()(random_);
        forgetCopies();
        if (kind == 0) {
            put(plain_);
            saved(share * saveTime_);
            count("save: project " + stateOf(ReadBytes(project_), plain_, meshed_) + ", copy " + copy());
        } else if (kind == 1) {
            put(meshed_);
            for (std::size_t k = 0; k < 3; ++k)
                WriteBytes(path(kNames[k]), older_[k]);
            analysed(share * analysisTime_);
            const Results left = results();
            std::string what = "analysis: project " + stateOf(ReadBytes(project_), meshed_, meshed_);
            for (std::size_t k = 0; k < 3; ++k)
                what += std::string(", ") + kNames[k] + " " + stateOf(left[k], older_[k], newer_[k]);
            const bool ofOld = what.find(" old,") != std::string::npos, ofNew = left[2] == newer_[2];
            EXPECT_FALSE(ofOld && ofNew) << what;
            EXPECT_TRUE(left[2].empty() || left == older_ || left == newer_) << what; // it vouches for both
            count(what);
        } else if (kind == 2) {
            put(plain_);
            kept(copyTime_ - 100 + 100 * share);
            count("first copy: project " + stateOf(ReadBytes(project_), plain_, plain_) + ", copy " + copy());
        } else {
            put(plain_);
            keptOver(0.25 * share * overTime_); // it writes first
            count("copy over a copy: project " + stateOf(ReadBytes(project_), plain_, plain_) + ", copy " + copy());
        }
    }

    void begin(unsigned seed) { random_.seed(seed); }

    // Another start offers what is left, and Enter opens it.
    void open() {
        if (Recovery(machine_.home.file("havuz")).left().empty())
            return;
        const auto next = start({});
        QThread::msleep(300);
        hand::Key("Return");
        EXPECT_TRUE(written("key KURTAR Kopya Enter\n"));
        EXPECT_TRUE(Comes([this] { return copies() == 1; }));
        count("offered at the next start and opened");
        stop(*next);
    }

    void print() const {
        for (const auto &[what, times] : table_)
            std::printf("%6d  %s\n", times, what.c_str());
    }

private:
    using Results = std::array<std::string, 3>;
    static constexpr std::array<const char *, 3> kNames = {".DEP", ".SON", ".HSP"};

    std::string path(const std::string &extension) const { return machine_.program.file("VEK9DATA/P" + extension); }
    int shell(const std::string &words) const {
        return std::system((std::string(HAVUZ_CLI) + " " + words + " >/dev/null 2>&1").c_str());
    }
    Results results() const {
        return {ReadBytes(path(kNames[0])), ReadBytes(path(kNames[1])), ReadBytes(path(kNames[2]))};
    }
    void put(const std::string &project) const {
        fs::remove(path(".POL~"));
        fs::remove(project_);
        WriteBytes(project_, project);
    }
    void count(const std::string &what) { ++table_[what]; }

    static std::string stateOf(const std::string &bytes, const std::string &old, const std::string &made) {
        if (bytes.empty())
            return "none";
        if (bytes == old)
            return old == made ? "whole" : "old";
        EXPECT_TRUE(bytes == made);
        return bytes == made ? "new" : "DAMAGED";
    }

    int copies() const {
        int found = 0;
        std::error_code none;
        for (const auto &entry : fs::directory_iterator(machine_.home.file("havuz"), none))
            found += entry.path().extension() == ".POL" ? 1 : 0;
        return found;
    }
    void forgetCopies() const { fs::remove_all(machine_.home.file("havuz")); }

    // What the killed program left for the next start, read as that does.
    std::string copy() const {
        const auto left = Recovery(machine_.home.file("havuz")).left();
        EXPECT_LE(left.size(), 1U);
        if (left.empty()) {
            EXPECT_EQ(copies(), 0) << "one that cannot be read";
            return "none";
        }
        ResetStore();
        ProjectWindow window;
        LoadProject(left[0].file, window);
        const std::string model = NoktaCount > 0 ? "of the mesh" : PanelCount > 0 ? "of the pool" : "empty";
        EXPECT_TRUE(NoktaCount == 0 || AnalysedText() == meshed_);
        return model + (left[0].reason.empty() ? "" : " with its reason");
    }

    bool written(const std::string &words) const {
        return Comes([&] { return ReadBytes(record_).find(words) != std::string::npos; }, 2);
    }

    std::unique_ptr<QProcess> start(const QStringList &arguments) const {
        fs::remove(record_);
        auto process = machine_.start(arguments + QStringList{"--record", QString::fromStdString(record_)});
        EXPECT_TRUE(written("surface 1010 600\n"));
        EXPECT_TRUE(Comes([] { return hand::FocusWindow() != 0; }, 5));
        return process;
    }
    std::unique_ptr<QProcess> start() const { return start({QString::fromStdString(project_)}); }

    // The program hears of the keyboard later than the server tells.
    void press(const std::string &key, const std::string &words) const {
        const auto heard = [&] { return ReadBytes(record_).find(words) != std::string::npos; };
        for (int tries = 0; tries < 40; ++tries) {
            hand::Key(key, true);
            for (int wait = 0; wait < 100 && !heard(); ++wait)
                QThread::msleep(5);
            if (heard())
                return;
        }
        ADD_FAILURE() << "Ctrl+" << key << " was not heard";
    }

    static void clickAt(QPoint place) {
        hand::MoveTo(place.x(), place.y());
        hand::Press(1);
        hand::Release(1);
    }
    static void stop(QProcess &process) {
        process.kill();
        process.waitForFinished(kPatience);
    }

    // Waits a number of ms and kills; below 0, until it holds, and gives the ms that it took.
    static double endAfter(QProcess &process, double ms, const std::function<bool()> &holds) {
        QElapsedTimer clock;
        clock.start();
        if (ms < 0)
            EXPECT_TRUE(Comes(holds, 1));
        else
            QThread::usleep(static_cast<unsigned long>(ms * 1000));
        const double took = Since(clock);
        stop(process);
        return took;
    }

    // The mesh is made, and Enter saves it.
    double saved(double ms) const {
        const auto process = start();
        clickAt(mesh_);
        EXPECT_TRUE(written("click MAIN ChkButton 4\n"));
        const unsigned long main = hand::FocusWindow();
        QThread::msleep(50);
        press("s", "click MAIN ChkButton 11\n");
        EXPECT_TRUE(Comes([main] { return hand::FocusWindow() != 0 && hand::FocusWindow() != main; }, 2));
        QThread::msleep(50);
        hand::Key("Return");
        return endAfter(*process, ms, [this] { return ReadBytes(project_) != plain_; });
    }

    double analysed(double ms) const {
        const auto process = start();
        clickAt(analysis_);
        return endAfter(*process, ms, [this] { return ReadBytes(path(".HSP")) == meshed_; });
    }

    // The mesh is made, and a copy written while the person pauses.
    double kept(double ms) const {
        const auto process = start();
        clickAt(mesh_);
        EXPECT_TRUE(written("click MAIN ChkButton 4\n"));
        return endAfter(*process, ms, [this] { return copies() == 1; });
    }

    // With a copy there, the project is left for a new one, and the session ends by a signal, which writes over it.
    double keptOver(double ms) const {
        const auto process = start();
        clickAt(mesh_);
        EXPECT_TRUE(Comes([this] { return copies() == 1; }, 5));
        press("n", "click MAIN ChkButton 9\n");
        QThread::msleep(50);
        process->terminate();
        return endAfter(*process, ms, [&] { return process->waitForFinished(1); });
    }

    QPoint mesh_ = PlaceOf(kAutoMeshTool), analysis_ = PlaceOf(kAnalysisTool); // its desk has its own folder
    Machine machine_;
    std::string project_ = path(".POL"), record_ = machine_.home.file("kayit.txt");
    std::string plain_, meshed_;
    Results older_, newer_;
    double saveTime_ = 0, analysisTime_ = 0, copyTime_ = 0, overTime_ = 0;
    std::mt19937 random_;
    std::map<std::string, int> table_;
};

} // namespace

TEST(kills, LeaveWhatWasThereOrWhatIsNewAndACopyThatOpens) {
    const char *wanted = std::getenv("HAVUZ_KILLS"), *seed = std::getenv("HAVUZ_SEED");
    const int kills = wanted == nullptr ? 8 : std::atoi(wanted);
    Killed killed;
    if (HasFailure())
        return;
    killed.begin(seed == nullptr ? 1 : static_cast<unsigned>(std::atoi(seed)));
    for (int k = 0; k < kills && !testing::Test::HasFatalFailure(); ++k) {
        SCOPED_TRACE(k);
        killed.kill(k % 4);
        if (k % 20 == 7)
            killed.open();
    }
    killed.print();
}

} // namespace havuz
