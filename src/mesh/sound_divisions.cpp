// Sound mesh: the divisions of all lines, agreed in one go. Lines across from each other in a patch of a grid are
// divided alike, and so all that hang together form a class; what its members wish for is settled once. Lines of free
// parts come in pairs of sides, for every pair is halved there. Lengths in m.
#include "mesh/sound_work.h"
#include "model/link_code.h"

#include <cmath>
#include <numeric>

namespace havuz::sound {

namespace {

constexpr int kRounds = 4;            // of agreeing between floors
constexpr int kSteps = 400;           // samples of a density along a line
constexpr double kShortOfAPair = 0.3; // a part of a pair that is shared out among the others
constexpr double kWhole = 1e-6;

// What one line wishes for, from its lower to its higher corner.
struct LineWish {
    int strong = 0, weak = 0;      // divisions; weak ones count where there are no strong ones
    bool pairs = false;            // of a free part
    std::vector<double> positions; // parts of its length
    std::vector<double> density;   // divisions per length at kSteps + 1 places, empty for none
};

class Classes {
public:
    int lineOf(int a, int b) {
        const auto [found, fresh] = number_.emplace(KeyOf(a, b), Count(parent_));
        if (fresh) {
            parent_.push_back(found->second);
            turned_.push_back(0);
            wish_.emplace_back();
        }
        return found->second;
    }
    LineWish &wish(int line) { return At(wish_, line); }
    const std::map<LineKey, int> &all() const { return number_; }

    // The line from a to b and the one from d to c are divided alike, in these senses.
    void join(int a, int b, int d, int c) {
        const int one = lineOf(a, b), other = lineOf(d, c);
        bool s = false, t = false;
        const int p = rootOf(one, s), q = rootOf(other, t);
        const bool opposite = ((a > b) != (d > c)) != (s != t);
        if (p == q) {
            if (opposite)
                At(wish_, p).positions.clear();
            bothWays_[p] = bothWays_[p] || opposite;
            return;
        }
        At(parent_, q) = p;
        At(turned_, q) = opposite;
        bothWays_[p] = bothWays_[p] || bothWays_[q];
    }
    int rootOf(int line, bool &turned) const {
        turned = false;
        while (At(parent_, line) != line) {
            turned = turned != (At(turned_, line) != 0);
            line = At(parent_, line);
        }
        return line;
    }
    bool bothWays(int root) const {
        const auto found = bothWays_.find(root);
        return found != bothWays_.end() && found->second;
    }

private:
    std::map<LineKey, int> number_;
    std::vector<int> parent_;
    std::vector<char> turned_;
    std::vector<LineWish> wish_;
    std::map<int, bool> bothWays_; // classes that meet themselves turned around: their divisions are symmetric
};

bool PanelsAlone() { return HavuzTip < 2 && PlakCount == 0; }

double LineLength(const Model &model, int a, int b) { return SpaceDistance(model.at(a), model.at(b)); }

int AtLeastOne(double n) { return std::max(1, static_cast<int>(std::min(n, 20000.0))); }

// Divisions of a panel's interval by its own Nx or Ny; by the width where they are too coarse for it. They are a weak
// wish where other parts end on the panel: the divisions of these are whole there.
int OwnDivisions(int divisions, double part, double length, double width) {
    const int n = AtLeastOne(std::nearbyint(divisions * part));
    return length / n > kLongestSide * width * (1.0 + kWhole) ? AtLeastOne(std::nearbyint(length / width)) : n;
}

void TakeCount(int &count, int n) { count = std::max(count, n); }

const Part *PlateUnder(const Model &model, const Part &wall) {
    const int code = PanelTable[wall.owner].KenarKomsu[3];
    for (const Part &part : model.part)
        if (part.plate && code < 0 && OwnerPlate(part.owner) == -code / 100)
            return &part;
    return nullptr;
}

bool Reentrant(const Model &model, const Part &plate, int corner) {
    const int n = Count(plate.corner);
    for (int k = 0; k < n; ++k)
        if (At(plate.corner, k) == corner)
            return Twice(InPlane(plate, model.at(At(plate.corner, (k + n - 1) % n))), InPlane(plate, model.at(corner)),
                         InPlane(plate, model.at(At(plate.corner, (k + 1) % n)))) < 0.0;
    return false;
}

// First rows of a wall, m, 0 for even ones: at its foot, and beside its sides at corner 4 and at corner 3.
struct FirstRows {
    double foot = 0.0, left = 0.0, right = 0.0;
};

// Those that were wished for; without a wish half a width on plates that are no rectangle: at feet and at re-entrant
// corners, where even rows of an ordinary width miss the moments by more than 3 %.
FirstRows FirstRowsOf(const Model &model, const Part &wall, const Wish &wish) {
    if (wish.foot > 0.0)
        return {wish.foot, wish.foot, wish.foot};
    const Part *plate = PlateUnder(model, wall);
    if (plate == nullptr || (plate->shape == Shape::Grid && Count(plate->corner) == 4))
        return {};
    const double half = 0.5 * wish.width;
    return {half, Reentrant(model, *plate, wall.quad[3]) ? half : 0.0,
            Reentrant(model, *plate, wall.quad[2]) ? half : 0.0};
}

// Finer meshes from a place at which the first row is foot high; each row at most twice the one before.
void WishFoot(Classes &classes, const Model &model, int a, int b, double from, double to, double foot) {
    if (!(foot > 0.0))
        return;
    LineWish &line = classes.wish(classes.lineOf(a, b));
    const double length = LineLength(model, a, b);
    line.density.resize(kSteps + 1, 0.0);
    for (int k = 0; k <= kSteps; ++k) {
        const double t = k / static_cast<double>(kSteps), x = from + (to - from) * (a < b ? t : 1.0 - t);
        double &density = At(line.density, k);
        density = std::max(density, length / ((foot + x) * std::log(2.0)));
    }
}

void WishAlongU(Classes &classes, const Model &model, const Part &part, int i, int j, const Wish &wish) {
    const int a = At(At(part.grid, i), j), b = At(At(part.grid, i + 1), j);
    LineWish &line = classes.wish(classes.lineOf(a, b));
    const double length = LineLength(model, a, b), interval = At(part.U, i + 1) - At(part.U, i);
    if (!part.plate && PanelsAlone() && wish.ownDivisions)
        TakeCount(part.U.size() > 2 ? line.weak : line.strong,
                  OwnDivisions(wish.own.at(part.owner)[0], interval, length, wish.width));
    else
        TakeCount(part.wall ? line.weak : line.strong, AtLeastOne(std::nearbyint(length / wish.width)));
    if (!part.wall)
        return;
    const double whole = SpaceDistance(model.at(part.quad[0]), model.at(part.quad[1]));
    const double u0 = At(part.U, i) * whole, u1 = At(part.U, i + 1) * whole;
    const FirstRows rows = FirstRowsOf(model, part, wish);
    WishFoot(classes, model, a, b, u0, u1, rows.left);
    WishFoot(classes, model, a, b, whole - u0, whole - u1, rows.right);
}

// Rows of a wall on a plate are as many as fit into its lower side; other rows are rounded.
void WishAlongV(Classes &classes, const Model &model, const Part &part, int i, int j, const Wish &wish) {
    const int a = At(At(part.grid, i), j), b = At(At(part.grid, i), j + 1);
    LineWish &line = classes.wish(classes.lineOf(a, b));
    const double length = LineLength(model, a, b), interval = At(part.V, j + 1) - At(part.V, j);
    if (!part.plate && PanelsAlone() && wish.ownDivisions) {
        TakeCount(part.V.size() > 2 ? line.weak : line.strong,
                  OwnDivisions(wish.own.at(part.owner)[1], interval, length, wish.width));
    } else if (part.wall && PlakCount > 0) {
        const double height = std::min(SpaceDistance(model.at(part.quad[0]), model.at(part.quad[3])),
                                       SpaceDistance(model.at(part.quad[1]), model.at(part.quad[2])));
        TakeCount(line.strong, AtLeastOne(std::floor(height * interval / wish.width * (1.0 + kWhole))));
    } else {
        TakeCount(line.strong, AtLeastOne(std::nearbyint(length / wish.width)));
    }
    if (!part.wall)
        return;
    const double whole = SpaceDistance(model.at(part.quad[1]), model.at(part.quad[2]));
    WishFoot(classes, model, a, b, (1.0 - At(part.V, j)) * whole, (1.0 - At(part.V, j + 1)) * whole,
             FirstRowsOf(model, part, wish).foot);
}

void WishLiteralGrid(Classes &classes, const Part &part) {
    if (!part.literal)
        return;
    for (const std::size_t k : {0U, 1U})
        for (const bool alongU : {true, false}) {
            const int a = alongU ? part.grid[0][k] : part.grid[k][0], b = alongU ? part.grid[1][k] : part.grid[k][1];
            std::vector<double> at = part.literal->at[alongU ? 0 : 1];
            if (a > b) {
                std::reverse(at.begin(), at.end());
                for (double &t : at)
                    t = 1.0 - t;
            }
            LineWish &line = classes.wish(classes.lineOf(a, b));
            line.strong = Count(at) - 1;
            line.positions = at;
        }
}

void TakeGrid(Classes &classes, const Model &model, const Part &part, const Wish &wish) {
    for (int i = 0; i < Count(part.in); ++i)
        for (int j = 0; j < Count(part.in[0]); ++j) {
            if (At(At(part.in, i), j) == 0)
                continue;
            const auto at = [&](int k, int l) { return At(At(part.grid, i + k), j + l); };
            classes.join(at(0, 0), at(1, 0), at(0, 1), at(1, 1));
            classes.join(at(0, 0), at(0, 1), at(1, 0), at(1, 1));
            for (const int side : {0, 1}) {
                WishAlongU(classes, model, part, i, j + side, wish);
                WishAlongV(classes, model, part, i + side, j, wish);
            }
        }
    WishLiteralGrid(classes, part);
}

void TakeFree(Classes &classes, const Model &model, const Part &part, const Wish &wish, const Divisions &shared) {
    for (const SizeLine &sizes : BoundarySizes(model, part, wish, shared)) {
        const auto [a, b] = sizes.line;
        LineWish &line = classes.wish(classes.lineOf(a, b));
        const double length = LineLength(model, a, b);
        line.pairs = true;
        line.density.resize(kSteps + 1, 0.0);
        for (int k = 0; k <= kSteps; ++k) {
            const double place = k / static_cast<double>(kSteps) * (Count(sizes.size) - 1);
            const int low = std::min(static_cast<int>(place), Count(sizes.size) - 2);
            const double size = At(sizes.size, low) + (place - low) * (At(sizes.size, low + 1) - At(sizes.size, low));
            At(line.density, k) = std::max(At(line.density, k), 2.0 * length / size);
        }
    }
}

// What a class wishes for, in the sense of its root.
struct ClassWish {
    LineWish sum;
    int lists = 0; // different lists of positions
};

void TakeTurned(ClassWish &whole, LineWish line, bool turned) {
    if (turned) {
        std::reverse(line.density.begin(), line.density.end());
        std::reverse(line.positions.begin(), line.positions.end());
        for (double &t : line.positions)
            t = 1.0 - t;
    }
    LineWish &sum = whole.sum;
    TakeCount(sum.strong, line.strong);
    TakeCount(sum.weak, line.weak);
    sum.pairs = sum.pairs || line.pairs;
    if (!line.density.empty())
        sum.density.resize(kSteps + 1, 0.0);
    for (std::size_t k = 0; k < line.density.size(); ++k)
        sum.density[k] = std::max(sum.density[k], line.density[k]);
    if (line.positions.empty())
        return;
    const auto alike = [](double a, double b) { return std::fabs(a - b) < 1e-7; };
    if (!std::equal(line.positions.begin(), line.positions.end(), sum.positions.begin(), sum.positions.end(), alike)) {
        sum.positions = line.positions;
        ++whole.lists;
    }
}

std::vector<double> Even(int n) {
    std::vector<double> at;
    for (int k = 0; k <= n; ++k)
        at.push_back(k / static_cast<double>(n));
    return at;
}

// Places at which the sum of a density over the line is shared out evenly among n.
std::vector<double> ShareOut(const std::vector<double> &density, int n) {
    std::vector<double> sum(density.size(), 0.0);
    for (std::size_t k = 1; k < density.size(); ++k)
        sum[k] = sum[k - 1] + 0.5 * (density[k - 1] + density[k]) / kSteps;
    std::vector<double> at{0.0};
    std::size_t k = 1;
    for (int i = 1; i < n; ++i) {
        const double want = sum.back() * i / n;
        while (sum[k] < want)
            ++k;
        at.push_back((static_cast<double>(k) - 1.0 + (want - sum[k - 1]) / (sum[k] - sum[k - 1])) / kSteps);
    }
    at.push_back(1.0);
    return at;
}

double Total(const std::vector<double> &density) {
    return (std::accumulate(density.begin(), density.end(), 0.0) - 0.5 * (density.front() + density.back())) / kSteps;
}

std::vector<double> Halved(const std::vector<double> &at) {
    std::vector<double> halves;
    for (std::size_t k = 0; k + 1 < at.size(); ++k) {
        halves.push_back(at[k]);
        halves.push_back(0.5 * (at[k] + at[k + 1]));
    }
    halves.push_back(at.back());
    return halves;
}

bool EvenDensity(const std::vector<double> &density) {
    const auto [low, high] = std::minmax_element(density.begin(), density.end());
    return *high <= *low * (1.0 + kWhole);
}

std::vector<double> Settle(ClassWish whole, bool bothWays) {
    LineWish &sum = whole.sum;
    int count = sum.strong > 0 ? sum.strong : sum.weak;
    if (sum.density.empty())
        return whole.lists == 1 && !bothWays && Count(sum.positions) == count + 1 ? sum.positions
                                                                                  : Even(std::max(count, 1));
    if (sum.pairs)
        count = sum.strong;
    for (double &d : sum.density)
        d = std::max(d, static_cast<double>(count));
    if (bothWays)
        for (std::size_t k = 0; k < sum.density.size() / 2; ++k)
            sum.density[k] = sum.density[kSteps - k] = std::max(sum.density[k], sum.density[kSteps - k]);
    const double total = Total(sum.density);
    if (!(total < kNoktaCapacity))
        throw TooFine();
    if (!sum.pairs) {
        const int n = AtLeastOne(std::ceil(total - kWhole));
        return EvenDensity(sum.density) ? Even(n) : ShareOut(sum.density, n);
    }
    const int n = AtLeastOne(std::ceil(total / 2.0 - kShortOfAPair));
    return EvenDensity(sum.density) ? Even(2 * n) : Halved(ShareOut(sum.density, n));
}

Divisions AgreeOnce(const Model &model, const Wish &wish, const Divisions &shared) {
    Classes classes;
    for (const Part &part : model.part) {
        if (part.shape == Shape::Grid)
            TakeGrid(classes, model, part, wish);
        else
            TakeFree(classes, model, part, wish, shared);
    }
    std::map<int, ClassWish> whole;
    for (const auto &[key, line] : classes.all()) {
        bool turned = false;
        const int root = classes.rootOf(line, turned);
        TakeTurned(whole[root], classes.wish(line), turned);
    }
    std::map<int, std::vector<double>> settled;
    for (const auto &[root, wishes] : whole)
        settled[root] = Settle(wishes, classes.bothWays(root));
    Divisions divisions;
    for (const auto &[key, line] : classes.all()) {
        bool turned = false;
        std::vector<double> at = settled[classes.rootOf(line, turned)];
        if (turned) {
            std::reverse(at.begin(), at.end());
            for (double &t : at)
                t = 1.0 - t;
        }
        divisions[key] = at;
    }
    return divisions;
}

// Lines on the rim of two floors.
std::vector<LineKey> SharedLines(const Model &model) {
    std::map<LineKey, int> uses;
    for (const Part &part : model.part)
        for (int k = 0; !part.wall && k < Count(part.loop); ++k)
            ++uses[KeyOf(At(part.loop, k), At(part.loop, (k + 1) % Count(part.loop)))];
    std::vector<LineKey> lines;
    for (const auto &[line, n] : uses)
        if (n > 1)
            lines.push_back(line);
    return lines;
}

} // namespace

std::array<int, 2> PanelDivisions(const Part &panel, const Divisions &divisions) {
    std::array<int, 2> n{};
    const auto count = [&](int a, int b) { return Count(divisions.at(KeyOf(a, b))) - 1; };
    for (int i = 0; i + 1 < Count(panel.U); ++i)
        n[0] += count(At(panel.grid, i)[0], At(panel.grid, i + 1)[0]);
    for (int j = 0; j + 1 < Count(panel.V); ++j)
        n[1] += count(At(panel.grid[0], j), At(panel.grid[0], j + 1));
    return n;
}

// What one floor needs on a shared line is felt by the other one in the next round.
Divisions AgreeDivisions(const Model &model, const Wish &wish) {
    const std::vector<LineKey> lines = SharedLines(model);
    Divisions divisions, shared;
    for (int round = 0; round == 0 || (round < kRounds && !lines.empty()); ++round) {
        divisions = AgreeOnce(model, wish, shared);
        for (const LineKey &line : lines)
            shared[line] = divisions.at(line);
    }
    return divisions;
}

} // namespace havuz::sound
