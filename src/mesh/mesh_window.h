// What the meshing commands ask of the main window and the views. The base does nothing, for programs without one.
#pragma once

namespace havuz {

class MeshWindow {
public:
    virtual ~MeshWindow() = default;
    virtual void RefreshDrawing() {}
    virtual void ShowIteration(int /*pass*/) {} // label "Iterasyon:" with the number
    virtual void HideLabel() {}
    virtual void ComputeExtents() {}
};

} // namespace havuz
