#include "ui/forms/paged_table.h"

#include "model/code_page.h"
#include "model/number_text.h"
#include "model/place.h"
#include "model/store.h"
#include "ui/forms/dialog_parts.h"
#include "ui/forms/dialogs.h"

#include <algorithm>

namespace havuz {

static constexpr double kMarkerLeft = 300.0, kMarkerDrop = 50.0; // beside the cells, below the top of one

PagedTable::PagedTable(Workbench &owner, const TableKind &kind) : Form(owner, kind.form), kind_(kind) {}

std::vector<Field> PagedTable::fields() const {
    std::vector<Field> fields = {
        {.kind = FieldKind::Label, .name = "Baslik", .label = kind_.numberHeading, .look = FieldLook::Heading}};
    for (int c = 0; c < columnCount(); ++c)
        if (*column(c).heading != '\0')
            fields.push_back({.kind = FieldKind::Label,
                              .name = "Baslik",
                              .index = c + 1,
                              .label = column(c).heading,
                              .column = c + 1,
                              .look = FieldLook::Heading,
                              .span = headingSpan(c)});
    for (int row = 0; row < kTableRows; ++row) {
        fields.push_back(
            {.kind = FieldKind::Label, .name = "Sira", .index = row, .row = row + 1, .look = FieldLook::RowNumber});
        for (int c = 0; c < columnCount(); ++c)
            fields.push_back({.kind = isText(c) ? FieldKind::TextBox : FieldKind::CheckBox,
                              .name = column(c).name,
                              .index = row,
                              .label = column(c).heading,
                              .row = row + 1,
                              .column = c + 1});
    }
    // A label, so that a click on it leaves the focus on the cell.
    fields.push_back(
        {.kind = FieldKind::Label, .name = "Isaret", .shown = false, .look = FieldLook::Marker, .picture = {16, 16}});
    fields.push_back({.kind = FieldKind::ScrollBar, .name = "Kaydir", .row = 1, .column = columnCount() + 1});
    fields.push_back(OkButton(kTableRows + 1));
    return fields;
}

int PagedTable::RecordOf(int row) { return TabloUst + row + 1; }

int PagedTable::textColumns() const {
    return static_cast<int>(std::count_if(kind_.columns.begin(), kind_.columns.end(),
                                          [](const TableColumn &column) { return column.picture != nullptr; }));
}

int PagedTable::headingSpan(int c) const {
    int span = 1;
    while (c + span < columnCount() && *column(c + span).heading == '\0')
        ++span;
    return span;
}

int PagedTable::columnOf(Element element) const {
    for (int c = 0; c < columnCount(); ++c)
        if (element.name == column(c).name)
            return c;
    return -1;
}

// Pages

void PagedTable::placeCells() {
    for (int row = 0; row < kTableRows; ++row)
        for (int c = 0; c < columnCount(); ++c) {
            window.Move(cell(row, c), CellLeft(c), CellTop(row));
        }
}

void PagedTable::show() {
    TabloUst = 0;
    TabloSatir = 0;
    placeCells();
    FillPage();
    open();
    FocusRow();
}

void PagedTable::showCell(int row, int c) {
    window.SetText(cell(row, c), PictureText(value(RecordOf(row), c), column(c).picture));
}

void PagedTable::showChecks(int row) {
    int c = textColumns();
    for (const bool on : checks(RecordOf(row)))
        window.SetChecked(cell(row, c++), on);
}

void PagedTable::FillPage() {
    for (int row = 0; row < kTableRows; ++row) {
        setText("Sira", row, NumberText(static_cast<double>(RecordOf(row))));
        for (int c = 0; c < textColumns(); ++c)
            showCell(row, c);
        showChecks(row);
    }
    window.SetScroll(at("Kaydir"), TabloUst, kind_.capacity);
    rowShown();
}

// Every cell is cut to its picture, also those that nobody touched: wanted.
void PagedTable::SavePage() {
    for (int row = 0; row < kTableRows; ++row) {
        for (int c = 0; c < textColumns(); ++c)
            AtPlace({kind_.table, RecordOf(row)},
                    [&] { store(RecordOf(row), c, ParseNumber(window.Text(cell(row, c)))); });
        std::vector<bool> on;
        for (int c = textColumns(); c < columnCount(); ++c)
            on.push_back(window.Checked(cell(row, c)));
        storeChecks(RecordOf(row), on);
    }
    pageSaved();
}

void PagedTable::pageTo(int top) {
    pageTurns();
    SavePage();
    TabloUst = std::clamp(top, 0, lastTop());
    FillPage();
}

void PagedTable::OnScroll(Element element) {
    if (element.name == "Kaydir")
        pageTo(window.ScrollValue(element));
}

// Focus

void PagedTable::FocusRow() { window.Focus(cell(TabloSatir, 0)); }

void PagedTable::OnFocus(Element element) {
    const int c = columnOf(element);
    if (c < 0)
        return Form::OnFocus(element);
    const bool changed = TabloSatir != element.index;
    TabloSatir = element.index;
    if (isText(c))
        showCell(TabloSatir, c);
    Form::OnFocus(element);
    window.Move(at("Isaret"), kMarkerLeft, CellTop(TabloSatir) + kMarkerDrop);
    window.Show(at("Isaret"), true);
    if (changed)
        rowShown();
}

// A check box is not stored here but at the next save of the page: wanted.
void PagedTable::OnLostFocus(Element element) {
    Form::OnLostFocus(element);
    const int c = columnOf(element);
    if (c < 0)
        return;
    if (isText(c))
        AtPlace({kind_.table, RecordOf(element.index)},
                [&] { storeCell(RecordOf(element.index), c, ParseNumber(window.Text(element))); });
    window.Show(at("Isaret"), false);
}

// Keys

void PagedTable::goDown(int row, int c) {
    if (row < kTableRows - 1)
        return window.Focus(cell(row + 1, c));
    SavePage();
    if (TabloUst + kTableRows - 1 < kind_.keyLimit) {
        ++TabloUst;
        FillPage();
    }
    window.Focus(cell(row, c));
}

void PagedTable::goUp(int row, int c) {
    if (row > 0)
        return window.Focus(cell(row - 1, c));
    SavePage();
    if (TabloUst > 0) {
        --TabloUst;
        FillPage();
    }
}

// The last text column leads to the next row; check boxes lead to each other.
void PagedTable::goNext(int row, int c) {
    if (c + 1 == textColumns() || c + 1 == columnCount()) {
        goDown(row, 0);
        return;
    }
    window.Focus(cell(row, c + 1));
}

void PagedTable::goPrevious(int row, int c) {
    if (c > 0)
        window.Focus(cell(row, c - 1));
}

bool PagedTable::OnKey(Element element, Key key) {
    const int c = columnOf(element);
    if (c < 0)
        return false;
    const int row = element.index;
    const bool text = isText(c);
    const auto atEnd = [&] {
        const auto characters = static_cast<int>(ToCodePage(window.Text(element)).size()); // a byte each
        return window.SelectionStart(element) + window.SelectionLength(element) >= characters;
    };
    switch (key) {
    case Key::Enter:
        goNext(row, c);
        return true;
    case Key::Down:
        goDown(row, c);
        return true;
    case Key::Up:
        goUp(row, c);
        return true;
    case Key::Right:
        if (text && !atEnd())
            return false;
        goNext(row, c);
        return true;
    case Key::Left:
        if (text && window.SelectionStart(element) > 0)
            return false;
        goPrevious(row, c);
        return true;
    case Key::PageDown:
        pageTo(TabloUst + kTableRows);
        return true;
    case Key::PageUp:
        if (TabloUst > 0)
            pageTo(TabloUst - kTableRows);
        return true;
    case Key::Escape:
        break;
    }
    return false;
}

// A cell that holds what cannot be stored shows its old value; another failure fills the page anew.
void PagedTable::OnFailed(Element element) {
    if (element.form != name() || !showAgain(element))
        FillPage();
}

bool PagedTable::showAgain(Element element) {
    const int c = columnOf(element);
    if (c < 0 || !isText(c))
        return false;
    showCell(element.index, c);
    return true;
}

// Row-menu

void PagedTable::OnClick(Element element) {
    if (element.name == "Isaret")
        openRowMenu();
    else
        Form::OnClick(element);
}

void PagedTable::openRowMenu() {
    SeciliNo = RecordOf(TabloSatir);
    SavePage();
    const Place form = window.FormPlace(name());
    ShowRowPopup(bench, kind_.tag, {form.left + kMarkerLeft, form.top + CellTop(TabloSatir) + kMarkerDrop});
}

} // namespace havuz
