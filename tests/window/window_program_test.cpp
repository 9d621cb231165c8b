// The program itself as a process on the display: its start, its record, its single instance, its ends.
#include "hand_models.h"
#include "model/platform.h"
#include "model/project_file.h"
#include "session_manager.h"
#include "ui/window/recovery.h"
#include "window_machine.h"
#include "x_hand.h"

#include <QImage>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

// The keyboard alone: a project is opened, a dialog opens and closes, the record tells of it and plays again.
TEST(program, RecordsWhatIsDoneAndOneInstanceRuns) {
    const Machine machine;
    const std::string project = machine.home.file("P.POL"), record = machine.home.file("kayit.txt");
    std::filesystem::copy_file(std::string(HAVUZ_SOURCE_DIR) + "/examples/sample_pool.POL", project);
    const auto process = machine.start({QString::fromStdString(project), "--record", QString::fromStdString(record)});
    const auto written = [&](const std::string &words) {
        return Comes([&] { return ReadBytes(record).find(words) != std::string::npos; });
    };
    ASSERT_TRUE(written("surface 1010 600\n"));
    ASSERT_TRUE(Comes([] { return hand::FocusWindow() != 0; }));
    const unsigned long main = hand::FocusWindow();
    const auto second = machine.start({});
    EXPECT_EQ(StatusOf(*second), 0) << second->readAllStandardError().toStdString();
    hand::Key("s", true);
    ASSERT_TRUE(written("click MAIN ChkButton 11\n"));
    ASSERT_TRUE(Comes([&] { return hand::FocusWindow() != 0 && hand::FocusWindow() != main; }));
    hand::Key("a", true);
    hand::Write("YENI");
    hand::Key("Return");
    ASSERT_TRUE(written("key BILGI Tex Enter\n"));
    EXPECT_TRUE(Comes([&] { return std::filesystem::exists(machine.program.file("VEK9DATA/YENI.POL")); }));
    process->terminate();
    process->waitForFinished(kPatience);

    QProcess replay;
    replay.setWorkingDirectory(QString::fromStdString(machine.home.path()));
    replay.start(HAVUZ_CLI, {"script", QString::fromStdString(record), "--project", QString::fromStdString(project)});
    EXPECT_EQ(StatusOf(replay), 0) << replay.readAllStandardError().toStdString() << ReadBytes(record);
    EXPECT_EQ(ReadBytes(machine.home.file("YENI.POL")), ReadBytes(machine.program.file("VEK9DATA/YENI.POL")));
}

// Ctrl+Z and Ctrl+Shift+Z; a signal leaves the unsaved model, and the next start offers it: Enter opens. A signal comes
// twice, as from a terminal that closes.
TEST(program, TakesBackByKeysAndLeavesItsWorkToTheNextStart) {
    const Machine machine;
    const std::string project = machine.home.file("P.POL"), record = machine.home.file("kayit.txt");
    std::filesystem::copy_file(std::string(HAVUZ_SOURCE_DIR) + "/examples/sample_pool.POL", project);
    const auto written = [&](const std::string &words) {
        return Comes([&] { return ReadBytes(record).find(words) != std::string::npos; });
    };
    const auto copies = [&] {
        int count = 0;
        std::error_code none;
        for (const auto &entry : std::filesystem::directory_iterator(machine.home.file("havuz"), none))
            count += entry.path().extension() == ".POL" ? 1 : 0;
        return count;
    };
    for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        std::signal(signal, SIG_DFL); // what is ignored here is ignored there
        std::filesystem::remove(record);
        for (const RecoveryCopy &copy : Recovery(machine.home.file("havuz")).left())
            Recovery::remove(copy);
        const auto process =
            machine.start({QString::fromStdString(project), "--record", QString::fromStdString(record)});
        ASSERT_TRUE(written("surface 1010 600\n"));
        ASSERT_TRUE(Comes([] { return hand::FocusWindow() != 0; }));
        QThread::msleep(300); // the program hears of the keyboard later than the server tells
        hand::Key("n", true);
        ASSERT_TRUE(written("click MAIN ChkButton 9\n"));
        hand::Key("z", true);
        ASSERT_TRUE(written("click MAIN TopBar 4\n"));
        hand::Key("z", true, true);
        ASSERT_TRUE(written("click MAIN TopBar 3\n"));
        const bool killed = signal == SIGKILL;
        ASSERT_TRUE(!killed || Comes([&] { return copies() == 1; })); // while the person pauses
        for (int times = 0; times < 4; ++times) {
            kill(static_cast<pid_t>(process->processId()), signal);
            QThread::usleep(300); // the one before is taken, and the copy is being written
        }
        EXPECT_EQ(StatusOf(*process), killed ? -1 : 128 + signal);
        ASSERT_EQ(copies(), 1);
        EXPECT_EQ(Recovery(machine.home.file("havuz")).left().at(0).reason,
                  killed ? "" : "PROGRAM KAPATILDI (" + platform::SignalName(signal) + ")");
        std::filesystem::remove(record);
        WriteBytes(machine.home.file("havuz/havuz.ini.lock"), ""); // of settings that it was just writing
        const auto next = machine.start({"--record", QString::fromStdString(record)});
        ASSERT_TRUE(written("# no project\nsurface 1010 600\n"));
        ASSERT_TRUE(Comes([] { return hand::FocusWindow() != 0; }));
        QThread::msleep(300);
        hand::Key("Return");
        EXPECT_TRUE(written("key KURTAR Kopya Enter\n")) << ReadBytes(record);
        EXPECT_TRUE(Comes([&] { return copies() == 1; }));
        next->terminate();
        EXPECT_EQ(StatusOf(*next), 128 + SIGTERM) << "a stale lock of the settings holds it up";
    }
}

// A desktop's session manager logs the person out: the work is kept when it asks to save, and the program goes when it
// asks to go, with no confirmation.
TEST(program, LeavesItsWorkWhenThePersonLogsOut) {
    const Machine machine;
    const std::string project = machine.home.file("P.POL"), record = machine.home.file("kayit.txt");
    std::filesystem::copy_file(std::string(HAVUZ_SOURCE_DIR) + "/examples/sample_pool.POL", project);
    SessionManager manager;
    const auto process = machine.start({QString::fromStdString(project), "--record", QString::fromStdString(record)});
    ASSERT_TRUE(manager.serveUntil([&] { return manager.hasClient() && manager.saved(); }));
    ASSERT_TRUE(manager.serveUntil([] { return hand::FocusWindow() != 0; }));
    ASSERT_TRUE(manager.serveUntil([&] {
        hand::Key("n", true);
        return ReadBytes(record).find("click MAIN ChkButton 9\n") != std::string::npos;
    }));
    manager.askToSave();
    ASSERT_TRUE(manager.serveUntil([&] { return manager.saved(); }));
    std::string kept; // the work is on the disk before the manager hears of it
    for (const auto &entry : std::filesystem::directory_iterator(machine.home.file("havuz")))
        if (const auto copy = ReadRecoveryCopy(entry.path().string()))
            kept += copy->reason;
    EXPECT_EQ(kept, "OTURUM SONU");
    const Recovery next(machine.home.file("havuz"));
    EXPECT_TRUE(next.left().empty()) << "the program lives";
    manager.askToGo();
    ASSERT_TRUE(manager.serveUntil([&] {
        process->waitForFinished(1);
        return process->state() == QProcess::NotRunning;
    }));
    EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process->exitCode(), 0);
    ASSERT_EQ(next.left().size(), 1U);
    EXPECT_EQ(next.left()[0].reason, "OTURUM SONU");
}

TEST(program, AStartThatFailsEndsWithOneLineAndStatusOne) {
    const Machine machine;
    const auto missing = machine.start({"YOK"});
    EXPECT_EQ(StatusOf(*missing), 1);
    EXPECT_NE(missing->readAllStandardError().toStdString().find("havuz: "), std::string::npos);
    std::filesystem::remove(machine.program.file("VEKCARD.OPS"));
    const auto empty = machine.start({});
    EXPECT_EQ(StatusOf(*empty), 1);
    const auto wrong = machine.start({"--no-such-option"});
    EXPECT_EQ(StatusOf(*wrong), 2);
    const auto blind = machine.start({}, {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
    EXPECT_EQ(StatusOf(*blind), 1);
    EXPECT_NE(blind->readAllStandardError().toStdString().find("havuz: no display"), std::string::npos);
}

// A wall in the plane of Y and Z, 3 m long and 6 m high. Turned by 90 degrees about Y alone its Z lies along the
// picture and its X along the eye, so that by hand: 6 m and 3 m at an eye distance of 1000 m, the far edge 1000/994 of
// its size, fill 700 pixels from 30 on, and half of that downward.
TEST(program, TheAnglesOfAPictureAreDegrees) {
    ResetAll();
    AddPanel(1, {0, 0, 6}, {0, -3, 6}, {0, -3, 0}, {0, 0, 0});
    const TemporaryFolder folder;
    WriteBytes(folder.file("W.POL"), ProjectText());
    const std::string render = " render W.POL -o W.png --angles 0,90 --size 805x605";
    ASSERT_EQ(std::system(("cd " + folder.path() + " && " + HAVUZ_CLI + render).c_str()), 0);
    QImage picture;
    ASSERT_TRUE(picture.load(QString::fromStdString(folder.file("W.png"))));
    int left = 740, right = 0, top = 560, bottom = 0; // the axes stand beyond
    for (int y = 0; y < 560; ++y)
        for (int x = 0; x < 740; ++x)
            if (picture.pixel(x, y) != picture.pixel(1, 1)) {
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
    EXPECT_NEAR(left, 30, 1);
    EXPECT_NEAR(right, 730, 1);
    EXPECT_NEAR(top, 30, 1);
    EXPECT_NEAR(bottom, 380, 1);
}

} // namespace havuz
