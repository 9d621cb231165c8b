// What the three tables share: ten rows of a model table on screen, paging, the focus, the row marker, the row-menu.
// The record of screen row r is TabloUst + r + 1. Places of cells are twips of the form.
#pragma once

#include "model/things.h"
#include "ui/forms/form.h"

#include <span>
#include <string>
#include <vector>

namespace havuz {

constexpr int kTableRows = 10;

// A column of cells: text boxes, or check boxes where there is no picture. Check columns stand last.
struct TableColumn {
    const char *name;    // of its cells; their index is the screen row
    const char *heading; // "" where the one before it stands over this column too
    const char *picture;
};

struct TableKind {
    const char *form;
    Thing table;
    const char *numberHeading; // of the record numbers
    std::span<const TableColumn> columns;
    const char *tag; // of the row-menu
    int capacity;    // records; the last first row is ten less
    int keyLimit;    // the down key pages while TabloUst + 9 is under it
};

class PagedTable : public Form {
public:
    PagedTable(Workbench &owner, const TableKind &kind);
    std::vector<Field> fields() const override;

    // From the first record, with the focus on the first cell.
    void show();
    void FillPage();
    void SavePage();
    void FocusRow(); // first edit column of the focused row

    void OnClick(Element element) override;
    void OnFocus(Element element) override;
    void OnLostFocus(Element element) override;
    bool OnKey(Element element, Key key) override;
    void OnScroll(Element element) override;
    void OnFailed(Element element) override;

    static constexpr double CellTop(int row) { return kFirstTop + row * kRowHeight; }
    static constexpr double CellLeft(int column) { return kFirstLeft + column * kColumnWidth; }

protected:
    static int RecordOf(int row);

    // The field of a text column: read, and stored from what a person typed.
    virtual double value(int record, int column) const = 0;
    virtual void store(int record, int column, double value) = 0;
    // The same when its cell loses the focus.
    virtual void storeCell(int record, int column, double value) { store(record, column, value); }
    // Check boxes of a row, columns in their order.
    virtual std::vector<bool> checks(int /*record*/) const { return {}; }
    virtual void storeChecks(int /*record*/, const std::vector<bool> & /*on*/) {}
    // The whole page was stored; a page is about to be stored and to turn.
    virtual void pageSaved() {}
    virtual void pageTurns() {}
    // The page or the focused row changed.
    virtual void rowShown() {}
    // Whether an element shows a field of the model, and then shows it again.
    virtual bool showAgain(Element element);

    const TableKind &kind_;

private:
    static constexpr double kFirstTop = 600.0, kRowHeight = 330.0, kFirstLeft = 900.0, kColumnWidth = 1200.0;

    int columnCount() const { return static_cast<int>(kind_.columns.size()); }
    int textColumns() const;
    const TableColumn &column(int c) const { return kind_.columns[static_cast<std::size_t>(c)]; }
    int headingSpan(int c) const;
    int columnOf(Element element) const; // -1: no cell
    bool isText(int c) const { return column(c).picture != nullptr; }
    Element cell(int row, int c) const { return at(column(c).name, row); }
    int lastTop() const { return kind_.capacity - kTableRows; }

    void placeCells();
    void showCell(int row, int c);
    void showChecks(int row);
    void pageTo(int top); // save, move, fill
    void goNext(int row, int c);
    void goPrevious(int row, int c);
    void goDown(int row, int c);
    void goUp(int row, int c);
    void openRowMenu();
};

} // namespace havuz
