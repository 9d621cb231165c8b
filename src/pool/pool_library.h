// The pool library: a few parameters become a complete structural model. A rectangular pool becomes panels, which the
// panel meshing divides later; a circular pool becomes panels, nodes and meshes at once.
#pragma once

namespace havuz {

// What the generator asks of the dialog and the views. The base does nothing.
class PoolWindow {
public:
    virtual ~PoolWindow() = default;
    virtual void ReadPoolForm() {} // the dialog's fields into the parameters
    virtual void ComputeExtents() {}
    virtual void DrawPlates() {}
    virtual void DrawMeshes() {}
};

// Generates the pool of the page (0 cell layout: nothing, 1 rectangular, 2 circular) from the parameters into the
// model, which has been cleared before. Sets HavuzTip and the view angles. MeshGenisligi 0 is DivisionByZero, a model
// that outgrows its tables Subscript, a count above 32767 Overflow.
void GeneratePool(int page, PoolWindow &window);

} // namespace havuz
