// Sound mesh: nodes and quadrilaterals of the parts over the agreed divisions. Floors turn counter-clockwise from
// above, the meshes of a wall begin with their upper side.
#include "mesh/sound_work.h"

#include <cmath>

namespace havuz::sound {

namespace {

class PartsMesher {
public:
    PartsMesher(const Model &model, const Divisions &divisions, const Wish &wish, Mesh &mesh)
        : model_(model), divisions_(divisions), wish_(wish), mesh_(mesh) {}

    void make(const Part &part) {
        if (part.shape == Shape::Free)
            makeFree(part);
        else
            for (int i = 0; i < Count(part.in); ++i)
                for (int j = 0; j < Count(part.in[0]); ++j)
                    if (At(At(part.in, i), j) != 0)
                        makePatch(part, i, j);
    }

private:
    // Nodes from corner a to corner b.
    std::vector<int> nodesOn(int a, int b) {
        const LineKey key = KeyOf(a, b);
        std::vector<int> &nodes = onLine_[key];
        if (nodes.empty())
            for (const SpacePoint p : placesOn(key))
                nodes.push_back(mesh_.add(p));
        return a < b ? nodes : std::vector<int>(nodes.rbegin(), nodes.rend());
    }
    std::vector<SpacePoint> placesOn(const LineKey &key) const {
        const SpacePoint a = model_.at(key.first), b = model_.at(key.second);
        const std::vector<double> &at = divisions_.at(key);
        std::vector<SpacePoint> places;
        for (const double t : at)
            places.push_back(t == 0.0 ? a : t == 1.0 ? b : Along(a, b, t));
        return places;
    }
    std::vector<double> partsOf(int a, int b) const {
        std::vector<double> at = divisions_.at(KeyOf(a, b));
        if (a > b) {
            std::reverse(at.begin(), at.end());
            for (double &t : at)
                t = 1.0 - t;
        }
        return at;
    }

    // The plate mesher's own meshes, where the divisions came out as it has them.
    bool makeLiteral(const Part &part, const std::vector<double> &u, const std::vector<double> &v) {
        const auto alike = [](double p, double q) { return std::fabs(p - q) < 1e-6; };
        if (!part.literal ||
            !std::equal(u.begin(), u.end(), part.literal->at[0].begin(), part.literal->at[0].end(), alike) ||
            !std::equal(v.begin(), v.end(), part.literal->at[1].begin(), part.literal->at[1].end(), alike))
            return false;
        std::vector<int> node;
        for (const PlanPoint p : part.literal->node)
            node.push_back(mesh_.add({p.x, p.y, Height(model_, part, p)}));
        for (const auto &q : part.literal->quad)
            put(part, {At(node, q[0]), At(node, q[1]), At(node, q[2]), At(node, q[3])});
        return true;
    }

    void makePatch(const Part &part, int i, int j) {
        const int a = At(At(part.grid, i), j), b = At(At(part.grid, i + 1), j), c = At(At(part.grid, i + 1), j + 1),
                  d = At(At(part.grid, i), j + 1);
        const std::vector<double> u = partsOf(a, b), v = partsOf(a, d);
        const std::vector<int> low = nodesOn(a, b), high = nodesOn(d, c), left = nodesOn(a, d), right = nodesOn(b, c);
        if (makeLiteral(part, u, v))
            return;
        const int n = Count(u) - 1, m = Count(v) - 1;
        if (static_cast<double>(n) * m > kMeshCapacity)
            throw TooFine();
        std::vector<std::vector<int>> node(u.size(), std::vector<int>(v.size()));
        for (int k = 0; k <= n; ++k)
            for (int l = 0; l <= m; ++l) {
                const SpacePoint from = Along(model_.at(a), model_.at(d), At(v, l)),
                                 to = Along(model_.at(b), model_.at(c), At(v, l));
                At(At(node, k), l) = l == 0   ? At(low, k)
                                     : l == m ? At(high, k)
                                     : k == 0 ? At(left, l)
                                     : k == n ? At(right, l)
                                              : mesh_.add(Along(from, to, At(u, k)));
            }
        for (int l = 0; l < m; ++l)
            for (int k = 0; k < n; ++k)
                put(part,
                    {At(At(node, k), l), At(At(node, k + 1), l), At(At(node, k + 1), l + 1), At(At(node, k), l + 1)});
    }

    int flatNode(const Part &part, FlatTask &task, int node) {
        const auto [found, fresh] = flat_.emplace(node, Count(task.node));
        if (fresh) {
            task.node.push_back(InPlane(part, mesh_.node.at(node)));
            ofFlat_.push_back(node);
        }
        return found->second;
    }
    void addPairs(const Part &part, FlatTask &task, int a, int b) {
        const std::vector<int> nodes = nodesOn(a, b);
        for (int k = 0; k + 2 < Count(nodes); k += 2)
            task.pair.push_back({flatNode(part, task, At(nodes, k)), flatNode(part, task, At(nodes, k + 1)),
                                 flatNode(part, task, At(nodes, k + 2))});
    }
    FlatTask taskOf(const Part &part) {
        FlatTask task;
        flat_.clear();
        ofFlat_.clear();
        task.width = wish_.width;
        const int n = Count(part.loop);
        double longest = 0.0;
        for (int k = 0; k < n; ++k) {
            const int a = At(part.loop, k), b = At(part.loop, (k + 1) % n);
            addPairs(part, task, a, b);
            const PlanPoint pa = InPlane(part, model_.at(a)), pb = InPlane(part, model_.at(b));
            if (const double length = PlanDistance(pa, pb); length > longest * (1.0 + 1e-9)) {
                longest = length;
                task.along = {(pb.x - pa.x) / length, (pb.y - pa.y) / length};
            }
        }
        task.rimPairs = Count(task.pair);
        for (const auto &[a, b] : part.inner)
            addPairs(part, task, a, b);
        return task;
    }
    void makeFree(const Part &part) {
        const FlatMesh flat = MeshFlat(taskOf(part));
        if (flat.quad.empty())
            FailShape(part, Fault::OutlineTouches, PlaceText(model_.at(part.corner[0])));
        for (int k = Count(ofFlat_); k < Count(flat.node); ++k)
            ofFlat_.push_back(mesh_.add(InSpace(model_, part, At(flat.node, k))));
        for (const auto &q : flat.quad)
            put(part, {At(ofFlat_, q[0]), At(ofFlat_, q[1]), At(ofFlat_, q[2]), At(ofFlat_, q[3])});
    }

    void put(const Part &part, std::array<int, 4> q) {
        std::array<SpacePoint, 4> p{};
        for (int k = 0; k < 4; ++k)
            At(p, k) = mesh_.node.at(At(q, k));
        const SpacePoint normal = Cross(Minus(p[2], p[0]), Minus(p[3], p[1]));
        if (!part.wall && normal.z < 0.0 && std::fabs(normal.z) > Distance2(normal.x, normal.y))
            std::swap(q[1], q[3]);
        if (part.wall) {
            int upper = 0;
            const auto height = [&p](int k) { return At(p, k).z + At(p, (k + 1) % 4).z; };
            for (int k = 1; k < 4; ++k)
                if (height(k) > height(upper) + kOnePlace)
                    upper = k;
            std::rotate(q.begin(), q.begin() + upper, q.end());
        }
        mesh_.addQuad(q, part.owner);
    }

    const Model &model_;
    const Divisions &divisions_;
    const Wish &wish_;
    Mesh &mesh_;
    std::map<LineKey, std::vector<int>> onLine_;
    std::map<int, int> flat_; // of the free part in work: number of a node among the task's nodes
    std::vector<int> ofFlat_; // and back
};

} // namespace

void MeshParts(const Model &model, const Divisions &divisions, const Wish &wish, Mesh &mesh) {
    PartsMesher mesher(model, divisions, wish, mesh);
    for (const Part &part : model.part)
        mesher.make(part);
}

} // namespace havuz::sound
