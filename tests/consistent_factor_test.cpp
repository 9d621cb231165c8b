// The blocked elimination: the bits of any number of threads and any instruction set, and Eigen's own LDLT beside it.
#include "consistent/system.h"
#include "consistent_support.h"
#include "model/store.h"

#include <Eigen/SparseCholesky>
#include <gtest/gtest.h>
#include <random>

namespace havuz::consistent {

namespace {

// Symmetric, positive and negative pivots, ties to a few others far and near.
Sparse RandomMatrix(int n, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    std::vector<Eigen::Triplet<double>> entries;
    for (int j = 0; j < n; ++j) {
        entries.emplace_back(j, j, (random() % 5 == 0 ? -1.0 : 1.0) * (8.0 + any(random)));
        for (int tie = 0; tie < 4 && j + 1 < n; ++tie) {
            const int far = 1 + static_cast<int>(random() % 7) * static_cast<int>(random() % 7);
            entries.emplace_back(std::min(n - 1, j + far), j, any(random));
        }
    }
    Sparse m(n, n);
    m.setFromTriplets(entries.begin(), entries.end());
    return m;
}

void ExpectSameAsEigen(const Sparse &m) {
    const Eigen::SimplicialLDLT<Sparse, Eigen::Lower, Eigen::NaturalOrdering<int>> eigen(m);
    const Vector f = Vector::LinSpaced(m.rows(), -1.0, 2.0);
    const Vector want = eigen.solve(f);
    const BlockedLdlt one(m, 1, PortableFrontKernel());
    ASSERT_TRUE(one.regular());
    EXPECT_LT((one.solve(f) - want).norm(), 1e-10 * want.norm());
    EXPECT_LT((one.pivots() - eigen.vectorD()).norm(), 1e-10 * eigen.vectorD().norm());
    EXPECT_GE(one.cells(), eigen.matrixL().nestedExpression().nonZeros());
    for (const int threads : {1, 2, 3, 8})
        for (const FrontKernel kernel : {PortableFrontKernel(), BestFrontKernel()}) {
            const BlockedLdlt other(m, threads, kernel);
            EXPECT_TRUE(other.pivots() == one.pivots()) << threads;
            EXPECT_TRUE(other.solve(f) == one.solve(f)) << threads;
        }
}

} // namespace

TEST(ConsistentFactor, GivesTheSameBitsAnyWayAndEigensValues) {
    for (const int n : {1, 2, 5, 7, 8, 9, 31, 32, 33, 64, 65, 300})
        for (const unsigned seed : {1U, 2U, 3U}) {
            SCOPED_TRACE(n);
            ExpectSameAsEigen(RandomMatrix(n, seed));
        }
    const Tank tank = LibraryPool(1, {{&MeshGenisligi, 0.5}});
    ExpectSameAsEigen(Analysis(tank).system().factor->matrix());
}

TEST(ConsistentFactor, APivotOfZeroEndsIt) {
    for (const int threads : {1, 2}) {
        Sparse m = RandomMatrix(40, 4);
        m.coeffRef(0, 0) = 0.0;
        EXPECT_FALSE(BlockedLdlt(m, threads).regular());
    }
}

// Every number of a tank's results, for any number of threads.
TEST(ConsistentFactor, ResultsAreTheSameForAnyNumberOfThreads) {
    const Tank tank = LibraryPool(1, {{&MeshGenisligi, 0.5}});
    const CaseResult one = Analysis(tank).solve(kLiquid);
    for (const int threads : {2, 5}) {
        Options options;
        options.threads = threads;
        const CaseResult other = Analysis(tank, options).solve(kLiquid);
        for (std::size_t n = 1; n < one.nodes.size(); ++n)
            EXPECT_EQ(other.nodes[n].u, one.nodes[n].u);
        for (std::size_t i = 0; i < one.meshes.size(); ++i)
            EXPECT_EQ(other.meshes[i][1].M22, one.meshes[i][1].M22);
    }
}

} // namespace havuz::consistent
