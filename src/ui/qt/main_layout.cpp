// The main window's layout. At the design size of 1024 x 768 pixels the surface is left 1010 x 600.
#include "ui/kit/but_frm.h"
#include "ui/kit/vek_top_bar.h"
#include "ui/qt/form_layout.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <array>

namespace havuz {

namespace {

constexpr int kFrames = 7;
constexpr int kSide = 7; // pixels left and right of the surface

struct Parts {
    std::array<ButFrm *, kFrames> frames{};
    QWidget *topBar = nullptr, *overview = nullptr, *prompt = nullptr;
    std::vector<QWidget *> corner; // of the top bar
    std::vector<QWidget *> entry;  // beside the prompt
};

Parts Sort(const std::vector<PlacedField> &fields) {
    Parts parts;
    for (const PlacedField &placed : fields) {
        if (placed.field.kind == FieldKind::Frame)
            parts.frames[static_cast<std::size_t>(placed.field.index)] = static_cast<ButFrm *>(placed.made.widget);
        else if (placed.field.look == FieldLook::TopBar)
            parts.topBar = placed.made.widget;
        else if (placed.field.look == FieldLook::Overview)
            parts.overview = placed.made.widget;
        else if (placed.field.look == FieldLook::Prompt)
            parts.prompt = placed.made.widget;
        else if (placed.field.look == FieldLook::Entry)
            parts.entry = {placed.made.beside, placed.made.widget};
        else if (placed.field.look == FieldLook::Corner || placed.field.look == FieldLook::Remembered)
            parts.corner.push_back(placed.made.widget);
    }
    return parts;
}

QHBoxLayout *RowOf(std::initializer_list<QWidget *> widgets) {
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    for (QWidget *widget : widgets)
        row->addWidget(widget);
    row->addStretch(1);
    return row;
}

void LayTopBar(const Parts &parts, QWidget &recent) {
    auto *bar = static_cast<VekTopBar *>(parts.topBar);
    bar->add(&recent);
    for (auto button = parts.corner.rbegin(); button != parts.corner.rend(); ++button) // the end stands last
        bar->add(*button);
}

QHBoxLayout *PromptRow(const Parts &parts, QWidget &progress) {
    auto *row = new QHBoxLayout;
    parts.prompt->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    parts.prompt->setFixedHeight(20);
    row->addWidget(parts.prompt, 1);
    for (QWidget *widget : parts.entry) {
        widget->setFixedHeight(20); // the surface keeps its size
        row->addWidget(widget);
    }
    row->addWidget(&progress);
    return row;
}

} // namespace

void LayOutMain(QWidget &window, const std::vector<PlacedField> &fields, SurfaceView &view, QWidget &progress,
                QWidget &recent) {
    const Parts parts = Sort(fields);
    for (const PlacedField &placed : fields)
        if (placed.field.look == FieldLook::Tool)
            parts.frames[static_cast<std::size_t>(placed.field.group)]->add(placed.made.widget);
        else if (placed.field.look == FieldLook::Floating)
            placed.made.widget->setParent(&view);
    LayTopBar(parts, recent);
    auto *column = new QVBoxLayout(&window);
    column->setContentsMargins(kSide, 2, kSide, 2);
    column->setSpacing(3);
    column->addWidget(parts.topBar);
    column->addLayout(RowOf({parts.frames[4], parts.frames[5], parts.frames[6]}));
    column->addLayout(RowOf({parts.frames[0], parts.overview, parts.frames[1], parts.frames[2], parts.frames[3]}));
    column->addWidget(&view, 1);
    column->addLayout(PromptRow(parts, progress));
}

} // namespace havuz
