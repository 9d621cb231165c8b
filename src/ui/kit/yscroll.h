// Yscroll: the vertical scroll bar of a table. Only a person's moves are reported.
#pragma once

#include "ui/kit/property_bag.h"

#include <QScrollBar>
#include <functional>

namespace havuz {

class Yscroll : public QScrollBar {
public:
    explicit Yscroll(QWidget *parent);

    // bag::kValue and bag::kMost; a page is ten.
    void put(const char *key, const QVariant &value);

    std::function<void(int)> moved;

private:
    PropertyBag bag_;
    bool putting_ = false;
};

} // namespace havuz
