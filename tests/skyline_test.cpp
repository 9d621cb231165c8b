// The order of rows against the plain sweep, which walks through all rows at every move.
#include "mesh/skyline.h"
#include "plain_skyline.h"

#include <gtest/gtest.h>
#include <random>

namespace havuz {

namespace {

// Joins at random, not all of them from both sides, as the lists of a mesh; some rows have none, some know row 0.
std::vector<NeighbourList> RandomLists(int rows, int joins, std::mt19937 &random) {
    std::vector<std::set<int>> neighbours(static_cast<std::size_t>(rows) + 1);
    const auto any = [&] { return 1 + static_cast<int>(random() % static_cast<unsigned>(rows)); };
    for (int join = 0; join < joins; ++join) {
        const int a = any();
        const int b = random() % 3 == 0 ? any() : std::min(rows, a + 1 + static_cast<int>(random() % 6));
        for (const auto &[from, to] : {std::pair{a, b}, std::pair{b, random() % 5 == 0 ? 0 : a}})
            if (from != to && neighbours[static_cast<std::size_t>(from)].size() < kNeighbours)
                neighbours[static_cast<std::size_t>(from)].insert(to);
    }
    return ListsOf(neighbours);
}

void ExpectThePlainOrder(const std::vector<NeighbourList> &lists) {
    const int rows = static_cast<int>(lists.size()) - 1;
    EXPECT_EQ(SkylineOrder(lists, rows), PlainSkylineOrder(lists, rows));
}

} // namespace

TEST(Skyline, MovesRowsAsThePlainSweepDoes) {
    std::mt19937 random(7);
    for (int rows = 0; rows <= 60; ++rows)
        for (const int joins : {rows / 2, rows, 3 * rows}) {
            SCOPED_TRACE(std::to_string(rows) + " rows, " + std::to_string(joins) + " joins");
            ExpectThePlainOrder(rows == 0 ? std::vector<NeighbourList>(1) : RandomLists(rows, joins, random));
        }
    for (const bool shuffled : {false, true}) {
        ExpectThePlainOrder(GridLists(5, 31, shuffled ? 3 : 0));
        ExpectThePlainOrder(GridLists(12, 13, shuffled ? 5 : 0));
    }
    ExpectThePlainOrder(RandomLists(400, 900, random));
}

} // namespace havuz
