// The sweep of the numbering as the method is written down: every move walks through all rows, renames their neighbours
// and sorts their lists. The reference of SkylineOrder in the tests and of its speed in the benchmarks.
#pragma once

#include "mesh/skyline.h"

#include <algorithm>
#include <numeric>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace havuz {

struct PlainSweep {
    std::vector<NeighbourList> rows; // by place
    std::vector<int> name;           // the row that stands at a place
    std::vector<int> width;

    static std::size_t at(int i) { return static_cast<std::size_t>(i); }
    int last() const { return static_cast<int>(rows.size()) - 1; }

    int widthByNeighbours(int r) const {
        int found = 1;
        for (int k = 1; k <= rows[at(r)].count; ++k)
            found = std::max(found, rows[at(r)].Komsu[at(k)] - r + 1);
        return found;
    }
    void measure() {
        width[0] = 1;
        for (int r = 1; r <= last(); ++r)
            width[at(r)] = std::max(widthByNeighbours(r), width[at(r - 1)] - 1);
    }
    void move(int v, int g) {
        std::rotate(rows.begin() + g, rows.begin() + v, rows.begin() + v + 1);
        std::rotate(name.begin() + g, name.begin() + v, name.begin() + v + 1);
        for (int r = 1; r <= last(); ++r) {
            NeighbourList &row = rows[at(r)];
            for (int k = 1; k <= row.count; ++k) {
                int &n = row.Komsu[at(k)];
                if (n == v)
                    n = g;
                else if (n >= g && n < v)
                    ++n;
            }
            width[at(r)] = widthByNeighbours(r);
            for (int a = 1; a <= row.count - 1; ++a)
                for (int b = a + 1; b <= row.count; ++b)
                    if (row.Komsu[at(a)] > row.Komsu[at(b)])
                        std::swap(row.Komsu[at(a)], row.Komsu[at(b)]);
        }
    }
    void sweepRow(int r) {
        const NeighbourList &row = rows[at(r)];
        for (int k = 1; k <= row.count; ++k) {
            const int v = row.Komsu[at(k)];
            int lim = std::max((r - 1) + width[at(r - 1)], r + 1);
            if (k > 1)
                lim = std::max(lim, row.Komsu[at(k - 1)] + 1);
            const int g = std::min(v - 1, lim);
            if (g <= (r - 2) + width[at(r - 1)] || g <= r || g >= v || (k > 1 && row.Komsu[at(k - 1)] >= g))
                continue;
            move(v, g);
        }
        measure();
    }
};

inline std::vector<int> PlainSkylineOrder(const std::vector<NeighbourList> &lists, int rows) {
    PlainSweep s{{lists.begin(), lists.begin() + rows + 1}, {}, {}};
    s.width.resize(s.rows.size());
    for (int r = 0; r <= rows; ++r)
        s.name.push_back(r);
    s.measure();
    for (int r = 1; r <= rows - 1; ++r) {
        if (r > 1 && s.width[PlainSweep::at(r - 1)] == rows)
            break;
        s.sweepRow(r);
    }
    return s.name;
}

inline std::vector<NeighbourList> ListsOf(const std::vector<std::set<int>> &neighbours) {
    std::vector<NeighbourList> lists(neighbours.size());
    for (std::size_t r = 0; r < neighbours.size(); ++r)
        for (const int n : neighbours[r])
            lists[r].Komsu[static_cast<std::size_t>(++lists[r].count)] = n;
    return lists;
}

// A grid whose nodes are numbered along the long way, which the sweep turns; with a seed in any order.
inline std::vector<NeighbourList> GridLists(int across, int along, unsigned seed) {
    std::vector<int> number(static_cast<std::size_t>(across * along));
    std::iota(number.begin(), number.end(), 1);
    if (seed != 0)
        std::shuffle(number.begin(), number.end(), std::mt19937(seed));
    std::vector<std::set<int>> neighbours(number.size() + 1);
    const auto node = [&](int i, int j) { return number[static_cast<std::size_t>(i * along + j)]; };
    for (int i = 0; i < across; ++i)
        for (int j = 0; j < along; ++j)
            for (const auto &[p, q] : {std::pair{i + 1, j}, std::pair{i, j + 1}})
                if (p < across && q < along) {
                    neighbours[static_cast<std::size_t>(node(i, j))].insert(node(p, q));
                    neighbours[static_cast<std::size_t>(node(p, q))].insert(node(i, j));
                }
    return ListsOf(neighbours);
}

} // namespace havuz
