// A button with a mark before its picture and caption: the box of a check box, the ring of a radio button. Without one
// it is a button that stays down.
#pragma once

#include "ui/kit/button.h"

#include <QStyle>
#include <optional>

namespace havuz {

class MarkedButton : public Button {
public:
    QSize sizeHint() const override;

protected:
    using Mark = std::optional<QStyle::PrimitiveElement>;
    MarkedButton(Mark mark, QWidget *parent) : Button(parent), mark_(mark) {}

    void paintBack(QPainter &painter) override;
    QRect contents() const override;

private:
    Mark mark_;
};

} // namespace havuz
