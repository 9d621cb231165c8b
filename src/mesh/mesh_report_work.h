// What the parts of the mesh report share. Only the mesh_report files use it.
#pragma once

#include "mesh/mesh_report.h"
#include "mesh/space_point.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace havuz {

// Warnings of one kind: the first few in words, the rest as a number; and the meshes of all of them. Words are only
// made for those that are shown, so that a mesh with millions of faults costs no more than a time to count them.
class Warnings {
public:
    explicit Warnings(const char *turkish); // the kind in Turkish
    template <class Words>
    void add(Words words) {
        if (lines_.size() < kShown)
            lines_.push_back(words());
        else
            ++more_;
    }
    // Where it is: a mesh, or a node and so the meshes around it. What is neither is not counted.
    void markMesh(int mesh);
    void markNode(int node);
    void appendTo(std::vector<std::string> &report) const;
    MeshFault fault() const;
    bool any() const { return !lines_.empty(); }

private:
    static constexpr std::size_t kShown = 5;
    const char *turkish_;
    std::vector<std::string> lines_;
    long long more_ = 0;
    std::vector<bool> mesh_, node_; // by number
};

// Owner of meshes as in MeshRecord.PanelNo: a panel, or 1000 + plate.
std::string OwnerInWords(int owner);     // "wall 3", "base panel 1", "strip 6", "plate 2"
std::string PlaceInWords(SpacePoint at); // "(1.5, 2, 0)"
std::string Meters(double length);       // "1.25"

// The four corners of a mesh, nothing when one of them is no node.
using Ring = std::array<int, 4>;
std::optional<Ring> CornersOf(int mesh);

// Owners that have a shape: panels, where their corners say where they lie, and plates.
std::vector<int> ShapedOwners();
std::vector<SpacePoint> OutlineOf(int owner);

// A side of one or more meshes, from node a to node b with a < b.
struct MeshSide {
    int a = 0, b = 0;
    struct Use {
        int mesh = 0, owner = 0;
    };
    std::vector<Use> uses;
};
std::vector<MeshSide> AllSides();

// Distance of a point from a segment.
double DistanceToSegment(SpacePoint p, SpacePoint a, SpacePoint b);
double DistanceToOutline(SpacePoint p, const std::vector<SpacePoint> &outline);

Warnings WarnOfPlateAreas();
Warnings WarnOfLostCorners();                                    // mesh_report_shape.cpp
Warnings WarnOfLeftOutlines(const std::vector<MeshSide> &sides); // mesh_report_shape.cpp
Warnings WarnOfOverlaps(const std::vector<MeshSide> &sides);     // mesh_report_shape.cpp
Warnings WarnOfOpenJoints(const std::vector<MeshSide> &sides);   // mesh_report_joints.cpp

} // namespace havuz
