#include "ui/raporcu/text_pages.h"

#include "model/write_file.h"
#include "report/answer_report.h"
#include "ui/qt/report_paper.h"
#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"

#include <QCoreApplication>
#include <QDate>
#include <QFileDialog>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace havuz {

static std::string Today() { return FromQt(QDate::currentDate().toString(Qt::ISODate)); }

static QTextBrowser *NewText(const char *name) {
    auto *text = new QTextBrowser;
    text->setObjectName(QLatin1String(name));
    text->setOpenLinks(false);
    return text;
}

SummaryPage::SummaryPage(QWidget *parent) : QWidget(parent), text_(NewText("summary")) {
    auto *column = new QVBoxLayout(this);
    column->addWidget(text_);
}

void SummaryPage::showWords(const QString &html) { text_->setHtml(html); }

ReportPage::ReportPage(QWidget *parent) : Page(parent), text_(NewText("report")) {
    auto *save = new QPushButton(QStringLiteral("raporu sakla (PDF, HTML)..."));
    save->setObjectName(QStringLiteral("saveReport"));
    connect(save, &QPushButton::clicked, this, [this] { this->save(); });
    auto *row = new QHBoxLayout;
    row->addWidget(save);
    row->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(text_, 1);
}

void ReportPage::show(const Answer &answer) {
    answer_ = answer;
    html_ = MakeAnswerReport(*answer, Today(), FromQt(QCoreApplication::applicationVersion())).html;
    text_->setHtml(ToQt(html_));
}

void ReportPage::save() {
    if (!answer_)
        return;
    const QString name = ToQt(answer_->stem) + QStringLiteral(".pdf");
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Raporu sakla"), name,
                                                      QStringLiteral("Rapor (*.pdf *.html)"));
    if (path.isEmpty())
        return;
    try {
        const bool html = path.endsWith(QLatin1String(".html"), Qt::CaseInsensitive);
        WriteWholeFile(FromQt(path), html ? html_ : PdfOfHtml(html_, AnswerReportTitle(*answer_, Today()), Today()));
        tell("YAZILDI: " + FromQt(path));
    } catch (const std::exception &) {
        tell(CaughtInTurkish());
    }
}

} // namespace havuz
