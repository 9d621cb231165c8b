// The forms of the program, a row each: caption, the tool that shows it, where it opens and what it takes of the main
// window meanwhile. Twips.
#pragma once

#include "ui/window/window.h"

namespace havuz {

struct FormRow {
    std::string_view name;
    const char *caption; // "" where the opening says it
    const char *command; // its name in the prompt line and in the steps; "" for that of its tool
    FormKind kind;
    Element tool;      // comes up again when the form closes; none: no name
    Place place;       // {} where the opening says it
    Modality modality; // a modal form leaves the main window enabled
    bool disablesMain;
    bool greysBoxes; // text boxes are grey without the focus, and white with it
};

const FormRow &RowOfForm(std::string_view name); // Subscript when there is none

} // namespace havuz
