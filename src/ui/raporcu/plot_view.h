// The picture of a table (report/svg_plot.h) on the screen, drawn for the size that it has.
#pragma once

#include "report/svg_plot.h"

#include <QWidget>

namespace havuz {

class PlotView : public QWidget {
public:
    explicit PlotView(QWidget *parent = nullptr);
    void show(const CsvTable &table, const PlotQuestion &question);
    using QWidget::show;
    // The SVG as it is shown; the words of a TableFailure instead where there is nothing to draw, and then plotted is
    // false.
    std::string svg() const;
    bool plotted() const { return words_.empty() && !table_.rows.empty(); }

    QSize minimumSizeHint() const override { return {360, 260}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    CsvTable table_;
    PlotQuestion question_;
    std::string words_; // why there is no picture
};

} // namespace havuz
