// ButFrm: a panel that holds a group of tool buttons in a row.
#pragma once

#include <QFrame>

class QHBoxLayout;

namespace havuz {

class ButFrm : public QFrame {
public:
    explicit ButFrm(QWidget *parent);
    void add(QWidget *button);

private:
    QHBoxLayout *row_;
};

} // namespace havuz
