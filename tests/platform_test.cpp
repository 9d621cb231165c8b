// What the program asks of its system, on each system alike: names, replacing, locks, files without a name.
#include "model/files.h"
#include "model/platform.h"
#include "model/write_file.h"
#include "support.h"

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

TEST(Platform, NamesOfDrivesBackslashesLetterCaseAndTurkishLetters) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(std::filesystem::path(folder.file("Çalışma")));
    const std::string path = LocalPath(folder.path() + "\\Çalışma\\Şişli havuzu.POL");
    WriteWholeFile(path, "bir");
    WriteWholeFile(path, "iki", Backup::Kept);
    EXPECT_EQ(ReadBytes(folder.file("Çalışma/Şişli havuzu.POL")), "iki");
    EXPECT_EQ(ReadWholeFile(path + "~"), "bir");
    EXPECT_EQ(ReadWholeFile(FindFile(folder.file("Çalışma/Şişli HAVUZU.pol"))), "iki");
    EXPECT_EQ(FailureOf([&] { ReadWholeFile(folder.file("Çalışma")); }).words,
              folder.file("Çalışma") + ": is a directory");
    platform::SetEnvironment("HAVUZ_TRY", "Ğüşİı");
    EXPECT_EQ(platform::Environment("HAVUZ_TRY"), "Ğüşİı");
#ifdef _WIN32
    EXPECT_EQ(LocalPath("C:\\VEK9V12\\A.POL"), "C:/VEK9V12/A.POL");
#else
    EXPECT_EQ(LocalPath("C:\\VEK9V12\\A.POL"), "/VEK9V12/A.POL");
#endif
    EXPECT_EQ(LocalPath("~\\A.POL"), platform::HomeDirectory() + "/A.POL");
}

TEST(Platform, AFileIsReplacedWhileItIsReadAndRemovedWhileItIsLocked) {
    const TemporaryFolder folder;
    const std::string path = folder.file("A");
    WriteWholeFile(path, "old");
    const int reader = platform::OpenFile(path, platform::Opened::Read);
    ASSERT_GE(reader, 0);
    const Failed refused = FailureOf([&] { WriteWholeFile(path, "new one"); });
#ifndef _WIN32 // whose older file systems keep a file that is open
    EXPECT_FALSE(refused.failed) << refused.words;
#endif
    std::string seen(8, ' ');
    EXPECT_EQ(platform::Read(reader, seen.data(), seen.size()), 3);
    EXPECT_EQ(platform::StandsAt(reader, path), refused.failed);
    EXPECT_TRUE(platform::CloseFile(reader));
    EXPECT_EQ(ReadBytes(path), refused.failed ? "old" : "new one");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1); // nothing half written
    WriteWholeFile(path, "new one");                                                     // nobody holds it
    EXPECT_EQ(ReadBytes(path), "new one");

    const int first = platform::OpenFile(path, platform::Opened::Shared);
    const int second = platform::OpenFile(path, platform::Opened::Present);
    EXPECT_TRUE(platform::Lock(first));
    EXPECT_FALSE(platform::Lock(second));
    EXPECT_EQ(platform::ReadAt(second, seen.data(), seen.size(), 4), 3); // what is locked is still read
    EXPECT_TRUE(platform::StandsAt(first, path));
    platform::CloseFile(second);
    EXPECT_TRUE(platform::Remove(path.c_str()));
    platform::CloseFile(first);
    EXPECT_EQ(platform::StateOf(path).kind, platform::Kind::None);
}

TEST(Platform, ANamelessFileIsWrittenAnywhereAndLeavesNothing) {
    const TemporaryFolder folder;
    const int file = platform::OpenNameless(folder.path());
    ASSERT_GE(file, 0);
    EXPECT_EQ(platform::WriteAt(file, "abc", 3, 1000), 3);
    EXPECT_EQ(platform::SizeOf(file), 1003);
    platform::CloseFile(file);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_EQ(platform::OpenNameless(folder.file("missing")), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(Platform, ALivingProcessIsNotGone) {
    EXPECT_FALSE(platform::IsGone(platform::ProcessNumber()));
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(platform::OwnProgram())));
}

} // namespace havuz
