// The two export formats: files to the byte, read back by a reader of their own, and the way to the disk.
#include "export/export_file.h"
#include "export/number_fields.h"
#include "export/sap90.h"
#include "export/staad.h"
#include "hand_models.h"
#include "mesh/numbering.h"
#include "mesh/panel_mesh.h"
#include "model/code_page.h"
#include "model/options.h"
#include "pool/pool_library.h"
#include "support.h"

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <sys/resource.h>

namespace havuz {

namespace {

// A rectangular pool with an overhang: meshed, supported, loaded, two meshes off.
void MakeExportPool(double meshWidth, double method) {
    ResetAll();
    MeshGenisligi = meshWidth;
    PoolWindow pool;
    GeneratePool(1, pool);
    MeshWindow window;
    PanelMeshle(window);
    NoktaNumarala();
    HesapYontem = method;
    ProjeAdi = "ÖRNEK";
    PanelTable[1].G = 0.35;
    PanelTable[1].P = 1.2;
    for (int code = 1; code <= 7; ++code)
        NoktaTable[10 + code].Mesnet = code;
    AddLoad(3, 0.0, 0.0, 2.0);
    AddLoad(12, 0.1, -0.25, 0.0);
    AddLoad(NoktaCount, -1.5, 0.0, -0.05);
    MeshTable[5].Sil = 1;
    MeshTable[MeshCount].Sil = 1;
}

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    for (std::size_t end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2)
        lines.push_back(text.substr(at, end - at));
    EXPECT_EQ(at, text.size()) << "the last line is ended as well";
    return lines;
}

std::size_t LineOf(const std::vector<std::string> &lines, const std::string &wanted) {
    const auto at = std::find(lines.begin(), lines.end(), wanted);
    EXPECT_NE(at, lines.end()) << wanted;
    return static_cast<std::size_t>(at - lines.begin());
}

// Lines between two headings, read as words; blanks and "," separate, what stands before "=" is a name of its own.
std::vector<std::vector<std::string>> Block(const std::vector<std::string> &lines, const std::string &from,
                                            const std::string &to) {
    std::vector<std::vector<std::string>> rows;
    const std::size_t end = to.empty() ? lines.size() : LineOf(lines, to);
    for (std::size_t i = LineOf(lines, from) + 1; i < end; ++i) {
        std::string line = lines[i];
        for (char &c : line)
            if (c == ',' || c == '=')
                c = ' ';
        std::istringstream words(line);
        std::vector<std::string> row;
        for (std::string word; words >> word;)
            row.push_back(word);
        if (!row.empty())
            rows.push_back(row);
    }
    return rows;
}

double Number(const std::string &word) { return std::stod(word); }

// Fields of four places show the last three digits of a number.
int Cut(int number) { return number % 1000; }

void ExpectNodes(const std::vector<std::vector<std::string>> &rows, std::size_t x, std::size_t y, std::size_t z) {
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(NoktaCount));
    for (int i = 1; i <= NoktaCount; ++i) {
        const auto &row = rows[static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(Number(row[0]), Cut(i));
        EXPECT_EQ(static_cast<float>(Number(row[x])), NoktaTable[i].X.raw()) << i;
        EXPECT_EQ(static_cast<float>(Number(row[y])), NoktaTable[i].Y.raw()) << i;
        EXPECT_EQ(static_cast<float>(Number(row[z])), NoktaTable[i].Z.raw()) << i;
    }
}

// The meshes that are on, in order; first: the word of the first node, order: which node each word holds.
void ExpectMeshes(const std::vector<std::vector<std::string>> &rows, std::size_t first, std::array<int, 4> order) {
    std::size_t at = 0;
    for (int i = 1; i <= MeshCount; ++i) {
        if (MeshTable[i].Sil != 0)
            continue;
        ASSERT_LT(at, rows.size());
        const int n[4] = {MeshTable[i].N1, MeshTable[i].N2, MeshTable[i].N3, MeshTable[i].N4};
        EXPECT_EQ(Number(rows[at][0]), Cut(i));
        for (std::size_t k = 0; k < 4; ++k)
            EXPECT_EQ(Number(rows[at][first + k]), Cut(n[order[k]])) << "mesh " << i;
        ++at;
    }
    EXPECT_EQ(at, rows.size());
}

struct Force {
    double x = 0, y = 0, z = 0;
};

std::map<int, Force> StaadLoads(const std::vector<std::string> &lines) {
    std::map<int, Force> loads;
    for (const auto &row : Block(lines, "JOINT LOAD", "PERFORM ANALYSIS"))
        for (std::size_t k = 1; k + 1 < row.size(); k += 2)
            (row[k] == "FX"   ? loads[std::stoi(row[0])].x
             : row[k] == "FY" ? loads[std::stoi(row[0])].y
                              : loads[std::stoi(row[0])].z) = Number(row[k + 1]);
    return loads;
}

// Vertical force of the surface load at each node, from the areas of the two triangles of each mesh's plan.
std::map<int, double> SurfaceForces(double pressure) {
    std::map<int, double> force;
    for (int i = 1; i <= MeshCount; ++i) {
        const int n[4] = {MeshTable[i].N1, MeshTable[i].N2, MeshTable[i].N3, MeshTable[i].N4};
        const auto x = [&](int k) { return double(NoktaTable[n[k]].X); };
        const auto y = [&](int k) { return double(NoktaTable[n[k]].Y); };
        const double area =
            std::fabs((x(2) - x(0)) * (y(3) - y(1)) - (x(3) - x(1)) * (y(2) - y(0))) / 2.0; // of the two diagonals
        for (const int node : n)
            force[node] += pressure * area / 4.0;
    }
    return force;
}

void ExpectStaadReadsBack(double f1) {
    const auto lines = Lines(StaadText());
    ExpectNodes(Block(lines, "JOINT COORDINATES", "ELEMENT INCIDENCES"), 1, 2, 3);
    ExpectMeshes(Block(lines, "ELEMENT INCIDENCES", "ELEMENT PROPERTY"), 1, {0, 1, 2, 3});
    std::map<int, Force> loads = StaadLoads(lines);
    EXPECT_EQ(loads.size(), 3U);
    for (const auto &[node, f] : loads) {
        EXPECT_NEAR(f.x, f1 * NokYukTable[node].FX, 1e-14) << node;
        EXPECT_NEAR(f.y, f1 * NokYukTable[node].FY, 1e-14) << node;
        EXPECT_NEAR(f.z, -f1 * NokYukTable[node].FZ, 1e-14) << node;
    }
}

void ExpectSapReadsBack(double f1, double f2) {
    const auto lines = Lines(SapText());
    ExpectNodes(Block(lines, "JOINTS", "RESTRAINTS"), 2, 4, 6);
    auto shells = Block(lines, "SHELL", "LOADS");
    shells.erase(shells.begin(), shells.begin() + 2);
    ExpectMeshes(shells, 2, {0, 1, 3, 2});
    const std::map<int, double> surface = SurfaceForces(-(f1 * PanelTable[1].G + f2 * PanelTable[1].P));
    std::map<int, Force> loads;
    for (const auto &row : Block(lines, "LOADS", ""))
        loads[std::stoi(row[0])] = {Number(row[4]), Number(row[5]), Number(row[6])};
    for (int i = 1; i <= NoktaCount; ++i) {
        EXPECT_EQ(loads.count(i), (NoktaTable[i].Mesnet & 4) != 0 ? 0U : 1U) << i;
        if (loads.count(i) == 0)
            continue;
        // cut down to thousandths, so up to 0.001 below; 1e-9 for the rounding of the sums
        const double z = surface.at(i) - f1 * NokYukTable[i].FZ;
        EXPECT_LE(loads[i].x, f1 * NokYukTable[i].FX + 1e-9) << i;
        EXPECT_GT(loads[i].x, f1 * NokYukTable[i].FX - 0.001 - 1e-9) << i;
        EXPECT_LE(loads[i].z, z + 1e-9) << i;
        EXPECT_GT(loads[i].z, z - 0.001 - 1e-9) << i;
    }
}

} // namespace

TEST(Exports, FilesOfAPoolToTheByteAndReadBack) {
    const struct {
        double meshWidth, method, f1, f2;
        bool over999; // fields of four places show the last three digits of a number
    } cases[] = {{1.0, 0, 1.0, 1.0, false}, {1.0, 1, 1.4, 1.6, false}, {0.4, 1, 1.4, 1.6, true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.meshWidth + c.method);
        MakeExportPool(c.meshWidth, c.method);
        EXPECT_EQ(NoktaCount > 999, c.over999) << NoktaCount;
        ExpectStaadReadsBack(c.f1);
        MakeExportPool(c.meshWidth, c.method);
        ExpectSapReadsBack(c.f1, c.f2);
    }
    MakeExportPool(1.0, 0);
    EXPECT_TRUE(MatchesGolden("export_pool_method0.std", ToCodePage(StaadText())));
    MakeExportPool(1.0, 0);
    EXPECT_TRUE(MatchesGolden("export_pool_method0.s90", ToCodePage(SapText())));
}

TEST(Exports, SupportCodesOfBothFormats) {
    const std::pair<const char *, const char *> texts[] = {{"", "0,0,0,0,0,0"},
                                                           {" FIXED BUT MY MZ", "0,0,0,1,0,1"},
                                                           {" FIXED BUT MX MZ", "0,0,0,0,1,1"},
                                                           {"", "0,0,0,1,1,1"},
                                                           {" FIXED BUT FX FY  MX MY MZ", "1,1,1,0,0,0"},
                                                           {" FIXED BUT FX FY  MY MZ", "1,1,1,1,0,1"},
                                                           {" FIXED BUT FX FY  MX MZ", "1,1,1,0,1,1"},
                                                           {" FIXED", "1,1,1,1,1,1"}};
    for (int code = 0; code <= 7; ++code) {
        SCOPED_TRACE(code);
        ResetAll();
        AddGrid(3, 2);
        NoktaTable[12].Mesnet = code;
        const auto staad = Lines(StaadText());
        const std::size_t at = LineOf(staad, "SUPPORTS") + 1;
        const std::string wanted = texts[code].first;
        EXPECT_EQ(staad[at], wanted.empty() ? "LOAD 1" : " 12 " + wanted);
        const auto sap = Lines(SapText());
        EXPECT_EQ(sap[LineOf(sap, "RESTRAINTS") + 12], std::string("  12                  R=") + texts[code].second);
    }
}

TEST(Exports, OffMeshesCountWhereTheyShould) {
    AddGrid(2, 1);
    PanelTable[1].P = 8.0;
    PanelTable[1].D = 100.0;
    HesapYontem = 0;
    MeshTable[2].Sil = 1;
    NoktaTable[3].Z = 0.5; // of the mesh that is off: its heights still set flags
    NoktaTable[6].Z = 0.5;
    NoktaTable[1].Z = 0.01F; // exactly the limit or a little less: level
    const auto staad = Lines(StaadText());
    EXPECT_EQ(LineOf(staad, "ELEMENT PROPERTY") - LineOf(staad, "ELEMENT INCIDENCES"), 2U);
    LineOf(staad, "1 TO 2 TH 100");
    LineOf(staad, "1 TO 2 PR -8");
    EXPECT_EQ(std::count(staad.begin(), staad.end(), "JOINT LOAD"), 0);
    const auto sap = Lines(SapText());
    const char *tail[] = {"RESTRAINTS",
                          "   1                  R=0,0,0,0,0,0",
                          "   2                  R=1,1,0,0,0,0",
                          "   3                  R=1,1,0,0,0,0",
                          "   4                  R=0,0,0,0,0,0",
                          "   5                  R=1,1,0,0,0,0",
                          "   6                  R=1,1,0,0,0,0",
                          "",
                          "SHELL",
                          "NM=1",
                          "1       E=2.4E6   U=0.15  W=0",
                          "   1   JQ=    1,    2,    4,    5    M= 1  ETYPE=0   TH=00.000",
                          "",
                          "LOADS",
                          " 1   L=1   F=0,0,-2",
                          " 2   L=1   F=0,0,-4",
                          " 3   L=1   F=0,0,-2",
                          " 4   L=1   F=0,0,-2",
                          " 5   L=1   F=0,0,-4",
                          " 6   L=1   F=0,0,-2"};
    const std::size_t from = LineOf(sap, "RESTRAINTS");
    ASSERT_EQ(sap.size() - from, std::size(tail));
    for (std::size_t i = 0; i < std::size(tail); ++i)
        EXPECT_EQ(sap[from + i], tail[i]);
    for (int i = 1; i <= NoktaCount; ++i)
        NoktaTable[i].Mesnet = 4;
    EXPECT_EQ(Lines(SapText()).back(), "LOADS");
}

TEST(Exports, PointLoadsTakeTheFactorOfTheDeadLoad) {
    AddGrid(3, 2);
    AddLoad(12, 0.5, 0.0, 2.0);
    HesapYontem = 0;
    EXPECT_NE(StaadText().find("JOINT LOAD\r\n 12 FX  .5 FZ -2\r\nPERFORM"), std::string::npos);
    YukFaktorG = 0.0; // the load is there, its factor leaves nothing of it
    HesapYontem = 1;
    EXPECT_NE(StaadText().find(" 12 FX  0 FZ  0\r\n"), std::string::npos);
    YukFaktorG = 1.4;
    AddLoad(12, 0.1, 0.0, 0.0); // a 32-bit 0.1 times 1.4, at 15 digits
    EXPECT_NE(StaadText().find(" 12 FX  .140000002086163\r\n"), std::string::npos);
    EXPECT_NE(SapText().find(" 12   L=1   F=.14,0,0\r\n"), std::string::npos);
    AddLoad(12, -0.1, 0.0, 0.0);
    EXPECT_NE(SapText().find(" 12   L=1   F=-.141,0,0\r\n"), std::string::npos) << "down, not to the nearest";
}

TEST(Exports, CoordinatesAreRoundedOnceAndFarOnesShiftTheColumns) {
    AddGrid(1, 1);
    NoktaTable[1].X = 0.12345;
    NoktaTable[2].X = 2000000.0;
    const std::string first = StaadText();
    EXPECT_EQ(NoktaTable[1].X.raw(), 0.123F);
    EXPECT_EQ(NoktaTable[2].X, 2000000.0);
    EXPECT_EQ(StaadText(), first);
    EXPECT_NE(ToCodePage(first).find("     2   \xEC       0.000"), std::string::npos);
}

namespace {

struct ScriptedDialog : FileDialog {
    std::string answer, asked;
    std::string AskSaveName(const std::string &title, const std::string &directory, const std::string &name) override {
        asked += title + "|" + directory + "|" + name + "\n";
        return answer;
    }
};

// No file of this process may grow beyond so many bytes while it lives: a full disk.
struct FullDisk {
    explicit FullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &old_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = old_;
        small.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }
    rlimit old_{};
    void (*handler_)(int);
};

} // namespace

TEST(Exports, TheDialogDecidesAndAFailureComesOut) {
    TemporaryFolder folder;
    ScriptedDialog dialog;
    ProjeAdi = "HAVUZ";
    dialog.answer = folder.file("out");
    ExportStaad(dialog);
    AddNode(0, 0, 0); // nodes, but no mesh
    ExportSap(dialog);
    EXPECT_EQ(dialog.asked, "");
    AddGrid(1, 1);
    dialog.answer = "";
    ExportStaad(dialog);
    ExportSap(dialog);
    EXPECT_EQ(dialog.asked, "STAAD-III PROGRAMI ICIN BIR DOSYA ADI GIRINIZ||HAVUZ\n"
                            "SAP90 PROGRAMI ICIN BIR DOSYA ADI GIRINIZ||HAVUZ\n");
    EXPECT_EQ(ExportPath, "");
    dialog.answer = folder.file("out");
    ExportStaad(dialog);
    EXPECT_EQ(ExportPath, dialog.answer);
    const std::string whole = ReadBytes(dialog.answer);
    EXPECT_EQ(whole, ToCodePage(StaadText()));
    {
        FullDisk full(100);
        EXPECT_TRUE(FailureOf([&] { ExportSap(dialog); }).failed);
        EXPECT_TRUE(FailureOf([&] { WriteExport(dialog.answer, SapText); }).failed);
    }
    EXPECT_EQ(ReadBytes(dialog.answer), whole);
    ExportSap(dialog);
    EXPECT_EQ(ReadBytes(dialog.answer), ToCodePage(SapText()));
}

} // namespace havuz
