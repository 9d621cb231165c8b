#include "consistent/blocked_ldlt.h"

#include "consistent/parallel.h"
#include "model/workers.h"

#include <algorithm>
#include <array>

namespace havuz::consistent {

namespace {

using Sparse = Eigen::SparseMatrix<double>;

constexpr int kBlock = 32;             // pivots whose share the columns behind them take at once
constexpr double kFilling = 0.15;      // part of a front that zeros may be when it joins its parent
constexpr int kSmallFront = 18;        // equations of a front that joins in any case
constexpr double kTeamWork = 400000.0; // products of a block that a team is worth
constexpr int kSharesPerThread = 4;    // subtrees to share out

std::size_t At(int k) { return static_cast<std::size_t>(k); }
std::size_t RoundedUp(int n) { return (At(n) + kFrontRows - 1) / kFrontRows * kFrontRows; }

// Whether column j has the rows of the column before it, without j itself.
bool LikeTheOneBefore(const Sparse &m, int j) {
    const int *rows = m.innerIndexPtr(), *start = m.outerIndexPtr();
    const int before = start[j] - start[j - 1], own = start[j + 1] - start[j];
    return before == own + 1 && std::equal(rows + start[j], rows + start[j + 1], rows + start[j - 1] + 1);
}

} // namespace

struct BlockedLdlt::Workplace {
    const Sparse *lower;
    FrontKernel kernel;
    std::vector<int> place{};    // of an equation in the front at work
    std::vector<double> cells{}; // of the front, by columns
};

BlockedLdlt::BlockedLdlt(const Sparse &lower, int threads, FrontKernel kernel) {
    pivots_.resize(lower.cols());
    findFronts(lower);
    joinSmallFronts();
    takeChildren();
    factor(lower, std::max(threads, 1), kernel);
}

// The rows of a column are those of the matrix and those of the fronts that end in it. A column whose rows are those of
// the one before, less itself, is of the same front.
void BlockedLdlt::findFronts(const Sparse &lower) {
    const int n = static_cast<int>(lower.cols());
    std::vector<std::vector<int>> endIn(At(n)); // fronts by the first of their rows
    std::vector<int> mark(At(n), -1);
    for (int j = 0; j < n; ++j) {
        if (j > 0 && endIn[At(j)].empty() && !fronts_.back().rows.empty() && fronts_.back().rows[0] == j &&
            LikeTheOneBefore(lower, j)) {
            fronts_.back().rows.erase(fronts_.back().rows.begin());
            ++fronts_.back().count;
        } else {
            if (j > 0 && !fronts_.back().rows.empty())
                endIn[At(fronts_.back().rows[0])].push_back(static_cast<int>(fronts_.size()) - 1);
            Front front;
            front.first = j;
            front.count = 1;
            const auto take = [&](int row) {
                if (row > j && mark[At(row)] != j) {
                    mark[At(row)] = j;
                    front.rows.push_back(row);
                }
            };
            for (Sparse::InnerIterator it(lower, j); it; ++it)
                take(static_cast<int>(it.row()));
            for (const int child : endIn[At(j)])
                for (const int row : fronts_[At(child)].rows)
                    take(row);
            std::sort(front.rows.begin(), front.rows.end());
            fronts_.push_back(std::move(front));
        }
    }
}

// A front that ends in the one right behind it joins that one where this fills little with zeros.
void BlockedLdlt::joinSmallFronts() {
    std::vector<Front> kept;
    for (Front &front : fronts_) {
        while (!kept.empty()) {
            const Front &before = kept.back();
            if (before.rows.empty() || before.rows[0] != front.first || before.first + before.count != front.first)
                break;
            const double filled = static_cast<double>(front.size()) - static_cast<double>(before.rows.size());
            const double whole = static_cast<double>(before.count + front.size());
            if (filled > kFilling * whole && (before.count > kSmallFront || filled > 0.5 * whole))
                break;
            front.first = before.first;
            front.count += before.count;
            kept.pop_back();
        }
        kept.push_back(std::move(front));
    }
    fronts_ = std::move(kept);
}

void BlockedLdlt::takeChildren() {
    std::vector<int> frontOf(At(static_cast<int>(pivots_.size())));
    for (int f = 0; f < static_cast<int>(fronts_.size()); ++f)
        std::fill_n(frontOf.begin() + fronts_[At(f)].first, fronts_[At(f)].count, f);
    for (int f = 0; f < static_cast<int>(fronts_.size()); ++f) {
        Front &front = fronts_[At(f)];
        front.stride = RoundedUp(front.size());
        for (int p = 0; p < front.count; ++p)
            front.work += static_cast<double>(front.size() - p) * (front.size() - p);
        cells_ += static_cast<long long>(front.count) * (front.count - 1) / 2 +
                  static_cast<long long>(front.count) * static_cast<long long>(front.rows.size());
        if (front.rows.empty())
            continue;
        front.parent = frontOf[At(front.rows[0])];
        fronts_[At(front.parent)].children.push_back(f);
        fronts_[At(front.parent)].work += front.work;
    }
}

// The front's own part of the matrix, and what its children leave.
void BlockedLdlt::assemble(Front &front, Workplace &place) {
    const std::size_t stride = front.stride;
    place.cells.assign(stride * (At(front.size()) + kFrontColumns), 0.0);
    for (int k = 0; k < front.count; ++k)
        place.place[At(front.first + k)] = k;
    for (std::size_t k = 0; k < front.rows.size(); ++k)
        place.place[At(front.rows[k])] = front.count + static_cast<int>(k);
    for (int k = 0; k < front.count; ++k)
        for (Sparse::InnerIterator it(*place.lower, front.first + k); it; ++it)
            place.cells[At(k) * stride + At(place.place[At(static_cast<int>(it.row()))])] = it.value();
    for (const int c : front.children) {
        Front &child = fronts_[At(c)];
        const std::size_t n = child.rows.size();
        for (std::size_t k = 0; k < n; ++k) {
            double *column = place.cells.data() + At(place.place[At(child.rows[k])]) * stride;
            for (std::size_t l = k; l < n; ++l)
                column[place.place[At(child.rows[l])]] += child.rest[k * n + l];
        }
        std::vector<double>().swap(child.rest);
    }
}

// Column by column within a block of pivots.
bool BlockedLdlt::eliminateBlock(const Front &front, Block block, Workplace &place) {
    const std::size_t stride = front.stride, size = At(front.size());
    double *cells = place.cells.data();
    for (int p = block.first; p < block.end; ++p) {
        double *column = cells + At(p) * stride;
        for (int q = block.first; q < p; ++q) {
            const double *before = cells + At(q) * stride;
            const double factor = before[p] * pivots_(front.first + q);
            for (std::size_t r = At(p); r < size; ++r)
                column[r] -= before[r] * factor;
        }
        const double pivot = column[p];
        pivots_(front.first + p) = pivot;
        if (pivot == 0.0)
            return false;
        for (std::size_t r = At(p) + 1; r < size; ++r)
            column[r] /= pivot;
    }
    return true;
}

// Every workers-th strip of four columns behind the block takes its share of it.
void BlockedLdlt::reduceBehind(const Front &front, Block block, Workplace &place, int worker, int workers) const {
    const std::size_t stride = front.stride, size = At(front.size());
    double *cells = place.cells.data();
    std::array<double, kBlock * kFrontColumns> factor{};
    for (int at = block.end + worker * kFrontColumns; at < front.size(); at += workers * kFrontColumns) {
        const std::size_t column = At(at);
        for (int p = block.first; p < block.end; ++p)
            for (int c = 0; c < kFrontColumns; ++c) {
                const std::size_t row = column + At(c);
                factor[At((p - block.first) * kFrontColumns + c)] =
                    row < size ? cells[At(p) * stride + row] * pivots_(front.first + p) : 0.0;
            }
        place.kernel({cells + column * stride, cells + At(block.first) * stride, factor.data(), stride,
                      column / kFrontRows * kFrontRows, block.end - block.first});
    }
}

bool BlockedLdlt::eliminate(Front &front, Workplace &place, WorkerTeam *team) {
    assemble(front, place);
    for (int first = 0; first < front.count; first += kBlock) {
        const Block block{first, std::min(first + kBlock, front.count)};
        if (!eliminateBlock(front, block, place))
            return false;
        const double work = static_cast<double>(front.size() - block.end) * static_cast<double>(front.stride) *
                            (block.end - block.first);
        if (team != nullptr && work > kTeamWork)
            team->run([&](int worker) { reduceBehind(front, block, place, worker, team->size()); });
        else
            reduceBehind(front, block, place, 0, 1);
    }
    const double *cells = place.cells.data();
    const std::size_t stride = front.stride, own = At(front.count), n = front.rows.size();
    front.lower.assign(cells, cells + own * stride);
    front.rest.resize(n * n);
    for (std::size_t k = 0; k < n; ++k)
        std::copy_n(cells + (own + k) * stride + own + k, n - k, front.rest.data() + k * n + k);
    return true;
}

// The thread of each front: whole subtrees, the largest first, to the one with the least work. -1 for the fronts above.
std::vector<int> BlockedLdlt::shareOut(int threads) const {
    std::vector<int> open, subtrees;
    double whole = 0.0;
    for (int f = 0; f < static_cast<int>(fronts_.size()); ++f)
        if (fronts_[At(f)].parent < 0) {
            open.push_back(f);
            whole += fronts_[At(f)].work;
        }
    const double most = threads > 1 ? whole / (kSharesPerThread * threads) : whole;
    while (!open.empty()) {
        const Front &front = fronts_[At(open.back())];
        if (front.work <= most)
            subtrees.push_back(open.back());
        open.pop_back();
        if (front.work > most)
            open.insert(open.end(), front.children.begin(), front.children.end());
    }
    std::sort(subtrees.begin(), subtrees.end(), [&](int a, int b) {
        return fronts_[At(a)].work != fronts_[At(b)].work ? fronts_[At(a)].work > fronts_[At(b)].work : a < b;
    });
    std::vector<int> share(fronts_.size(), -1);
    std::vector<double> load(At(threads), 0.0);
    for (const int f : subtrees) {
        const auto least = std::min_element(load.begin(), load.end());
        *least += fronts_[At(f)].work;
        share[At(f)] = static_cast<int>(least - load.begin());
    }
    for (int f = static_cast<int>(fronts_.size()) - 1; f >= 0; --f)
        if (share[At(f)] >= 0)
            for (const int child : fronts_[At(f)].children)
                share[At(child)] = share[At(f)];
    return share;
}

// Each thread its subtrees; then what lies above them, each front by all.
void BlockedLdlt::factor(const Sparse &lower, int threads, FrontKernel kernel) {
    const auto workplace = [&] {
        return Workplace{&lower, kernel, std::vector<int>(At(static_cast<int>(lower.cols())))};
    };
    const std::vector<int> share = shareOut(threads);
    std::vector<char> failed(At(threads), 0);
    ForEach(At(threads), threads, [&](std::size_t mine) {
        Workplace place = workplace();
        for (std::size_t f = 0; f < fronts_.size() && failed[mine] == 0; ++f)
            if (share[f] == static_cast<int>(mine) && !eliminate(fronts_[f], place, nullptr))
                failed[mine] = 1;
    });
    regular_ = std::count(failed.begin(), failed.end(), 0) == threads;
    if (!regular_ || std::count(share.begin(), share.end(), -1) == 0)
        return;
    WorkerTeam team(threads);
    Workplace place = workplace();
    for (std::size_t f = 0; f < fronts_.size() && regular_; ++f)
        if (share[f] < 0)
            regular_ = eliminate(fronts_[f], place, &team);
}

Eigen::VectorXd BlockedLdlt::solve(const Eigen::VectorXd &f) const {
    Eigen::VectorXd x = f, part;
    for (const Front &front : fronts_) {
        auto own = x.segment(front.first, front.count);
        front.columns().topRows(front.count).triangularView<Eigen::UnitLower>().solveInPlace(own);
        part.noalias() = front.columns().bottomRows(front.behind()) * own;
        for (Eigen::Index r = 0; r < part.size(); ++r)
            x(front.rows[static_cast<std::size_t>(r)]) -= part(r);
    }
    x = x.cwiseQuotient(pivots_);
    for (auto front = fronts_.rbegin(); front != fronts_.rend(); ++front) {
        part.resize(front->behind());
        for (Eigen::Index r = 0; r < part.size(); ++r)
            part(r) = x(front->rows[static_cast<std::size_t>(r)]);
        auto own = x.segment(front->first, front->count);
        own.noalias() -= front->columns().bottomRows(front->behind()).transpose() * part;
        front->columns().topRows(front->count).transpose().triangularView<Eigen::UnitUpper>().solveInPlace(own);
    }
    return x;
}

} // namespace havuz::consistent
