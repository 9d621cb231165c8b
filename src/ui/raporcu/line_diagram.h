// The diagram of a result along a line that was drawn over a panel, with its integral and its greatest value.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace havuz {

struct DiagramPoint {
    double along = 0.0, value = 0.0; // m, unit of the result
};

// Trapezoids.
double IntegralOf(const std::vector<DiagramPoint> &points);

class LineDiagram : public QWidget {
public:
    explicit LineDiagram(QWidget *parent);
    const std::vector<DiagramPoint> &points() const { return points_; }
    void show(std::vector<DiagramPoint> points, const std::string &unit, int decimals);
    using QWidget::show;
    QSize sizeHint() const override { return {400, 150}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<DiagramPoint> points_;
    std::string unit_;
    int decimals_ = 2;
};

} // namespace havuz
