// The drawing of a panel's steel on the screen (report/steel_drawing.h): a zone that is clicked is chosen.
#pragma once

#include "ui/raporcu/page.h"

namespace havuz {

class SteelView : public QWidget {
public:
    explicit SteelView(QWidget *parent = nullptr);
    // Row of Design::steel whose panel is drawn; below 0: nothing.
    void show(const Answer &answer, int row);
    using QWidget::show;
    std::function<void(int row)> chosen;

    QSize sizeHint() const override { return {760, 420}; }
    QSize minimumSizeHint() const override { return {360, 240}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    int panel() const;
    Answer answer_;
    int row_ = -1;
};

} // namespace havuz
