// Final node numbers: every master node is a row with the list of its neighbours, rows in raw order; the order of the
// skyline becomes the numbers, corners take the number of their master, and the raw nodes of one master become one
// node.
//
// Why: the elimination's work goes with the sum of the squared row lengths of the profile, a row reaching from a node
// to its farthest neighbour; neighbours with close numbers make short rows. Steps:
//   1. neighbours: of each mesh (a, b, c, d) of masters row a takes b, d; b takes a, c; c takes b twice; d takes a, c;
//   2. each list is sorted, equal ones dropped;
//   3. SkylineOrder (skyline.h) moves rows so that each stands near the rows it names;
//   4. rows that no mesh uses go behind the used ones;
//   5. number of a master = its row; mesh corners become YeniNo of AnaNo of the raw corner;
//   6. of the raw nodes of one master the last gives the record, and the supports of all are joined by "or".
// The method is the program's own, of the family of profile reduction by local exchange (compare Cuthill and McKee
// 1969, Sloan 1986, which order by levels from a start node instead). Numbers, and with them every result file, follow
// from the order of these steps.
// Example: the meshes (1, 2, 3, 4) and (2, 5, 6, 3) of masters, side by side.
//   4 - 3 - 6     lists    1: 2 4    2: 1 3 5    3: 2 6    4: 1 3    5: 2 6    6: 5       row 3 does not name 4
//   |   |   |     sweep    row 1 draws 4 up behind 2: places 1 2 4 3 5 6; the rows behind it move nothing
//   1 - 2 - 5     numbers  1 2 5 in the lower row, 3 4 6 in the upper
// Raw nodes that lie at one place have one AnaNo, the master; YeniNo is the number that the master gets.
#include "mesh/numbering.h"

#include "mesh/skyline.h"
#include "model/mesh_facts.h"
#include "model/store.h"

#include <algorithm>
#include <array>
#include <vector>

namespace havuz {

namespace {

// Rows 1..rows, a master each: the neighbours of each row, and the master that stands in each row.
struct Skyline {
    int rows = 0;
    int used = 0; // masters that active meshes use
    std::vector<NeighbourList> BantTable;
    std::vector<bool> isUsed; // by master number
    std::vector<int> master;  // by row

    NeighbourList &row(int r) { return BantTable[static_cast<std::size_t>(r)]; }
};

int &KomsuOf(NeighbourList &row, int k) { return row.Komsu[static_cast<std::size_t>(k)]; }

// Corners by the masters of their raw nodes: nodes at one place have one master.
std::array<int, 4> MastersOf(const MeshRecord &mesh) {
    std::array<int, 4> masters = MeshCorners(mesh);
    for (int &n : masters)
        n = NoktaTable[n].AnaNo;
    return masters;
}

void AppendPair(Skyline &s, int r, int first, int second) {
    if (r == 0)
        return;
    NeighbourList &row = s.row(r);
    row.count += 2;
    if (row.count > kNeighbours)
        throw RuntimeFailure({.fault = Fault::JoinsTooMany,
                              .where = {{Thing::Node, r}},
                              .thing = Thing::BantTable,
                              .number = r,
                              .first = kNeighbours / 2,
                              .bound = kNeighbours});
    KomsuOf(row, row.count - 1) = first;
    KomsuOf(row, row.count) = second;
}

// Row c takes b twice and never d: wanted, it sets the lists and the numbers that result.
void MakeAdjacency(Skyline &s) {
    const auto rows = static_cast<std::size_t>(kNoktaCapacity) + 2;
    s.BantTable.assign(rows, {});
    s.isUsed.assign(rows, false);
    for (int i = 1; i <= MeshCount; ++i) {
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        const auto [a, b, c, d] = MastersOf(MeshTable[i]);
        for (const int master : {a, b, c, d}) {
            if (master < 0 || master > kNoktaCapacity)
                FailSubscript(Thing::NoktaTable, master, kNoktaCapacity);
            s.isUsed[static_cast<std::size_t>(master)] = true;
            s.rows = std::max(s.rows, master);
        }
        AppendPair(s, a, b, d);
        AppendPair(s, b, a, c);
        AppendPair(s, c, b, b);
        AppendPair(s, d, a, c);
    }
    s.isUsed[0] = false;
    s.used = static_cast<int>(std::count(s.isUsed.begin(), s.isUsed.end(), true));
}

// Exchange sort over the list's first whole length. The later of two equal entries falls out of the count and sorts to
// the end.
void SortList(NeighbourList &row) {
    const int length = row.count;
    int dropped = 0;
    for (int a = 1; a <= length - 1; ++a)
        for (int b = a + 1; b <= length; ++b) {
            int &earlier = KomsuOf(row, a);
            int &later = KomsuOf(row, b);
            if (earlier > later)
                std::swap(earlier, later);
            else if (earlier == later) {
                --row.count;
                later = 10000 + ++dropped;
            }
        }
}

// Rows that no mesh uses go behind the used ones, each group in its order, so that every corner lies in 1..NoktaCount.
void PutUnusedRowsLast(Skyline &s) {
    std::stable_partition(s.master.begin() + 1, s.master.end(),
                          [&s](int master) { return bool(s.isUsed[static_cast<std::size_t>(master)]); });
}

// YeniNo of each master, then the corners of all meshes, also of those that are off.
void GiveNumbers(Skyline &s) {
    std::vector<int> map(s.BantTable.size(), 0);
    for (int r = 1; r <= s.rows; ++r)
        map[static_cast<std::size_t>(s.master[static_cast<std::size_t>(r)])] = r;
    for (int i = 1; i <= MeshCount; ++i)
        if (!IsSwitchedOff(MeshTable[i]))
            for (const int m : MastersOf(MeshTable[i]))
                if (m > 0)
                    NoktaTable[m].YeniNo = map[static_cast<std::size_t>(m)];
    for (int i = 1; i <= MeshCount; ++i) {
        MeshRecord &mesh = MeshTable[i];
        for (Int16 *n : CornerFields(mesh))
            *n = NoktaTable[NoktaTable[*n].AnaNo].YeniNo;
    }
}

// The last raw node of each master decides the record, its flags hold those of all. A raw node whose master got no
// number is left out.
void MergeNodes(const Skyline &s) {
    std::vector<NoktaRecord> staging(static_cast<std::size_t>(kNoktaCapacity) + 1);
    for (int p = 1; p <= HamNoktaCount; ++p) {
        const int master = NoktaTable[p].AnaNo;
        if (!CheckedElement(s.isUsed, Thing::NoktaTable, master))
            continue;
        NoktaRecord &slot = staging[static_cast<std::size_t>(int(NoktaTable[master].YeniNo))];
        NoktaTable[p].Mesnet = NoktaTable[p].Mesnet | slot.Mesnet;
        slot = NoktaTable[p];
    }
    NoktaCount = s.used;
    for (int t = 1; t <= NoktaCount; ++t)
        NoktaTable[t] = staging[static_cast<std::size_t>(t)];
    for (int t = NoktaCount + 1; t <= std::min(2 * HamNoktaCount, kNoktaCapacity); ++t)
        NoktaTable[t] = NoktaTable[0];
}

} // namespace

void NoktaNumarala() {
    Skyline s;
    NoktaCount = 0;
    MakeAdjacency(s);
    for (int r = 1; r <= s.rows; ++r)
        SortList(s.row(r));
    s.master = SkylineOrder(s.BantTable, s.rows);
    PutUnusedRowsLast(s);
    GiveNumbers(s);
    MergeNodes(s);
}

} // namespace havuz
