#include "ui/raporcu/result_view.h"

#include "model/store.h"
#include "ui/qt/image_canvas.h"
#include "ui/window/view_habits.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace havuz {

static constexpr double kTurnByPixel = 0.01; // rad, as in the main window

ResultView::ResultView(QWidget *parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCursor(Qt::CrossCursor);
}

void ResultView::setScene(ResultScene scene, bool refit) {
    scene_ = std::move(scene);
    fitted_ = fitted_ && !refit;
    lineShown_ = lineShown_ && !refit;
    stale();
}

void ResultView::setStyle(const SceneStyle &style) {
    style_ = style;
    stale();
}

void ResultView::fit() {
    fitted_ = false;
    stale();
}

void ResultView::drawLines(bool on) {
    lineMode_ = on;
    lineShown_ = lineShown_ && on;
    update();
}

void ResultView::highlight(int mesh, int corner) {
    highlighted_ = mesh;
    highlightedCorner_ = corner;
    update();
}

void ResultView::render() {
    if (!fitted_)
        to_ = FitScene(scene_, width(), height());
    fitted_ = true;
    ImageCanvas canvas(width(), height(), devicePixelRatioF());
    DrawScene(canvas, scene_, style_, to_);
    image_ = canvas.image().copy();
    image_.setDevicePixelRatio(devicePixelRatioF());
}

void ResultView::paintHighlight(QPainter &painter) const {
    for (const ResultFace &face : scene_.faces) {
        if (face.mesh != highlighted_ || highlighted_ == 0)
            continue;
        QPolygonF ring;
        for (const SpacePoint &p : face.at) {
            const ScenePlace at = ProjectScene(scene_.look, p);
            ring << QPointF(to_.x + to_.scale * at.x, to_.y + to_.scale * at.y);
        }
        painter.setPen(QPen(QColor(0, 0, 0), 4.0));
        painter.drawPolygon(ring);
        painter.setPen(QPen(QColor(255, 210, 0), 2.0));
        painter.drawPolygon(ring);
        if (highlightedCorner_ != 0)
            painter.drawEllipse(ring[highlightedCorner_ - 1], 7.0, 7.0);
    }
}

void ResultView::paintEvent(QPaintEvent * /*event*/) {
    if (image_.isNull())
        render();
    QPainter painter(this);
    painter.drawImage(0, 0, image_);
    paintHighlight(painter);
    if (lineShown_) {
        painter.setPen(QPen(QColor(0, 0, 0), 2.0, Qt::DashLine));
        painter.drawLine(lineFrom_, lineTo_);
    }
}

void ResultView::resizeEvent(QResizeEvent * /*event*/) { fit(); }

void ResultView::turn(QPointF by) {
    ViewAngleB = ViewAngleB - kTurnByPixel * by.x();
    ViewAngleA = ViewAngleA - kTurnByPixel * by.y();
    stale();
}

void ResultView::pan(QPointF by) {
    to_.x += by.x();
    to_.y += by.y();
    stale();
}

void ResultView::mousePressEvent(QMouseEvent *event) {
    last_ = event->position();
    if (lineMode_ && event->button() == Qt::LeftButton) {
        lineFrom_ = lineTo_ = last_;
        lineShown_ = true;
        update();
    }
}

void ResultView::mouseMoveEvent(QMouseEvent *event) {
    const QPointF at = event->position(), by = at - std::exchange(last_, at);
    if (event->buttons().testFlag(Qt::MiddleButton)) {
        pan(by);
    } else if (event->buttons().testFlag(Qt::LeftButton)) {
        if (lineMode_) {
            lineTo_ = at;
            update();
        } else if (scene_.look == SceneLook::Rotated) {
            turn(by);
        } else {
            pan(by);
        }
    } else if (probed) {
        probed(hitNear(at), {at.x(), at.y()});
    }
}

// Also a little beside the tank, so that the nodes of its outline can be met.
std::optional<SceneHit> ResultView::hitNear(QPointF at) const {
    constexpr double kBeside = 4.0; // pixels
    for (const QPointF by : {QPointF(0, 0), QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1),
                             QPointF(-1, -1), QPointF(1, -1), QPointF(-1, 1), QPointF(1, 1)}) {
        const QPointF there = at + kBeside * by;
        if (const auto hit = HitScene(scene_, to_, style_.deformation, there.x(), there.y()))
            return hit;
    }
    return std::nullopt;
}

void ResultView::mouseReleaseEvent(QMouseEvent *event) {
    if (lineMode_ && event->button() == Qt::LeftButton && lineDrawn && lineFrom_ != lineTo_)
        lineDrawn({lineFrom_.x(), lineFrom_.y()}, {lineTo_.x(), lineTo_.y()});
}

void ResultView::mouseDoubleClickEvent(QMouseEvent * /*event*/) { fit(); }

void ResultView::wheelEvent(QWheelEvent *event) {
    const int steps = wheel_.take(*event);
    const double scale = std::clamp(to_.scale * std::pow(kZoomStep, steps), kSmallestScale, kLargestScale);
    const double ratio = scale / to_.scale;
    const QPointF at = event->position();
    to_ = {scale, at.x() - (at.x() - to_.x) * ratio, at.y() - (at.y() - to_.y) * ratio};
    if (steps != 0)
        stale();
}

void ResultView::leaveEvent(QEvent * /*event*/) {
    if (probed)
        probed(std::nullopt, {});
}

} // namespace havuz
