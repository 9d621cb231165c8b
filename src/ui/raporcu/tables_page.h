// "Tablolar": the tables that scripts read too, sorted, filtered, copied, written as CSV; a row shows its place.
#pragma once

#include "ui/raporcu/csv_model.h"
#include "ui/raporcu/page.h"

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;
class QTimer;

namespace havuz {

class TablesPage : public Page {
public:
    explicit TablesPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    void takeSource(bool files);                        // extremes of .DEP and .SON besides
    std::function<void(const std::string &words)> tell; // the status line

private:
    void layOut();
    void makeTables();
    void fill();
    void copy();
    void writeFiles();
    void rowClicked(const QModelIndex &index);
    QList<int> chosenRows() const; // of the view, as shown

    Answer answer_;
    bool files_ = false;
    std::vector<std::pair<std::string, std::string>> tables_; // file name, CSV text in international style
    QComboBox *table_;
    QLineEdit *filter_;
    QTimer *soon_; // filters when a person has stopped typing
    CsvModel *model_;
    QSortFilterProxyModel *sorted_;
    QTableView *view_;
};

} // namespace havuz
