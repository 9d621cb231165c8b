#include "ui/qt/image_canvas.h"

#include "ui/qt/text.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>

namespace havuz {

static QColor ToQt(Colour colour) { return QColor(QRgb(0xFF000000U | colour.rgb)); }

struct ImageCanvas::Painting {
    QImage image;
    QPainter painter; // open as long as the image: goes first

    Painting(int width, int height) : image(width, height, QImage::Format_RGB32) {
        image.fill(Qt::white);
        painter.begin(&image);
        painter.setRenderHint(QPainter::TextAntialiasing);
    }
};

ImageCanvas::ImageCanvas(int width, int height, double scale)
    : width_(width), height_(height), scale_(scale),
      painting_(std::make_unique<Painting>(static_cast<int>(std::lround(width * scale)),
                                           static_cast<int>(std::lround(height * scale)))) {
    painting_->painter.scale(scale, scale);
}

ImageCanvas::~ImageCanvas() = default;

const QImage &ImageCanvas::image() const { return painting_->image; }

Colour ImageCanvas::colourAt(int x, int y) const { return {painting_->image.pixel(x, y) & 0xFFFFFFU}; }

std::string ImageCanvas::png() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    painting_->image.save(&buffer, "PNG");
    return bytes.toStdString();
}

// A pixel belongs to a triangle when its middle does; a middle on a shared side takes the later triangle, and none is
// left out.
void ImageCanvas::Triangle(const std::array<ValuePoint, 3> &corners, const ColourMap &map) {
    QImage &image = painting_->image;
    std::array<double, 3> x{}, y{}, v{};
    for (std::size_t i = 0; i < 3; ++i) {
        x[i] = corners[i].at.x * scale_ - 0.5;
        y[i] = corners[i].at.y * scale_ - 0.5;
        v[i] = corners[i].value;
    }
    const double area = (x[1] - x[0]) * (y[2] - y[0]) - (x[2] - x[0]) * (y[1] - y[0]);
    if (area == 0.0)
        return;
    const double dx = ((v[1] - v[0]) * (y[2] - y[0]) - (v[2] - v[0]) * (y[1] - y[0])) / area; // value per pixel
    const double dy = ((v[2] - v[0]) * (x[1] - x[0]) - (v[1] - v[0]) * (x[2] - x[0])) / area;
    const int top = std::max(0, static_cast<int>(std::ceil(std::min({y[0], y[1], y[2]}))));
    const int bottom = std::min(image.height() - 1, static_cast<int>(std::floor(std::max({y[0], y[1], y[2]}))));
    for (int row = top; row <= bottom; ++row) {
        double left = image.width(), right = -1.0;
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t j = (i + 1) % 3;
            if ((y[i] <= row && row <= y[j]) || (y[j] <= row && row <= y[i])) {
                const bool level = y[i] == y[j];
                const double t = level ? 0.0 : (row - y[i]) / (y[j] - y[i]);
                const double at = x[i] + t * (x[j] - x[i]);
                left = std::min({left, at, level ? x[j] : at});
                right = std::max({right, at, level ? x[j] : at});
            }
        }
        const int first = std::max(0, static_cast<int>(std::ceil(left)));
        const int last = std::min(image.width() - 1, static_cast<int>(std::floor(right)));
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int column = first; column <= last; ++column)
            pixels[column] = 0xFF000000U | map.colourOf(v[0] + dx * (column - x[0]) + dy * (row - y[0])).rgb;
    }
}

void ImageCanvas::Fill(std::span<const ScreenPoint> ring, Colour colour) {
    QVarLengthArray<QPointF, 8> points;
    for (const ScreenPoint p : ring)
        points.append(QPointF(p.x, p.y));
    painting_->painter.setPen(Qt::NoPen);
    painting_->painter.setBrush(ToQt(colour));
    painting_->painter.drawPolygon(points.constData(), static_cast<int>(points.size()));
}

void ImageCanvas::Line(ScreenPoint from, ScreenPoint to, Colour colour, double lineWidth) {
    painting_->painter.setPen(QPen(ToQt(colour), lineWidth > 1.0 || scale_ > 1.0 ? lineWidth : 0.0));
    painting_->painter.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
}

void ImageCanvas::Text(ScreenPoint at, const std::string &text, TextAlign align, double size, Colour colour) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size))));
    painting_->painter.setFont(font);
    painting_->painter.setPen(ToQt(colour));
    const QString words = havuz::ToQt(text);
    const double wide = QFontMetricsF(font).horizontalAdvance(words);
    const double share = align == TextAlign::Left ? 0.0 : align == TextAlign::Centre ? 0.5 : 1.0;
    painting_->painter.drawText(QPointF(at.x - share * wide, at.y), words);
}

} // namespace havuz
