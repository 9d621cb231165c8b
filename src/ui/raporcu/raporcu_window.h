// The window of the output program: reads a project and its results, analyses it beside the window, and shows the
// pages.
#pragma once

#include "ui/raporcu/combination_page.h"
#include "ui/raporcu/picture_page.h"
#include "ui/raporcu/steel_page.h"
#include "ui/raporcu/sweep_page.h"
#include "ui/raporcu/tables_page.h"
#include "ui/raporcu/text_pages.h"

#include <QWidget>
#include <set>
#include <string>
#include <thread>

class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace havuz {

class VekTopBar;

// What the window asks of the program around it.
struct RaporcuServices {
    std::function<void(const std::string &path)> open; // a project into the store, as a fresh program reads it
    std::function<bool(const std::string &stem)> edit; // havuz with the project; false: it cannot be started
    std::function<std::string(const std::string &stem)>
        analyse;           // the run anew; words of its failure, empty when it went well
    std::string cli;       // path of havuz-cli, for the variants
    std::string noProject; // why there is no project to begin with
};

class RaporcuWindow : public QWidget {
public:
    explicit RaporcuWindow(RaporcuServices services);
    ~RaporcuWindow() override;
    RaporcuWindow(const RaporcuWindow &) = delete;
    RaporcuWindow &operator=(const RaporcuWindow &) = delete;

    void load(const std::string &stem);              // without extension
    void loadNothing(const std::string &why);        // there is no project to begin with
    bool busy() const { return thread_.joinable(); } // analysing, or at the words of the summary

private:
    void layOut();
    void layOutTop(VekTopBar *top);
    void start(std::shared_ptr<TankAnswer> answer);
    void begin(std::function<void(int round)> work); // beside the window
    void work(const std::shared_ptr<TankAnswer> &answer, int round);
    void later(int round, std::function<void()> act);
    void take(const Answer &answer);
    void finish(const QString &failure);
    void showStale(QWidget *page);
    void showPlace(const ShownPlace &place);
    void takeSource(bool files);
    void step(const QString &words);
    void tell(const std::string &words);
    void tellState();
    void tellSize();
    void failed(const QString &words);
    void takeCombinations(const std::vector<design::DesignCombination> &combinations);
    void analyseAnew();
    void openProject();

    RaporcuServices services_;
    std::string stem_;
    Answer answer_;
    std::thread thread_;
    int round_ = 0;             // of the analyses that were started
    std::set<QWidget *> stale_; // pages that have not seen the answer yet: each is filled when a person turns to it
    QComboBox *source_;
    QPushButton *edit_, *anew_;
    QLabel *state_, *status_;
    QProgressBar *progress_;
    QTabWidget *tabs_;
    SummaryPage *summary_;
    PicturePage *picture_;
    TablesPage *tables_;
    CombinationPage *combinations_;
    SteelPage *steel_;
    ReportPage *report_;
    SweepPage *sweep_;
};

} // namespace havuz
