// A page of the output program: shows one answer, and tells when a person asks to see a place of it.
#pragma once

#include "report/tank_answer.h"

#include <QWidget>
#include <functional>
#include <memory>

namespace havuz {

using Answer = std::shared_ptr<const TankAnswer>;

// Where a table points to.
struct ShownPlace {
    int panel = 0;        // 0: the whole tank
    std::string quantity; // key of a Quantity; empty: as it is
    std::string key;      // of a case or combination; empty: as it is
    int mesh = 0, node = 0;
};

class Page : public QWidget {
public:
    using QWidget::QWidget;
    virtual void show(const Answer &answer) = 0;
    using QWidget::show;
    std::function<void(const ShownPlace &)> showPlace; // set by the window
};

} // namespace havuz
