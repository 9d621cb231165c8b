// "Donatı": what every panel, zone, face and direction asks for and what is chosen, each row with its calculation by
// hand below; a row that is clicked is shown in the picture.
#pragma once

#include "ui/raporcu/page.h"

class QTableWidget;
class QTextBrowser;

namespace havuz {

class SteelPage : public Page {
public:
    explicit SteelPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;

private:
    void rowChosen(int row);
    void showRow();
    Answer answer_;
    QTableWidget *table_;
    QTextBrowser *worked_;
};

} // namespace havuz
