#include "ui/raporcu/steel_view.h"

#include "report/steel_drawing.h"
#include "ui/qt/image_canvas.h"

#include <QMouseEvent>
#include <QPainter>

namespace havuz {

SteelView::SteelView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SteelView::show(const Answer &answer, int row) {
    answer_ = answer;
    row_ = row;
    update();
}

int SteelView::panel() const { return answer_->design.steel[static_cast<std::size_t>(row_)].panel; }

void SteelView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    if (!answer_ || row_ < 0) {
        painter.fillRect(rect(), Qt::white);
        return;
    }
    ImageCanvas canvas(width(), height(), devicePixelRatioF());
    SteelDrawing(answer_->tank, answer_->design.steel, panel(), width(), height()).draw(canvas, row_);
    painter.drawImage(rect(), canvas.image());
}

void SteelView::mousePressEvent(QMouseEvent *event) {
    if (!answer_ || row_ < 0 || !chosen)
        return;
    const SteelDrawing drawing(answer_->tank, answer_->design.steel, panel(), width(), height());
    if (const int row = drawing.rowAt(event->position().x(), event->position().y()); row >= 0)
        chosen(row);
}

} // namespace havuz
