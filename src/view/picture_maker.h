// What makes pictures and pages out of drawings and documents, as a program without a platform asks for it: whoever has
// the libraries for it stands behind.
#pragma once

#include "view/result_canvas.h"
#include "view/surface.h"

#include <functional>
#include <memory>
#include <string>

namespace havuz {

// A drawing surface that becomes a picture.
class PictureSurface : public Surface {
public:
    // Takes another size; what was drawn is gone. The pen stays. scale: pixels of the picture to one of the drawing. A
    // picture that memory cannot hold is Overflow.
    virtual void resize(int width, int height, double scale = 1.0) = 0;
    virtual std::string png() const = 0; // the bytes of a PNG file
};

class PictureMaker {
public:
    virtual ~PictureMaker() = default;
    virtual std::unique_ptr<PictureSurface> surface(int width, int height) const = 0;
    // As the function of this name in ui/qt/report_paper.h.
    virtual std::string pdfOfHtml(const std::string &html, const std::string &title, const std::string &date) const = 0;
    // The bytes of a PNG file of what is drawn on a canvas of width by height pixels.
    virtual std::string pngOfResult(int width, int height, const std::function<void(ResultCanvas &)> &draw) const = 0;
};

} // namespace havuz
