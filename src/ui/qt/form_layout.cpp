#include "ui/qt/form_layout.h"

#include "ui/kit/button.h"
#include "ui/qt/text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <algorithm>
#include <map>

namespace havuz {

namespace {

constexpr int kBoxWidth = 110, kCellWidth = 84, kTitleWidth = 260; // pixels
constexpr int kMarkerWidth = 20;

bool IsClosingButton(const PlacedField &placed) {
    return placed.field.kind == FieldKind::Button && placed.made.widget != nullptr;
}

// The buttons that a form ends with, at the right of its last row.
void AddClosingButtons(QVBoxLayout &column, const std::vector<PlacedField> &fields) {
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    for (const PlacedField &placed : fields)
        if (IsClosingButton(placed)) {
            placed.made.widget->setMinimumWidth(90);
            row->addWidget(placed.made.widget);
        }
    if (row->count() > 1)
        column.addLayout(row);
    else
        delete row;
}

// A box or a list stands behind what is written beside it; everything else takes the place of both.
void AddToGrid(QGridLayout &grid, const PlacedField &placed) {
    const int row = placed.field.row, column = 2 * placed.field.column;
    if (placed.made.beside != nullptr && placed.field.kind == FieldKind::List &&
        placed.made.widget->minimumHeight() > 0) {
        grid.addWidget(placed.made.beside, 2 * row, column, 1, 2);
        grid.addWidget(placed.made.widget, 2 * row + 1, column, 1, 2);
    } else if (placed.made.beside != nullptr) {
        grid.addWidget(placed.made.beside, 2 * row, column);
        grid.addWidget(placed.made.widget, 2 * row, column + 1);
    } else if (placed.field.kind == FieldKind::Frame) {
        grid.addWidget(placed.made.widget, 2 * row, 0, 1, -1);
    } else {
        grid.addWidget(placed.made.widget, 2 * row, column, 1, 2, Qt::AlignLeft | Qt::AlignVCenter);
    }
}

// Elements of one name and row stand in a line of their own, so that they do not widen the columns of the rest. What
// stands in their row behind them joins the line.
bool StandsInALine(const PlacedField &placed, const std::vector<PlacedField> &fields) {
    return placed.made.beside == nullptr && std::any_of(fields.begin(), fields.end(), [&](const PlacedField &other) {
               return other.field.name == placed.field.name && other.field.row == placed.field.row &&
                      other.field.index != placed.field.index;
           });
}

// What stands on one page of several keeps its room on the others, so that the rest stands still.
void KeepItsRoom(const PlacedField &placed) {
    if (placed.field.group == 0)
        return;
    for (QWidget *widget : {placed.made.widget, static_cast<QWidget *>(placed.made.beside)})
        if (widget != nullptr) {
            QSizePolicy policy = widget->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            widget->setSizePolicy(policy);
        }
}

void LayOutDialog(FormKind kind, QWidget &window, const std::vector<PlacedField> &fields) {
    auto *column = new QVBoxLayout(&window);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    column->addLayout(grid);
    std::map<int, QHBoxLayout *> lines; // by their rows
    for (const PlacedField &placed : fields) {
        if (placed.made.widget == nullptr || IsClosingButton(placed))
            continue;
        KeepItsRoom(placed);
        if (placed.field.kind == FieldKind::TextBox)
            placed.made.widget->setFixedWidth(placed.field.look == FieldLook::Name ? kTitleWidth : kBoxWidth);
        const bool joins = placed.made.beside == nullptr && lines.contains(placed.field.row);
        if (!joins && !StandsInALine(placed, fields)) {
            AddToGrid(*grid, placed);
            continue;
        }
        QHBoxLayout *&line = lines[placed.field.row];
        if (line == nullptr) {
            line = new QHBoxLayout;
            line->setSpacing(4);
            grid->addLayout(line, 2 * placed.field.row, 0, 1, -1, Qt::AlignLeft);
        }
        line->addWidget(placed.made.widget);
    }
    grid->setColumnStretch(grid->columnCount(), 1); // what is wide stands across, nothing is drawn apart
    AddClosingButtons(*column, fields);
    if (kind != FormKind::Palette)
        column->addStrut(kTitleWidth); // for the words of the title
    column->setSizeConstraint(QLayout::SetFixedSize);
}

// Tables: the ten rows with the scroll bar at their side, and below them what else the form has.
int TableRows(const std::vector<PlacedField> &fields) {
    int last = 0;
    for (const PlacedField &placed : fields)
        if (placed.field.look == FieldLook::RowNumber)
            last = std::max(last, placed.field.row);
    return last;
}

// A heading over several columns: its last words stand each over one of them.
void AddHeading(QGridLayout &grid, const PlacedField &placed, int column) {
    QWidget *widget = placed.made.widget;
    const int span = placed.field.span;
    QStringList words = ToQt(placed.field.label).split(QRegularExpression(QStringLiteral("\\s{3,}")));
    if (span == 1 || words.size() < span) {
        grid.addWidget(widget, 0, column, 1, span, Qt::AlignCenter);
        return;
    }
    widget->hide();
    while (words.size() > span)
        words[0] += QLatin1String("   ") + words.takeAt(1);
    for (int k = 0; k < span; ++k)
        grid.addWidget(new QLabel(words[k], widget->parentWidget()), 0, column + k, Qt::AlignCenter);
}

void AddToTable(QGridLayout &grid, const PlacedField &placed, int rows) {
    QWidget *widget = placed.made.widget;
    const int row = placed.field.row, column = placed.field.column + 1;
    if (placed.field.look == FieldLook::Marker) { // moved beside the row with the focus
        grid.setColumnMinimumWidth(0, kMarkerWidth);
        widget->setCursor(Qt::PointingHandCursor);
    } else if (placed.field.kind == FieldKind::ScrollBar) {
        grid.addWidget(widget, 1, column, rows, 1);
    } else if (placed.field.look == FieldLook::Heading) {
        AddHeading(grid, placed, column);
    } else {
        if (placed.made.beside != nullptr)
            placed.made.beside->setFixedSize(0, 0); // the heading says it
        if (placed.field.kind == FieldKind::CheckBox)
            static_cast<Button *>(widget)->put(bag::kBare, true);
        const bool text = placed.field.kind == FieldKind::TextBox;
        if (text)
            widget->setFixedWidth(kCellWidth);
        grid.addWidget(widget, row, column, text ? Qt::Alignment() : Qt::AlignCenter);
    }
}

void LayOutTable(QWidget &window, const std::vector<PlacedField> &fields) {
    const int rows = TableRows(fields);
    auto *column = new QVBoxLayout(&window);
    auto *grid = new QGridLayout, *below = new QGridLayout;
    grid->setSpacing(3);
    below->setHorizontalSpacing(8);
    column->addLayout(grid);
    column->addLayout(below);
    for (const PlacedField &placed : fields) {
        if (IsClosingButton(placed))
            continue;
        if (placed.field.row <= rows) {
            AddToTable(*grid, placed, rows);
            continue;
        }
        if (placed.field.kind == FieldKind::TextBox)
            placed.made.widget->setFixedWidth(kCellWidth);
        AddToGrid(*below, placed);
    }
    AddClosingButtons(*column, fields);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

// The popup: one label under the other, as wide as the widest.
void LayOutPopup(QWidget &window, const std::vector<PlacedField> &fields) {
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    for (const PlacedField &placed : fields) {
        placed.made.widget->setContentsMargins(10, 4, 10, 4);
        column->addWidget(placed.made.widget);
    }
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void LayOutPicture(QWidget &window, SurfaceView &view) {
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    view.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    column->addWidget(&view);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace

void LayOutForm(FormKind kind, QWidget &window, const std::vector<PlacedField> &fields, SurfaceView *view) {
    if (view != nullptr)
        LayOutPicture(window, *view);
    else if (kind == FormKind::Popup)
        LayOutPopup(window, fields);
    else if (kind == FormKind::Table)
        LayOutTable(window, fields);
    else
        LayOutDialog(kind, window, fields);
}

} // namespace havuz
