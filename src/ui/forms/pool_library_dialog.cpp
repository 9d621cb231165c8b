// POOLlib: the parameters of the pool library on three pages and a common frame; confirming generates the pool of the
// page on top. m, cm.
#include "model/number_text.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"

#include <algorithm>

namespace havuz {

namespace {

constexpr int kPages = 3;
constexpr int kCommonLast = 6;
constexpr int kCommonLastByKey = 5; // row 6 is reached by the mouse only: wanted

struct PageBox {
    const char *name; // with the page as its index
    int page;
    const char *label;
    double *parameter;
};
// clang-format off
constexpr PageBox kPageBoxes[] = {
    {"BolumX", 0, "x yönü bölüm adedi",            &BolumX},
    {"BolumY", 0, "y yönü bölüm adedi",            &BolumY},
    {"Lx",     0, " Lx   bölüm boyu          (m)", &Lx},
    {"Ly",     0, " Ly   bölüm boyu          (m)", &Ly},
    {"Lx",     1, " Lx   bölüm boyu          (m)", &Lx},
    {"Ly",     1, " Ly   bölüm boyu          (m)", &Ly},
    {"Lx",     2, " R     havuz  çapı         (m)", &Lx}, // the diameter, whatever the letter says
};

struct CommonBox {
    const char *label;
    double *parameter;
    const char *picture;
};
constexpr CommonBox kCommon[kCommonLast + 1] = {
    {" dp  kenar kalınlık      (cm)",    &KenarKalinlik, "####0.#"},
    {" ds  alt kalınlık            (cm)", &AltKalinlik,  "####0.#"},
    {" Üst kot                       (m)", &UstKot,      "####0.###"},
    {" Alt kot                        (m)", &AltKot,     "####0.###"},
    {" Sıvı kotu                    (m)", &SiviKotu,     "####0.###"},
    {"Toprak kotu               (m)",    &ToprakKotu,    "####0.###"},
    {"Bk                              (m)", &Bk,         "####0.###"},
};
// clang-format on
constexpr const char *kTabs[kPages] = {"Havuz sihirbazı", " dikdörtgen havuz", "dairesel havuz"};

class PoolLibraryDialog : public Form {
public:
    explicit PoolLibraryDialog(Workbench &owner) : Form(owner, "POOLlib") {}

    std::vector<Field> fields() const override;

    void show() {
        for (const PageBox &box : kPageBoxes)
            setText(box.name, box.page, PictureText(*box.parameter, "#####"));
        for (int row = 0; row <= kCommonLast; ++row)
            setText("Ortak", row, PictureText(*kCommon[row].parameter, kCommon[row].picture));
        setChecked("HucreTip", HucreTip == 0.0 ? 0 : 1, true);
        for (int i = 0; i <= kYukKombinasyonLast; ++i)
            setChecked("YukKombinasyon", i, YukKombinasyon[i] != 0.0);
        open();
        turnTo(HavuzTip == 2.0 ? 2 : 1);
    }

    // Numbers of the pages below the one on top stay unread, but for the cells.
    void read() {
        for (const PageBox &box : kPageBoxes)
            if (box.page == page() || box.parameter == &BolumX || box.parameter == &BolumY)
                *box.parameter = number(box.name, box.page);
        for (int row = 0; row <= kCommonLast; ++row)
            *kCommon[row].parameter = number("Ortak", row);
        for (int i = 0; i <= kYukKombinasyonLast; ++i)
            YukKombinasyon[i] = checked("YukKombinasyon", i) ? 1.0 : 0.0;
    }

    void OnClick(Element element) override {
        if (element.name == "Sayfa")
            turnTo(element.index);
        else if (element.name == "HucreTip")
            HucreTip = element.index;
        else if (element.name == "YukKombinasyon")
            window.Focus(boxElement(kPageBoxes[0]));
        else
            Form::OnClick(element);
    }
    bool OnKey(Element element, Key key) override {
        if (!isBox(element))
            return false;
        if (key == Key::Enter || key == Key::Down)
            goForward(element);
        else if (key == Key::Up)
            goBack(element);
        return key == Key::Enter;
    }

    // Every way out keeps the edited parameters.
    void OnClose() override {
        read();
        close();
    }

private:
    int page() const {
        for (int i = 0; i < kPages; ++i)
            if (checked("Sayfa", i))
                return i;
        return 0;
    }
    Element boxElement(const PageBox &box) const { return at(box.name, box.page); }

    bool isBox(Element element) const {
        return element.name == "Ortak" || std::any_of(std::begin(kPageBoxes), std::end(kPageBoxes),
                                                      [&](const PageBox &box) { return boxElement(box) == element; });
    }

    // The boxes of a page in their order.
    std::vector<Element> boxes(int ofPage) const {
        std::vector<Element> found;
        for (const PageBox &box : kPageBoxes)
            if (box.page == ofPage)
                found.push_back(boxElement(box));
        return found;
    }

    void turnTo(int top) {
        setChecked("Sayfa", top, true);
        for (const Field &field : fields())
            if (field.group > 0)
                window.Show(at(field.name, field.index), field.group == top + 1);
        window.Focus(boxes(top).front());
    }

    void goForward(Element element) {
        if (element.name == "Ortak") {
            if (element.index < kCommonLastByKey)
                window.Focus(at("Ortak", element.index + 1));
            return;
        }
        const std::vector<Element> order = boxes(page());
        const auto own = std::find(order.begin(), order.end(), element);
        window.Focus(own + 1 == order.end() ? at("Ortak", 0) : own[1]);
    }

    void goBack(Element element) {
        const std::vector<Element> order = boxes(page());
        if (element.name == "Ortak")
            return window.Focus(element.index > 0 ? at("Ortak", element.index - 1) : order.back());
        const auto own = std::find(order.begin(), order.end(), element);
        if (own != order.begin())
            window.Focus(own[-1]);
    }

    void confirm() override {
        ClearModel();
        if (IsoView == 0) {
            bench.TakeRotated();
            bench.RedrawView();
        }
        GeneratePool(page(), bench.pool);
        OnClose();
    }
};

// group: the page of an element, counted from 1; 0 stands on none. Options of the cells exclude each other in theirs.
std::vector<Field> PoolLibraryDialog::fields() const {
    std::vector<Field> fields;
    for (int i = 0; i < kPages; ++i)
        fields.push_back({.kind = FieldKind::Option,
                          .name = "Sayfa",
                          .index = i,
                          .label = kTabs[i],
                          .row = 0,
                          .column = i,
                          .checked = i == 0,
                          .look = FieldLook::Tab,
                          .picture = {84, 63}});
    int row = 1;
    for (const PageBox &box : kPageBoxes)
        fields.push_back({.kind = FieldKind::TextBox,
                          .name = box.name,
                          .index = box.page,
                          .label = box.label,
                          .row = row++,
                          .group = box.page + 1});
    for (const int i : {0, 1})
        fields.push_back({.kind = FieldKind::Option,
                          .name = "HucreTip",
                          .index = i,
                          .label = i == 0 ? "dikdörtgen hücre" : "dairesel hücre",
                          .row = row,
                          .column = i,
                          .group = 1,
                          .picture = {56, 42}});
    fields.push_back(
        {.kind = FieldKind::Frame, .name = "Frame", .label = "YUK KOMBİNASYONU", .row = ++row, .group = 1});
    ++row;
    for (int i = 0; i <= kYukKombinasyonLast; ++i)
        fields.push_back({.kind = FieldKind::CheckBox,
                          .name = "YukKombinasyon",
                          .index = i,
                          .label = std::to_string(i + 1),
                          .row = row,
                          .column = i,
                          .group = 1});
    fields.push_back(
        {.kind = FieldKind::Label, .name = "Not", .label = "BU BOLUM AKTIF DEGIL", .row = ++row, .group = 1});
    ++row;
    for (int i = 0; i <= kCommonLast; ++i)
        fields.push_back(
            {.kind = FieldKind::TextBox, .name = "Ortak", .index = i, .label = kCommon[i].label, .row = row + i});
    fields.push_back(OkButton(row + kCommonLast + 1));
    fields.push_back(CancelButton(row + kCommonLast + 1));
    return fields;
}

} // namespace

void AddPoolLibraryDialog(Workbench &bench, Forms &forms) {
    forms.push_back(std::make_unique<PoolLibraryDialog>(bench));
}

void ShowPoolLibrary(Workbench &bench) { DialogOf<PoolLibraryDialog>(bench, "POOLlib").show(); }

void ReadPoolLibraryForm(Workbench &bench) { DialogOf<PoolLibraryDialog>(bench, "POOLlib").read(); }

} // namespace havuz
