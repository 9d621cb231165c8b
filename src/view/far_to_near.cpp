// The exchanges (i, j) and (i', j') with four different places do not meet, so that they can as well be done for each j
// in turn, for each i < j: entry j then joins those before it, which are sorted. It takes the place behind the entries
// of its own distance, and the first of each nearer group goes behind the last of its group. So a group, in the end,
// has turned once for each farther entry that came after its own.
#include "view/far_to_near.h"

#include <algorithm>
#include <numeric>

namespace havuz {

namespace {

using Places = std::vector<std::size_t>;

// How many numbers below a given one have come so far (a Fenwick tree).
class Counter {
public:
    explicit Counter(std::size_t numbers) : sum_(numbers + 1, 0) {}
    void add(std::size_t number) {
        for (std::size_t k = number + 1; k < sum_.size(); k += lowestBit(k))
            ++sum_[k];
    }
    std::size_t below(std::size_t number) const {
        std::size_t count = 0;
        for (std::size_t k = number; k > 0; k -= lowestBit(k))
            count += sum_[k];
        return count;
    }

private:
    static std::size_t lowestBit(std::size_t k) { return k & (~k + 1); }
    std::vector<std::size_t> sum_;
};

void Turn(Places &group, std::size_t times) {
    if (!group.empty())
        std::rotate(group.begin(), group.begin() + static_cast<std::ptrdiff_t>(times % group.size()), group.end());
}

} // namespace

void SortFarToNear(std::vector<std::pair<double, int>> &entries) {
    const std::size_t n = entries.size();
    Places order(n), start(n), farther(n); // start: where the group of a place begins; farther: entries before a place
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return entries[a].first > entries[b].first; });
    for (std::size_t k = 0; k < n; ++k)
        start[order[k]] = k > 0 && entries[order[k]].first == entries[order[k - 1]].first ? start[order[k - 1]] : k;
    Counter counter(n);
    for (std::size_t p = 0; p < n; ++p) {
        farther[p] = counter.below(start[p]);
        counter.add(start[p]);
    }
    std::vector<std::pair<double, int>> sorted;
    sorted.reserve(n);
    for (std::size_t k = 0; k < n;) {
        const std::size_t first = k;
        Places group;
        std::size_t turned = 0;
        for (; k < n && start[order[k]] == first; ++k) {
            Turn(group, farther[order[k]] - turned);
            turned = farther[order[k]];
            group.push_back(order[k]);
        }
        Turn(group, first - turned);
        for (const std::size_t p : group)
            sorted.push_back(entries[p]);
    }
    entries = std::move(sorted);
}

} // namespace havuz
