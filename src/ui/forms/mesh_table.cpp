// MESHBIL: the meshes. Node numbers are stored as they are typed.
#include "model/mesh_facts.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/forms/paged_table.h"

namespace havuz {

namespace {

constexpr const char *kPicture = "####";
constexpr TableColumn kColumns[] = {{"I", "I", kPicture},
                                    {"J", "J", kPicture},
                                    {"K", "K", kPicture},
                                    {"L", "L", kPicture},
                                    {"Acik", "on/off", nullptr}};
constexpr TableKind kKind{"MESHBIL", Thing::MeshTable, "Mesh no", kColumns, "2", kMeshCapacity, 4990};

class MeshTableForm : public PagedTable {
public:
    explicit MeshTableForm(Workbench &owner) : PagedTable(owner, kKind) {}

private:
    static Int16 &corner(int record, int column) {
        MeshRecord &mesh = MeshTable[record];
        return *CornerFields(mesh)[static_cast<std::size_t>(column)];
    }
    double value(int record, int column) const override { return corner(record, column); }
    void store(int record, int column, double value) override { corner(record, column) = value; }
    std::vector<bool> checks(int record) const override { return {IsFullyOn(MeshTable[record])}; }
    void storeChecks(int record, const std::vector<bool> &on) override { MeshTable[record].Sil = on[0] ? 0 : 1; }
};

} // namespace

void AddMeshTable(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<MeshTableForm>(bench)); }

void ShowMeshTable(Workbench &bench) { DialogOf<MeshTableForm>(bench, kKind.form).show(); }

} // namespace havuz
