// VekTopBar: the bar at the top of the main window: the mark of the program, its title - "^" begins the second line -
// and a row of buttons at the right.
#pragma once

#include "ui/kit/property_bag.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace havuz {

class VekTopBar : public QWidget {
public:
    explicit VekTopBar(QWidget *parent);
    void put(const char *key, const QVariant &value); // bag::kCaption
    void add(QWidget *button);

private:
    PropertyBag bag_;
    QHBoxLayout *row_;
    QLabel *title_, *subtitle_;
};

} // namespace havuz
