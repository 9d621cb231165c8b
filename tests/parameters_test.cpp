// The table of general parameters against what is written for a person: the user guide and the page on file formats.
#include "model/parameters.h"
#include "model/startup.h"
#include "model/store.h"
#include "support.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace havuz {

namespace {

using Cells = std::vector<std::string>;

std::string Trimmed(std::string text) {
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// The rows of the first Markdown table below a heading, cells without the blanks around them.
std::vector<Cells> TableBelow(const std::string &page, const std::string &heading) {
    std::istringstream text(ReadBytes(std::string(HAVUZ_SOURCE_DIR) + "/docs/" + page));
    std::vector<Cells> rows;
    bool below = false;
    for (std::string line; std::getline(text, line);) {
        below = below || line == heading;
        if (below && line.rfind("| ", 0) == 0) {
            Cells cells;
            std::istringstream row(line.substr(2));
            for (std::string cell; std::getline(row, cell, '|');)
                cells.push_back(Trimmed(cell));
            rows.push_back(cells);
        } else if (below && !rows.empty() && line.rfind('|', 0) != 0) {
            break;
        }
    }
    return rows;
}

// The parts between commas; "`Lx`, `Ly`" gives the bare names.
Cells Parts(std::string cell) {
    std::erase(cell, '`');
    Cells parts;
    std::istringstream text(cell);
    for (std::string part; std::getline(text >> std::ws, part, ',');)
        parts.push_back(part);
    return parts;
}

// "t/m³" as the table writes it; a dash or nothing is no unit.
std::string PlainUnit(std::string unit) {
    for (const auto &[raised, digit] : {std::pair{"³", "3"}, {"²", "2"}, {"–", ""}})
        if (const std::size_t at = unit.find(raised); at != std::string::npos)
            unit.replace(at, std::string(raised).size(), digit);
    return unit;
}

} // namespace

TEST(Parameters, TheUserGuideTellsUnitsAndFirstValues) {
    std::set<std::string> told;
    for (const Cells &row : TableBelow("user-guide.md", "## pool: a pool of the library")) {
        ASSERT_EQ(row.size(), 4U) << row[0];
        const Cells names = Parts(row[0]), units = Parts(row[2]), values = Parts(row[3]);
        for (std::size_t i = 0; i < names.size(); ++i) {
            const Parameter *p = FindParameter(names[i]);
            if (p == nullptr) // a list, text, or the heading
                continue;
            told.insert(p->name);
            EXPECT_EQ(units.empty() ? "" : PlainUnit(units[std::min(i, units.size() - 1)]), p->unit) << p->name;
            EXPECT_EQ(std::stod(values[std::min(i, values.size() - 1)]), p->pool.value_or(p->start)) << p->name;
        }
    }
    for (const char *cells : {"HavuzTip", "HucreTip", "BolumX", "BolumY"}) // of the window alone
        told.insert(cells);
    for (const Parameter &p : Parameters())
        EXPECT_EQ(told.count(p.name), 1U) << p.name;
}

TEST(Parameters, TheFileHoldsThemInTheOrderThatItsPageTells) {
    const std::map<std::string, ParameterRecord> records = {{"counts", ParameterRecord::Counts},
                                                            {"soil", ParameterRecord::Soil},
                                                            {"pool", ParameterRecord::Pool},
                                                            {"materials", ParameterRecord::Materials}};
    std::size_t met = 0;
    for (const Cells &row : TableBelow("file-formats.md", "## Project, `.POL`")) {
        const auto record = records.find(row[0]);
        if (record == records.end())
            continue;
        ++met;
        Cells names = Parts(row[1]), wanted;
        std::erase_if(names, [](const std::string &name) { return FindParameter(name) == nullptr; });
        for (const Parameter &p : Parameters())
            if (p.record == record->second)
                wanted.push_back(p.name);
        EXPECT_EQ(names, wanted) << row[0];
    }
    EXPECT_EQ(met, records.size());
}

TEST(Parameters, AStartGivesTheValuesOfANewProjectThenThoseOfThePoolLibrary) {
    for (const Parameter &p : Parameters())
        *p.value = -7;
    StartModel(HAVUZ_CLI);
    for (const Parameter &p : Parameters())
        EXPECT_EQ(*p.value, p.pool.value_or(p.start)) << p.name;
    ResetStore();
    for (const Parameter &p : Parameters())
        EXPECT_EQ(*p.value, 0.0) << p.name;
}

} // namespace havuz
