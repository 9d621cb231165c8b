// "Donatı": what every panel, zone, face and direction asks for and what is chosen, drawn on the panel and as a table,
// each row with its calculation by hand; a row can be shown in the picture.
#pragma once

#include "ui/raporcu/page.h"

class QComboBox;
class QTableWidget;
class QTextBrowser;

namespace havuz {

class SteelView;

class SteelPage : public Page {
public:
    explicit SteelPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;

private:
    void layOut();
    void fillTable();
    void rowChosen(int row);
    void panelChosen(int panel);
    void showRow();
    Answer answer_;
    QComboBox *panel_;
    SteelView *view_;
    QTableWidget *table_;
    QTextBrowser *worked_;
};

} // namespace havuz
