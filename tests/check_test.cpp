// havuz-cli check: its tables, its JSON, its refusals, and the causes beside a run.
#include "cli_support.h"
#include "consistent/causes.h"
#include "consistent_support.h"
#include "model/store.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

namespace havuz {

namespace {

void MakePool(const TemporaryFolder &folder, const std::string &settings) {
    ASSERT_EQ(CliStatus(folder, "pool rectangular -o P.POL --set Lx=6 --set Ly=4 --set UstKot=3 " + settings), 0);
    ASSERT_EQ(CliStatus(folder, "mesh P.POL --mesh-width 1"), 0);
}

std::vector<std::vector<std::string>> ReadCsv(const std::string &path) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream text(ReadBytes(path));
    for (std::string line; std::getline(text, line);) {
        rows.emplace_back();
        std::istringstream fields(line);
        for (std::string field; std::getline(fields, field, ',');)
            rows.back().push_back(field);
    }
    return rows;
}

} // namespace

TEST(Check, TablesHaveTheirColumnsAndTheirRows) {
    const TemporaryFolder folder;
    MakePool(folder, "--set Bk=0");
    const std::string before = ReadBytes(folder.file("P.POL"));
    ASSERT_EQ(CliStatus(folder, "check P.POL --csv T --combination empty-water --no-tension"), 0)
        << ReadBytes(folder.file("error"));
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
    const auto nodes = ReadCsv(folder.file("T/nodes.csv"));
    EXPECT_EQ(ReadBytes(folder.file("T/nodes.csv")).rfind("node,x,y,z,case,ux,uy,uz,rx,ry,rz,soil,reaction\n", 0), 0U);
    const auto corners = ReadCsv(folder.file("T/corners.csv"));
    EXPECT_EQ(corners.front(), (std::vector<std::string>{"mesh", "corner", "node", "panel", "kind", "case", "N11",
                                                         "N22", "N12", "M11", "M22", "M12", "Q1", "Q2"}));
    EXPECT_EQ(corners[1][1], "0"); // the centre first
    EXPECT_EQ(corners[1][2], "0");
    std::map<std::string, int> cases;
    for (std::size_t i = 1; i < nodes.size(); ++i)
        ++cases[nodes[i][4]];
    EXPECT_EQ(cases.size(), 8U); // G P N L S W U and the combination
    EXPECT_EQ(cases["L"], cases["empty-water"]);
    EXPECT_EQ(cases.count("Q"), 0U);
    const auto walls = ReadCsv(folder.file("T/walls.csv"));
    EXPECT_EQ(walls.front(), (std::vector<std::string>{"panel", "case", "length", "height", "F", "M"}));
    for (const auto &row : walls)
        if (row[0] == "3" && row[1] == "L") {
            EXPECT_NEAR(std::stod(row[4]), 27, 27e-9); // 6 m of 3 m of water
            EXPECT_NEAR(std::stod(row[5]), 27, 27e-9);
        }
    int proofs = 0;
    for (const auto &row : ReadCsv(folder.file("T/proof.csv")))
        if (row[0] == "empty-water" || row[0] == "U") {
            ++proofs;
            EXPECT_LT(std::fabs(std::stod(row[5])), 1e-7);
        }
    EXPECT_EQ(proofs, 12);
}

TEST(Check, JsonHasTheSameFigures) {
    const TemporaryFolder folder;
    MakePool(folder, "--set YeraltiSuKotu=1");
    ASSERT_EQ(CliStatus(folder, "check P.POL --json"), 0);
    const auto brief = nlohmann::json::parse(ReadBytes(folder.file("out")));
    for (const char *key : {"panels", "proof", "warnings"})
        EXPECT_TRUE(brief.contains(key)) << key;
    EXPECT_FALSE(brief.contains("nodes"));
    EXPECT_EQ(brief["proof"][0].size(), 7U);
    bool uplift = false;
    for (const auto &w : brief["warnings"])
        uplift = uplift || w["code"] == "uplift-short";
    EXPECT_TRUE(uplift);
    ASSERT_EQ(CliStatus(folder, "check P.POL --json --full --csv T"), 0);
    const auto full = nlohmann::json::parse(ReadBytes(folder.file("out")));
    const auto corners = ReadCsv(folder.file("T/corners.csv"));
    ASSERT_EQ(full["corners"].size(), corners.size() - 1);
    EXPECT_NEAR(full["corners"][77]["M22"].get<double>(), std::stod(corners[78][10]), 1e-9);
    EXPECT_EQ(full["nodes"].size(), ReadCsv(folder.file("T/nodes.csv")).size() - 1);
}

// Literal and consistent values beside each other, the causes adding up to the difference.
TEST(Check, CausesExplainTheDifference) {
    const TemporaryFolder folder;
    MakePool(folder, "--set YeraltiSuKotu=1 --set ToprakKotu=1.5 --set SiviKotu=2.5");
    ASSERT_EQ(CliStatus(folder, "run P.POL --quiet"), 0);
    ASSERT_EQ(CliStatus(folder, "check P.POL --json"), 0);
    const auto report = nlohmann::json::parse(ReadBytes(folder.file("out")));
    ASSERT_FALSE(report["run"].empty());
    double levelOnEdge = 0, carried = 0;
    for (const auto &row : report["run"]) {
        double sum = 0;
        for (const auto &[cause, amount] : row["causes"].items())
            sum += amount.get<double>();
        const double difference = row["consistent"].get<double>() - row["run"].get<double>();
        EXPECT_NEAR(sum, difference, 0.02 * std::fabs(difference) + 1e-9);
        EXPECT_EQ(row["causes"].size(), 7U);
        EXPECT_EQ(row["causes"]["joining"], 0.0);
        levelOnEdge = std::max(levelOnEdge, std::fabs(row["causes"]["level-on-edge"].get<double>()));
        if (row["cases"] == "S")
            carried = std::max(carried, std::fabs(row["causes"]["carried-over"].get<double>()));
    }
    EXPECT_GT(levelOnEdge, 0.01); // groundwater at 1 m, on an edge
    EXPECT_GT(carried, 0.01);     // liquid taken over by the soil above its level
    ASSERT_EQ(CliStatus(folder, "set P.POL SiviKotu=2.6"), 0);
    ASSERT_EQ(CliStatus(folder, "check P.POL"), 0);
    EXPECT_NE(ReadBytes(folder.file("out")).find("the model has changed since the run"), std::string::npos);
}

// Words, status 1, nothing written.
TEST(Check, BadModelsEndInWords) {
    const TemporaryFolder folder;
    MakePool(folder, "--set ZeminKo=0");
    EXPECT_EQ(CliStatus(folder, "check P.POL --csv T"), 1);
    EXPECT_NE(ReadBytes(folder.file("error")).find("neither bed nor support; ZeminKo is 0"), std::string::npos)
        << ReadBytes(folder.file("error"));
    EXPECT_EQ(ReadBytes(folder.file("out")), "");
    EXPECT_FALSE(std::filesystem::exists(folder.file("T")));
    ASSERT_EQ(CliStatus(folder, "pool rectangular -o E.POL"), 0);
    EXPECT_EQ(CliStatus(folder, "check E.POL"), 1); // not meshed
    ASSERT_EQ(CliStatus(folder, "set P.POL ZeminKo=2000"), 0);
    EXPECT_EQ(CliStatus(folder, "check P.POL --combination none"), 2);
    WriteBytes(folder.file("F"), "a file");
    EXPECT_EQ(CliStatus(folder, "check P.POL --csv F"), 1);
}

} // namespace havuz
