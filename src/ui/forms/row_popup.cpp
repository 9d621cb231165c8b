// TOOL: inserts, deletes and clears rows of the table that opened it. Every item first counts the records anew. Numbers
// that other records hold are not rewritten.
#include "model/mesh_facts.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"
#include "ui/forms/paged_table.h"

#include <algorithm>

namespace havuz {

namespace {

enum Item { kInsert = 0, kDelete = 1, kAllDelete = 2 };
constexpr const char *kItems[] = {"INSERT", "DELETE", "ALL DELETE"};
constexpr Colour kHot = Rgb(0, 0, 192);

// Copies each record from the one before it, from the new last one down to row: row keeps a copy of the one before.
template <class Record, int Capacity>
void MakeRoom(Table<Record, Capacity> &table, int &count, int row) {
    static_cast<void>(table[count + 1]); // a full table fails before it is counted
    ++count;
    for (int i = count; i >= row; --i)
        table[i] = table[i - 1];
}

template <class Record, int Capacity>
void CloseRow(Table<Record, Capacity> &table, int &count, int row) {
    if (count == 0)
        return;
    for (int i = row; i < Capacity; ++i)
        table[i] = table[i + 1];
    --count;
}

// P, Tip, KenarMesnet and KenarKomsu stay: wanted.
void ClearPanel(PanelRecord &panel) {
    panel.No = panel.Nx = panel.Ny = 0;
    panel.D = panel.G = 0.0;
    for (int corner = 1; corner <= 4; ++corner)
        panel.X[corner] = panel.Y[corner] = panel.Z[corner] = 0.0;
}

// Panels behind a gap leave the count but not the table; a full table counts none: wanted.
void EditPanels(Item item) {
    PanelCount = 0;
    bool gap = false;
    for (int i = 1; i <= kPanelCapacity; ++i) {
        if (PanelTable[i].No != 0 && item != kAllDelete)
            continue;
        ClearPanel(PanelTable[i]);
        if (!gap)
            PanelCount = i - 1;
        gap = true;
    }
    if (item == kInsert)
        MakeRoom(PanelTable, PanelCount, SeciliNo);
    else if (item == kDelete)
        CloseRow(PanelTable, PanelCount, SeciliNo);
}

bool Kept(const MeshRecord &mesh) {
    const auto corners = MeshCorners(mesh);
    return std::all_of(corners.begin(), corners.end(), [](int n) { return n > 0; });
}

// Nodes on an axis or at a negative X or Y fall out, whatever their Z: wanted.
bool Kept(const NoktaRecord &node) { return node.X > 0.0 && node.Y > 0.0; }

// The last record is the blank for the rest of the table, whatever it holds: wanted.
template <class Record, int Capacity>
void EditRows(Table<Record, Capacity> &table, int &count, Item item) {
    count = 0;
    for (int i = 1; i <= Capacity; ++i)
        if (Kept(table[i]))
            table[++count] = table[i];
    if (item == kInsert) {
        MakeRoom(table, count, SeciliNo);
        table[SeciliNo] = table[0];
    } else if (item == kDelete) {
        CloseRow(table, count, SeciliNo);
    } else {
        count = 0;
    }
    for (int i = count + 1; i <= Capacity; ++i)
        table[i] = table[Capacity];
}

class RowPopup : public Form {
public:
    explicit RowPopup(Workbench &owner) : Form(owner, "TOOL") {}
    std::vector<Field> fields() const override {
        std::vector<Field> fields;
        for (int i = 0; i < 3; ++i)
            fields.push_back({.kind = FieldKind::Label,
                              .name = "Satir",
                              .index = i,
                              .label = kItems[i],
                              .row = i,
                              .look = FieldLook::MenuRow});
        return fields;
    }

    void show(const std::string &tag, Place place) {
        tag_ = tag;
        paint(-1);
        open(place);
    }
    void OnHover(Element element) override {
        if (element.name == "Satir")
            paint(element.index);
    }
    void OnClick(Element element) override {
        if (element.name != "Satir")
            return;
        window.HideForm(name());
        act(static_cast<Item>(element.index));
    }
    void OnDeactivate() override { window.HideForm(name()); }
    void OnClose() override { window.HideForm(name()); } // the main window stays with the table

private:
    void paint(int under) {
        for (int i = 0; i < 3; ++i) {
            window.SetColour(at("Satir", i), i == under ? kHot : kButtonColour);
            window.SetTextColour(at("Satir", i), i == under ? QbColour(15) : kHot);
        }
    }

    void act(Item item) {
        const char *table = nullptr;
        if (tag_ == "1") {
            EditPanels(item);
            table = "FEAPLAK";
        } else if (tag_ == "2") {
            EditRows(MeshTable, MeshCount, item);
            table = "MESHBIL";
        } else {
            EditRows(NoktaTable, NoktaCount, item);
            table = "KOORBIL";
        }
        auto &form = DialogOf<PagedTable>(bench, table);
        form.FillPage();
        form.FocusRow();
    }

    std::string tag_ = "1";
};

} // namespace

void AddRowPopup(Workbench &bench, Forms &forms) { forms.push_back(std::make_unique<RowPopup>(bench)); }

void ShowRowPopup(Workbench &bench, const std::string &tag, Place place) {
    DialogOf<RowPopup>(bench, "TOOL").show(tag, place);
}

} // namespace havuz
