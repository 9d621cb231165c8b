// VEKbanner: the heading over a group of fields, with a rule that runs to the edge and a picture where it has one.
#pragma once

#include "ui/kit/property_bag.h"

#include <QWidget>

namespace havuz {

class VEKbanner : public QWidget {
public:
    explicit VEKbanner(QWidget *parent);
    void put(const char *key, const QVariant &value);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PropertyBag bag_;
};

} // namespace havuz
