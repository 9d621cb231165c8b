// Paints a display list into bands of rows of a picture: thin figures and texts by our own means, what else there is by
// a QPainter that is clipped to the band.
#pragma once

#include "ui/qt/display_list.h"
#include "ui/qt/thin_figures.h"

#include <QImage>
#include <QPainter>
#include <optional>

namespace havuz {

inline QRgb Opaque(Colour colour) { return 0xFF000000U | colour.rgb; }

class BandPainter {
public:
    // pixels: those of a picture of this size in QImage::Format_RGB32. Several painters may work at it, each in rows of
    // its own.
    BandPainter(const DisplayList &list, std::uint32_t *pixels, int width, int height);

    void begin(int top, int bottom); // the rows that are painted from now on
    void clear();
    void paint(const Request &request);

private:
    void paintText(const Request &text);
    void paintByPainter(const Request &request);
    QPainter &painter();
    void takeMode(const Request &request);
    void takePen(const Request &request);
    void takeBrush(const Request &request);

    const DisplayList &list_;
    PixelRows rows_;
    QImage image_; // the same pixels
    std::optional<QPainter> painter_;
    // what the painter holds now, to tell it only what changes
    bool clipped_ = false;
    std::optional<Request> mode_, pen_, brush_;
};

} // namespace havuz
