// The order of rows that shortens the skyline of the system matrix: an own method of one sweep.
//
// The width of row r is the distance from r to its farthest neighbour behind it, at least the width of the row before
// less 1: the rows of the skyline, whose sum is the profile that the elimination has to fill. The sweep goes down the
// rows. At row r it draws each neighbour, nearest first, up to the first place behind the front (the farthest row that
// the rows before r reach), so that neighbours follow each other as the front moves through the structure.
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
