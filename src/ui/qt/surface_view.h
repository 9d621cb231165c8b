// A picture element on the screen: the drawing surface as it was painted last, the line objects over it, the floating
// texts as its children. Pointer events go out in pixels of the surface.
#pragma once

#include "ui/qt/raster_surface.h"
#include "ui/qt/wheel_steps.h"
#include "ui/window/window_state.h"

#include <QWidget>
#include <functional>
#include <vector>

namespace havuz {

class SurfaceView : public QWidget {
public:
    struct Pointer {
        std::function<void(int button, double x, double y)> pressed, moved, released;
        std::function<void(int steps, double x, double y)> wheel;
        std::function<void(double dx, double dy)> panned;
        std::function<void()> resized; // the widget has another size than the surface
    };

    explicit SurfaceView(QWidget *parent);

    RasterSurface &surface() { return surface_; }
    void takeSize(int width, int height);
    bool fits() const; // the surface is as large as the widget
    // The line objects, in the order in which they are drawn; those hidden are left out.
    void showLines(std::vector<WindowState::ElementState> lines);

    Pointer pointer;

    QSize sizeHint() const override { return {surface_.width(), surface_.height()}; }
    QSize minimumSizeHint() const override { return {320, 200}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    // The surface of the drawing: Refresh shows it.
    struct ViewSurface : RasterSurface {
        ViewSurface(SurfaceView &view) : RasterSurface(kWidth, kHeight), view_(view) {}
        void Refresh() override { view_.update(); }
        SurfaceView &view_;
    };
    static constexpr int kWidth = 1010, kHeight = 600; // at first, the design size

    ViewSurface surface_;
    std::vector<WindowState::ElementState> lines_;
    QPointF pan_; // where the middle button was last
    WheelSteps wheel_;
};

} // namespace havuz
