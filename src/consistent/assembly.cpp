#include "consistent/assembly.h"

#include <algorithm>

namespace havuz::consistent {

namespace {

std::vector<std::vector<int>> TiesBelow(const Tank &tank, const Freedoms &freedoms) {
    std::vector<std::vector<int>> below(static_cast<std::size_t>(freedoms.masters()));
    for (const TankMesh &mesh : tank.meshes) {
        std::vector<int> places;
        for (const int n : mesh.node)
            freedoms.eachLink(n, [&](int place, const Matrix6 &) { places.push_back(place); });
        for (const int a : places)
            for (const int b : places)
                if (b > a)
                    below[static_cast<std::size_t>(a)].push_back(b);
    }
    for (std::vector<int> &b : below) {
        std::sort(b.begin(), b.end());
        b.erase(std::unique(b.begin(), b.end()), b.end());
    }
    return below;
}

} // namespace

BlockStiffness::BlockStiffness(const Tank &tank, const Freedoms &freedoms)
    : freedoms_(freedoms), below_(TiesBelow(tank, freedoms)) {
    Eigen::Index cells = 0;
    for (const std::vector<int> &b : below_)
        cells += 21 + 36 * static_cast<Eigen::Index>(b.size());
    matrix_.resize(freedoms.all(), freedoms.all());
    matrix_.resizeNonZeros(cells);
    int at = 0;
    for (std::size_t place = 0; place < below_.size(); ++place)
        for (int j = 0; j < 6; ++j) {
            const int column = 6 * static_cast<int>(place) + j;
            matrix_.outerIndexPtr()[column] = at;
            for (int i = j; i < 6; ++i)
                matrix_.innerIndexPtr()[at++] = 6 * static_cast<int>(place) + i;
            for (const int b : below_[place])
                for (int i = 0; i < 6; ++i)
                    matrix_.innerIndexPtr()[at++] = 6 * b + i;
        }
    matrix_.outerIndexPtr()[freedoms.all()] = at;
    std::fill_n(matrix_.valuePtr(), cells, 0.0);
}

// Blocks above the diagonal are those below it, turned over: they are left out.
void BlockStiffness::addBlock(int row, int column, const Matrix6 &k) {
    if (row < column)
        return;
    const std::vector<int> &below = below_[static_cast<std::size_t>(column)];
    const auto found = row == column ? below.begin() : std::lower_bound(below.begin(), below.end(), row);
    const int skip = 6 * static_cast<int>(found - below.begin());
    for (int j = 0; j < 6; ++j) {
        double *cell = matrix_.valuePtr() + matrix_.outerIndexPtr()[6 * column + j];
        if (row == column)
            for (int i = j; i < 6; ++i)
                *cell++ += k(i, j);
        else
            for (int i = 0; i < 6; ++i)
                cell[6 - j + skip + i] += k(i, j);
    }
}

void BlockStiffness::add(int nodeA, int nodeB, const Matrix6 &k) {
    freedoms_.eachLink(nodeA, [&](int row, const Matrix6 &fromA) {
        freedoms_.eachLink(nodeB, [&](int column, const Matrix6 &fromB) {
            if (row >= column)
                addBlock(row, column, fromA.transpose() * k * fromB);
        });
    });
}

void BlockStiffness::addMesh(const TankMesh &mesh, const Matrix24 &k) {
    for (std::size_t a = 0; a < 4; ++a)
        for (std::size_t b = 0; b < 4; ++b)
            add(mesh.node[a], mesh.node[b],
                k.block<6, 6>(6 * static_cast<Eigen::Index>(a), 6 * static_cast<Eigen::Index>(b)));
}

void BlockStiffness::addSpring(int node, double spring) {
    Matrix6 k = Matrix6::Zero();
    k(0, 0) = k(1, 1) = k(2, 2) = spring;
    add(node, node, k);
}

Sparse BlockStiffness::reduced() const {
    if (!freedoms_.plain()) {
        const Sparse whole = matrix_.selfadjointView<Eigen::Lower>();
        const Sparse k = freedoms_.reduction().transpose() * whole * freedoms_.reduction();
        return k.triangularView<Eigen::Lower>();
    }
    Sparse k(freedoms_.equations(), freedoms_.equations());
    k.reserve(matrix_.nonZeros());
    for (int column = 0; column < matrix_.outerSize(); ++column) {
        const int c = freedoms_.equationOf(column);
        if (c < 0)
            continue;
        k.startVec(c);
        for (Sparse::InnerIterator it(matrix_, column); it; ++it)
            if (const int r = freedoms_.equationOf(it.row()); r >= 0)
                k.insertBackByOuterInner(c, r) = it.value();
    }
    k.finalize();
    return k;
}

} // namespace havuz::consistent
