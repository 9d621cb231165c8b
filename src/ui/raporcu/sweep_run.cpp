#include "ui/raporcu/sweep_run.h"

#include "model/files.h"
#include "report/sweep.h"
#include "ui/qt/text.h"

#include <QFile>
#include <algorithm>

namespace havuz {

static constexpr const char *kOut = "OUT.csv", *kKept = "OUT.csv.rows";
static constexpr int kLook = 150, kPatience = 5000; // ms

SweepRun::SweepRun(std::string cli) : cli_(std::move(cli)) {
    watch_.setInterval(kLook);
    connect(&watch_, &QTimer::timeout, this, [this] { look(); });
    connect(&process_, &QProcess::finished, this, [this] { ended(); });
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            ended();
    });
}

SweepRun::~SweepRun() {
    process_.disconnect(this);
    stop();
    process_.waitForFinished(kPatience);
}

void SweepRun::stop() {
    stopped_ = true;
    if (running())
        process_.terminate();
}

// Those that the program gives without asking, and the extra ones.
std::string SweepRun::wanted(const std::vector<std::string> &extra) const {
    QProcess list;
    list.start(ToQt(cli_), {QStringLiteral("variants"), QStringLiteral("--list")});
    list.waitForFinished(kPatience);
    QStringList names = QString::fromUtf8(list.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    names.removeIf([](const QString &name) { return name.contains(QLatin1Char('|')); }); // the pattern of moments
    for (const std::string &name : extra)
        if (!names.contains(ToQt(name)))
            names.append(ToQt(name));
    return FromQt(names.join(QLatin1Char(',')));
}

std::string SweepRun::start(const SweepQuestion &question) {
    try {
        rows_ = static_cast<int>(SweepTable(question.sweep).rows.size());
    } catch (const TableFailure &failure) {
        return failure.what();
    }
    if (!folder_.isValid())
        return FromQt(folder_.errorString());
    QFile::remove(file(kOut));
    stopped_ = false;
    before_ = keptRows();
    QStringList arguments = {QStringLiteral("variants"),
                             QStringLiteral("--base"),
                             ToQt(question.project),
                             QStringLiteral("--sweep"),
                             ToQt(question.sweep),
                             QStringLiteral("-o"),
                             file(kOut)};
    if (!question.extra.empty())
        arguments << QStringLiteral("--want") << ToQt(wanted(question.extra));
    clock_.start();
    process_.start(ToQt(cli_), arguments);
    watch_.start();
    return {};
}

// Of every sweep so far in this folder: lines of the file, less its unfinished last one.
int SweepRun::keptRows() const {
    QFile kept(file(kKept));
    return kept.open(QIODevice::ReadOnly) ? static_cast<int>(kept.readAll().count('\n')) : 0;
}

void SweepRun::look() {
    const int fresh = keptRows() - before_;
    const double seconds = static_cast<double>(clock_.elapsed()) / 1000.0;
    if (progressed)
        progressed(std::clamp(fresh, 0, rows_), rows_, seconds > 0.0 ? fresh / seconds : 0.0);
}

void SweepRun::ended() {
    watch_.stop();
    look();
    if (process_.error() == QProcess::FailedToStart) {
        failed(cli_ + ": başlatılamadı");
        return;
    }
    if (stopped_) {
        failed("durduruldu; yapılan satırlar saklandı, aynı hesap kaldığı yerden sürer");
        return;
    }
    const std::string words = FromQt(QString::fromUtf8(process_.readAllStandardError()).trimmed());
    try {
        if (process_.exitStatus() != QProcess::NormalExit || process_.exitCode() != 0)
            failed(words.empty() ? "havuz-cli: " + std::to_string(process_.exitCode()) : words);
        else
            finished(ReadCsvTable(ReadWholeFile(FromQt(file(kOut))), kOut));
    } catch (const std::exception &failure) {
        failed(failure.what());
    }
}

} // namespace havuz
