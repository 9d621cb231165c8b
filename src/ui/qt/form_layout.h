// Where the elements of a form stand: the main window, the tables, the popup, and every other form by the rows and
// columns that its fields hint at.
#pragma once

#include "ui/qt/element_widgets.h"
#include "ui/qt/surface_view.h"

#include <QWidget>
#include <vector>

namespace havuz {

struct PlacedField {
    Field field;
    Element element;
    ElementWidget made;
};

// Gives the form its layout. view: the form's drawing surface, none where it has none.
void LayOutForm(FormKind kind, QWidget &window, const std::vector<PlacedField> &fields, SurfaceView *view);

// The main window: top bar, two rows of tools, the surface, the prompt line with the progress bar. progress: the
// surface of the bar. recent: the button of the recent projects.
void LayOutMain(QWidget &window, const std::vector<PlacedField> &fields, SurfaceView &view, QWidget &progress,
                QWidget &recent);

} // namespace havuz
