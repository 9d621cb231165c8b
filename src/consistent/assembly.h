// The stiffness of all freedoms of the masters: lower triangle by columns, in blocks of one node by another.
#pragma once

#include "consistent/equations.h"

namespace havuz::consistent {

// A sparse matrix with its pattern fixed by the meshes; node by node blocks are added to it.
class BlockStiffness {
public:
    BlockStiffness(const Tank &tank, const Freedoms &freedoms);
    void addMesh(const TankMesh &mesh, const Matrix24 &k);
    // spring: t/m on the three displacements of a project node.
    void addSpring(int node, double spring);
    const Sparse &matrix() const { return matrix_; }
    // Over the equations alone: lower triangle.
    Sparse reduced() const;

private:
    void addBlock(int row, int column, const Matrix6 &k);
    void add(int nodeA, int nodeB, const Matrix6 &k);

    const Freedoms &freedoms_;
    std::vector<std::vector<int>> below_; // by place: places after it that it is tied to
    Sparse matrix_;
};

} // namespace havuz::consistent
