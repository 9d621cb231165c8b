// The pages of words: "Özet" with the verdict first, and "Rapor" with the whole report, to be saved as HTML or PDF.
#pragma once

#include "ui/raporcu/page.h"

class QTextBrowser;

namespace havuz {

class SummaryPage : public QWidget {
public:
    explicit SummaryPage(QWidget *parent = nullptr);
    void showWords(const QString &html); // from SummaryHtml

private:
    QTextBrowser *text_;
};

class ReportPage : public Page {
public:
    explicit ReportPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    std::function<void(const std::string &words)> tell; // the status line

private:
    void save();
    Answer answer_;
    std::string html_;
    QTextBrowser *text_;
};

} // namespace havuz
