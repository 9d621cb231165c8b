#include "ui/kit/but_frm.h"

#include <QHBoxLayout>

namespace havuz {

ButFrm::ButFrm(QWidget *parent) : QFrame(parent), row_(new QHBoxLayout(this)) {
    setFrameShape(QFrame::StyledPanel);
    row_->setContentsMargins(2, 2, 2, 2);
    row_->setSpacing(2);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void ButFrm::add(QWidget *button) { row_->addWidget(button); }

} // namespace havuz
