// The picture of a result on the screen: the scene painted into an image, turned by dragging, zoomed by the wheel,
// panned by the middle button as in the main window; a probe under the pointer, and a line that a person draws.
#pragma once

#include "ui/qt/wheel_steps.h"
#include "view/result_scene.h"

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

namespace havuz {

class ResultView : public QWidget {
public:
    explicit ResultView(QWidget *parent);

    // The view stays where it is while the look and the panel stay; another one is fitted.
    void setScene(ResultScene scene, bool refit);
    void setStyle(const SceneStyle &style);
    const SceneStyle &style() const { return style_; }
    const ResultScene &scene() const { return scene_; }
    void fit();
    void drawLines(bool on);                  // the left button draws a line instead of turning
    void highlight(int mesh, int corner = 0); // outlined, and one of its corners 1 to 4 circled; 0: none
    QImage picture() const { return image_; }

    std::function<void(const std::optional<SceneHit> &, ScreenPoint at)> probed;
    std::function<void(ScreenPoint from, ScreenPoint to)> lineDrawn; // pixels
    const SceneTransform &transform() const { return to_; }

    QSize sizeHint() const override { return {900, 560}; }
    QSize minimumSizeHint() const override { return {320, 240}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void stale() {
        image_ = {};
        update();
    }
    void render();
    void turn(QPointF by);
    void pan(QPointF by);
    std::optional<SceneHit> hitNear(QPointF at) const;
    void paintHighlight(QPainter &painter) const;

    ResultScene scene_;
    SceneStyle style_;
    SceneTransform to_;
    QImage image_; // null: to be painted anew
    QPointF last_, lineFrom_, lineTo_;
    bool fitted_ = false, lineMode_ = false, lineShown_ = false;
    int highlighted_ = 0, highlightedCorner_ = 0;
    WheelSteps wheel_;
};

} // namespace havuz
