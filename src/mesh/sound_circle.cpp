// Sound mesh: circular pools of the library. Wall and strip stay as they are, node by node; the floor inside the rim
// becomes an O-grid, a rounded block of squares with rings around it, in place of the fan. Lengths in m.
#include "mesh/sound_work.h"
#include "model/arithmetic.h"
#include "model/mesh_facts.h"
#include "model/options.h"

#include <cmath>
#include <set>

namespace havuz::sound {

// Two panels, or three with a strip, whose corners mark the square around the circle.
int CircularPanels() {
    if (HavuzTip != 2 || PanelCount < 2 || PanelTable[1].Tip != 0 || PanelTable[2].Tip != 1)
        return 0;
    for (int k = 1; k <= 4; ++k)
        if (PanelTable[1].X[k] != PanelTable[2].X[k] || PanelTable[1].Y[k] != PanelTable[2].Y[k] ||
            PanelTable[1].Z[k] != PanelTable[2].Z[k])
            return 0;
    return PanelCount >= 3 && PanelTable[3].Tip == 2 && PanelTable[3].X[2] == PanelTable[3].X[1] ? 3 : 2;
}

namespace {

constexpr double kBlock = 0.62;    // radius of the block's corners by that of the pool
constexpr double kBulge = 0.35;    // how far the block's sides go towards its circle
constexpr double kRowRatio = 1.15; // a row of a finer wall may exceed its place's length by this

// The wall and what hangs on it, as rows of nodes: row 0 is the rim, each with the same number of nodes around.
using Rows = std::vector<std::vector<SpacePoint>>;

struct Drum {
    SpacePoint middle;
    Rows wall, strip;
};

SpacePoint MiddleOf(const PanelRecord &panel) {
    return {0.5 * (panel.X[1] + panel.X[3]), 0.5 * (panel.Y[1] + panel.Y[3]), 0.0};
}

std::vector<SpacePoint> Ring(SpacePoint middle, int n, double radius, double z) {
    std::vector<SpacePoint> ring;
    for (int j = 0; j < n; ++j) {
        const double a = j * 2 * kPi / n;
        ring.push_back({middle.x + radius * std::cos(a), middle.y + radius * std::sin(a), z});
    }
    return ring;
}

// The pool as the library makes it at this mesh width, for a model that has lost its meshes.
Drum DrumOfParameters(double width) {
    Drum drum{MiddleOf(PanelTable[1]), {}, {}};
    const int n = PanelTable[2].Nx, rows = PanelTable[2].Ny;
    const double r = 0.5 * PanelTable[1].X[2], h = UstKot - AltKot;
    for (int i = 0; i <= rows; ++i)
        drum.wall.push_back(Ring(drum.middle, n, r, rows > 0 ? i * (h / rows) : 0.0));
    if (CircularPanels() < 3)
        return drum;
    const double c = std::max(1.0, Divide(Bk, width, Thing::MeshGenisligi));
    drum.strip.push_back(drum.wall.back());
    for (int i = 1; i <= FloorToWhole(c); ++i)
        drum.strip.push_back(Ring(drum.middle, n, r + i * Bk / c, UstKot));
    return drum;
}

// Meshes of a panel as rows: each mesh (a, a', b', b) leads from a place of one row to the same place of the next.
class RowReader {
public:
    explicit RowReader(int panel) {
        for (int i = 1; i <= MeshCount; ++i) {
            const MeshRecord &m = MeshTable[i];
            if (m.PanelNo != panel)
                continue;
            std::array<int, 4> n = MeshCorners(m);
            if (!std::all_of(n.begin(), n.end(), [](int node) { return node >= 1 && node <= NoktaCount; })) {
                whole_ = false;
                return;
            }
            const auto height = [&n](int a, int b) { return NodePlace(At(n, a)).z + NodePlace(At(n, b)).z; };
            if (height(0, 1) > height(2, 3) + kOnePlace)
                std::rotate(n.begin(), n.begin() + 2, n.end());
            next_[n[0]] = n[1];
            next_[n[3]] = n[2];
            above_[n[0]] = n[3];
            upper_.insert(n[3]);
        }
    }
    // False when the meshes are no closed rows.
    bool read(Rows &rows) const {
        if (!whole_ || above_.empty())
            return false;
        std::vector<int> row = firstRow();
        while (!row.empty()) {
            std::vector<SpacePoint> places;
            std::vector<int> higher;
            for (const int node : row) {
                places.push_back(NodePlace(node));
                if (const auto up = above_.find(node); up != above_.end())
                    higher.push_back(up->second);
            }
            if (!rows.empty() && (places.size() != rows[0].size() || rows.size() > kNoktaCapacity))
                return false;
            rows.push_back(places);
            row = higher;
        }
        return rows.size() > 1 && rows[0].size() > 3;
    }

private:
    // The row that stands above no other one, from its node of the least angle on.
    std::vector<int> firstRow() const {
        std::vector<int> row;
        for (const auto &[node, up] : above_)
            if (upper_.count(node) == 0) {
                for (int n = node; row.size() <= above_.size() && (row.empty() || n != node);) {
                    row.push_back(n);
                    const auto after = next_.find(n);
                    if (after == next_.end())
                        return {};
                    n = after->second;
                }
                return row;
            }
        return row;
    }
    std::map<int, int> next_, above_;
    std::set<int> upper_;
    bool whole_ = true;
};

// Rows begin at the place of the least angle about the middle, so that two runs give one order.
void TurnToStart(Drum &drum) {
    const auto angle = [&](SpacePoint p) {
        const double a = std::atan2(p.y - drum.middle.y, p.x - drum.middle.x);
        return a < -1e-4 ? a + 2.0 * kPi : a;
    };
    const std::vector<SpacePoint> &rim = drum.wall[0];
    const auto least =
        std::min_element(rim.begin(), rim.end(), [&](SpacePoint p, SpacePoint q) { return angle(p) < angle(q); });
    const auto shift = least - rim.begin();
    for (Rows *rows : {&drum.wall, &drum.strip})
        for (auto &row : *rows)
            std::rotate(row.begin(), row.begin() + shift, row.end());
}

bool ReadDrum(Drum &drum) {
    drum.middle = MiddleOf(PanelTable[1]);
    if (!RowReader(2).read(drum.wall))
        return false;
    if (CircularPanels() < 3)
        return true;
    if (!RowReader(3).read(drum.strip))
        return false;
    // The strip's first row is the wall's last one; both are to begin at one place.
    auto &strip = drum.strip;
    for (std::size_t k = 0; k < strip[0].size(); ++k) {
        if (SpaceDistance(strip[0][0], drum.wall.back()[0]) < kOnePlace)
            return strip[0].size() == drum.wall.back().size();
        for (auto &row : strip)
            std::rotate(row.begin(), row.begin() + 1, row.end());
    }
    return false;
}

// New places between the nodes of every row, on the straight sides, where the rim is too coarse for the width.
void DivideRim(Drum &drum, double width) {
    double longest = 0.0;
    const auto &rim = drum.wall[0];
    for (std::size_t k = 0; k < rim.size(); ++k)
        longest = std::max(longest, SpaceDistance(rim[k], rim[(k + 1) % rim.size()]));
    if (!(longest > kLongestSide * width))
        return;
    const double wanted = std::ceil(longest / width);
    if (!(wanted * static_cast<double>(rim.size()) < kNoktaCapacity))
        throw TooFine();
    const int n = static_cast<int>(wanted);
    for (Rows *rows : {&drum.wall, &drum.strip})
        for (auto &row : *rows) {
            std::vector<SpacePoint> finer;
            for (std::size_t k = 0; k < row.size(); ++k)
                for (int i = 0; i < n; ++i)
                    finer.push_back(i == 0 ? row[k] : Along(row[k], row[(k + 1) % row.size()], i / double(n)));
            row = finer;
        }
}

// Rows of a wall from its foot up: each at most as high as the first plus its height above the foot.
void DivideFoot(Drum &drum, double foot) {
    Rows rows;
    const double base = drum.wall[0][0].z;
    for (std::size_t k = 0; k + 1 < drum.wall.size(); ++k) {
        const double from = drum.wall[k][0].z - base, to = drum.wall[k + 1][0].z - base;
        rows.push_back(drum.wall[k]);
        const double most = foot * kRowRatio, high = to - from;
        if (!(high > most + from))
            continue;
        const int n = std::max(2, static_cast<int>(std::ceil(std::log((foot + to) / (foot + from)) / std::log(2.0))));
        for (int i = 1; i < n; ++i) {
            const double z = (foot + from) * std::pow((foot + to) / (foot + from), i / double(n)) - foot;
            std::vector<SpacePoint> row;
            for (std::size_t j = 0; j < drum.wall[k].size(); ++j)
                row.push_back(Along(drum.wall[k][j], drum.wall[k + 1][j], (z - from) / high));
            rows.push_back(row);
        }
    }
    rows.push_back(drum.wall.back());
    drum.wall = rows;
}

void PutRows(const Rows &rows, int owner, bool upperFirst, Mesh &mesh) {
    std::vector<std::vector<int>> node;
    for (const auto &row : rows) {
        auto &numbers = node.emplace_back();
        for (const SpacePoint p : row)
            numbers.push_back(mesh.add(p));
    }
    for (std::size_t i = 0; i + 1 < node.size(); ++i)
        for (std::size_t j = 0; j < node[i].size(); ++j) {
            const std::size_t k = (j + 1) % node[i].size();
            if (upperFirst)
                mesh.addQuad({node[i + 1][k], node[i + 1][j], node[i][j], node[i][k]}, owner);
            else
                mesh.addQuad({node[i][j], node[i][k], node[i + 1][k], node[i + 1][j]}, owner);
        }
}

// The block of an O-grid: n by m squares whose 2(n + m) rim places face those of the pool.
class Block {
public:
    Block(int rim, SpacePoint middle, double radius)
        : n_(rim / 4), m_(rim / 2 - rim / 4), middle_(middle), radius_(kBlock * radius) {}
    // The side u = 1 looks this way, a unit.
    void lookTo(PlanPoint way) { way_ = way; }
    int n() const { return n_; }
    int m() const { return m_; }
    // From (-1, -1) to (1, 1): a square, its sides drawn out towards the circle through its corners.
    SpacePoint at(int i, int j) const {
        const double u = 2.0 * i / n_ - 1.0, v = 2.0 * j / m_ - 1.0, q = std::sqrt(0.5);
        const double x = u * (q + kBulge * (std::sqrt(1.0 - 0.5 * v * v) - q)),
                     y = v * (q + kBulge * (std::sqrt(1.0 - 0.5 * u * u) - q));
        return {middle_.x + radius_ * (x * way_.x - y * way_.y), middle_.y + radius_ * (x * way_.y + y * way_.x),
                middle_.z};
    }
    // Places around, counter-clockwise from the corner (1, -1).
    std::vector<std::pair<int, int>> around() const {
        std::vector<std::pair<int, int>> places;
        for (int j = 0; j < m_; ++j)
            places.emplace_back(n_, j);
        for (int i = n_; i > 0; --i)
            places.emplace_back(i, m_);
        for (int j = m_; j > 0; --j)
            places.emplace_back(0, j);
        for (int i = 0; i < n_; ++i)
            places.emplace_back(i, 0);
        return places;
    }

private:
    int n_, m_;
    SpacePoint middle_;
    double radius_ = 0.0;
    PlanPoint way_{1.0, 0.0};
};

// Rings between the block and the rim, as parts 0..1 of the way; with a foot wished for, finer towards the rim.
std::vector<double> RingParts(double way, double length, double foot) {
    const int n = std::max(1, static_cast<int>(std::nearbyint(way / length)));
    std::vector<double> parts;
    if (!(foot > 0.0) || foot * n >= way) {
        for (int k = 0; k <= n; ++k)
            parts.push_back(k / static_cast<double>(n));
        return parts;
    }
    std::vector<double> from{0.0}; // distances from the rim
    for (double row = foot; from.back() < way; row = std::min(2.0 * row, length))
        from.push_back(from.back() + row);
    for (std::size_t k = from.size(); k-- > 0;)
        parts.push_back(1.0 - from[k] / from.back());
    return parts;
}

// The direction from the middle between two places of the rim, as even as they are.
PlanPoint WayBetween(SpacePoint middle, SpacePoint a, SpacePoint b) {
    const double x = a.x + b.x - 2.0 * middle.x, y = a.y + b.y - 2.0 * middle.y, length = Distance2(x, y);
    return length > 0.0 ? PlanPoint{x / length, y / length} : PlanPoint{1.0, 0.0};
}

void PutFloor(const Drum &drum, const Wish &wish, Mesh &mesh) {
    const std::vector<SpacePoint> &rim = drum.wall[0];
    const int count = Count(rim);
    double radius = 0.0, side = 0.0;
    for (int k = 0; k < count; ++k) {
        radius += SpaceDistance(At(rim, k), {drum.middle.x, drum.middle.y, At(rim, k).z}) / count;
        side += SpaceDistance(At(rim, k), At(rim, (k + 1) % count)) / count;
    }
    SpacePoint middle = drum.middle;
    middle.z = rim[0].z;
    Block block(count, middle, radius);
    const int start = count - block.m() / 2; // the side (1, v) lies around the rim's first place
    block.lookTo(WayBetween(middle, At(rim, start % count), At(rim, (start + block.m()) % count)));
    std::vector<std::vector<int>> node;
    for (int i = 0; i <= block.n(); ++i) {
        auto &column = node.emplace_back();
        for (int j = 0; j <= block.m(); ++j)
            column.push_back(mesh.add(block.at(i, j)));
    }
    for (int i = 0; i < block.n(); ++i)
        for (int j = 0; j < block.m(); ++j)
            mesh.addQuad(
                {At(At(node, i), j), At(At(node, i + 1), j), At(At(node, i + 1), j + 1), At(At(node, i), j + 1)}, 1);
    const double length = std::clamp(wish.width, 0.5 * side, 0.9 * side);
    const std::vector<double> parts = RingParts((1.0 - kBlock) * radius * 1.15, length, wish.foot);
    const auto around = block.around();
    std::vector<int> inner, outer;
    for (std::size_t r = 0; r < parts.size(); ++r) {
        outer.clear();
        for (int k = 0; k < count; ++k) {
            const auto [i, j] = At(around, k);
            const int first = At(At(node, i), j);
            outer.push_back(r == 0 ? first
                                   : mesh.add(parts[r] == 1.0 ? At(rim, (start + k) % count)
                                                              : Along(mesh.node.at(first), At(rim, (start + k) % count),
                                                                      parts[r])));
        }
        for (int k = 0; r > 0 && k < count; ++k)
            mesh.addQuad({At(inner, k), At(outer, k), At(outer, (k + 1) % count), At(inner, (k + 1) % count)}, 1);
        inner = outer;
    }
}

} // namespace

void MeshCircularPool(const Wish &wish, Mesh &mesh) {
    Drum drum;
    if (!ReadDrum(drum))
        drum = DrumOfParameters(wish.width);
    if (drum.wall.empty() || drum.wall[0].size() < 4 || drum.wall[0].size() % 2 != 0)
        throw RuntimeFailure({.fault = Fault::RimNotEven, .where = {{Thing::Panel, 1}}});
    TurnToStart(drum);
    DivideRim(drum, wish.width);
    if (wish.foot > 0.0)
        DivideFoot(drum, wish.foot);
    mesh.circleColumns = Count(drum.wall[0]);
    mesh.circleRows = Count(drum.wall) - 1;
    PutFloor(drum, wish, mesh);
    PutRows(drum.wall, 2, true, mesh);
    if (!drum.strip.empty())
        PutRows(drum.strip, 3, false, mesh);
}

} // namespace havuz::sound
