// Button: a push button with a picture, a caption, or both. It paints what its bag says and keeps no state of its own
// beyond it: a click is only reported.
#pragma once

#include "ui/kit/property_bag.h"

#include <QAbstractButton>

namespace havuz {

class Button : public QAbstractButton {
public:
    explicit Button(QWidget *parent);

    void put(const char *key, const QVariant &value);
    QVariant get(const char *key) const { return bag_.get(key); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

    bool on() const { return bag_.get(bag::kValue).toBool(); }
    QColor back() const; // invalid: none
    virtual void paintBack(QPainter &painter);
    virtual QRect contents() const; // where picture and caption go
    PropertyBag bag_;

private:
    QSize pictureSize() const;
    void paintCaption(QPainter &painter, QRect place, const QColor &text);
};

} // namespace havuz
