#include "mesh/skyline.h"

#include <algorithm>
#include <utility>

namespace havuz {

namespace {

// The rows keep their names while they move; the place of each is looked up. A move so touches the rows that move and
// no list of neighbours, which the method as written down walks through and renames as a whole.
//
// The width of row r is measured between two rows of the sweep: at least one less than that of the row before it, so it
// reaches to the front, the farthest neighbour of all rows up to r. A row moves up to a place behind the front, never
// to one before it: what is done stands still, and the front is the maximum of places that no longer change. The
// written method takes the width by the neighbours of row r-1 alone between a move and the next measuring; the
// neighbour that moved lies behind the front then and bounds the next move by itself, so no place depends on it.
class Sweep {
public:
    Sweep(const std::vector<NeighbourList> &lists, int rows)
        : lists_(lists), rows_(rows), order_(static_cast<std::size_t>(rows) + 1), place_(order_.size()) {
        for (int r = 0; r <= rows; ++r)
            order_[at(r)] = place_[at(r)] = r;
    }

    void run() {
        for (int r = 1; r <= rows_ - 1 && front_ < rows_; ++r) { // nothing moves where nothing lies behind the front
            drawIn(r);
            front_ = std::max(front_, placesOfNeighbours(r).back());
        }
    }
    std::vector<int> order() && { return std::move(order_); }

private:
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    int width(int r) const { return r == 0 ? 1 : std::max(front_, r) - r + 1; } // of the last row that is done

    // The row at place v moves up to place g; those at g..v-1 shift down by one.
    void move(int v, int g) {
        const auto begin = order_.begin();
        std::rotate(begin + g, begin + v, begin + v + 1);
        for (int place = g; place <= v; ++place)
            place_[at(order_[at(place)])] = place;
    }

    // Rising, behind an element 0.
    std::vector<int> placesOfNeighbours(int r) const {
        const NeighbourList &list = lists_[at(order_[at(r)])];
        std::vector<int> places(at(list.count) + 1);
        for (int k = 1; k <= list.count; ++k)
            places[at(k)] = place_[at(list.Komsu[at(k)])];
        std::sort(places.begin() + 1, places.end());
        return places;
    }

    // The neighbours of row r, nearest first, are drawn in right behind the current front. Row r stands still: only
    // rows behind it move.
    void drawIn(int r) {
        const int front = (r - 1) + width(r - 1);
        std::vector<int> Komsu = placesOfNeighbours(r);
        for (std::size_t k = 1; k < Komsu.size(); ++k) {
            const int v = Komsu[k];
            int lim = std::max(front, r + 1);
            if (k > 1)
                lim = std::max(lim, Komsu[k - 1] + 1);
            const int g = std::min(v - 1, lim);
            if (g <= front - 1 || g <= r || g >= v || (k > 1 && Komsu[k - 1] >= g))
                continue;
            move(v, g);
            Komsu = placesOfNeighbours(r);
        }
    }

    const std::vector<NeighbourList> &lists_;
    int rows_;
    int front_ = 0; // farthest place of a neighbour of the rows that are done
    std::vector<int> order_, place_;
};

} // namespace

std::vector<int> SkylineOrder(const std::vector<NeighbourList> &lists, int rows) {
    Sweep sweep(lists, rows);
    sweep.run();
    return std::move(sweep).order();
}

} // namespace havuz
