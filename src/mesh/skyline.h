// The order of rows that shortens the skyline of the system matrix: a greedy moving of rows, each drawn in behind the
// front of the rows before it.
#pragma once

#include <array>
#include <vector>

namespace havuz {

constexpr int kNeighbours = 20;

// The rows that one row is joined to, Komsu(1..count).
struct NeighbourList {
    std::array<int, kNeighbours + 1> Komsu{};
    int count = 0;
};

// lists: element r holds the neighbours of row r = 1..rows, each once, in rising order; 0 stays 0. Gives the row that
// stands at each place 1..rows (element 0 is 0).
std::vector<int> SkylineOrder(const std::vector<NeighbourList> &lists, int rows);

} // namespace havuz
