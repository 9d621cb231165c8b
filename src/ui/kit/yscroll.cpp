#include "ui/kit/yscroll.h"

namespace havuz {

Yscroll::Yscroll(QWidget *parent) : QScrollBar(Qt::Vertical, parent) {
    setSingleStep(1);
    setPageStep(10);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (!putting_ && moved)
            moved(value);
    });
}

void Yscroll::put(const char *key, const QVariant &value) {
    bag_.put(key, value);
    putting_ = true;
    setMaximum(bag_.get(bag::kMost).toInt());
    setValue(bag_.get(bag::kValue).toInt());
    putting_ = false;
}

} // namespace havuz
