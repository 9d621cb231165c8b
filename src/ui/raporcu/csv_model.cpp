#include "ui/raporcu/csv_model.h"

#include "ui/qt/text.h"

namespace havuz {

static QStandardItem *ItemOf(const QString &field) {
    auto *item = new QStandardItem;
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    if (isNumber) {
        item->setData(value, Qt::UserRole);
        item->setText(QString(field).replace(QLatin1Char('.'), QLatin1Char(',')));
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    } else {
        item->setData(field, Qt::UserRole);
        item->setText(field);
    }
    item->setEditable(false);
    return item;
}

void FillModel(QStandardItemModel &model, const std::string &text) {
    model.clear();
    QStringList lines = ToQt(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lines.isEmpty())
        return;
    model.setHorizontalHeaderLabels(lines.takeFirst().trimmed().split(QLatin1Char(',')));
    for (const QString &line : lines) {
        QList<QStandardItem *> row;
        for (const QString &field : line.trimmed().split(QLatin1Char(',')))
            row.append(ItemOf(field));
        model.appendRow(row);
    }
}

} // namespace havuz
