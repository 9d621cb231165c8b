// "Resim": a result of a case over the tank or over one panel laid flat, with the probe and the diagram along a line.
#pragma once

#include "report/picture_results.h"
#include "ui/raporcu/line_diagram.h"
#include "ui/raporcu/page.h"
#include "ui/raporcu/picture_side.h"
#include "ui/raporcu/result_view.h"

namespace havuz {

class PicturePage : public Page {
public:
    explicit PicturePage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    // .SON instead of the consistent analysis.
    void takeSource(bool files);
    void showAt(const ShownPlace &place);
    std::function<void(const std::string &words)> tell; // the status line

private:
    void fillLists();
    void fillQuantities();
    void fillResults();
    void redraw(bool refit);
    void takeStyle();
    void probe(const std::optional<SceneHit> &hit, ScreenPoint at);
    void diagram(ScreenPoint from, ScreenPoint to);
    void savePicture();
    ResultScene makeScene() const;
    void markFaults(ResultScene &scene) const;
    std::string nameOfResult() const;
    const Quantity *quantity() const; // nullptr: steel
    PictureChoice choice() const;

    Answer answer_;
    std::vector<PictureResult> results_; // of the list, but for those of files
    bool files_ = false, filling_ = false;
    PictureSide *side_;
    ResultView *view_;
    LineDiagram *diagram_;
};

} // namespace havuz
