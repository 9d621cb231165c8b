#include "ui/raporcu/line_diagram.h"

#include "ui/qt/text.h"
#include "view/result_scene.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace havuz {

double IntegralOf(const std::vector<DiagramPoint> &points) {
    double sum = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        sum += (points[i].along - points[i - 1].along) * (points[i].value + points[i - 1].value) / 2.0;
    return sum;
}

LineDiagram::LineDiagram(QWidget *parent) : QWidget(parent) {
    setMinimumHeight(120);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void LineDiagram::show(std::vector<DiagramPoint> points, const std::string &unit, int decimals) {
    points_ = std::move(points);
    unit_ = unit;
    decimals_ = decimals;
    update();
}

// The words of a unit times a length: "t.m/m" over metres is "t.m".
static std::string TimesMetre(const std::string &unit) {
    const std::string per = "/m";
    if (unit.size() > per.size() && unit.compare(unit.size() - per.size(), per.size(), per) == 0)
        return unit.substr(0, unit.size() - per.size());
    return unit + "·m";
}

void LineDiagram::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::black);
    if (points_.size() < 2) {
        painter.drawText(rect(), Qt::AlignCenter,
                         QStringLiteral("\"çizgi\" düğmesi basılıyken panelin üzerine bir çizgi çekin"));
        return;
    }
    const auto [low, high] =
        std::minmax_element(points_.begin(), points_.end(), [](auto &a, auto &b) { return a.value < b.value; });
    const double least = std::min(0.0, low->value), most = std::max(0.0, high->value);
    const double span = most > least ? most - least : 1.0, length = std::max(points_.back().along, 1e-9);
    const QRectF room = QRectF(rect()).adjusted(80, 26, -20, -22);
    const auto place = [&](double along, double value) {
        return QPointF(room.left() + room.width() * along / length,
                       room.bottom() - room.height() * (value - least) / span);
    };
    QPolygonF area;
    area << place(0.0, 0.0);
    for (const DiagramPoint &p : points_)
        area << place(p.along, p.value);
    area << place(length, 0.0);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(0xC8, 0xDC, 0xF0));
    painter.drawPolygon(area);
    painter.drawLine(place(0.0, 0.0), place(length, 0.0));
    const auto text = [&](double v) { return ToQt(DecimalCommaText(v, decimals_)); };
    painter.drawText(QPointF(6, place(0, most).y() + 4), text(most));
    if (least < 0.0)
        painter.drawText(QPointF(6, place(0, least).y() + 4), text(least));
    painter.drawText(QPointF(room.left(), height() - 6.0), QStringLiteral("0"));
    painter.drawText(QRectF(room.left(), height() - 20.0, room.width(), 18.0), Qt::AlignRight,
                     ToQt(DecimalCommaText(length, 2)) + QStringLiteral(" m"));
    painter.drawText(QPointF(room.left(), 16),
                     QStringLiteral("çizgi boyunca (%1):  en büyük %2   en küçük %3   alan %4 %5")
                         .arg(ToQt(unit_), text(high->value), text(low->value),
                              ToQt(DecimalCommaText(IntegralOf(points_), decimals_)), ToQt(TimesMetre(unit_))));
}

} // namespace havuz
