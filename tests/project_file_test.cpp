// The project file: bytes written and read, oddities of the format, damaged files, failing writes.
#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/code_page.h"
#include "model/files.h"
#include "model/project_file.h"
#include "model/springs.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "support.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/resource.h>

namespace havuz {

namespace {

ProjectWindow none;

// A small model with something in every table: the sample's kind of pool, a plate, supports, loads.
std::string SmallModel() {
    ResetAll();
    Lx = 2.0;
    Ly = 1.5;
    UstKot = 1.25;
    MeshGenisligi = 1.0;
    PoolWindow window;
    GeneratePool(1, window);
    MeshWindow mesh;
    PanelMeshle(mesh);
    NoktaNumarala();
    PlakCount = 1;
    PlakTable[1].NoktaSayisi = 3;
    PlakTable[1].Kalinlik = 25;
    PlakTable[1].X[2] = -1234567.8;
    PlakTable[1].KenarKodu[3] = -102;
    ProjeIsmi = "Şişli havuzu";
    NoktaTable[2].Mesnet = 5;
    NokYukTable[2].FZ = 0.0015;
    NokYukTable[NoktaCount].FX = -2.0;
    MeshTable[1].Sil = 1;
    ZeminKo = 12500.5;
    SpringStiffness();
    return ProjectText();
}

std::string LoadText(const std::string &bytes) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("A.POL"), bytes);
    ResetAll();
    LoadProject(folder.file("A.POL"), none);
    return ProjectText();
}

} // namespace

TEST(ProjectFile, AFreshProjectToTheByte) {
    EXPECT_EQ(ProjectText(), "\r\n0,0,0,0,0\r\n0,2000,20,.4,1.8,1,0\r\n4,2,10,5,20,30,3,0,3,3,1\r\n1,1,1,1\r\n0,0,0\r\n"
                             "200,2200,1\r\n0,0,0,0\r\n8,10,12,0,0,0,0,0,0,0,0,0,0\r\n");
}

TEST(ProjectFile, EveryTableSurvivesSaveAndLoad) {
    const std::string saved = SmallModel();
    EXPECT_NE(saved.find("\xDEi\xFEli havuzu\r\n"), std::string::npos); // Windows-1254
    EXPECT_NE(saved.find("\r\n2,0,0,1.5E-03\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\n-1234568,0,0,0\r\n"), std::string::npos); // 7 digits
    EXPECT_EQ(LoadText(saved), saved);
    EXPECT_EQ(GorunusModu, 2);
}

TEST(ProjectFile, LinesMayEndInLfAloneAndNumbersTakeAnyForm) {
    std::string text = SmallModel();
    const std::string saved = text;
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    text.replace(text.find("12500.5"), 7, " 1.25005d+4 ");
    EXPECT_EQ(LoadText(text), saved);
}

// The end of the file may come behind any whole line: what was read stands, the rest keeps what it was. Inside a line
// it is a failure, but for a line's last field, whose digits alone cannot tell, and a whole last line without its end.
TEST(ProjectFile, CutAfterEveryByte) {
    const std::string saved = SmallModel();
    const TemporaryFolder folder;
    const std::string path = folder.file("A.POL");
    for (std::size_t n = 0; n < saved.size(); n += n < 700 ? 1 : 5) {
        WriteBytes(path, saved.substr(0, n));
        ClearModel();
        const Failed result = FailureOf([&] { LoadProject(path, none); });
        const bool wholeLine = n == 0 || saved[n - 1] == '\n';
        const bool afterComma = n > 0 && saved[n - 1] == ',';
        EXPECT_TRUE(!wholeLine || !result.failed) << n << result.words;
        EXPECT_TRUE(!afterComma || (result.failed && result.kind == File)) << n << result.words;
        EXPECT_TRUE(!result.failed || result.words.rfind(path + ": line ", 0) == 0) << result.words;
    }
}

TEST(ProjectFile, AFileThatEndsAfterItsCountsKeepsTheEarlierSoil) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("A.POL"), "x\r\n3,0,0,0,1\r\n");
    ZeminKo = 777;
    LoadProject(folder.file("A.POL"), none);
    EXPECT_EQ(PanelCount, 3);
    EXPECT_EQ(ZeminKo, 777);
    EXPECT_EQ(GorunusModu, 1);
}

TEST(ProjectFile, TitlesAreWrittenRawAndReadAsFields) {
    ProjeIsmi = "Pool, deep";
    const TemporaryFolder folder;
    SaveProject(folder.file("A.POL"), none);
    const Failed shifted = FailureOf([&] { LoadProject(folder.file("A.POL"), none); }); // fields one place off
    EXPECT_EQ(shifted.kind, BadNumber);
    EXPECT_EQ(shifted.words, folder.file("A.POL") + ": line 1, field 2 (counts PanelTable): \"deep\" is not a number");
    ProjeIsmi = "\"quoted\"";
    SaveProject(folder.file("A.POL"), none);
    LoadProject(folder.file("A.POL"), none);
    EXPECT_EQ(ProjeIsmi, "quoted");
}

TEST(ProjectFile, EveryByteOfATitleSurvives) {
    std::string bytes;
    for (int b = 1; b < 256; ++b)
        if (std::string("\r\n,\"").find(static_cast<char>(b)) == std::string::npos && b != ' ')
            bytes += static_cast<char>(b);
    EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes);
    EXPECT_EQ(FromCodePage("\x80\xD0\x81"), "\u20AC\u011E\u0081");
    EXPECT_EQ(ToCodePage("\u4E2Dx\xFFğ"), "?x?\xF0");
}

// When every node has a load the loop ends by its count, and the end line is still read.
TEST(ProjectFile, LoadsOnEveryNode) {
    SmallModel();
    for (int i = 1; i <= NoktaCount; ++i)
        NokYukTable[i].FY = i;
    const std::string saved = ProjectText();
    EXPECT_EQ(LoadText(saved), saved);
    EXPECT_EQ(DonatiCaplari[3], 12);
}

TEST(ProjectFile, CountsAndNumbersThatLeaveTheirTables) {
    const std::pair<const char *, const char *> cases[] = {{"t\r\n1001,0,0,0,1\r\n", "line 2, field 1"},
                                                           {"t\r\n0,101,0,0,1\r\n", "line 2, field 2"},
                                                           {"t\r\n0,0,5001,0,1\r\n", "line 2, field 3"},
                                                           {"t\r\n0,0,0,-1,1\r\n", "line 2, field 4"},
                                                           {"t\r\n0,0,99999,0,1\r\n", "line 2, field 3"}};
    const TemporaryFolder folder;
    for (const auto &[text, place] : cases) {
        ResetAll();
        WriteBytes(folder.file("A.POL"), text);
        EXPECT_NE(FailureOf([&] { LoadProject(folder.file("A.POL"), none); }).words.find(place), std::string::npos)
            << text;
    }
    const std::string head =
        "t\r\n0,1,2,0,1\r\n0,0,0,0,0,0,0\r\n0,0,0,0,0,0,0,0,0,0,0\r\n0,0,0,0\r\n0,0,0\r\n0,0,0\r\n";
    const std::string endsBefore = head + "201,30\r\n"; // a model with it could not be saved
    std::string tooMany = endsBefore;
    for (int k = 1; k <= 201; ++k)
        tooMany += "1,1,1,0\r\n";
    const std::string badLoad = head + "0,30\r\n0,0,0,0,0,0,0,0\r\n0,0,0,0,0,0,0,0\r\n5001,1,1,1\r\n";
    for (const std::string &text : {endsBefore, tooMany, badLoad}) {
        ResetAll();
        WriteBytes(folder.file("A.POL"), text);
        EXPECT_EQ(FailureOf([&] { LoadProject(folder.file("A.POL"), none); }).kind, Subscript);
    }
}

// Damage of every kind ends in a failure or a clean load; the sanitizers watch the rest.
TEST(ProjectFile, SurvivesRandomDamage) {
    const std::string saved = SmallModel();
    const std::string inserts[] = {",", "\r\n", "-", "9", "\"", "1E400", "nan", std::string(1, '\0'), "32768", " "};
    std::mt19937 random(20261121);
    const TemporaryFolder folder;
    int loaded = 0;
    int failed = 0;
    for (int round = 0; round < 400; ++round) {
        std::string text = saved;
        for (auto hits = 1 + random() % 3; hits > 0; --hits) {
            const std::size_t at = random() % text.size();
            if (random() % 2 == 0)
                text.replace(at, 1, inserts[random() % std::size(inserts)]);
            else
                text.erase(at, random() % 40);
        }
        WriteBytes(folder.file("A.POL"), text);
        ClearModel();
        (FailureOf([&] { LoadProject(folder.file("A.POL"), none); }).failed ? failed : loaded)++;
    }
    EXPECT_GT(loaded, 0);
    EXPECT_GT(failed, 0);
}

TEST(ProjectFile, AFailingWriteLeavesTheOldFileWhole) {
    SmallModel();
    const TemporaryFolder folder;
    WriteBytes(folder.file("A.POL"), "old");
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    rlimit small = limit;
    small.rlim_cur = 1000; // the disk is full behind 1000 bytes
    setrlimit(RLIMIT_FSIZE, &small);
    const Failed result = FailureOf([&] { SaveProject(folder.file("A.POL"), none); });
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.kind, File);
    EXPECT_EQ(ReadBytes(folder.file("A.POL")), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1); // nothing left beside it
}

TEST(ProjectFile, PathsAreCutAtTheirFirstPoint) {
    struct Window : ProjectWindow {
        void EnableAnalysis() override { analysis = true; }
        void EnableResults(bool enabled) override { results = enabled; }
        bool analysis = false, results = false;
    };
    const TemporaryFolder folder;
    SmallModel();
    ASSERT_EQ(folder.path().find('.'), std::string::npos);
    SaveProject(folder.file("A.POL"), none);
    Window without;
    LoadProject(folder.file("A.POL"), without);
    EXPECT_EQ(ProjeYolu, folder.file("A"));
    EXPECT_TRUE(without.analysis);
    EXPECT_FALSE(without.results);
    WriteBytes(folder.file("a.son"), ""); // whatever the case of its name
    Window with;
    LoadProject(folder.file("A.POL"), with);
    EXPECT_TRUE(with.results);
    EXPECT_EQ(UpToFirstDot("/data/A.B/X.POL"), "/data/A"); // in a directory name too
}

// Springs fit ZeminKo at the time of saving.
TEST(ProjectFile, SavingRebuildsTheSprings) {
    SmallModel();
    const TemporaryFolder folder;
    SaveProject(folder.file("A.POL"), none);
    const std::string first = ReadBytes(folder.file("A.POL"));
    ZeminKo = 1.0;
    SaveProject(folder.file("A.POL"), none);
    const double spring = NoktaTable[1].Yay;
    LoadProject(folder.file("A.POL"), none);
    EXPECT_NE(ReadBytes(folder.file("A.POL")), first);
    EXPECT_EQ(NoktaTable[1].Yay, spring);
    EXPECT_EQ(KartAdi, ".VK9");
}

// The list before a load is numbered from its first element, by the flags of the model before.
TEST(ProjectFile, ALoadRebuildsTheLoadListFromTheFlagsBefore) {
    const std::string saved = SmallModel();
    const TemporaryFolder folder;
    WriteBytes(folder.file("A.POL"), saved);
    YukKombinasyon[2] = 1;
    YukDurum[0] = 0;
    LoadProject(folder.file("A.POL"), none);
    EXPECT_EQ(YukSayisi, 5);
    EXPECT_EQ(YukListesi[1], 12);
    EXPECT_EQ(YukListesi[2], 1);
    EXPECT_EQ(YukListesi[4], 3);
}

} // namespace havuz
