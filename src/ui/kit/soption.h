// Soption: one of several that exclude each other, as a radio button or as the tab of a page. Which one is chosen is
// what the bag says: a click is only reported.
#pragma once

#include "ui/kit/button.h"

namespace havuz {

class Soption : public Button {
public:
    enum class Look { Radio, Tab };
    Soption(Look look, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintBack(QPainter &painter) override;
    QRect contents() const override;

private:
    Look look_;
};

} // namespace havuz
