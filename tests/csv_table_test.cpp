// Tables as a spreadsheet writes them, sweeps as an engineer types them.
#include "report/csv_table.h"
#include "report/lightest.h"
#include "report/sweep.h"

#include <functional>
#include <gtest/gtest.h>

namespace havuz {

namespace {

std::string WordsOf(const std::function<void()> &job) {
    try {
        job();
    } catch (const TableFailure &failure) {
        return failure.what();
    }
    return "";
}

} // namespace

TEST(CsvTable, FieldsComeAsTheSpreadsheetMeansThemAndGoAsTheyStood) {
    const std::string text =
        "\xEF\xBB\xBFLx, Ly ,\"KenarMesnet(3,1)\"\r\n8,\"a, \"\"b\"\"\", 1\r\n\r\n,\"two\nlines\",\"\"";
    const CsvTable table = ReadCsvTable(text, "T.csv");
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.column("Ly"), 1U);
    EXPECT_EQ(table.column("KenarMesnet(3,1)"), 2U);
    EXPECT_EQ(table.column("ly"), 3U);
    EXPECT_EQ(table.rows[0][1].text, "a, \"b\"");
    EXPECT_EQ(table.rows[0][2].text, "1");
    EXPECT_EQ(table.rows[1][0].text, "");
    EXPECT_EQ(table.rows[1][1].text, "two\nlines");
    EXPECT_EQ(CsvText(table), "Lx, Ly ,\"KenarMesnet(3,1)\"\n8,\"a, \"\"b\"\"\", 1\n,\"two\nlines\",\"\"\n");
    // what a spreadsheet writes where the comma is the decimal mark
    EXPECT_EQ(CsvText(ReadCsvTable("Lx;Ly\n2,5;3\n", "T.csv")), "Lx,Ly\n\"2,5\",3\n");
    for (const std::string value : {"plain", "a,b", "a;b", "\"", " blank ", "two\nlines"})
        EXPECT_EQ(ReadCsvTable("x\n" + CsvValue(value).raw, "").rows[0][0].raw, CsvValue(value).raw);
}

TEST(CsvTable, ABrokenTableIsRefusedWithItsLine) {
    EXPECT_EQ(WordsOf([] { ReadCsvTable("\n\n", "T.csv"); }), "T.csv: no head line");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a,b\n1,2\n\"x\ny\",4,5\n", "T.csv"); }),
              "T.csv: line 3: 3 fields where the head has 2");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a,b\n1\n", "T.csv"); }), "T.csv: line 2: 1 fields where the head has 2");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a,,b\n", "T.csv"); }), "T.csv: line 1: a column without a name");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a,b,a", "T.csv"); }), "T.csv: line 1: the column \"a\" stands twice");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a\n1\n\"2\n", "T.csv"); }), "T.csv: line 3: a quote that does not close");
    EXPECT_EQ(WordsOf([] { ReadCsvTable("a\n\"1\"2\n", "T.csv"); }), "T.csv: line 2: text behind a closing quote");
}

TEST(Sweep, TheLastNameTurnsFastest) {
    EXPECT_EQ(CsvText(SweepTable(" KenarKalinlik=20:30:5  Lx=8,10:11:1 pool=rectangular")),
              "KenarKalinlik,Lx,pool\n20,8,rectangular\n20,10,rectangular\n20,11,rectangular\n25,8,rectangular\n"
              "25,10,rectangular\n25,11,rectangular\n30,8,rectangular\n30,10,rectangular\n30,11,rectangular\n");
    EXPECT_EQ(CsvText(SweepTable("x=.1:.35:.1 KenarMesnet(2,1)=0,1")),
              "x,\"KenarMesnet(2,1)\"\n0.1,0\n0.1,1\n0.2,0\n0.2,1\n0.3,0\n0.3,1\n");
    EXPECT_EQ(CsvText(SweepTable("x=3:1:-1")), "x\n3\n2\n1\n");
    EXPECT_EQ(CsvText(SweepTable("points='0,0 4,0 4,3','0,0 5,0 5,3'")), "points\n\"0,0 4,0 4,3\"\n\"0,0 5,0 5,3\"\n");
}

TEST(Sweep, WhatIsNoSweepIsRefused) {
    for (const std::string text : {"", "Lx", "=3", "Lx=", "Lx=1,,2", "Lx=1:2", "Lx=1:2:0", "Lx=1:2:-1", "Lx=a:b:c",
                                   "Lx=1:2:1:3", "Lx=1 Lx=2", "points='0,0", "x=0:1e9:1", "x=1:1000:1 y=1:1001:1"})
        EXPECT_EQ(WordsOf([&text] { SweepTable(text); }).rfind("--sweep: ", 0), 0U) << text;
}

TEST(Lightest, OfTheRowsThatMeetTheirChecksTheCheapest) {
    const CsvTable table = ReadCsvTable("row,Lx,concrete_m3,steel_t,verdict\n1,8,10,3,ok\n2,9,11,1,ok\n"
                                        "3,10,1,1,not met\n4,11,,,\n5,12,11,1,ok\n",
                                        "");
    EXPECT_EQ(LightestText(table, 1, ParsePrices("concrete=100,steel=900")),
              "En hafif: row 2, Lx=9: concrete_m3 11, steel_t 1, cost 2000");
    EXPECT_EQ(LightestText(table, 1, ParsePrices("concrete=100")),
              "En hafif: row 1, Lx=8: concrete_m3 10, steel_t 3, cost 1000");
    EXPECT_EQ(LightestText(ReadCsvTable("row,concrete_m3,steel_t,verdict\n1,1,1,not met", ""), 0, {}),
              "En hafif: no row meets all checks");
    for (const std::string text : {"", "concrete", "steel=x", "timber=3", "steel=-1"})
        EXPECT_EQ(WordsOf([&text] { ParsePrices(text); }).rfind("--price: ", 0), 0U) << text;
    EXPECT_EQ(WordsOf([] { LightestRow(ReadCsvTable("row,steel_t\n1,2", ""), {}); }),
              "--price needs the column concrete_m3");
}

} // namespace havuz
