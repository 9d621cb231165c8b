// What the meshing and plate editing commands ask of the main window and the views. The base does nothing, for programs
// without one.
#pragma once

#include <string>

namespace havuz {

class MeshWindow {
public:
    virtual ~MeshWindow() = default;
    virtual void RefreshDrawing() {}            // whatever view is current
    virtual void DrawMeshes() {}                // the mesh view
    virtual void ShowIteration(int /*pass*/) {} // label "Iterasyon:" with the number
    virtual void HideLabel() {}
    virtual void ComputeExtents() {}
    virtual void RebuildPlateList() {}                           // bounds and drawing order of plates and panels
    virtual void ListDiagnostic(const std::string & /*line*/) {} // list of the form "DYUK"
};

} // namespace havuz
