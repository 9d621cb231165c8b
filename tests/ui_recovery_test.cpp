// Copies of unsaved work: one file a session, offered at the next start until opened or thrown away.
#include "hand_models.h"
#include "model/files.h"
#include "model/options.h"
#include "model/project_file.h"
#include "support.h"
#include "ui/window/recovery.h"
#include "ui/window/transactions.h"
#include "ui_support.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace havuz {

namespace fs = std::filesystem;

namespace {

struct Session {
    explicit Session(const std::string &state, const std::string &project = "") {
        ResetAll();
        desk.main.recovery = std::make_unique<Recovery>(state);
        desk.main.Start(project);
    }
    Desk desk;
};

std::vector<std::string> FilesOf(const std::string &folder) {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto &entry : fs::directory_iterator(folder, none))
        names.push_back(entry.path().filename().string());
    return names;
}

// A process that keeps a copy of the model and is killed.
void KillASession(const std::string &state) {
    const pid_t child = fork();
    if (child == 0) {
        Recovery recovery(state);
        recovery.keep("");
        kill(getpid(), SIGKILL);
    }
    waitpid(child, nullptr, 0);
}

} // namespace

TEST(Recovery, WhatEndsTheProgramWithUnsavedWorkLeavesItForTheNextStart) {
    const TemporaryFolder state;
    {
        Session session(state.file("havuz"));
        ProjeIsmi = "Gebze, \"12x6\"";
        AddPanel(1, {0, 0, 3}, {4, 0, 3}, {4, 0, 0}, {0, 0, 0});
        session.desk.main.steps().begin();
        session.desk.click(kGeneralDataTool);
        session.desk.window.Type({"POOLGEN", "Tex", 2}, "1234");
        session.desk.window.Press(Key::Escape);
        session.desk.click(kEndButton);
        EXPECT_EQ(EndStatus([&] { session.desk.click({"ENDKONT", "Tamam", 0}); }), 0);
    }
    const Recovery later(state.file("havuz"));
    ASSERT_EQ(later.left().size(), 1U);
    EXPECT_EQ(later.left()[0].reason, "PROGRAM SONU");
    EXPECT_EQ(later.left()[0].title, "Gebze, \"12x6\"");

    Session next(state.file("havuz"));
    EXPECT_EQ(PanelCount, 0);
    ASSERT_TRUE(next.desk.window.FormShown("KURTAR"));
    EXPECT_TRUE(next.desk.window.formState(kMain).enabled);
    EXPECT_EQ(next.desk.window.offered.size(), 1U);
    next.desk.click({"KURTAR", "Tamam", 0}); // one click opens
    EXPECT_EQ(PanelCount, 1);
    EXPECT_EQ(ZeminKo, 1234);
    EXPECT_EQ(ProjeIsmi, "Gebze, \"12x6\"");
    EXPECT_EQ(ProjeYolu + ProjeAdi, "");
    EXPECT_EQ(next.desk.window.formState(kMain).caption, "adsız* - HAVUZ");
    EXPECT_TRUE(next.desk.window.remembered.empty());
    EXPECT_TRUE(next.desk.window.offered.empty());
    EXPECT_TRUE(later.left().empty()) << "it is this session's own now";
    EXPECT_EQ(FilesOf(state.file("havuz")).size(), 2U);
    next.desk.click(kSaveTool);
    next.desk.window.Click({"BILGI", "Tamam", 0});
    EXPECT_EQ(next.desk.prompt().rfind("SAKLANDI: ", 0), 0U);
    EXPECT_NE(next.desk.prompt().find("OKUNAMAZ"), std::string::npos) << "the title breaks the file";
    EXPECT_TRUE(fs::exists(CalismaDizini + "/HAVUZ.POL"));
    EXPECT_EQ(FilesOf(state.file("havuz")).size(), 1U) << "saved: only the lock is left";
}

TEST(Recovery, KilledSessionsAreOfferedOneByOneAndLiveOnesAreNot) {
    const TemporaryFolder state;
    ResetAll();
    AddNode(1, 2, 3);
    for (int i = 0; i < 3; ++i)
        KillASession(state.path());
    Recovery alive(state.path());
    alive.keep("");
    WriteBytes(state.file("20200101-000000-1.POL.tmpAbCdEf"), "half");
    WriteBytes(state.file("baska.POL"), "no copy of ours");
    WriteBytes(state.file("baska.txt"), "nor this");
    ASSERT_EQ(Recovery(state.path()).left().size(), 3U);
    EXPECT_FALSE(fs::exists(state.file("20200101-000000-1.POL.tmpAbCdEf")));
    EXPECT_TRUE(fs::exists(state.file("baska.POL")) && fs::exists(state.file("baska.txt")));
    Session next(state.path());
    EXPECT_EQ(next.desk.window.Items({"KURTAR", "Kopya", 0}).size(), 3U);
    next.desk.click({"KURTAR", "Sil", 0}); // one click throws away
    EXPECT_EQ(next.desk.window.Items({"KURTAR", "Kopya", 0}).size(), 2U);
    next.desk.click({"KURTAR", "Iptal", 0});
    ASSERT_EQ(next.desk.window.offered.size(), 2U);
    next.desk.window.OpenFile(next.desk.window.offered[1].path); // from the recent projects
    EXPECT_EQ(NoktaCount, 1);
    EXPECT_EQ(Recovery(state.path()).left().size(), 1U);
    ASSERT_EQ(next.desk.window.offered.size(), 1U) << "the other one still is";
}

TEST(Recovery, AFileThatIsNoCopyAndAFullDiskAreTold) {
    const TemporaryFolder state;
    Session session(state.path());
    WriteBytes(state.file("x.POL"), "title\r\nno number\r\n");
    session.desk.window.OpenFile(state.file("x.POL"));
    EXPECT_NE(session.desk.prompt().find("YAPILAMADI"), std::string::npos) << session.desk.prompt();
    Recovery nowhere("/proc/none");
    EXPECT_THROW(nowhere.keep(""), RuntimeFailure);
    EXPECT_TRUE(nowhere.left().empty());
    Session working("/proc/none");
    working.desk.main.steps().edit(kGeneralDataTool, [] { ZeminKo = 77; });
    working.desk.click(kVerticalPlateTool);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100)); // a pause
    working.desk.window.Tick();
    working.desk.window.Tick();
    EXPECT_EQ(working.desk.prompt().rfind("KURTARMA KOPYASI YAZILAMADI, DOSYA HATASI: /proc/none", 0), 0U)
        << working.desk.prompt();
    EXPECT_EQ(CommandState, kVerticalPlate) << "the person goes on";
}

TEST(Recovery, TheDirectoryFollowsTheEnvironment) {
    const char *before = std::getenv("XDG_STATE_HOME");
    const std::string kept = before == nullptr ? "" : before;
    setenv("XDG_STATE_HOME", "/a/b", 1);
    EXPECT_EQ(Recovery::UsualDirectory(), "/a/b/havuz");
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(Recovery::UsualDirectory(), std::string(std::getenv("HOME")) + "/.local/state/havuz");
    if (before != nullptr)
        setenv("XDG_STATE_HOME", kept.c_str(), 1);
}

} // namespace havuz
