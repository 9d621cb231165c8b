// Mesh report: joints. Where an edge of one panel or plate lies on another one, the meshes of both share their sides
// along it; where they do not, the joint is open. The edge is looked at in samples.
#include "mesh/mesh_report_work.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace havuz {

namespace {

constexpr double kOnFace = 0.04;    // m: how far a sample may lie off the other one's plane and outline
constexpr double kOnSide = 0.045;   // m: how far a shared side may pass from a sample: no less than kOnFace
constexpr double kSampleStep = 0.1; // m
constexpr int kFewSamples = 8, kManySamples = 200; // of a short and of a long edge
constexpr double kShortJoint = 0.3; // m: a shorter contact is no joint, two parts only meet in a point there

struct Face {
    int owner = 0;
    std::vector<SpacePoint> outline;
    SpacePoint normal, low, high;
};

Face FaceOf(int owner) {
    Face face{owner, OutlineOf(owner), {}, {1e30, 1e30, 1e30}, {-1e30, -1e30, -1e30}};
    const std::size_t n = face.outline.size();
    for (std::size_t k = 0; k < n; ++k) {
        const SpacePoint a = face.outline[k], b = face.outline[(k + 1) % n];
        const SpacePoint c = Cross(Minus(a, face.outline[0]), Minus(b, face.outline[0]));
        face.normal = {face.normal.x + c.x, face.normal.y + c.y, face.normal.z + c.z};
        face.low = {std::min(face.low.x, a.x), std::min(face.low.y, a.y), std::min(face.low.z, a.z)};
        face.high = {std::max(face.high.x, a.x), std::max(face.high.y, a.y), std::max(face.high.z, a.z)};
    }
    const double size = Length(face.normal);
    if (size > 0.0)
        face.normal = {face.normal.x / size, face.normal.y / size, face.normal.z / size};
    return face;
}

// Even or odd crossings of a ray, in the coordinate plane that the face is most parallel to.
bool InsideOutline(const Face &face, SpacePoint p) {
    const double ax = std::fabs(face.normal.x), ay = std::fabs(face.normal.y), az = std::fabs(face.normal.z);
    const auto flat = [&](SpacePoint q) {
        if (az >= ax && az >= ay)
            return std::pair(q.x, q.y);
        return ay >= ax ? std::pair(q.x, q.z) : std::pair(q.y, q.z);
    };
    const auto [px, py] = flat(p);
    bool inside = false;
    const std::size_t n = face.outline.size();
    for (std::size_t k = 0; k < n; ++k) {
        const auto [x1, y1] = flat(face.outline[k]);
        const auto [x2, y2] = flat(face.outline[(k + 1) % n]);
        if ((y1 > py) != (y2 > py) && px < x1 + (py - y1) / (y2 - y1) * (x2 - x1))
            inside = !inside;
    }
    return inside;
}

bool OnFace(const Face &face, SpacePoint p) {
    if (std::fabs(Dot(Minus(p, face.outline[0]), face.normal)) > kOnFace)
        return false;
    return InsideOutline(face, p) || DistanceToOutline(p, face.outline) <= kOnFace;
}

bool BoxesMeet(const Face &face, SpacePoint a, SpacePoint b) {
    return std::min(a.x, b.x) <= face.high.x + kOnFace && std::max(a.x, b.x) >= face.low.x - kOnFace &&
           std::min(a.y, b.y) <= face.high.y + kOnFace && std::max(a.y, b.y) >= face.low.y - kOnFace &&
           std::min(a.z, b.z) <= face.high.z + kOnFace && std::max(a.z, b.z) >= face.low.z - kOnFace;
}

using SidesByOwner = std::map<int, std::vector<const MeshSide *>>;

SidesByOwner SortByOwner(const std::vector<MeshSide> &sides) {
    SidesByOwner byOwner;
    for (const MeshSide &side : sides) {
        std::set<int> owners;
        for (const MeshSide::Use &use : side.uses)
            if (owners.insert(use.owner).second)
                byOwner[use.owner].push_back(&side);
    }
    return byOwner;
}

// Sides that meshes of both owners have.
std::vector<const MeshSide *> SharedSides(const std::vector<const MeshSide *> &sidesOfOne, int other) {
    std::vector<const MeshSide *> shared;
    std::copy_if(sidesOfOne.begin(), sidesOfOne.end(), std::back_inserter(shared), [other](const MeshSide *side) {
        return std::any_of(side->uses.begin(), side->uses.end(),
                           [other](const MeshSide::Use &use) { return use.owner == other; });
    });
    return shared;
}

bool Covered(SpacePoint p, const std::vector<const MeshSide *> &sides) {
    return std::any_of(sides.begin(), sides.end(), [p](const MeshSide *side) {
        return DistanceToSegment(p, NodePlace(side->a), NodePlace(side->b)) <= kOnSide;
    });
}

struct OpenJoint {
    double open = 0.0, length = 0.0; // m
    SpacePoint from, to;             // begin of the first open sample, end of the last
};

// Whether a long enough part of edge a-b lies near the plane of the face: most pairs end here.
bool RunsInPlane(const Face &face, SpacePoint a, SpacePoint b) {
    const double da = Dot(Minus(a, face.outline[0]), face.normal), db = Dot(Minus(b, face.outline[0]), face.normal);
    if (std::min(da, db) > kOnFace || std::max(da, db) < -kOnFace)
        return false;
    return std::fabs(da - db) * kShortJoint <= 2.0 * kOnFace * SpaceDistance(a, b);
}

// The joint of edge a-b with the face, nothing when they only touch or all of it is covered.
std::optional<OpenJoint> LookAlong(SpacePoint a, SpacePoint b, const Face &face,
                                   const std::vector<const MeshSide *> &shared) {
    const double length = SpaceDistance(a, b);
    const int samples = static_cast<int>(std::clamp<double>(length / kSampleStep, kFewSamples, kManySamples));
    const double step = length / samples;
    OpenJoint joint;
    for (int k = 0; k < samples; ++k) {
        const SpacePoint p = Along(a, b, (k + 0.5) / samples);
        if (!OnFace(face, p))
            continue;
        joint.length += step;
        if (Covered(p, shared))
            continue;
        if (joint.open == 0.0)
            joint.from = Along(a, b, k / static_cast<double>(samples));
        joint.open += step;
        joint.to = Along(a, b, (k + 1) / static_cast<double>(samples));
    }
    if (joint.length < kShortJoint || joint.open == 0.0)
        return std::nullopt;
    return joint;
}

std::string JointInWords(std::pair<int, int> owners, const OpenJoint &joint) {
    return OwnerInWords(owners.first) + " and " + OwnerInWords(owners.second) + " are not joined over " +
           Meters(joint.open) + " m of " + Meters(joint.length) + " m, from " + PlaceInWords(joint.from) + " to " +
           PlaceInWords(joint.to);
}

// Meshes of the two that have a side of their own along the open part.
void MarkJoint(const SidesByOwner &byOwner, std::pair<int, int> owners, const OpenJoint &joint, Warnings &found) {
    for (const int owner : {owners.first, owners.second}) {
        const auto own = byOwner.find(owner);
        for (const MeshSide *side : own == byOwner.end() ? std::vector<const MeshSide *>{} : own->second)
            if (DistanceToSegment(Along(NodePlace(side->a), NodePlace(side->b), 0.5), joint.from, joint.to) <= kOnSide)
                for (const MeshSide::Use &use : side->uses)
                    if (use.owner == owner)
                        found.markMesh(use.mesh);
    }
}

} // namespace

// Of all edges of two owners the one that is open over the greatest length.
Warnings WarnOfOpenJoints(const std::vector<MeshSide> &sides) {
    std::vector<Face> faces;
    for (const int owner : ShapedOwners())
        faces.push_back(FaceOf(owner));
    SidesByOwner byOwner = SortByOwner(sides);
    std::map<std::pair<int, int>, OpenJoint> worst;
    for (const Face &edgeOwner : faces) {
        const std::size_t n = edgeOwner.outline.size();
        for (std::size_t k = 0; k < n; ++k) {
            const SpacePoint a = edgeOwner.outline[k], b = edgeOwner.outline[(k + 1) % n];
            for (const Face &face : faces) {
                if (face.owner == edgeOwner.owner || !BoxesMeet(face, a, b) || !RunsInPlane(face, a, b))
                    continue;
                const std::pair<int, int> owners = std::minmax(face.owner, edgeOwner.owner);
                const auto joint = LookAlong(a, b, face, SharedSides(byOwner[edgeOwner.owner], face.owner));
                if (joint && joint->open > worst[owners].open)
                    worst[owners] = *joint;
            }
        }
    }
    Warnings found("birleşmemiş");
    for (const auto &[owners, joint] : worst) {
        MarkJoint(byOwner, owners, joint, found);
        found.add([&owners = owners, &joint = joint] { return JointInWords(owners, joint); });
    }
    return found;
}

} // namespace havuz
