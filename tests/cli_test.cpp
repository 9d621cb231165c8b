// havuz-cli as a shell sees it: results on standard output, one line of failure on standard error, the exit status, the
// files it leaves.
#include "cli_support.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace havuz {

TEST(Cli, FromParametersToResults) {
    const TemporaryFolder folder;
    EXPECT_EQ(
        Cli(folder, "pool rectangular -o P.POL --set Lx=4 --set Ly=3 --set UstKot=2,5 --set 'YukDurum(3)=0'").status,
        0);
    EXPECT_EQ(Cli(folder, "mesh P.POL").status, 0);
    EXPECT_EQ(Cli(folder, "set P.POL ZeminKo=1500 'FZ(3)=2' 'Sil(2)=1' 'KenarMesnet(1,2)=0' 'D(1)=40'").status, 0);
    const Ended info = Cli(folder, "info p.pol --json"); // whatever the case of its name
    EXPECT_TRUE(Contains(info.out, "\"ZeminKo\": 1500")) << info.out << info.error;
    EXPECT_TRUE(Contains(info.out, "\"pointLoadSum\": [0, 0, 2]"));
    EXPECT_TRUE(Contains(info.out, "\"situations\": [\"liquid and soil\", \"liquid\", \"soil\"]"));
    EXPECT_TRUE(Contains(info.out, "\"resultFiles\": []"));
    const std::string before = ReadBytes(folder.file("P.POL"));
    const Ended run = Cli(folder, "run P.POL --output-program 'printf %s >started'");
    EXPECT_EQ(run.status, 0) << run.error;
    EXPECT_EQ(run.out.rfind("Denklem       : ", 0), 0U);
    EXPECT_TRUE(Contains(run.out, "load column 4: soil\n  greatest settlement"));
    EXPECT_TRUE(Contains(Cli(folder, "info P.POL").out, folder.file("P.SON")));
    EXPECT_EQ(ReadBytes(folder.file("WORKPOOL")), folder.file("P") + "\r\n");
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), before); // a run writes no project
    for (int i = 0; i < 100 && ReadBytes(folder.file("started")).empty(); ++i)
        usleep(20000); // it is not waited for
    EXPECT_EQ(ReadBytes(folder.file("started")), folder.file("P"));
    const std::string dep = ReadBytes(folder.file("P.DEP"));
    const std::string son = ReadBytes(folder.file("P.SON"));
    const Ended quiet = Cli(folder, "run P.POL --quiet");
    EXPECT_EQ(std::count(quiet.out.begin(), quiet.out.end(), '\n'), 3);
    EXPECT_EQ(ReadBytes(folder.file("P.DEP")), dep); // the same bytes again
    EXPECT_EQ(ReadBytes(folder.file("P.SON")), son);
}

// The figures that an engineer reads, of a pool away from the origin: extents, sums, places of the extremes.
TEST(Cli, InfoAndSummaryOfAPoolOffTheOrigin) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "polygon -o P.POL --points '13,-7 19,-7 19,-3 13,-3' --dp 25 --ds 40 --top 4.5 --bottom 1.5")
                  .status,
              0);
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    ASSERT_EQ(Cli(folder,
                  "set P.POL SiviKotu=4 ToprakKotu=3 YeraltiSuKotu=2 'Mesnet(1)=5' 'Mesnet(2)=3' 'FX(5)=-1.5' "
                  "'FZ(7)=2.25' 'YukDurum(2)=0' 'YukKombinasyon(1)=1' 'KenarMesnet(2,3)=1' 'Sil(4)=1' 'G(2)=0.625'")
                  .status,
              0);
    std::string text = Cli(folder, "info P.POL").out;
    ASSERT_EQ(Cli(folder, "set P.POL 'Mesnet(1)=1'").status, 0); // a held translation goes with two load columns only
    const Ended run = Cli(folder, "run P.POL");
    EXPECT_EQ(run.status, 0) << run.error;
    text += "\n" + run.out.substr(0, run.out.find("\nwarning ")); // warnings have tests of their own
    for (std::size_t at; (at = text.find(folder.path())) != std::string::npos;)
        text.replace(at, folder.path().size(), "FOLDER");
    EXPECT_TRUE(MatchesGolden("info_and_summary.txt", text));
}

// Each name at the end of its table and one past it, both ways.
TEST(Cli, NamesAreBoundByTheirTables) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "polygon -o P.POL --points '0,0 4,0 4,3 0,3' --dp 20 --ds 30 --top 3 --bottom 0").status, 0);
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    const std::string json = Cli(folder, "info P.POL --json").out;
    const auto count = [&json](const std::string &key) {
        return std::atoi(json.c_str() + json.find("\"" + key + "\": ") + key.size() + 4);
    };
    const struct {
        const char *name, *table, *behind;
        int first, last;
    } names[] = {{"X", "NoktaTable", "", 1, count("nodes")},
                 {"Mesnet", "NoktaTable", "", 1, count("nodes")},
                 {"FY", "NokYukTable", "", 1, count("nodes")},
                 {"Sil", "MeshTable", "", 1, count("meshes")},
                 {"G", "PanelTable", "", 1, 4},
                 {"Tip", "PanelTable", "", 1, 4},
                 {"KenarMesnet", "PanelTable", ",1", 1, 4},
                 {"Kalinlik", "PlakTable", "", 1, 1},
                 {"YukDurum", "YukDurum", "", 0, 3},
                 {"YukKombinasyon", "YukKombinasyon", "", 0, 2},
                 {"DonatiCaplari", "DonatiCaplari", "", 1, 13}};
    for (const auto &n : names) {
        const auto set = [&](int place) {
            return Cli(folder, std::string("set P.POL '") + n.name + "(" + std::to_string(place) + n.behind + ")=1'");
        };
        EXPECT_EQ(set(n.first).status, 0) << n.name;
        EXPECT_EQ(set(n.last).status, 0) << n.name;
        EXPECT_EQ(set(n.last + 1).error, std::string("havuz-cli: P.POL: ") + n.table + "(" +
                                             std::to_string(n.last + 1) + ") lies outside " + std::to_string(n.first) +
                                             ".." + std::to_string(n.last) + "\n");
        EXPECT_EQ(set(0).status, n.first) << n.name; // 0 is a place of the lists that begin there
    }
    for (const char *edge : {"0", "5"})
        EXPECT_EQ(Cli(folder, std::string("set P.POL 'KenarMesnet(1,") + edge + ")=1'").status, 1);
}

// P.HSP is the project as it was analysed: results are current with it alone.
TEST(Cli, ResultsAreOfThisModelOrOfAnOlderOne) {
    const TemporaryFolder folder;
    const auto results = [&folder] {
        const std::string out = Cli(folder, "info P.POL").out;
        const std::size_t at = out.find("results are");
        return at == std::string::npos ? out : out.substr(at + 34, out.find('\n', at) - at - 34);
    };
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL --set Lx=4 --set Ly=3").status, 0);
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    EXPECT_EQ(results(), "none");
    ASSERT_EQ(Cli(folder, "run P.POL --quiet").status, 0);
    const std::string project = ReadBytes(folder.file("P.POL"));
    EXPECT_EQ(ReadBytes(folder.file("P.HSP")), project);
    EXPECT_EQ(results(), "of this model");
    ASSERT_EQ(Cli(folder, "set P.POL SiviKotu=2.5").status, 0);
    EXPECT_EQ(results(), "of an older model");
    WriteBytes(folder.file("P.POL"), "\"\"" + project); // the same model in another hand
    EXPECT_EQ(results(), "of this model");
    std::filesystem::remove(folder.file("P.HSP"));
    EXPECT_EQ(results(), "of an older model");
}

TEST(Cli, WhatCannotBeIsRefusedAndNothingIsSaved) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    const std::string before = ReadBytes(folder.file("P.POL"));
    for (const char *width : {"0", "-1", "nan", "inf", "1e-9", "1e9"})
        for (const char *command : {"mesh P.POL", "cut P.POL --line '0,1 9,2'"}) {
            const Ended ended = Cli(folder, std::string(command) + " --mesh-width=" + width);
            EXPECT_EQ(ended.status, 2) << width;
            EXPECT_EQ(ended.error, "havuz-cli: --mesh-width: a mesh is 0.001 to 1000 m wide\n");
            EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
        }
    ASSERT_EQ(mkfifo(folder.file("F.POL").c_str(), 0600), 0);
    const Ended fifo = Cli(folder, "info F.POL");
    EXPECT_EQ(fifo.status, 1);
    EXPECT_EQ(fifo.error.rfind("havuz-cli: F.POL: ", 0), 0U) << fifo.error;
}

TEST(Cli, InfoIsJsonWhateverThePath) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL --set 'ProjeIsmi=\"G\xC3\xB6let\"'").status, 0);
    const std::string odd = "a\xFF\"\\b\n.POL";
    std::filesystem::copy_file(folder.file("P.POL"), folder.file(odd));
    const Ended info = Cli(folder, "info --json a*b*.POL");
    EXPECT_EQ(info.status, 0) << info.error;
    const auto facts = nlohmann::json::parse(info.out);
    const auto file = facts["project"]["file"].get<std::string>();
    EXPECT_EQ(file.substr(file.size() - 12), "a\xEF\xBF\xBD\"\\b\n.POL");
    EXPECT_EQ(facts["project"]["title"], "G\xC3\xB6let"); // as read
}

// Reading finds a name whatever its case; writing takes it as given, or the file that was read.
TEST(Cli, ANameOfAnotherCaseIsNeverWrittenOver) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o DEPO.POL").status, 0);
    const std::string before = ReadBytes(folder.file("DEPO.POL"));
    ASSERT_EQ(Cli(folder, "set depo.pol -o Depo.pol Fck=300").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("DEPO.POL")), before);
    EXPECT_NE(ReadBytes(folder.file("Depo.pol")), "");
    std::filesystem::remove(folder.file("Depo.pol"));
    ASSERT_EQ(Cli(folder, "set depo.pol Fck=300").status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("depo.pol")));
    EXPECT_EQ(ReadBytes(folder.file("DEPO.POL~")), before);
}

TEST(Cli, NoPictureOrExportOverTheProjectItself) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool circular -o P.POL --set Lx=4").status, 0);
    std::filesystem::create_symlink("P.POL", folder.file("link"));
    const std::string before = ReadBytes(folder.file("P.POL"));
    for (const char *arguments :
         {"export staad p.pol -o P.POL", "export sap90 P.POL -o link", "render P.POL -o ./P.POL"}) {
        const Ended ended = Cli(folder, arguments);
        EXPECT_EQ(ended.status, 1) << arguments;
        EXPECT_TRUE(Contains(ended.error, ": is the project itself")) << ended.error;
        EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
    }
}

// Ended by a signal at any time, a command leaves nothing but its own files.
TEST(Cli, SignalsLeaveNoTemporaryFile) {
    const TemporaryFolder folder, scratch;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL --set Lx=12 --set Ly=12 --set MeshGenisligi=0.5").status, 0);
    ASSERT_EQ(Cli(folder, "mesh P.POL --mesh-width 0.5").status, 0);
    const std::set<std::string> allowed = {"P.POL", "P.POL~", "P.DEP", "P.SON", "P.HSP", "WORKPOOL"};
    int ended = 0;
    for (int k = 0; k < 12; ++k) {
        const std::string command = "cd " + folder.path() + " && TMPDIR=" + scratch.path() + " timeout -s " +
                                    (k % 2 == 0 ? "INT" : "TERM") + " 0.0" + std::to_string(2 + k / 2) + " " +
                                    HAVUZ_CLI + (k % 3 == 0 ? " mesh P.POL" : " run P.POL") + " >/dev/null 2>&1";
        ended += WEXITSTATUS(std::system(command.c_str())) == 124 ? 1 : 0;
        for (const auto &entry : std::filesystem::directory_iterator(folder.path()))
            EXPECT_EQ(allowed.count(entry.path().filename().string()), 1U) << entry.path();
        EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
    }
    EXPECT_GT(ended, 0);
}

TEST(Cli, TitlesThatAFileCannotHold) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    const struct {
        const char *title, *told;
    } cases[] = {{"Depo 5 \"A\"", ""},
                 {"Depo, 5", "P.POL: the title breaks the file, which cannot be read again"},
                 {"\"Depo\" 5", "P.POL: the title breaks the file"},
                 {"\"Depo\"", "P.POL: the title will be read as \"Depo\"\n"}};
    for (const auto &c : cases) {
        const Ended set = Cli(folder, "set P.POL -o Q.POL 'ProjeIsmi=" + std::string(c.title) + "'");
        EXPECT_EQ(set.status, 0);
        EXPECT_EQ(set.error.rfind(*c.told == 0 ? "" : "Q" + std::string(c.told).substr(1), 0), 0U) << set.error;
        EXPECT_EQ(set.error.empty(), *c.told == 0) << set.error;
    }
}

TEST(Cli, ADirectoryWithAPointAndAnotherOutputFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("v1.2"));
    EXPECT_EQ(Cli(folder, "pool circular -o v1.2/C.POL --set Lx=4").status, 0);
    EXPECT_EQ(Cli(folder, "set v1.2/C.POL -o v1.2/D.POL Fck=300").status, 0);
    EXPECT_EQ(Cli(folder, "run v1.2/D.POL --quiet").status, 0);
    EXPECT_NE(ReadBytes(folder.file("v1.2/D.SON")), "");
}

// Three to eight corners around a circle of 5 m.
TEST(Cli, PolygonPoolsFromCornersToResults) {
    const TemporaryFolder folder;
    for (int n = 3; n <= 8; ++n) {
        std::string points;
        for (int k = 0; k < n; ++k)
            points += std::to_string(5 * std::cos(2 * M_PI * k / n)) + "," +
                      std::to_string(5 * std::sin(2 * M_PI * k / n)) + " ";
        const std::string name = "P" + std::to_string(n) + ".POL";
        ASSERT_EQ(
            Cli(folder, "polygon -o " + name + " --points '" + points + "' --dp 25 --ds 30 --top 3 --bottom 0").status,
            0);
        const Ended mesh = Cli(folder, "mesh " + name);
        EXPECT_EQ(mesh.status, 0) << mesh.error;
        EXPECT_EQ(mesh.error.rfind("mesh report: ", 0), 0U);
        const Ended run = Cli(folder, "run " + name);
        EXPECT_EQ(run.status, 0) << n << run.error;
        EXPECT_TRUE(Contains(run.out, "greatest settlement")) << run.out;
    }
}

TEST(Cli, AMeshReportComesWithEveryMeshAndWithInfo) {
    const TemporaryFolder folder;
    const std::string walls = " --dp 20 --ds 30 --top 3 --bottom 0";
    ASSERT_EQ(Cli(folder, "polygon -o L.POL --points '0,0 6,0 6,3 3,3 3,6 0,6'" + walls).status, 0);
    EXPECT_FALSE(Contains(Cli(folder, "info L.POL").out, "mesh report")); // nothing to report yet
    const Ended mesh = Cli(folder, "mesh L.POL");
    EXPECT_EQ(mesh.error.rfind("mesh report: 112 nodes, 96 meshes, WARNINGS:\n", 0), 0U) << mesh.error;
    const Ended info = Cli(folder, "info L.POL");
    const Ended json = Cli(folder, "info L.POL --json");
    for (const char *words : {"plate 1: its meshes cover 27.5 m2 in plan, its area is 27 m2 (+1.9 %), from (0, 0, 0)",
                              "plate 1: corner 4 at (3, 3, 0) is no node of its meshes"}) {
        EXPECT_TRUE(Contains(mesh.error, std::string("  ") + words + "\n")) << mesh.error;
        EXPECT_TRUE(Contains(info.out, std::string("    ") + words + "\n")) << info.out;
        EXPECT_TRUE(Contains(json.out, std::string("\"") + words + "\"")) << json.out;
    }
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL --set Bk=1.5").status, 0);
    EXPECT_TRUE(Contains(Cli(folder, "mesh P.POL").error, "needs one more auto mesh"));
    EXPECT_TRUE(Contains(Cli(folder, "mesh P.POL").error, "no warnings"));
    // A mesh with a corner that is no node is reported; nothing is said of its analysis.
    std::string text = ReadBytes(folder.file("L.POL"));
    const std::size_t at = text.find("\r\n1001,") + 7;
    text.replace(at, text.find(',', at) - at, "0");
    WriteBytes(folder.file("L.POL"), text);
    const Ended torn = Cli(folder, "info L.POL");
    EXPECT_EQ(torn.status, 0) << torn.error;
    EXPECT_TRUE(Contains(torn.out, "names node 0")) << torn.out;
    EXPECT_FALSE(Contains(torn.out, "equations"));
}

TEST(Cli, CutsAndAddedPolygons) {
    const TemporaryFolder folder;
    const std::string walls = " --dp 20 --ds 30 --top 3 --bottom 0";
    ASSERT_EQ(Cli(folder, "polygon -o P.POL --points '0,0 4,0 4,3 0,3'" + walls).status, 0);
    const std::string before = ReadBytes(folder.file("P.POL"));
    const Ended none = Cli(folder, "cut P.POL -o Q.POL --line '9,9 10,10'");
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.error, "the line cuts no plate\n");
    EXPECT_EQ(ReadBytes(folder.file("Q.POL")), before);
    EXPECT_EQ(Cli(folder, "cut P.POL -o Q.POL --line '1,-1 1,4' --mesh-width 0.5").error, "");
    EXPECT_TRUE(Contains(Cli(folder, "info Q.POL --json").out, "\"panels\": 6,\n    \"plates\": 2,"));
    EXPECT_TRUE(Contains(ReadBytes(folder.file("Q.POL")), "\r\n2,6,3,20,1,0,0\r\n")); // 3 m by 0.5 m
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
    EXPECT_TRUE(Contains(Cli(folder, "mesh Q.POL").error, "plate 1 and plate 2 are not joined over 3 m of 3 m"));
    ASSERT_EQ(Cli(folder, "polygon --onto P.POL -o R.POL --points '9,0 12,0 9,4'" + walls).status, 0);
    EXPECT_TRUE(Contains(Cli(folder, "info R.POL --json").out, "\"panels\": 7,\n    \"plates\": 2,"));
}

TEST(Cli, WrongUsageIsTwo) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    for (const char *arguments : {"",
                                  "bogus",
                                  "pool square -o X.POL",
                                  "pool rectangular",
                                  "pool rectangular -o X.POL --set Lx",
                                  "pool rectangular -o X.POL --set Lx=abc",
                                  "pool rectangular -o X.POL --set 'Mesnet(1)=4'",
                                  "mesh",
                                  "mesh P.POL --mesh-width x",
                                  "set P.POL",
                                  "set P.POL Nosuch=1",
                                  "set P.POL 'D=1'",
                                  "set P.POL 'D(1,2)=1'",
                                  "set P.POL 'Lx(1)=2'",
                                  "run P.POL --loud",
                                  "polygon -o X.POL --points '0,0 4,0 4,3' --dp 20 --ds 30 --top 3",
                                  "polygon -o X.POL --points '0,0 4,0 4;3' --dp 20 --ds 30 --top 3 --bottom 0",
                                  "polygon -o X.POL --points '0,0 4,0' --dp 20 --ds 30 --top 3 --bottom 0",
                                  "cut P.POL",
                                  "cut P.POL -o X.POL --line '0,0 1,1 2,2'"}) {
        const Ended ended = Cli(folder, arguments);
        EXPECT_EQ(ended.status, 2) << arguments << ended.error;
        EXPECT_EQ(std::count(ended.error.begin(), ended.error.end(), '\n'), 1) << ended.error;
        EXPECT_FALSE(std::filesystem::exists(folder.file("X.POL"))) << arguments;
    }
}

// One line that names the file and the place, status 1, nothing written.
TEST(Cli, FailuresNameFileAndPlaceAndWriteNothing) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    const std::string good = ReadBytes(folder.file("P.POL"));
    std::string damaged = good;
    damaged.replace(damaged.find("0,2000"), 6, "0,2x00");
    WriteBytes(folder.file("BAD.POL"), damaged);
    WriteBytes(folder.file("CUT.POL"), good.substr(0, good.size() / 2));
    ASSERT_EQ(Cli(folder, "set P.POL -o ZERO.POL 'Nx(2)=0'").status, 0);
    ASSERT_EQ(Cli(folder, "pool rectangular -o SAME.POL --set Lx=1 --set Ly=1 --set UstKot=1 --set Bk=0").status, 0);
    ASSERT_EQ(Cli(folder, "mesh SAME.POL").status, 0);
    std::string coincident = "set SAME.POL";
    for (int i = 1; i <= 8; ++i)
        coincident += " 'X(" + std::to_string(i) + ")=0'";
    ASSERT_EQ(Cli(folder, coincident).status, 0);
    ASSERT_EQ(Cli(folder, "pool rectangular -o MANY.POL --set Lx=55 --set Ly=45 --set UstKot=5").status, 0);
    ASSERT_EQ(Cli(folder, "mesh MANY.POL").status, 0);
    const std::string walls = " --dp 20 --ds 30 --top 3 --bottom 0";
    ASSERT_EQ(Cli(folder, "polygon -o WIDE.POL --points '0,0 25,0 25,3 0,3'" + walls).status, 0);
    ASSERT_EQ(Cli(folder, "polygon -o BIG.POL --points '0,0 40,0 40,40 0,40'" + walls).status, 0);
    const std::string wide = ReadBytes(folder.file("WIDE.POL"));
    const std::pair<const char *, const char *> cases[] = {
        {"mesh WIDE.POL", "havuz-cli: WIDE.POL: plate 1, wall 1: column(21) lies outside 0..20\n"},
        {"mesh WIDE.POL --mesh-width 0.05", "havuz-cli: WIDE.POL: plate 1: grid step(502) lies outside 0..500\n"},
        {"mesh BIG.POL -o X.POL", "havuz-cli: BIG.POL: plate 1: point(1001) lies outside 0..1000\n"},
        {"mesh NONE.POL", "havuz-cli: NONE.POL: cannot be opened (No such file or directory)\n"},
        {"info BAD.POL", "havuz-cli: BAD.POL: line 3, field 2 (soil ZeminKo): \"2x00\" is not a number"},
        {"run CUT.POL", "havuz-cli: CUT.POL: line "},
        {"mesh ZERO.POL", "havuz-cli: ZERO.POL: PanelTable(2) Nx: division by zero"},
        {"set P.POL 'Mesnet(9999)=4'", "havuz-cli: P.POL: NoktaTable(9999) lies outside 1..194"},
        {"set P.POL 'Nx(1)=40000'", "havuz-cli: P.POL: a 16-bit field cannot hold 40000"},
        {"pool rectangular -o X.POL --set MeshGenisligi=0", "havuz-cli: X.POL: MeshGenisligi: division by zero"},
        {"pool circular -o X.POL --set Lx=200", "havuz-cli: X.POL: NoktaTable(5001) lies outside 0..5000"},
        {"pool rectangular -o none/X.POL", "havuz-cli: none/X.POL: cannot be created"},
        {"run MANY.POL", "havuz-cli: MANY.POL: "},
        {"run SAME.POL", "havuz-cli: SAME.POL: MeshTable(1) has no extent or no area: division by zero"},
    };
    for (const auto &[arguments, words] : cases) {
        const Ended ended = Cli(folder, arguments);
        EXPECT_EQ(ended.status, 1) << arguments;
        EXPECT_EQ(ended.error.rfind(words, 0), 0U) << arguments << "\n" << ended.error;
        EXPECT_EQ(std::count(ended.error.begin(), ended.error.end(), '\n'), 1) << ended.error;
        EXPECT_FALSE(std::filesystem::exists(folder.file("X.POL")));
    }
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), good);
    EXPECT_EQ(ReadBytes(folder.file("WIDE.POL")), wide);
    const Ended many = Cli(folder, "run MANY.POL"); // the sizes are shown before the failure
    EXPECT_TRUE(Contains(many.out, "Denklem       : ")) << many.out;
    EXPECT_TRUE(Contains(Cli(folder, "info MANY.POL").out, "fits the arrays of the analysis   no"));
}

// Only pictures and pages need Qt, and load it.
TEST(Cli, StartsWithoutTheLibrariesOfPictures) {
    TemporaryFolder folder;
    const std::string beside = folder.file("havuz-cli");
    std::filesystem::copy(HAVUZ_CLI, beside);
    const auto run = [&](const std::string &command) {
        return std::system(("cd " + folder.path() + " && export HAVUZ_HOME=" HAVUZ_SOURCE_DIR "/programdir && " +
                            command + " >out 2>&1")
                               .c_str());
    };
    ASSERT_EQ(run("LD_TRACE_LOADED_OBJECTS=1 " + beside), 0);
    EXPECT_NE(ReadBytes(folder.file("out")).find("libc.so"), std::string::npos);
    EXPECT_EQ(ReadBytes(folder.file("out")).find("libQt"), std::string::npos);
    ASSERT_EQ(run(beside + " pool rectangular -o P.POL"), 0);
    EXPECT_NE(run(beside + " render P.POL -o P.png"), 0) << "the library is not there";
    EXPECT_NE(ReadBytes(folder.file("out")).find("havuz-pictures.so: cannot be opened"), std::string::npos)
        << ReadBytes(folder.file("out"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("P.png")));
}

// Width and height as the head of a PNG file has them.
static std::pair<int, int> PngSize(const std::string &png) {
    if (png.size() < 24 || png.substr(1, 3) != "PNG")
        return {0, 0};
    const auto number = [&](std::size_t at) {
        int n = 0;
        for (std::size_t k = at; k < at + 4; ++k)
            n = n * 256 + static_cast<unsigned char>(png[k]);
        return n;
    };
    return {number(16), number(20)};
}

TEST(Cli, PicturesNeedNoDisplayAndAreTheSameWithOne) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    EXPECT_EQ(Cli(folder, "render P.POL -o plates.png").status, 0);
    EXPECT_EQ(PngSize(ReadBytes(folder.file("plates.png"))), std::pair(1024, 768));
    EXPECT_EQ(Cli(folder, "render P.POL -o NONE.png --view mesh").status, 1) << "not meshed";
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    std::vector<std::string> pictures = {ReadBytes(folder.file("plates.png"))};
    for (const char *options : {"", "--plan", "--view plates --plan", "--angles -100,40", "--size 300x200"}) {
        EXPECT_EQ(Cli(folder, std::string("render P.POL -o X.png ") + options).status, 0) << options;
        const std::string picture = ReadBytes(folder.file("X.png"));
        EXPECT_EQ(std::count(pictures.begin(), pictures.end(), picture), 0) << options;
        pictures.push_back(picture);
    }
    EXPECT_EQ(PngSize(pictures.back()), std::pair(300, 200));
    EXPECT_EQ(Cli(folder, "render P.POL -o X.png --view plates").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("X.png")), pictures.front());
    for (const char *display : {":99", "", "wayland-0"}) {
        const std::string environment = std::string("env DISPLAY=") + display + " QT_QPA_PLATFORM=xcb HOME=/nowhere ";
        const std::string command =
            "cd " + folder.path() + " && " + environment + HAVUZ_CLI + " render P.POL -o X.png --view plates";
        EXPECT_EQ(std::system(command.c_str()), 0);
        EXPECT_EQ(ReadBytes(folder.file("X.png")), pictures.front()) << display;
    }
    for (const char *wrong : {"--size 100x50", "--size 300", "--size 20000x300", "--size 300.5x200", "--angles 5",
                              "--angles a,b", "--view above", "--plan --angles 1,2"})
        EXPECT_EQ(Cli(folder, std::string("render P.POL -o Y.png ") + wrong).status, 2) << wrong;
    EXPECT_EQ(Cli(folder, "render P.POL -o none/Y.png").status, 1);
    EXPECT_FALSE(std::filesystem::exists(folder.file("Y.png")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("NONE.png")));
}

TEST(Cli, ExportsAreNamedAndNeedAMesh) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o P.POL").status, 0);
    const Ended early = Cli(folder, "export staad P.POL -o X.std");
    EXPECT_EQ(early.status, 1);
    EXPECT_EQ(early.error, "havuz-cli: P.POL: the model has no nodes or no meshes to export; mesh it first\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("X.std")));
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    const std::string project = ReadBytes(folder.file("P.POL"));
    EXPECT_EQ(Cli(folder, "export staad P.POL -o X.std").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("X.std")).rfind("STAAD SPACE P BRIRUG ORNEGI\r\n", 0), 0U);
    EXPECT_EQ(Cli(folder, "export sap90 P.POL -o X.s90 --name 'SU DEPOSU'").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("X.s90")).rfind("SAP90 SU DEPOSU BRIRUG ORNEGI\r\n", 0), 0U);
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), project) << "the project itself is not rounded";
    EXPECT_EQ(Cli(folder, "export nastran P.POL -o X.dat").status, 2);
    EXPECT_EQ(Cli(folder, "export staad P.POL").status, 2);
}

TEST(Cli, HelpAndVersionAreResults) {
    const TemporaryFolder folder;
    const Ended help = Cli(folder, "--help");
    EXPECT_EQ(help.status, 0);
    for (const char *command : {"pool", "polygon", "mesh", "cut", "set", "run", "export", "render", "info"})
        EXPECT_TRUE(Contains(help.out, command)) << command;
    EXPECT_EQ(Cli(folder, "run --help").status, 0);
    EXPECT_EQ(Cli(folder, "--version").out.rfind("havuz-cli ", 0), 0U);
}

} // namespace havuz
