// Sound mesh: node numbers for a short profile, so that the analysis has room. Sloan's method (1986, 1989): from one
// end of a longest path, always the node next that adds least to the front and lies farthest from the other end.
#include "mesh/sound_work.h"

#include <numeric>
#include <set>

namespace havuz::sound {

namespace {

using Neighbours = std::vector<std::vector<int>>;

Neighbours NeighboursOf(const Mesh &mesh) {
    Neighbours beside(static_cast<std::size_t>(mesh.node.count()));
    for (const Quad &quad : mesh.quad)
        for (const int a : quad.node)
            for (const int b : quad.node)
                if (a != b)
                    At(beside, a).push_back(b);
    for (auto &list : beside) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    return beside;
}

// Steps from a node to each one that hangs together with it, -1 for others; the nodes by their steps.
struct Levels {
    std::vector<int> step, order;
    int depth() const { return At(step, order.back()); }
};

Levels LevelsFrom(const Neighbours &beside, int start) {
    Levels levels{std::vector<int>(beside.size(), -1), {start}};
    At(levels.step, start) = 0;
    for (std::size_t k = 0; k < levels.order.size(); ++k)
        for (const int other : At(beside, levels.order[k]))
            if (At(levels.step, other) < 0) {
                At(levels.step, other) = At(levels.step, levels.order[k]) + 1;
                levels.order.push_back(other);
            }
    return levels;
}

// Both ends of a path that is nearly a longest one (George and Liu 1979).
std::pair<int, int> EndsOfPath(const Neighbours &beside, int start) {
    Levels levels = LevelsFrom(beside, start);
    for (;;) {
        int far = levels.order.back();
        for (const int node : levels.order)
            if (At(levels.step, node) == levels.depth() && At(beside, node).size() < At(beside, far).size())
                far = node;
        const Levels back = LevelsFrom(beside, far);
        if (back.depth() <= levels.depth())
            return {start, far};
        start = far;
        levels = back;
    }
}

class Sloan {
public:
    explicit Sloan(const Neighbours &beside) : beside_(beside), state_(beside.size(), Idle), worth_(beside.size(), 0) {}

    void number(int start, int end) {
        const Levels far = LevelsFrom(beside_, end);
        for (const int node : far.order)
            At(worth_, node) = At(far.step, node) - 2 * (Count(At(beside_, node)) + 1);
        raise(start, 0);
        while (!front_.empty()) {
            const int node = front_.begin()->second;
            front_.erase(front_.begin());
            const bool waiting = At(state_, node) == Waiting;
            At(state_, node) = Numbered;
            for (const int other : At(beside_, node))
                if (waiting)
                    raise(other, 2);
            order.push_back(node);
            for (const int other : At(beside_, node))
                if (At(state_, other) == Waiting) {
                    raise(other, 2);
                    At(state_, other) = Active;
                    for (const int next : At(beside_, other))
                        raise(next, 2);
                }
        }
    }
    std::vector<int> order;

private:
    enum State : char { Idle, Waiting, Active, Numbered };
    void raise(int node, int by) {
        if (At(state_, node) == Numbered)
            return;
        front_.erase({-At(worth_, node), node});
        At(worth_, node) += by;
        front_.insert({-At(worth_, node), node});
        if (At(state_, node) == Idle)
            At(state_, node) = Waiting;
    }
    const Neighbours &beside_;
    std::vector<State> state_;
    std::vector<int> worth_;
    std::set<std::pair<int, int>> front_; // by worth, then by number
};

long long Profile(const Neighbours &beside, const std::vector<int> &order) {
    std::vector<int> number(beside.size(), 0);
    for (int k = 0; k < Count(order); ++k)
        At(number, At(order, k)) = k;
    long long profile = 0;
    for (int node = 0; node < Count(beside); ++node) {
        int least = At(number, node);
        for (const int other : At(beside, node))
            least = std::min(least, At(number, other));
        profile += At(number, node) - least + 1;
    }
    return profile;
}

} // namespace

std::vector<int> ShortProfile(const Mesh &mesh) {
    const Neighbours beside = NeighboursOf(mesh);
    Sloan sloan(beside);
    std::vector<char> done(beside.size(), 0);
    for (int node = 0; node < Count(beside); ++node) {
        if (At(done, node) != 0 || At(beside, node).empty())
            continue;
        const auto [start, end] = EndsOfPath(beside, node);
        const std::size_t before = sloan.order.size();
        sloan.number(start, end);
        for (std::size_t k = before; k < sloan.order.size(); ++k)
            At(done, sloan.order[k]) = 1;
    }
    std::vector<int> back(sloan.order.rbegin(), sloan.order.rend());
    return Profile(beside, back) < Profile(beside, sloan.order) ? back : sloan.order;
}

} // namespace havuz::sound
