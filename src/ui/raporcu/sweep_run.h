// havuz-cli variants as a process: a sweep over a project, computed in processes of its own, watched by the rows that
// it has kept. Rows that are done survive a stop: the same sweep again does what is missing.
#pragma once

#include "report/csv_table.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>

namespace havuz {

struct SweepQuestion {
    std::string project;            // path of the .POL
    std::string sweep;              // "KenarKalinlik=20:40:5"
    std::vector<std::string> extra; // result columns besides those that always come
};

class SweepRun : public QObject {
public:
    explicit SweepRun(std::string cli); // path of havuz-cli
    ~SweepRun() override;               // stops what runs

    // Words of the failure when it cannot begin: a sweep that is none; else empty.
    std::string start(const SweepQuestion &question);
    void stop();
    bool running() const { return process_.state() != QProcess::NotRunning; }

    std::function<void(int done, int rows, double perSecond)> progressed;
    std::function<void(const CsvTable &table)> finished;
    std::function<void(const std::string &words)> failed; // also when it was stopped

private:
    std::string wanted(const std::vector<std::string> &extra) const;
    QString file(const char *name) const { return folder_.filePath(QLatin1String(name)); }
    int keptRows() const;
    void look();
    void ended();

    std::string cli_;
    QTemporaryDir folder_;
    QProcess process_;
    QTimer watch_;
    QElapsedTimer clock_;
    int rows_ = 0, before_ = 0;
    bool stopped_ = false;
};

} // namespace havuz
