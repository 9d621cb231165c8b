// Writing without loss: links, pipes, devices, read-only files, backups, files of dead processes, several at once; the
// lock of an analysis.
#include "model/project_lock.h"
#include "model/write_file.h"
#include "support.h"

#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace havuz {

namespace fs = std::filesystem;

namespace {

std::set<std::string> NamesIn(const TemporaryFolder &folder) {
    std::set<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder.path()))
        names.insert(entry.path().filename().string());
    return names;
}

// The number of a process that is no more, or of one that is over while nobody has asked about it.
pid_t DeadProcess(bool asked = true) {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    siginfo_t over = {};
    waitid(P_PID, static_cast<id_t>(child), &over, WEXITED | (asked ? 0 : WNOWAIT));
    return child;
}

std::string WordsOf(const std::string &path) {
    return FailureOf([&path] { WriteWholeFile(path, "new"); }).words;
}

} // namespace

TEST(WriteFile, LinksAreFollowedAlsoWhereNothingIs) {
    const TemporaryFolder folder;
    fs::create_directory(folder.file("there"));
    fs::create_symlink("there/file", folder.file("link"));
    for (const char *bytes : {"first", "second"}) {
        WriteWholeFile(folder.file("link"), bytes);
        EXPECT_EQ(ReadBytes(folder.file("there/file")), bytes);
        EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    }
    fs::create_symlink("b", folder.file("a"));
    fs::create_symlink("a", folder.file("b"));
    EXPECT_NE(WordsOf(folder.file("a")).find("cannot be created"), std::string::npos);
}

TEST(WriteFile, PipesAndDevicesAreWrittenStraightOrRefusedByName) {
    const TemporaryFolder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(WordsOf(pipe).rfind(pipe + ": cannot be opened", 0), 0U);
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    WriteWholeFile(pipe, "through");
    char got[16] = {};
    EXPECT_EQ(read(reader, got, sizeof got), 7);
    EXPECT_STREQ(got, "through");
    close(reader);
    EXPECT_EQ(FailureOf([&pipe] { const BesideFile file(pipe, Special::Refused); }).words, pipe + ": is no plain file");
    int channel[2] = {};
    ASSERT_EQ(::pipe(channel), 0);
    WriteWholeFile("/dev/fd/" + std::to_string(channel[1]), "nameless");
    EXPECT_EQ(read(channel[0], got, sizeof got), 8);
    close(channel[0]);
    close(channel[1]);
    WriteWholeFile("/dev/null", "away");
    EXPECT_EQ(WordsOf("/dev/full").rfind("/dev/full: cannot be written", 0), 0U);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"pipe"});
}

TEST(WriteFile, AReadOnlyFileIsRefusedAndStays) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("file"), "old");
    chmod(folder.file("file").c_str(), 0444);
    EXPECT_EQ(WordsOf(folder.file("file")), folder.file("file") + ": is read-only"); // also for root
    EXPECT_EQ(ReadBytes(folder.file("file")), "old");
    EXPECT_EQ(NamesIn(folder), std::set<std::string>{"file"});
}

TEST(WriteFile, OneBackupOfTheFileBefore) {
    const TemporaryFolder folder;
    const std::string file = folder.file("P.POL");
    for (const char *bytes : {"one", "two", "two", "three", "three"})
        WriteWholeFile(file, bytes, Backup::Kept);
    EXPECT_EQ(ReadBytes(file), "three");
    EXPECT_EQ(ReadBytes(file + "~"), "two"); // the same bytes again lose nothing
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"P.POL", "P.POL~"}));
    fs::remove(file + "~");
    fs::create_hard_link(file, file + "~"); // a kill between backup and rename leaves this
    WriteWholeFile(file, "four", Backup::Kept);
    EXPECT_EQ(ReadBytes(file + "~"), "three");
    fs::remove(file + "~");
    fs::create_directory(file + "~");
    EXPECT_TRUE(FailureOf([&file] { WriteWholeFile(file, "five", Backup::Kept); }).failed);
    EXPECT_EQ(ReadBytes(file), "four");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"P.POL", "P.POL~"}));
}

TEST(WriteFile, FilesOfDeadProcessesAreSwept) {
    const TemporaryFolder folder;
    const std::string stale = "P.POL.tmp" + std::to_string(DeadProcess()) + "-7";
    const pid_t over = DeadProcess(false);
    WriteBytes(folder.file("P.POL.tmp" + std::to_string(over) + "-1"), "x");
    const std::string alive = "P.POL.tmp" + std::to_string(getppid()) + "-7";
    for (const std::string &name : {stale, alive, std::string("P.POL.tmp12x-1"), "XX" + stale, stale + "0x"})
        WriteBytes(folder.file(name), "x");
    WriteWholeFile(folder.file("P.POL"), "new");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"P.POL", alive, "P.POL.tmp12x-1", "XX" + stale, stale + "0x"}));
    waitpid(over, nullptr, 0);
}

TEST(WriteFile, SeveralFilesTakeTheirPlacesTogetherOrNone) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("a"), "old a, longer");
    {
        BesideFile a(folder.file("a")), b(folder.file("b"));
        a.write("new a");
        a.keepTail();
        b.write("new b");
        ReplaceTogether({&a, &b});
    }
    EXPECT_EQ(ReadBytes(folder.file("a")), "new a, longer");
    EXPECT_EQ(ReadBytes(folder.file("b")), "new b");
    {
        BesideFile a(folder.file("a")), b(folder.file("b"));
        a.write("third a");
        b.write("third b");
        fs::remove(folder.file("b"));
        fs::create_directories(folder.file("b/inside")); // it can be set aside, and comes back
        fs::remove(b.path());
        EXPECT_TRUE(FailureOf([&] { ReplaceTogether({&a, &b}); }).failed);
    }
    EXPECT_EQ(ReadBytes(folder.file("a")), "new a, longer");
    EXPECT_EQ(NamesIn(folder), (std::set<std::string>{"a", "b"}));
    EXPECT_TRUE(fs::is_directory(folder.file("b/inside")));
}

TEST(ProjectLock, OneAnalysisAtATime) {
    const TemporaryFolder folder;
    const std::string project = folder.file("P");
    WriteBytes(project + ".LCK", std::to_string(DeadProcess()) + "\n"); // left by a killed run
    {
        const ProjectLock lock(project);
        EXPECT_EQ(FailureOf([&project] { const ProjectLock second(project); }).words,
                  project + ": is being analysed by process " + std::to_string(getpid()));
    }
    EXPECT_FALSE(fs::exists(project + ".LCK"));
    const ProjectLock again(project);
}

} // namespace havuz
