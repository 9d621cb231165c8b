// Schk: a button that stays down, or a check box. Its value is what the bag says: a click is only reported.
#pragma once

#include "ui/kit/marked_button.h"

namespace havuz {

class Schk : public MarkedButton {
public:
    enum class Look { Toggle, Box };
    Schk(Look look, QWidget *parent)
        : MarkedButton(look == Look::Box ? Mark(QStyle::PE_IndicatorCheckBox) : Mark(), parent) {}
};

} // namespace havuz
