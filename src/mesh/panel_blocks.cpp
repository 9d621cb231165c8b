// A block of nodes and meshes for each panel. Lengths in m.
#include "mesh/panel_blocks.h"

#include "model/mesh_facts.h"
#include "model/place.h"
#include "model/points.h"
#include "model/store.h"
#include "model/supports.h"

#include <array>

namespace havuz {

void ClearMeshTables() {
    for (int i = 1; i <= kNoktaCapacity; ++i) {
        NoktaTable[i] = NoktaTable[0];
        NokYukTable[i] = NokYukTable[0];
    }
    for (int i = 1; i <= kMeshCapacity; ++i)
        MeshTable[i] = MeshTable[0];
    HamNoktaCount = 0;
    MeshCount = 0;
}

namespace {

// a + step * (b - a) / count
SpacePoint Between(const SpacePoint &a, const SpacePoint &b, int step, int count) {
    return {a.x + step * (b.x - a.x) / count, a.y + step * (b.y - a.y) / count, a.z + step * (b.z - a.z) / count};
}

// The block of one panel, made row by row from edge 1 to edge 3.
class PanelBlock {
public:
    explicit PanelBlock(int no) : no_(no), panel_(PanelTable[no]), first_(HamNoktaCount + 1) {
        nx_ = panel_.Nx;
        ny_ = panel_.Ny;
        if (nx_ == 0 || ny_ == 0) // though no loop would divide by it
            throw RuntimeFailure({.fault = Fault::DividedBy,
                                  .where = {{Thing::PanelTable, no}},
                                  .thing = nx_ == 0 ? Thing::PanelNx : Thing::PanelNy});
        for (int e = 1; e <= 4; ++e)
            held_[static_cast<std::size_t>(e)] = panel_.KenarMesnet[e] != 0 ? kTranslationHeld : 0;
    }

    void make() {
        makeTopRow();
        for (int r = 1; r <= ny_ - 1; ++r)
            makeInnerRow(r);
        makeBottomRow();
        makeMeshes();
    }

private:
    int held(int edge) const { return held_[static_cast<std::size_t>(edge)]; }

    int put(const SpacePoint &at, NodeKind tur, int mesnet) {
        const int no = ++HamNoktaCount;
        NoktaRecord &node = NoktaTable[no];
        node.X = at.x;
        node.Y = at.y;
        node.Z = at.z;
        node.Mesnet = node.Mesnet | mesnet;
        node.PanelNo = no_;
        node.Tur = tur;
        node.AnaNo = no;
        return no;
    }
    static void putEnds(int no, int a, int b) {
        NoktaTable[no].UcA = a;
        NoktaTable[no].UcB = b;
    }
    void putCorner(int k, NodeKind tur, int mesnet) {
        const int no = put(PanelCorner(panel_, k), tur, mesnet);
        putEnds(no, no, no);
    }

    void makeTopRow() {
        putCorner(1, kCorner1, held(1) | held(4));
        for (int c = 1; c <= nx_ - 1; ++c)
            putEnds(put(Between(PanelCorner(panel_, 1), PanelCorner(panel_, 2), c, nx_), kEdge, held(1)), first_,
                    first_ + nx_);
        putCorner(2, kCorner2, held(1) | held(2));
    }

    void makeInnerRow(int r) {
        const SpacePoint left = Between(PanelCorner(panel_, 1), PanelCorner(panel_, 4), r, ny_);
        const SpacePoint right = Between(PanelCorner(panel_, 2), PanelCorner(panel_, 3), r, ny_);
        const int leftNo = put(left, kEdge, held(4));
        putEnds(leftNo, first_, first_ + (nx_ + 1) * ny_);
        for (int c = 1; c <= nx_ - 1; ++c) // the second end by ny: nothing reads these links
            putEnds(put(Between(left, right, c, nx_), kInterior, 0), leftNo, leftNo + ny_);
        putEnds(put(right, kEdge, held(2)), first_ + nx_, first_ + (ny_ + 1) * (nx_ + 1) - 1);
    }

    void makeBottomRow() {
        const int leftNo = HamNoktaCount + 1;
        putCorner(4, kCorner4, held(3) | held(4));
        for (int c = 1; c <= nx_ - 1; ++c)
            putEnds(put(Between(PanelCorner(panel_, 4), PanelCorner(panel_, 3), c, nx_), kEdge, held(3)), leftNo,
                    leftNo + nx_);
        putCorner(3, kCorner3, held(3) | held(2));
    }

    void makeMeshes() const {
        for (int r = 1; r <= ny_; ++r)
            for (int c = 1; c <= nx_; ++c) {
                const int t = first_ + (r - 1) * (nx_ + 1) + c - 1;
                MeshRecord &mesh = MeshTable[++MeshCount];
                PutCorners(mesh, t, t + 1, t + nx_ + 2, t + nx_ + 1);
                mesh.PanelNo = no_;
            }
    }

    int no_;
    const PanelRecord &panel_;
    int first_;
    int nx_ = 0, ny_ = 0;
    std::array<int, 5> held_{};
};

} // namespace

void MakePanelBlocks() {
    for (int i = 1; i <= PanelCount; ++i)
        AtPlace({Thing::PanelTable, i}, [i] { PanelBlock(i).make(); });
}

} // namespace havuz
