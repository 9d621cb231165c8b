// Whole steps of a mouse wheel: touch pads send parts of one.
#pragma once

#include <QWheelEvent>

namespace havuz {

class WheelSteps {
public:
    int take(const QWheelEvent &event) {
        rest_ += event.angleDelta().y();
        const int steps = rest_ / kStep;
        rest_ -= steps * kStep;
        return steps;
    }

private:
    static constexpr int kStep = 120; // eighths of a degree
    int rest_ = 0;
};

} // namespace havuz
