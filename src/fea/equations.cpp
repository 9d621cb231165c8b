// Equation numbers and the profile (also: skyline, envelope) of a symmetric matrix, after Jennings (1966), "A compact
// storage scheme for the solution of symmetric linear simultaneous equations".
//
// Numbers: freedoms that an active mesh touches and nothing holds count up node by node, ux, uy, uz, rx, ry, rz within
// a node; all others keep 0. So the order of the nodes (mesh/numbering.h) decides the profile.
// Row lengths: two equations e, f of one mesh are coupled, and row e must reach them,
//   length(e) = max over all coupled f of |e - f| + 1.
// The distance to smaller f counts as well, though the row begins at its diagonal: wanted, the size shown follows.
// Closing: elimination of row i-1 fills row i as far as row i-1 reaches,
//   length(i) = max(length(i), length(i-1) - 1),
// so that all fill-in lands inside and nothing has to be allocated while solving.
// Addresses: row i begins with its diagonal at ProfileDiag(i) = 1 + the sum of the lengths before it, and cell (i, j),
// j >= i, lies at ProfileDiag(i) + j - i. The last row keeps one cell.
// Example: four equations, coupled 1-2, 1-3 and 3-4; f is fill-in, o a cell that is only reserved.
//   x x x .      row 1 reaches 3                       length 3   address 1
//     x f .      row 1 closes it to its own end        length 2   address 4
//       x x o    3-1 counts as far as 1-3              length 3   address 6
//         x      3-4 counts too; only its first cell   length 2   address 9, ProfileSize 10
// Right-hand sides: equation e, column c at YukSayisi*(e-1) + c; column 1 has the surface and point loads, the columns
// behind it the fillings and load situations that are asked for.
#include "fea/equations.h"

#include "fea/system.h"
#include "model/load_codes.h"
#include "model/mesh_facts.h"
#include "model/store.h"
#include "model/supports.h"

#include <algorithm>
#include <cstdlib>

namespace havuz {

// Support bits to free slots, 1 where free; the rotation about Z goes with the other two.
//   Mesnet            0     1     2     3     4     5     6     7
//   ux uy uz          1     1     1     1     0     0     0     0
//   rx ry rz        111   010   100   000   111   010   100   000
std::array<int, 7> FreeSlots(int mesnet) {
    const int translation = HoldsTranslation(mesnet) ? 0 : 1;
    const int rx = HoldsRotationX(mesnet) ? 0 : 1;
    const int ry = HoldsRotationY(mesnet) ? 0 : 1;
    return {0, translation, translation, translation, rx, ry, rx == 1 && ry == 1 ? 1 : 0};
}

void NodeEquationFlags(const MeshNodes &m) {
    for (std::size_t k = 1; k <= 4; ++k) {
        NoktaRecord &node = NoktaTable[m.n[k]];
        const std::array<int, 7> free = FreeSlots(node.Mesnet);
        for (int d = 1; d <= kNodeFreedoms; ++d)
            node.Denklem[d] = free[static_cast<std::size_t>(d)];
    }
}

// Slots hold 1 where free; they become 1, 2, 3, ... in the order of nodes and slots.
void NumberEquations() {
    EquationCount = 0;
    for (int i = 1; i <= NoktaCount; ++i)
        for (int d = 1; d <= kNodeFreedoms; ++d)
            if (Int16 &slot = NoktaTable[i].Denklem[d]; slot > 0)
                slot = ++EquationCount;
}

std::array<int, 25> MeshEquations(const MeshNodes &m) {
    std::array<int, 25> equations{};
    std::size_t place = 0;
    for (std::size_t k = 1; k <= 4; ++k)
        for (int d = 1; d <= kNodeFreedoms; ++d)
            equations[++place] = NoktaTable[m.n[k]].Denklem[d];
    return equations;
}

namespace {

// The picture of the profile: origin (20, 20), at most 300 pixels.
class ProfilePicture {
public:
    explicit ProfilePicture(AnalysisWindow &window)
        : window_(window), drawn_(window.DrawsProfile()), scale_(EquationCount > 300 ? 300.0 / EquationCount : 1.0) {
        window_.FillBox(20.0, 20.0, EquationCount * scale_, 9);
        window_.OutlineBox(19.0, 19.0, EquationCount * scale_ + 2.0, 12);
    }
    void point(int e, int f) {
        if (drawn_)
            window_.Point(20.0 + scale_ * e, 20.0 + scale_ * f, 14);
    }

private:
    AnalysisWindow &window_;
    bool drawn_;
    double scale_;
};

// ProfileDiag holds row lengths here.
void ProfileMark(int p, int q, ProfilePicture &picture) {
    for (int i = 1; i <= kNodeFreedoms; ++i) {
        const int e = NoktaTable[p].Denklem[i];
        if (e <= 0)
            continue;
        for (int j = 1; j <= kNodeFreedoms; ++j) {
            const int f = NoktaTable[q].Denklem[j];
            if (f <= 0)
                continue;
            picture.point(e, f);
            ProfileDiag[e] = std::max(ProfileDiag[e], std::abs(e - f) + 1);
        }
    }
}

// Every pair of nodes of a mesh, a node with itself among them, in both orders.
void MarkRowLengths(ProfilePicture &picture) {
    std::fill_n(ProfileDiag + 1, EquationCount, 0);
    for (int i = 1; i <= MeshCount; ++i) {
        if (IsSwitchedOff(MeshTable[i]))
            continue;
        const MeshNodes m = MeshNodeData(i);
        for (std::size_t p = 1; p <= 4; ++p)
            for (std::size_t q = 1; q <= 4; ++q)
                ProfileMark(m.n[p], m.n[q], picture);
    }
}

// Fill-in of the elimination always lands inside: a row reaches as far as the row before it.
void CloseEnvelope() {
    for (int i = 2; i <= EquationCount; ++i)
        ProfileDiag[i] = std::max(ProfileDiag[i], ProfileDiag[i - 1] - 1);
}

// Row N keeps one cell whatever its length: it is its diagonal alone.
void LengthsToAddresses() {
    int first = 1;
    for (int i = 1; i <= EquationCount; ++i) {
        const int length = ProfileDiag[i];
        ProfileDiag[i] = first;
        first += length;
    }
    ProfileDiag[EquationCount + 1] = EquationCount > 0 ? ProfileDiag[EquationCount] + 1 : 1;
    ProfileSize = ProfileDiag[EquationCount + 1];
}

} // namespace

void ProfileBuild(AnalysisWindow &window) {
    ProfilePicture picture(window);
    ProfileDiag[0] = 0;
    MarkRowLengths(picture);
    CloseEnvelope();
    LengthsToAddresses();
}

std::vector<int> ColumnCodes() {
    std::vector<int> codes = {0}; // column 1: surface and point loads
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        if (YukKombinasyon[i] > 0)
            codes.push_back(FillingCode(i));
    for (int i = 0; i <= kYukDurumLast; ++i)
        if (YukDurum[i] > 0)
            codes.push_back(SituationCode(i));
    return codes;
}

void LoadColumnSetup(AnalysisWindow &window) {
    const std::vector<int> codes = ColumnCodes();
    YukListesi = {};
    YukSayisi = static_cast<int>(codes.size());
    for (int c = 2; c <= YukSayisi; ++c)
        YukListesi[c] = codes[static_cast<std::size_t>(c - 1)];
    RhsSize = YukSayisi * EquationCount;
    window.TextLine(50, "Denklem       : " + std::to_string(EquationCount));
    window.TextLine(70, "S()  size     : " + std::to_string(ProfileSize));
    window.TextLine(90, "Nokta sayisi  : " + std::to_string(NoktaCount));
}

} // namespace havuz
