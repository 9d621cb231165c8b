#include "ui/qt/surface_view.h"

#include <QMouseEvent>
#include <QPainter>

namespace havuz {

static constexpr QRgb kRubber = 0xFFFFFFFF;

SurfaceView::SurfaceView(QWidget *parent) : QWidget(parent), surface_(*this) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SurfaceView::takeSize(int width, int height) {
    surface_.resize(width, height, devicePixelRatioF());
    updateGeometry();
    update();
}

bool SurfaceView::fits() const {
    return surface_.width() == width() && surface_.height() == height() &&
           surface_.image().width() == qRound(width() * devicePixelRatioF());
}

void SurfaceView::showLines(std::vector<WindowState::ElementState> lines) {
    lines_ = std::move(lines);
    update();
}

void SurfaceView::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    const QSize size(surface_.width(), surface_.height());
    painter.fillRect(rect(), QColor(kBackground.rgb));
    painter.drawImage(QRect(QPoint(0, 0), size), surface_.image());
    for (const WindowState::ElementState &line : lines_) {
        painter.setPen(QPen(QColor(kRubber), 1.0, line.style == RubberStyle::Dashed ? Qt::DashLine : Qt::SolidLine));
        painter.drawLine(QPointF(line.line.x1, line.line.y1), QPointF(line.line.x2, line.line.y2));
    }
}

void SurfaceView::resizeEvent(QResizeEvent * /*event*/) {
    if (pointer.resized)
        pointer.resized();
}

static int ButtonOf(Qt::MouseButtons buttons) {
    return buttons.testFlag(Qt::LeftButton) ? 1 : buttons.testFlag(Qt::RightButton) ? 2 : 0;
}

void SurfaceView::mousePressEvent(QMouseEvent *event) {
    const QPointF at = event->pos();
    if (event->button() == Qt::MiddleButton)
        pan_ = at;
    else if (pointer.pressed)
        pointer.pressed(ButtonOf(event->button()), at.x(), at.y());
}

void SurfaceView::mouseMoveEvent(QMouseEvent *event) {
    const QPointF at = event->pos();
    if (event->buttons().testFlag(Qt::MiddleButton)) {
        const QPointF by = at - std::exchange(pan_, at);
        if (pointer.panned)
            pointer.panned(by.x(), by.y());
    } else if (pointer.moved) {
        pointer.moved(ButtonOf(event->buttons()), at.x(), at.y());
    }
}

void SurfaceView::mouseReleaseEvent(QMouseEvent *event) {
    const QPointF at = event->pos();
    if (event->button() != Qt::MiddleButton && pointer.released)
        pointer.released(ButtonOf(event->button()), at.x(), at.y());
}

void SurfaceView::wheelEvent(QWheelEvent *event) {
    const int steps = wheel_.take(*event);
    const QPointF at = event->position();
    if (steps != 0 && pointer.wheel)
        pointer.wheel(steps, at.x(), at.y());
}

} // namespace havuz
