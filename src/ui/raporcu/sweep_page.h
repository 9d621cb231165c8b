// "Varyantlar": a sweep over the open project, computed by havuz-cli variants in processes of its own, with its plot
// and the lightest tank that meets all checks.
#pragma once

#include "report/lightest.h"
#include "ui/raporcu/page.h"
#include "ui/raporcu/sweep_run.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace havuz {

class PlotView;

class SweepPage : public Page {
public:
    explicit SweepPage(QWidget *parent = nullptr);
    void setProgram(const std::string &cli); // path of havuz-cli
    void show(const Answer &answer) override;
    std::function<void(const std::string &words)> tell; // the status line

private:
    void layOut();
    void countRows();
    void begin();
    void takeTable(const CsvTable &table);
    void ended(const QString &words);
    void plot();
    void tellLightest();
    void save(const char *suffix);

    Answer answer_;
    CsvTable table_;
    std::size_t inputs_ = 0; // columns of the sweep
    std::unique_ptr<SweepRun> run_;
    QLineEdit *sweep_, *extra_, *concrete_, *steel_;
    QPushButton *start_, *stop_, *saveTable_, *savePlot_;
    QComboBox *x_, *y_, *by_;
    QLabel *rows_, *lightest_;
    QProgressBar *progress_;
    PlotView *plot_;
};

} // namespace havuz
