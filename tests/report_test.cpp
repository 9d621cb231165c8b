// The calculation report: its text, its parts, and the way from a project to a file. Expected numbers are statics by
// hand.
#include "cli_support.h"
#include "consistent_support.h"
#include "design/checks.h"
#include "model/options.h"
#include "model/store.h"
#include "report/html.h"
#include "report/report.h"
#include "report/sha256.h"
#include "view/page_cut.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

using namespace havuz;
using namespace havuz::report;
namespace cons = havuz::consistent;

namespace {

struct Reported {
    design::Design design;
    std::string html;
};

// The report of a rectangular pool of the library.
Reported ReportOf(const cons::Parameters &parameters, const design::Settings &settings = {}) {
    const cons::Tank tank = cons::LibraryPool(1, parameters);
    const design::Basis basis = design::MakeBasis(settings);
    cons::Options options;
    options.loads.surcharge = settings.surcharge;
    const cons::Analysis analysis(tank, options);
    Reported r;
    r.design = design::DesignTank(analysis, basis);
    ReportInput input;
    input.title = "Depo <A> & B";
    input.name = "DEPO";
    input.version = "0.1.0";
    input.date = "31.01.2026";
    input.notices = {".SON yok"};
    input.facts = ProjectFacts(basis);
    r.html = ReportHtml(input, analysis, r.design);
    return r;
}

// The text of a chapter, from its heading to the next.
std::string Chapter(const std::string &html, const std::string &heading) {
    const std::size_t from = html.find("<h2>" + heading);
    if (from == std::string::npos)
        return "";
    return html.substr(from, html.find("<h2>", from + 4) - from);
}

} // namespace

// Known answers: FIPS 180-4 ("abc"), RFC 4648.
TEST(Report, HashAndBase64GiveThePublishedAnswers) {
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(Base64("foobar"), "Zm9vYmFy");
    EXPECT_EQ(Base64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(Base64("foob"), "Zm9vYg==");
    EXPECT_EQ(Base64(""), "");
}

TEST(Report, ADateIsADay) {
    EXPECT_EQ(TurkishDate("2026-01-31"), "31.01.2026");
    EXPECT_EQ(TurkishDate("2024-02-29"), "29.02.2024");
    for (const char *wrong :
         {"2026-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "2026-1-31", "31.01.2026", "", "2026-01-3x"})
        EXPECT_EQ(TurkishDate(wrong), "") << wrong;
}

// A page of 100: a heading at the foot goes over with what it heads, a picture with its caption; a table goes on under
// its head, which takes room; a heading over a table goes with head and first row.
TEST(Report, PagesAreCutWhereNothingStandsAlone) {
    std::vector<StripPiece> strip = {{0, 50}, {50, 85}, {85, 95, true}, {95, 110}};
    std::vector<StripPage> pages = CutIntoPages(strip, 100);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0].bottom, 85.0);
    EXPECT_EQ(pages[1].top, 85.0);
    strip = {{0, 75}, {75, 85, true}, {85, 95, true}, {95, 105}}; // heading, head of a table, rows of 10
    for (int row = 1; row < 20; ++row)
        strip.push_back({95.0 + 10 * row, 105.0 + 10 * row, false, 85, 95});
    pages = CutIntoPages(strip, 100);
    ASSERT_EQ(pages.size(), 4U);
    EXPECT_EQ(pages[1].top, 75.0);
    EXPECT_EQ(pages[1].head(), 0.0);
    EXPECT_EQ(pages[1].bottom, 175.0);
    EXPECT_EQ(pages[2].head(), 10.0);
    EXPECT_EQ(pages[2].bottom, 265.0); // nine rows under the head
    EXPECT_EQ(pages[3].bottom, 295.0);
    EXPECT_EQ(CutIntoPages({{0, 30}, {30, 500}, {500, 520}}, 100).size(), 3U); // too high: a page of its own
    EXPECT_TRUE(CutIntoPages({}, 100).empty());
}

// 10 x 5 x 3 m, liquid 3 m: 3^2/2 = 4.50 t/m and 3^3/6 = 4.50 t.m/m on each wall; soil .4 * 1.8 times that: 3.24; the
// liquid on the floor 50 * (3 - .3) = 135 t. Chapters in their order, numbers with comma and unit, nothing from
// outside.
TEST(Report, SaysLoadsByHandAndEveryChapter) {
    const Reported r = ReportOf({{&SiviKotu, 3.0}, {&ToprakKotu, 3.0}, {&MeshGenisligi, 1.0}});
    std::size_t at = 0;
    for (const char *heading : {"Sonuç", "Girdiler", "Ağırlık", "Yükler", "Denge", "Zemin gerilmesi", "Yüzme",
                                "Yer değiştirmeler", "Momentler", "Donatı", "Çatlak", "Kesme", "Uyarılar"}) {
        const std::size_t found = r.html.find("<h2>" + std::string(heading));
        ASSERT_NE(found, std::string::npos) << heading;
        EXPECT_GT(found, at) << heading;
        at = found;
    }
    const std::string loads = Chapter(r.html, "Yükler");
    for (const char *part : {"<td>4,50 t/m</td>", "<td>4,50 t·m/m</td>", "<td>-3,24 t/m</td>", "<td>135,00 t</td>",
                             "γ h²/2 = 4,50 t/m", "·A = 135,00 t"})
        EXPECT_TRUE(Contains(loads, part)) << part;
    // 1 m meshes are too coarse for this pool: said first, and by panel
    EXPECT_TRUE(Contains(Chapter(r.html, "Sonuç"), "Ağ seyrek: hata tahmini %"));
    EXPECT_TRUE(Contains(Chapter(r.html, "Denge"), "<td>tüm havuz</td><td>1,00 m</td><td>%"));
    EXPECT_TRUE(Contains(r.html, "Depo &lt;A&gt; &amp; B"));
    EXPECT_TRUE(Contains(r.html, ".SON yok"));
    EXPECT_TRUE(Contains(r.html, "<html lang=\"tr\">"));
    for (const char *attribute : {"src=\"", "href=\""})
        for (std::size_t place = r.html.find(attribute); place != std::string::npos;
             place = r.html.find(attribute, place + 1))
            EXPECT_EQ(r.html.compare(place + std::string(attribute).size(), 5, "data:"), 0);
    EXPECT_EQ(ReportOf({{&SiviKotu, 3.0}, {&ToprakKotu, 3.0}, {&MeshGenisligi, 1.0}}).html, r.html);
}

// 8 x 8 x 6 m, base 60, walls 40 cm, no strip: G = 64 * 1.5 + 4 * 48 * 1 = 288 t. Water 4 m over the underside: U = 64
// * 4 = 256 t, 1.125. Water 5 m: 320 t, .9, missing 1.1 * 320 - 288 = 64 t, said before what is met.
TEST(Report, FlotationByHandAndWhatIsNotMetFirst) {
    const auto pool = [](double water) {
        return ReportOf({{&Lx, 8.0},
                         {&Ly, 8.0},
                         {&UstKot, 6.0},
                         {&Bk, 0.0},
                         {&AltKalinlik, 60.0},
                         {&KenarKalinlik, 40.0},
                         {&SiviKotu, 5.5},
                         {&ToprakKotu, 0.0},
                         {&YeraltiSuKotu, water},
                         {&MeshGenisligi, 1.0}});
    };
    const Reported stands = pool(4.0), floats = pool(5.0);
    EXPECT_NEAR(stands.design.flotation.dead, 288.0, 1e-9);
    EXPECT_NEAR(stands.design.flotation.uplift, 256.0, 1e-9);
    EXPECT_TRUE(stands.design.flotation.met());
    EXPECT_NEAR(floats.design.flotation.missing(), 64.0, 1e-9);
    EXPECT_FALSE(floats.design.met());
    EXPECT_TRUE(Contains(Chapter(stands.html, "Yüzme"), "288,00 t / 256,00 t"));
    const std::string verdict = Chapter(floats.html, "Sonuç");
    EXPECT_TRUE(Contains(verdict, "eksik ağırlık 64,00 t"));
    EXPECT_LT(verdict.find("sağlanmıyor</td>"), verdict.find("sağlanıyor</td>"));
}

// The sum of the cases is the solution of the sum: every stress and pressure within 1e-9 of the greatest.
TEST(Report, CombinationsAreSumsOfCases) {
    const cons::Tank tank = cons::LibraryPool(1, {{&YeraltiSuKotu, 1.5}, {&MeshGenisligi, 1.0}});
    const cons::Analysis analysis(tank);
    const design::Design design = design::DesignTank(analysis, design::MakeBasis({}));
    for (std::size_t c = 0; c < design.combinations.size(); ++c) {
        const cons::CaseResult solved = analysis.solve(design.basis.combinations[c].sum);
        const cons::CaseResult &sum = design.combinations[c];
        double greatest = 0, gap = 0;
        for (std::size_t i = 0; i < tank.meshes.size(); ++i)
            for (std::size_t k = 0; k < 5; ++k) {
                greatest = std::max(greatest, std::fabs(solved.meshes[i][k].M22));
                gap = std::max(gap, std::fabs(solved.meshes[i][k].M22 - sum.meshes[i][k].M22));
                gap = std::max(gap, std::fabs(solved.meshes[i][k].Q2 - sum.meshes[i][k].Q2));
            }
        for (std::size_t n = 1; n < tank.nodes.size(); ++n)
            gap = std::max(gap, std::fabs(solved.nodes[n].soil - sum.nodes[n].soil));
        EXPECT_LT(gap, 1e-9 * greatest) << sum.key;
        EXPECT_NEAR(solved.proof.load[2], sum.proof.load[2], 1e-9) << sum.key;
        EXPECT_LT(sum.proof.residual, design::kResidualLimit) << sum.key;
    }
}

// The whole way by the shell: tables, a viewer's file, a report that is the same twice, a changed project, wrong words.
TEST(Report, FromAProjectToFiles) {
    const TemporaryFolder folder;
    const auto bytes = [&folder](const char *name) { return ReadBytes(folder.file(name)); };
    ASSERT_EQ(CliStatus(folder, "pool rectangular -o P.POL --set Lx=4 --set Ly=3 --set UstKot=2 --set SiviKotu=2"), 0);
    EXPECT_EQ(CliStatus(folder, "report P.POL -o R.html"), 1); // not meshed: words, no file
    EXPECT_FALSE(bytes("error").empty());
    EXPECT_TRUE(bytes("R.html").empty());
    ASSERT_EQ(CliStatus(folder, "mesh P.POL"), 0);
    ASSERT_EQ(CliStatus(folder, "results P.POL --csv T --style tr --combination full-u"), 0) << bytes("error");
    EXPECT_EQ(bytes("T/combinations.csv").rfind("combination;case;factor\ntest;G;1\n", 0), 0U);
    EXPECT_TRUE(Contains(bytes("T/nodes.csv"), ";full-u;"));
    EXPECT_FALSE(Contains(bytes("T/steel.csv"), "."));
    ASSERT_EQ(CliStatus(folder, "results P.POL -o P.vtu"), 0);
    EXPECT_TRUE(Contains(bytes("P.vtu"), "Name=\"U_L\" NumberOfComponents=\"3\""));
    EXPECT_EQ(CliStatus(folder, "results P.POL --csv T --combination none"), 1);
    ASSERT_EQ(CliStatus(folder, "results P.POL --csv J"), 0);
    ASSERT_EQ(CliStatus(folder, "check P.POL --csv K"), 0) << bytes("error");
    for (const std::string table : {"nodes", "corners", "walls", "proof", "combinations", "steel", "checks"}) {
        EXPECT_FALSE(bytes(("K/" + table + ".csv").c_str()).empty()) << table;
        EXPECT_EQ(bytes(("K/" + table + ".csv").c_str()), bytes(("J/" + table + ".csv").c_str())) << table;
    }
    EXPECT_EQ(CliStatus(folder, "check P.POL --combination full-u"), 0) << bytes("error");
    ASSERT_EQ(CliStatus(folder, "run P.POL --quiet"), 0);
    ASSERT_EQ(CliStatus(folder, "report P.POL -o R.pdf --date 2026-01-31"), 0) << bytes("error");
    const std::string pdf = bytes("R.pdf");
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0U);
    EXPECT_TRUE(Contains(pdf, "/CreationDate (D:20260131000000Z"));
    ASSERT_EQ(CliStatus(folder, "report P.POL -o R.pdf --date 2026-01-31"), 0);
    EXPECT_EQ(bytes("R.pdf"), pdf);
    ASSERT_EQ(CliStatus(folder, "report P.POL -o R.html --date 2026-01-31"), 0);
    const std::string html = bytes("R.html");
    EXPECT_FALSE(Contains(html, kModelChanged));
    EXPECT_FALSE(Contains(html, ".SON yok"));
    ASSERT_EQ(CliStatus(folder, "set P.POL SiviKotu=1"), 0);
    ASSERT_EQ(CliStatus(folder, "report P.POL -o R.html --date 2026-01-31"), 0);
    EXPECT_TRUE(Contains(bytes("error"), kModelChanged));
    EXPECT_TRUE(Contains(bytes("R.html"), kModelChanged));
    EXPECT_TRUE(Contains(bytes("R.html"), "<td>2,00 m</td>")); // the level as it was analysed
    EXPECT_EQ(CliStatus(folder, "report P.POL -o R.txt"), 2);
    EXPECT_EQ(CliStatus(folder, "report P.POL -o R.html --date 31.01.2026"), 2);
    const std::string project = bytes("P.POL"), copy = bytes("P.HSP"), stresses = bytes("P.SON");
    for (const std::string target : {"results P.POL -o P.POL", "render P.POL --result UZ --case L -o P.svg"}) {
        std::filesystem::create_symlink("P.POL", folder.file("P.svg"));
        EXPECT_EQ(CliStatus(folder, target), 1) << target; // nothing is written over the project
        EXPECT_EQ(bytes("P.POL"), project) << target;
        std::filesystem::remove(folder.file("P.svg"));
    }
    // files that are of another model, cut off, damaged: each is said by its name, and the report is there all the same
    const auto reportSays = [&](const char *name, const std::string &content, const char *words) {
        const std::string kept = bytes(name);
        WriteBytes(folder.file(name), content);
        EXPECT_EQ(CliStatus(folder, "report P.POL -o R.html --date 2026-01-31"), 0) << name;
        EXPECT_TRUE(Contains(bytes("error"), words)) << name << bytes("error");
        EXPECT_TRUE(Contains(bytes("R.html"), words)) << name;
        WriteBytes(folder.file(name), kept);
    };
    reportSays("P.SON", stresses.substr(0, 2000), ".SON okunamadı");
    reportSays("P.HSP", copy.substr(0, 200), ".HSP okunamadı, projenin kendisi alındı");
    std::filesystem::remove(folder.file("P.HSP"));
    ASSERT_EQ(CliStatus(folder, "report P.POL -o R.html --date 2026-01-31"), 0);
    EXPECT_TRUE(Contains(bytes("error"), ".SON bu modelin değil"));
    WriteBytes(folder.file("P.RAP"), "{");
    ASSERT_EQ(CliStatus(folder, "results P.POL --csv T"), 0);
    EXPECT_TRUE(Contains(bytes("error"), "P.RAP"));
    EXPECT_EQ(bytes("P.RAP"), "{");
}

// Every result over the whole tank and on a panel, as vectors and as pixels; the values in the picture are those of the
// tables, with their unit. What cannot be drawn is said, and no file is left.
TEST(Report, APictureOfEveryResult) {
    const TemporaryFolder folder;
    const auto render = [&folder](const std::string &what) {
        std::filesystem::remove(folder.file("C.svg"));
        const int status = CliStatus(folder, "render P.POL " + what);
        return std::pair(status, ReadBytes(folder.file("C.svg")));
    };
    ASSERT_EQ(CliStatus(folder, "pool rectangular -o P.POL --set Lx=4 --set Ly=3 --set UstKot=2 --set SiviKotu=2"), 0);
    ASSERT_EQ(CliStatus(folder, "mesh P.POL"), 0);
    const std::array looks = {"", " --plan", " --angles 30,40", " --panel 2", " --panel 2 --plan"};
    std::size_t look = 0;
    for (const char *result :
         {"UX", "UY", "uz", "U", "N11", "N22", "N12", "M11", "M22", "M12", "MI", "MII", "Q1", "Q2"}) {
        const std::string what = std::string(result) + looks.at(look++ % looks.size());
        const auto [status, svg] = render("-o C.svg --case L --result " + what);
        EXPECT_EQ(status, 0) << what << ReadBytes(folder.file("error"));
        const char *unit = result[0] == 'N' || result[0] == 'Q' ? ">t/m<" : result[0] == 'M' ? ">t.m/m<" : ">mm<";
        EXPECT_TRUE(Contains(svg, unit)) << what;
    }
    EXPECT_TRUE(Contains(render("-o C.svg --result SOIL --combination full").second, ">t/m²<"));
    EXPECT_TRUE(Contains(render("-o C.svg --result AS --face inner --direction 2").second, ">cm²/m<"));
    EXPECT_TRUE(
        Contains(render("-o C.svg --result AS --face outer --direction 1 --panel 3").second, "Panel 3 (duvar)"));
    EXPECT_TRUE(Contains(render("-o C.svg --result M22 --case L --range -5,5 --smooth").second, ">-5,000<"));
    EXPECT_EQ(render("-o C.png --result M22 --case L --size 400x300").first, 0);
    EXPECT_EQ(ReadBytes(folder.file("C.png")).substr(0, 24),
              std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\1\x90\0\0\1,", 24));
    for (const char *wrong :
         {"-o C.svg --result M33 --case L", "-o C.svg --result M22", "-o C.svg --result M22 --case X",
          "-o C.svg --result M22 --combination L", "-o C.svg --result M22 --case L --combination full",
          "-o C.svg --result M22 --case L --panel 99", "-o C.txt --result M22 --case L", "-o C.svg --result AS",
          "-o C.svg --result AS --face inner --direction 1 --case L", "-o C.svg --result M22 --case L --face inner",
          "-o C.svg --result M22 --case L --range 5,5", "-o C.svg --case L",
          "-o C.svg --result M22 --case L --size 3x3"}) {
        const auto [status, svg] = render(wrong);
        EXPECT_EQ(status, 2) << wrong;
        EXPECT_TRUE(svg.empty()) << wrong;
        EXPECT_TRUE(Contains(ReadBytes(folder.file("error")), "-")) << wrong;
    }
}

// A viewer's own library reads the file: points, cells and every array are those of the tables.
TEST(Report, TheFileForViewersIsReadByVtk) {
    const TemporaryFolder folder;
    ASSERT_EQ(CliStatus(folder, "pool circular -o P.POL --set Lx=5 --set UstKot=2 --set SiviKotu=2"), 0);
    ASSERT_EQ(CliStatus(folder, "results P.POL -o P.vtu --csv T --combination full"), 0)
        << ReadBytes(folder.file("error"));
    const std::string command =
        "cd " + folder.path() + " && /usr/bin/python3 " + HAVUZ_SOURCE_DIR + "/tests/read_vtu.py P.vtu T";
    const int status = WEXITSTATUS(std::system((command + " >out 2>error").c_str()));
    if (status == 77 || status == 127)
        GTEST_SKIP() << "python3-vtk9 is not installed";
    EXPECT_EQ(status, 0) << ReadBytes(folder.file("error"));
    EXPECT_EQ(ReadBytes(folder.file("out")), "8 cases agree\n");
}
