// KOORBIL: the nodes. m.
#include "model/store.h"
#include "model/supports.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/forms/paged_table.h"

#include <cmath>
#include <utility>

namespace havuz {

namespace {

constexpr const char *kPicture = "###0.###";
constexpr TableColumn kColumns[] = {{"X", "X    (m)", kPicture}, {"Y", "Y    (m)", kPicture},
                                    {"Z", "Z    (m)", kPicture}, {"Rx", "x   y    z", nullptr},
                                    {"Ry", "", nullptr},         {"Dz", "", nullptr}};
constexpr TableKind kKind{"KOORBIL", Thing::NoktaTable, "SIRA no", kColumns, "3", kNoktaCapacity, 4990};
constexpr double kMoved = 0.001; // m: what is worth a new drawing

class NodeTable : public PagedTable {
public:
    explicit NodeTable(Workbench &owner) : PagedTable(owner, kKind) {}

    void OnClose() override {
        rebuildCount();
        close();
    }

private:
    static Float32 &coordinate(int record, int column) {
        NoktaRecord &node = NoktaTable[record];
        return column == 0 ? node.X : column == 1 ? node.Y : node.Z;
    }
    double value(int record, int column) const override { return coordinate(record, column); }
    void store(int record, int column, double value) override {
        Float32 &kept = coordinate(record, column);
        moved_ = moved_ || std::fabs(value - kept) > kMoved;
        kept = value;
    }
    void storeCell(int record, int column, double value) override {
        store(record, column, value);
        pageSaved();
    }
    void pageSaved() override {
        if (std::exchange(moved_, false))
            bench.DrawMeshView();
    }
    std::vector<bool> checks(int record) const override {
        const int held = NoktaTable[record].Mesnet;
        return {HoldsRotationX(held), HoldsRotationY(held), HoldsTranslation(held)};
    }
    void storeChecks(int record, const std::vector<bool> &on) override {
        NoktaTable[record].Mesnet =
            (on[0] ? kRotationXHeld : 0) + (on[1] ? kRotationYHeld : 0) + (on[2] ? kTranslationHeld : 0);
    }
    static void rebuildCount();

    bool moved_ = false; // since the last drawing
};

// The first row of zeros ends the model; record 1 is never looked at, and a full table counts none: wanted.
void NodeTable::rebuildCount() {
    NoktaCount = 0;
    for (int i = 2; i <= kNoktaCapacity; ++i) {
        NoktaRecord &node = NoktaTable[i];
        if (node.X != 0.0 || node.Y != 0.0 || node.Z != 0.0)
            continue;
        node = NoktaTable[0];
        if (NoktaCount == 0)
            NoktaCount = i - 1;
    }
}

} // namespace

void AddNodeTable(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<NodeTable>(bench)); }

void ShowNodeTable(Workbench &bench) { DialogOf<NodeTable>(bench, kKind.form).show(); }

} // namespace havuz
