// Schk: a button that stays down, or a check box, beside a picture where it has one. Its value is what the bag says: a
// click is only reported.
#pragma once

#include "ui/kit/button.h"

namespace havuz {

class Schk : public Button {
public:
    enum class Look { Toggle, Box };
    Schk(Look look, QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintBack(QPainter &painter) override;
    QRect contents() const override;

private:
    Look look_;
};

} // namespace havuz
