// Soption: one of several that exclude each other, as a radio button or as the tab of a page. Which one is chosen is
// what the bag says: a click is only reported.
#pragma once

#include "ui/kit/marked_button.h"

namespace havuz {

class Soption : public MarkedButton {
public:
    enum class Look { Radio, Tab };
    Soption(Look look, QWidget *parent)
        : MarkedButton(look == Look::Radio ? Mark(QStyle::PE_IndicatorRadioButton) : Mark(), parent) {}
};

} // namespace havuz
