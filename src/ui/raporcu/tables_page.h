// "Tablolar": every table of the results, sorted, filtered, copied, written as CSV; a row that is clicked is shown in
// the picture.
#pragma once

#include "ui/raporcu/page.h"

#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;

namespace havuz {

class TablesPage : public Page {
public:
    explicit TablesPage(QWidget *parent = nullptr);
    void show(const Answer &answer) override;
    std::function<void(const std::string &words)> tell; // the status line

private:
    void fill();
    void copy();
    void writeFiles();
    void rowClicked(const QModelIndex &index);
    QString cell(int row, const char *column) const;

    Answer answer_;
    std::vector<std::pair<std::string, std::string>> tables_; // file, text
    QComboBox *table_;
    QLineEdit *filter_;
    QTableView *view_;
    QStandardItemModel *model_;
    QSortFilterProxyModel *sorted_;
};

// Greatest and least values of each result by panel and case or combination, with their places: head
// panel,kind,case,result,unit,least,mesh_least,greatest,mesh_greatest.
std::string ExtremesTable(const TankAnswer &answer);

} // namespace havuz
