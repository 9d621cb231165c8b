// The maker of pictures and pages by Qt, under a name that a program finds in a library it loads.
#include "view/picture_maker.h"

#include "ui/qt/image_canvas.h"
#include "ui/qt/raster_surface.h"
#include "ui/qt/report_paper.h"

#include <QtGlobal>

namespace havuz {

namespace {

class QtPictureMaker : public PictureMaker {
public:
    std::unique_ptr<PictureSurface> surface(int width, int height) const override {
        return std::make_unique<RasterSurface>(width, height);
    }
    std::string pdfOfHtml(const std::string &html, const std::string &title, const std::string &date) const override {
        return PdfOfHtml(html, title, date);
    }
    std::string pngOfResult(int width, int height, const std::function<void(ResultCanvas &)> &draw) const override {
        NeedFonts();
        ImageCanvas canvas(width, height);
        draw(canvas);
        return canvas.png();
    }
};

} // namespace

extern "C" Q_DECL_EXPORT const PictureMaker *HavuzPictureMaker();
extern "C" const PictureMaker *HavuzPictureMaker() {
    static const QtPictureMaker maker;
    return &maker;
}

} // namespace havuz
