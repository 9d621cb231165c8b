// Tables of variants by havuz-cli: rows, failures, a stopped run that goes on, shards.
#include "cli_support.h"
#include "report/csv_table.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <unistd.h>

namespace havuz {

namespace {

std::string FieldAt(const std::string &text, std::size_t row, const std::string &column) {
    const CsvTable table = ReadCsvTable(text, "OUT.csv");
    return row < table.rows.size() && table.column(column) < table.head.size()
               ? table.rows[row][table.column(column)].text
               : "nothing there";
}

std::size_t Lines(const std::string &text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST(Variants, EachRowIsTheTankOfTheSingleCommands) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("T.csv"), "pool,Lx,mesh,points,D(1),\"KenarMesnet(2,3)\",FZ(3)\n"
                                     "rectangular,7,0.7,,,,\n"
                                     "circular,6,0.5,,,,\n"
                                     ",,0.5,\"0,0 6,0 6,3 3,3 3,6 0,6\",,,\n"
                                     ",7.3,,,40,1,2.5\n");
    const Ended made = Cli(folder, "variants T.csv -o OUT.csv --want concrete_m3,nodes,meshes");
    ASSERT_EQ(made.status, 0) << made.error;
    const std::string out = ReadBytes(folder.file("OUT.csv"));
    EXPECT_EQ(out.rfind("row,pool,Lx,mesh,points,D(1),\"KenarMesnet(2,3)\",FZ(3),concrete_m3,nodes,meshes,words\n", 0),
              0U)
        << out;
    const std::vector<std::string> commands = {
        "pool rectangular -o P.POL --set Lx=7 --set MeshGenisligi=0.7",
        "mesh P.POL --mesh-width 0.7",
        "",
        "pool circular -o P.POL --set Lx=6 --set MeshGenisligi=0.5",
        "",
        "",
        "polygon -o P.POL --points '0,0 6,0 6,3 3,3 3,6 0,6' --dp 20 --ds 30 --top 3 --bottom 0",
        "mesh P.POL --mesh-width 0.5",
        "",
        "pool rectangular -o P.POL --set Lx=7.3",
        "set P.POL 'D(1)=40' 'KenarMesnet(2,3)=1'",
        "mesh P.POL"};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t k = 0; k < 3; ++k)
            if (!commands[3 * row + k].empty()) {
                ASSERT_EQ(Cli(folder, commands[3 * row + k]).status, 0);
            }
        const std::string info = Cli(folder, "info P.POL --json").out;
        EXPECT_TRUE(Contains(info, "\"nodes\": " + FieldAt(out, row, "nodes") + ",")) << row << info;
        EXPECT_TRUE(Contains(info, "\"meshes\": " + FieldAt(out, row, "meshes") + "\n")) << row << info;
        EXPECT_EQ(FieldAt(out, row, "words"), "");
    }
    // 7 x 5 x .30 base, walls 24 x 3 x .20, strips of 1 m outside: (9 x 7 - 35) x .20
    EXPECT_NEAR(std::stod(FieldAt(out, 0, "concrete_m3")), 7 * 5 * .3 + 24 * 3 * .2 + 28 * .2, 1e-5);
    EXPECT_NEAR(std::stod(FieldAt(out, 3, "concrete_m3")), 7.3 * 5 * .4 + 24.6 * 3 * .2 + (9.3 * 7 - 36.5) * .2, 1e-5);
}

// The figures of a row are those of the tables that results writes for the same tank.
TEST(Variants, ResultsAreThoseOfTheSingleCommands) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("T.csv"), "pool,Lx,KenarKalinlik,YeraltiSuKotu,points,sound,mesh\n,8,20,1,,,\n,12,25,,,,\n"
                                     "circular,6,20,,,,0.5\n,,20,.5,\"0,0 5,0 5,3 2,5\",1,0.7\n");
    const Ended made =
        Cli(folder, "variants T.csv -o OUT.csv --want settlement_mm,soil_t_m2,flotation,verdict,residual,"
                    "weight_t,M_3_22_full,M_2_11_L,M_1001_11_test-u");
    ASSERT_EQ(made.status, 0) << made.error;
    const std::string out = ReadBytes(folder.file("OUT.csv"));
    const std::vector<std::string> commands = {
        "pool rectangular -o P.POL --set Lx=8 --set YeraltiSuKotu=1",
        "mesh P.POL",
        "pool rectangular -o P.POL --set Lx=12 --set KenarKalinlik=25",
        "mesh P.POL",
        "pool circular -o P.POL --set Lx=6 --set MeshGenisligi=0.5",
        "info P.POL",
        "polygon -o P.POL --points '0,0 5,0 5,3 2,5' --dp 20 --ds 30 --top 3 --bottom 0",
        "set P.POL YeraltiSuKotu=.5 SiviKotu=3 ToprakKotu=3"};
    for (std::size_t row = 0; row < 4; ++row) {
        SCOPED_TRACE(row);
        ASSERT_EQ(Cli(folder, commands[2 * row]).status, 0);
        ASSERT_EQ(Cli(folder, commands[2 * row + 1]).status, 0);
        if (row == 3) {
            ASSERT_EQ(Cli(folder, "mesh P.POL --sound --mesh-width 0.7").status, 0);
        }
        EXPECT_EQ(FieldAt(out, row, "words"), "");
        const auto expect = [&](const std::string &name, double value) {
            const std::string field = FieldAt(out, row, name);
            EXPECT_NEAR(field.empty() ? 0.0 : std::stod(field), value, 1e-9 * (1.0 + std::fabs(value))) << name;
        };
        double settlement = 0.0, greatest22 = 0.0, greatest11 = 0.0, greatestPlate = 0.0, weight = 0.0;
        for (const std::string key : {"full", "test-u"}) {
            ASSERT_EQ(Cli(folder, "results P.POL --csv R --combination " + key).status, 0);
            const CsvTable nodes = ReadCsvTable(ReadBytes(folder.file("R/nodes.csv")), "nodes");
            for (const auto &r : nodes.rows)
                if (r[4].text == "full" && std::stod(r[11].text) != 0.0)
                    settlement = std::max(settlement, -1000.0 * std::stod(r[7].text));
            const CsvTable corners = ReadCsvTable(ReadBytes(folder.file("R/corners.csv")), "corners");
            for (const auto &r : corners.rows) {
                if (r[1].text == "0")
                    continue;
                const double m11 = std::fabs(std::stod(r[9].text)), m22 = std::fabs(std::stod(r[10].text));
                if (r[3].text == "3" && r[5].text == "full")
                    greatest22 = std::max(greatest22, m22);
                if (r[3].text == "2" && r[5].text == "L")
                    greatest11 = std::max(greatest11, m11);
                if (r[3].text == "1001" && r[5].text == "test-u")
                    greatestPlate = std::max(greatestPlate, m11);
            }
        }
        expect("settlement_mm", settlement);
        expect("M_3_22_full", greatest22);
        expect("M_2_11_L", greatest11);
        expect("M_1001_11_test-u", greatestPlate);
        const CsvTable proof = ReadCsvTable(ReadBytes(folder.file("R/proof.csv")), "proof");
        for (const auto &r : proof.rows)
            if (r[0].text == "G" && r[1].text == "FZ")
                weight = -std::stod(r[2].text);
        expect("weight_t", weight);
        std::string verdict = "ok";
        const CsvTable checks = ReadCsvTable(ReadBytes(folder.file("R/checks.csv")), "checks");
        for (const auto &r : checks.rows) {
            if (r.back().text != "ok")
                verdict = "not met";
            if (r[0].text == "flotation")
                expect("flotation", std::stod(r[3].text));
            if (r[0].text == "soil" && r[1].text == "full")
                expect("soil_t_m2", std::stod(r[3].text));
        }
        EXPECT_EQ(FieldAt(out, row, "verdict"), verdict);
        EXPECT_LT(std::stod(FieldAt(out, row, "residual")), 1e-8);
    }
}

TEST(Variants, AFailingRowIsARowWithItsWords) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("T.csv"), "Lx,pool,points,mesh,sound,Mesnet(9999)\nabc,,,,,\n,square,,,,\n"
                                     ",circular,\"0,0 1,0 1,1\",,,\n,,,0,,\n,,,,maybe,\n,,,0.01,,\n,,,,,4\n8,,,,,\n");
    const Ended made = Cli(folder, "variants T.csv -o OUT.csv --jobs 3 --want nodes");
    EXPECT_EQ(made.status, 0);
    EXPECT_TRUE(Contains(made.error, "8 of 8 rows")) << made.error;
    EXPECT_TRUE(Contains(made.error, "7 rows failed")) << made.error;
    const std::string out = ReadBytes(folder.file("OUT.csv"));
    const std::vector<std::string> words = {"abc", "square", "exclude", "mesh width", "sound", "500501", "9999", ""};
    for (std::size_t row = 0; row < words.size(); ++row) {
        EXPECT_TRUE(Contains(FieldAt(out, row, "words"), words[row])) << row << out;
        EXPECT_EQ(FieldAt(out, row, "nodes").empty(), !words[row].empty()) << row << out;
    }
}

TEST(Variants, WhatCannotBeMeantEndsBeforeAnyWork) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("T.csv"), "Lx\n8\n");
    WriteBytes(folder.file("U.csv"), "Lx,Mesnet(1),Foo\n8,4,1\n");
    const std::vector<std::pair<std::string, int>> cases = {
        {"U.csv -o OUT.csv", 1},
        {"T.csv -o OUT.csv --want nodes,foo", 1},
        {"T.csv -o OUT.csv --want nodes,nodes", 1},
        {"T.csv -o OUT.csv --want M_3_22_nokey", 1},
        {"T.csv -o OUT.csv --want nodes --price steel=1", 1},
        {"T.csv -o OUT.csv --price timber=1", 1},
        {"T.csv -o OUT.csv --base none.POL", 1},
        {"none.csv -o OUT.csv", 1},
        {"--sweep 'Foo=1,2' -o OUT.csv", 1},
        {"--sweep 'Lx=1:2' -o OUT.csv", 1},
        {"T.csv -o OUT.csv --shard 3/2", 2},
        {"T.csv -o OUT.csv --shard 0/2", 2},
        {"T.csv", 2},
        {"T.csv --sweep 'Lx=1,2' -o OUT.csv", 2},
        {"T.csv -o OUT.csv --jobs 0", 2},
    };
    for (const auto &[arguments, status] : cases) {
        const Ended made = Cli(folder, "variants " + arguments);
        EXPECT_EQ(made.status, status) << arguments << made.error;
        EXPECT_EQ(Lines(made.error), 1U) << made.error;
        EXPECT_FALSE(std::filesystem::exists(folder.file("OUT.csv"))) << arguments;
        EXPECT_FALSE(std::filesystem::exists(folder.file("OUT.csv.rows"))) << arguments;
    }
    EXPECT_TRUE(Contains(Cli(folder, "variants U.csv -o OUT.csv").error, "U.csv: unknown column \"Foo\""));
    const Ended list = Cli(folder, "variants --list");
    EXPECT_EQ(list.out, "nodes\nmeshes\nweight_t\nconcrete_m3\nsettlement_mm\nsoil_t_m2\nflotation\nsteel_t\n"
                        "steel_kg_m3\ncrack_mm\nverdict\nresidual\nM_PANEL_11|22_KEY\n");
}

TEST(Variants, ShardsMergedAndAnyNumberOfProcessesGiveTheSameBytes) {
    const TemporaryFolder folder;
    const std::string sweep = "variants --sweep 'Lx=5:9:1,0 KenarKalinlik=20,30' --want nodes,weight_t ";
    ASSERT_EQ(Cli(folder, sweep + "-o ONE.csv --jobs 1").status, 0);
    const std::string one = ReadBytes(folder.file("ONE.csv"));
    EXPECT_EQ(Lines(one), 13U);
    ASSERT_EQ(Cli(folder, sweep + "-o FIVE.csv --jobs 5").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("FIVE.csv")), one);
    for (const std::string k : {"1", "2", "3"})
        ASSERT_EQ(Cli(folder, sweep + "-o S" + k + ".csv --shard " + k + "/3").status, 0);
    EXPECT_EQ(FieldAt(ReadBytes(folder.file("S2.csv")), 1, "row"), "5");
    ASSERT_EQ(Cli(folder, "merge S3.csv S1.csv S2.csv -o ALL.csv").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("ALL.csv")), one);
    EXPECT_EQ(Cli(folder, "merge S1.csv S3.csv -o NONE.csv").error,
              "havuz-cli: NONE.csv: row 2 is in no table; is a shard missing?\n");
    std::string other = ReadBytes(folder.file("S2.csv"));
    other.insert(other.rfind("\n5,") + 3, "1");
    WriteBytes(folder.file("S4.csv"), other);
    EXPECT_TRUE(Contains(Cli(folder, "merge S1.csv S2.csv S3.csv S4.csv -o NONE.csv").error, "row 5 differs"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("NONE.csv")));
    // the table of a sweep, and the same rows from it
    ASSERT_EQ(Cli(folder, "variants --sweep 'Lx=5:9:1,0 KenarKalinlik=20,30' --table T.csv").status, 0);
    ASSERT_EQ(Cli(folder, "variants T.csv --want nodes,weight_t -o TWO.csv").status, 0);
    EXPECT_EQ(ReadBytes(folder.file("TWO.csv")), one);
}

TEST(Variants, AStoppedRunGoesOnWhereItStopped) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "variants --sweep 'Lx=5:28:1' --table T.csv").status, 0);
    ASSERT_EQ(Cli(folder, "variants T.csv -o WHOLE.csv").status, 0);
    const std::string whole = ReadBytes(folder.file("WHOLE.csv"));
    const std::string shell = "cd " + folder.path() + " && ";
    for (const char *signal : {"INT", "KILL"}) {
        // ended as soon as some rows are kept
        const std::string script = "(" + shell + "exec " + HAVUZ_CLI +
                                   " variants T.csv -o OUT.csv --jobs 1 2>/dev/null) & p=$!; cd " + folder.path() +
                                   "; while [ ! -s OUT.csv.rows ]; do sleep 0.01; done; kill -" + signal +
                                   " $p; wait $p; echo $? >status";
        ASSERT_EQ(std::system(("bash -mc '" + script + "' 2>/dev/null").c_str()), 0);
        EXPECT_NE(ReadBytes(folder.file("status")), "0\n") << signal;
        EXPECT_FALSE(std::filesystem::exists(folder.file("OUT.csv"))) << signal;
        const std::string rows = ReadBytes(folder.file("OUT.csv.rows"));
        ASSERT_LT(Lines(rows), 24U) << "ended too late to show anything";
        WriteBytes(folder.file("OUT.csv.rows"), rows + rows.substr(0, rows.size() / Lines(rows) / 2)); // cut short
        const Ended again = Cli(folder, "variants T.csv -o OUT.csv");
        EXPECT_TRUE(Contains(again.error, std::to_string(Lines(rows)) + " from before")) << again.error;
        EXPECT_EQ(ReadBytes(folder.file("OUT.csv")), whole) << signal;
        std::filesystem::remove(folder.file("OUT.csv"));
        std::filesystem::remove(folder.file("OUT.csv.rows"));
    }
}

TEST(Variants, FinishedRowsAreKnownByWhatTheyFollowFrom) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o B.POL --set Lx=6").status, 0);
    WriteBytes(folder.file("T.csv"), "ZeminKo,D(1)\n1000,\n2000,40\n");
    const std::string command = "variants T.csv -o OUT.csv --base B.POL --want concrete_m3";
    EXPECT_FALSE(Contains(Cli(folder, command).error, "from before"));
    EXPECT_TRUE(Contains(Cli(folder, command).error, "2 of 2 rows, 2 from before"));
    WriteBytes(folder.file("T.csv"), "D(1),ZeminKo\n40,2000\n40,3000\n,1000\n"); // other columns, order and rows
    EXPECT_TRUE(Contains(Cli(folder, command).error, "3 of 3 rows, 2 from before"));
    std::string &&rows = ReadBytes(folder.file("OUT.csv.rows"));
    rows[rows.find("concrete_m3") + 13] ^= 1; // a damaged record is made again
    WriteBytes(folder.file("OUT.csv.rows"), rows);
    EXPECT_TRUE(Contains(Cli(folder, command).error, "3 of 3 rows, 2 from before"));
    ASSERT_EQ(Cli(folder, "set B.POL SiviKotu=2").status, 0);
    EXPECT_FALSE(Contains(Cli(folder, command).error, "from before"));
    WriteBytes(folder.file("B.RAP"), "{}");
    EXPECT_FALSE(Contains(Cli(folder, command).error, "from before"));
}

TEST(Variants, ABaseKeepsWhatTheRowsDoNotName) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder, "pool rectangular -o B.POL --set Lx=6 --set Bk=0 --set MeshGenisligi=0.5").status, 0);
    ASSERT_EQ(Cli(folder, "mesh B.POL").status, 0);
    const std::string command = " -o OUT.csv --base B.POL --want nodes,concrete_m3";
    WriteBytes(folder.file("T.csv"), "Lx,Nx(1),pool,D(1),points\n,,,,\n8,,,,\n,6,,,\n9,,circular,,\n,,,40,\n"
                                     ",,,,\"0,0 4,0 4,3 0,3\"\n");
    ASSERT_EQ(Cli(folder, "variants T.csv" + command).status, 0);
    const std::string out = ReadBytes(folder.file("OUT.csv"));
    EXPECT_TRUE(Contains(Cli(folder, "info B.POL --json").out, "\"nodes\": " + FieldAt(out, 0, "nodes") + ","));
    EXPECT_NEAR(std::stod(FieldAt(out, 0, "concrete_m3")), 6 * 5 * .3 + 22 * 3 * .2, 1e-5);
    EXPECT_NEAR(std::stod(FieldAt(out, 1, "concrete_m3")), 8 * 5 * .3 + 26 * 3 * .2, 1e-5);
    EXPECT_EQ(FieldAt(out, 1, "nodes"), "499"); // 17 x 11 and 52 x 6 at the width of the base, .5 m
    EXPECT_EQ(FieldAt(out, 2, "words"), "");
    EXPECT_NEAR(std::stod(FieldAt(out, 4, "concrete_m3")), 6 * 5 * .4 + 22 * 3 * .2, 1e-5);
    EXPECT_NEAR(std::stod(FieldAt(out, 5, "concrete_m3")), 12 * .3 + 14 * 3 * .2, 1e-5);
    // what a person did to the base is never lost without a word
    WriteBytes(folder.file("T.csv"), "Lx\n8\n");
    ASSERT_EQ(Cli(folder, "set B.POL 'FZ(7)=2'").status, 0);
    ASSERT_EQ(Cli(folder, "variants T.csv" + command).status, 0);
    EXPECT_TRUE(Contains(ReadBytes(folder.file("OUT.csv")), "point loads of the base's nodes go with its mesh"));
    ASSERT_EQ(Cli(folder, "set B.POL 'FZ(7)=0' 'D(3)=35'").status, 0);
    ASSERT_EQ(Cli(folder, "variants T.csv" + command).status, 0);
    EXPECT_TRUE(Contains(ReadBytes(folder.file("OUT.csv")), "not those that its parameters make"));
}

TEST(Plot, OnePointOfEachRowThatHasOne) {
    const TemporaryFolder folder;
    WriteBytes(folder.file("T.csv"),
               "row,Lx,dp,steel_t,verdict,words\n1,8,20,2.5,ok,\n2,10,20,3.5,ok,\n3,8,25,2,not met,\n"
               "4,10,25,,,\"<no> & none\"\n5,6,\"a<b\",3,ok,\n");
    ASSERT_EQ(Cli(folder, "plot T.csv --x Lx --y steel --by dp -o P.svg --title 'A & B'").status, 0);
    const std::string svg = ReadBytes(folder.file("P.svg"));
    EXPECT_TRUE(MatchesGolden("variants_plot.svg", svg));
    EXPECT_TRUE(
        Contains(Cli(folder, "plot T.csv --x Ly --y steel -o Q.svg").error, "no column \"Ly\"; there are row Lx"));
    EXPECT_TRUE(Contains(Cli(folder, "plot T.csv --x Lx --y words -o Q.svg").error, "no row has numbers"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("Q.svg")));
}

} // namespace havuz
