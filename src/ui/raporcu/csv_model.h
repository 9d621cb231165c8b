// A table of CSV text as a model for a view: cells are found in the text when they are asked for, so that a table of a
// hundred thousand rows costs little more than its text. The heads are shown in Turkish with their units; numbers with
// six digits and the comma.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <string>
#include <vector>

namespace havuz {

class CsvModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;
    void fill(std::string text); // international style, a head line first

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    // UserRole: the number as double or the word, to sort by.
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    QString field(int row, int column) const;         // as it stands in the text
    QString field(int row, const char *column) const; // by the name of the column; empty without such a column

private:
    std::string text_;
    QStringList names_;
    std::vector<std::size_t> cells_; // where each field begins, row by row; one more at the end
};

} // namespace havuz
