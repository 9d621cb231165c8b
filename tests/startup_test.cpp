// The start sequence: option files, directories, defaults, the project of the command line, failures.
#include "model/files.h"
#include "model/options.h"
#include "model/platform.h"
#include "model/startup.h"
#include "model/store.h"
#include "model/working_directory.h"
#include "program_folder.h"
#include "support.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace havuz {

namespace {

namespace fs = std::filesystem;

struct RecordingWindow : StartWindow {
    std::string log;
    bool instance = false;
    bool AnotherInstanceRuns() override { return instance; }
    void TakePlanState() override { log += "plan "; }
    void PutFirstState() override { log += "first "; }
    void ComputeExtents() override { log += "extents "; }
    void DrawMeshes() override { log += "meshes "; }
    void DrawPlates() override { log += "plates "; }
    void SetUpDynamicView() override { log += "dynamic "; }
    void EnableMainWindow() override { log += "enable "; }
    void ReportFailure(const std::string &what) override { failure = what; }
    std::string failure;
};

int EndOf(const std::string &commandLine, RecordingWindow &window) {
    try {
        StartProgram(commandLine, HAVUZ_CLI, window);
    } catch (const ProgramEnd &end) {
        return end.status;
    }
    return -1;
}

} // namespace

TEST(Start, WithoutAProjectEndsInThePlanViewOfAnEmptyModel) {
    const ProgramFolder program;
    RecordingWindow window;
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(window.log, "first plan plates dynamic ");
    EXPECT_EQ(ProgramDizini, program.path());
    EXPECT_EQ(CalismaDizini, program.path() + "/VEK9DATA");
    EXPECT_EQ(BetonTablosu[3], 250);
    EXPECT_EQ(CelikTablosu[5], 5000);
    EXPECT_EQ(YukFaktorP, 1.6);
    EXPECT_EQ(Fck, 200); // whatever the card holds
    EXPECT_EQ(IsoView, 0);
    EXPECT_EQ(DonatiCaplari[1], 8);
}

TEST(Start, AProjectOfTheCommandLineLosesItsPoolParameters) {
    const ProgramFolder program;
    WriteBytes(program.file("P.POL"), "t\r\n1,0,0,0,1\r\n0,1,2,3,4,5,6\r\n9,9,9,9,9,9,9,9,9,9,9\r\n");
    RecordingWindow window;
    EXPECT_EQ(EndOf(program.file("P"), window), -1);
    EXPECT_EQ(window.log, "first extents meshes dynamic ");
    EXPECT_EQ(ZeminGzem, 2);
    EXPECT_EQ(Lx, 10);
    EXPECT_EQ(Bk, 1);
    EXPECT_EQ(IsoView, 1);
    EXPECT_EQ(ProjeAdi, "P");
    EXPECT_EQ(ProjeYolu, program.file("P"));
}

TEST(Start, FailuresEndTheProgramWithStatusOneAndOneLine) {
    for (const char *missing : {"VEKCARD.OPS", "DIMS.OPS", "VEK9DATA/WORKING"}) {
        const ProgramFolder program;
        fs::remove(program.file(missing));
        RecordingWindow window;
        EXPECT_EQ(EndOf("", window), 1);
        EXPECT_EQ(window.log.substr(window.log.size() - 7), "enable ");
        EXPECT_EQ(window.failure, program.file(missing) + ": cannot be opened (No such file or directory)");
    }
    const ProgramFolder program;
    RecordingWindow window;
    EXPECT_EQ(EndOf(program.file("NONE"), window), 1);
    WriteBytes(program.file("VEKCARD.OPS"), "x\r\n1,2,what,4,5,6,7\r\n1,2,3,4,5\r\n160,abc\r\n");
    EXPECT_EQ(EndOf("", window), 1);
    EXPECT_EQ(window.failure,
              program.file("VEKCARD.OPS") + ": line 4, field 2 (record(4) value): \"abc\" is not a number");
}

TEST(Start, ASecondInstanceEndsAtOnceAndSilently) {
    const ProgramFolder program;
    RecordingWindow window;
    window.instance = true;
    EXPECT_EQ(EndOf("", window), 0);
    EXPECT_EQ(window.log + window.failure, "");
}

TEST(Start, TheWorkingDirectory) {
    const ProgramFolder program;
    const TemporaryFolder data;
    WriteBytes(data.file("WORKING"), "x");
    RecordingWindow window;
    const std::string drive = platform::LocalPath("C:/x") == "/x" ? "C:" : ""; // dropped, where there are none
    const std::string inner = drive + data.path() + "\\\r\n";                  // separators turned
    WriteBytes(program.file("working.dir"), inner);                            // whatever the case of its name
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(CalismaDizini, data.path());
    for (const char *named : {"G\xC3\xB6let", "\xDDnt"}) { // by its bytes, else by the code page
        const std::string directory = data.file(named[0] == 'G' ? "Gölet" : "İnt");
        std::filesystem::create_directory(directory);
        WriteBytes(directory + "/WORKING", "x");
        WriteBytes(program.file("working.dir"), data.path() + "/" + named + "\r\n");
        EXPECT_EQ(EndOf("", window), -1);
        EXPECT_EQ(CalismaDizini, directory);
    }
    const HomeAt home(data.path());
    WriteBytes(program.file("working.dir"), "~");
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(CalismaDizini, data.path());
    for (const char *fallsBack : {"/no/such/directory\r\n", ""}) {
        WriteBytes(program.file("working.dir"), fallsBack);
        EXPECT_EQ(EndOf("", window), -1);
        EXPECT_EQ(CalismaDizini, program.path() + "/VEK9DATA");
    }
}

TEST(Start, TheWorkingDirectoryInTheHomeIsMadeOnceAndLeftAlone) {
    const ProgramFolder program;
    const TemporaryFolder home;
    const HomeAt ours(home.path());
    const auto prepare = [&](const std::string &field) {
        WriteBytes(program.file("WORKING.DIR"), field);
        PrepareWorkingDirectory("");
    };
    for (const char *elsewhere : {"", "~someone/Havuz\r\n", "no/such\r\n"}) {
        prepare(elsewhere);
        EXPECT_TRUE(fs::is_empty(home.path())) << elsewhere;
    }
    WriteBytes(program.file("VEK9DATA/WORKING"), "sample\r\n");
    prepare("~\\Belgeler\\Havuz\r\n");
    EXPECT_EQ(ReadBytes(home.file("Belgeler/Havuz/WORKING")), "sample\r\n");
    RecordingWindow window;
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(CalismaDizini, home.file("Belgeler/Havuz"));

    WriteBytes(home.file("Belgeler/Havuz/WORKING"), "mine");
    prepare("~/Belgeler/Havuz");
    EXPECT_EQ(ReadBytes(home.file("Belgeler/Havuz/WORKING")), "mine");
    fs::remove(home.file("Belgeler/Havuz/WORKING"));
    fs::remove(program.file("VEK9DATA/WORKING"));
    prepare("~/Belgeler/Havuz");
    EXPECT_EQ(ReadBytes(home.file("Belgeler/Havuz/WORKING")), "HAVUZ\r\n");

    WriteBytes(home.file("file"), "x");
    const Failed failed = FailureOf([&] { prepare("~/file/Havuz"); });
    EXPECT_EQ(failed.kind, File);
    EXPECT_EQ(failed.words.rfind(home.file("file/Havuz: "), 0), 0U) << failed.words;
    const HomeAt none(""); // "~" stays a name then, and nothing is made by it
    prepare("~/havuz-none");
    EXPECT_FALSE(fs::exists("~"));
}

TEST(Start, TheLoadFactorFile) {
    const ProgramFolder program;
    RecordingWindow window;
    const std::tuple<const char *, double, double> cases[] = {{"x\r\n1.2,1.5,0,0,0\r\n", 1.2, 1.5}, {"x\r\n", 0, 0}};
    for (const auto &[text, g, p] : cases) {
        WriteBytes(program.file("VEK9.COD"), text);
        EXPECT_EQ(EndOf("", window), -1);
        EXPECT_EQ(YukFaktorG, g);
        EXPECT_EQ(YukFaktorP, p);
    }
    fs::remove(program.file("VEK9.COD"));
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(YukFaktorG, 1.4);
}

TEST(Start, TheFontIsIndexedByItsSignedCodes) {
    const ProgramFolder program;
    WriteBytes(program.file("ROMANS.FON"), std::string("A\0....A\0....\xFF\xFF....B\0..", 22));
    RecordingWindow window;
    EXPECT_EQ(EndOf("", window), -1);
    EXPECT_EQ(FontTablosu[65].first, 1);
    EXPECT_EQ(FontTablosu[65].last, 2);
    EXPECT_EQ(FontTablosu[-1].last, 3);
    EXPECT_EQ(FontTablosu.count(66), 0U); // a rest of 4 bytes is no record
}

TEST(Start, TheProgramDirectoryOfAnInstalledProgram) {
    const ProgramFolder program;
    unsetenv("HAVUZ_HOME");
    EXPECT_EQ(FindProgramDirectory("/opt/x/bin/havuz"), "/opt/x/share/havuz");
    EXPECT_EQ(FindProgramDirectory(program.file("havuz-cli")), program.path());
    setenv("HAVUZ_HOME", "/a/VBVEK/b", 1);
    EXPECT_EQ(FindProgramDirectory("/opt/x/bin/havuz"), platform::LocalPath("C:/VEK9V12"));
}

} // namespace havuz
