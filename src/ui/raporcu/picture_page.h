// "Resim": a result of a case over the tank or over one panel laid flat, with the probe and the diagram along a line.
#pragma once

#include "report/result_picture.h"
#include "ui/raporcu/line_diagram.h"
#include "ui/raporcu/page.h"
#include "ui/raporcu/result_view.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace havuz {

class PicturePage : public Page {
public:
    explicit PicturePage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    // .SON instead of the consistent analysis.
    void takeSource(bool files);
    void showAt(const ShownPlace &place);

private:
    void fillLists();
    void redraw(bool refit);
    void probe(const std::optional<SceneHit> &hit);
    void diagram(ScreenPoint from, ScreenPoint to);
    void takeStyle();
    void savePicture();
    ResultScene makeScene() const;
    std::string nameOfResult() const;
    const consistent::CaseResult *result() const;
    PictureChoice choice() const;

    Answer answer_;
    bool files_ = false, filling_ = false;
    QComboBox *quantity_, *case_, *look_, *scale_;
    QCheckBox *smooth_, *lines_, *deformed_, *line_;
    QLineEdit *low_, *high_, *factor_;
    QLabel *probe_;
    ResultView *view_;
    LineDiagram *diagram_;
};

} // namespace havuz
