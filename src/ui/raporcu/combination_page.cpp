#include "ui/raporcu/combination_page.h"

#include "model/number_text.h"
#include "ui/qt/text.h"
#include "view/result_scene.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace havuz {

static constexpr int kKeyColumn = 0, kNameColumn = 1, kFactoredColumn = 2, kFirstCase = 3;

CombinationPage::CombinationPage(QWidget *parent) : Page(parent) {
    table_ = new QTableWidget;
    table_->setObjectName(QStringLiteral("combinations"));
    QStringList head = {QStringLiteral("anahtar"), QStringLiteral("adı"), QStringLiteral("artırılmış")};
    for (const consistent::Case c : consistent::kAllCases)
        head.append(ToQt(consistent::NameOf(c).key) + QLatin1Char('\n') +
                    ToQt(consistent::NameOf(c).turkish).replace(QLatin1Char(' '), QLatin1Char('\n')));
    table_->setColumnCount(static_cast<int>(head.size()));
    table_->setHorizontalHeaderLabels(head);
    table_->verticalHeader()->hide();
    auto *row = new QHBoxLayout;
    const auto button = [&](const char *text, const char *name, auto pressed) {
        auto *b = new QPushButton(QString::fromUtf8(text));
        b->setObjectName(QLatin1String(name));
        connect(b, &QPushButton::clicked, this, pressed);
        row->addWidget(b);
    };
    button("uygula", "applyCombinations", [this] { apply(); });
    button("varsayılan", "defaultCombinations", [this] { changed({}); });
    button("satır ekle", "addCombination", [this] { addRow({{"yeni", {}}, false}); });
    button("satır sil", "removeCombination", [this] { table_->removeRow(table_->currentRow()); });
    row->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->addWidget(
        new QLabel(QStringLiteral("Katsayıları değiştirip \"uygula\"ya basın; hesap ve rapor onlarla yenilenir "
                                  "ve projenin yanındaki .RAP dosyasında saklanır.")));
    column->addWidget(table_, 1);
    column->addLayout(row);
}

void CombinationPage::addRow(const design::DesignCombination &c) {
    const int row = table_->rowCount();
    table_->insertRow(row);
    table_->setItem(row, kKeyColumn, new QTableWidgetItem(ToQt(c.sum.key)));
    auto *name = new QTableWidgetItem(ToQt(design::TurkishName(c.sum.key)));
    name->setFlags(name->flags() & ~Qt::ItemIsEditable);
    table_->setItem(row, kNameColumn, name);
    auto *factored = new QTableWidgetItem;
    factored->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    factored->setCheckState(c.factored ? Qt::Checked : Qt::Unchecked);
    table_->setItem(row, kFactoredColumn, factored);
    for (std::size_t k = 0; k < consistent::kCases; ++k)
        table_->setItem(row, kFirstCase + static_cast<int>(k),
                        new QTableWidgetItem(ToQt(DecimalCommaText(c.sum.factor[k], 2))));
}

void CombinationPage::show(const Answer &answer) {
    table_->setRowCount(0);
    for (const design::DesignCombination &c : answer->basis.combinations)
        addRow(c);
    table_->resizeColumnsToContents();
}

void CombinationPage::apply() {
    std::vector<design::DesignCombination> all;
    for (int row = 0; row < table_->rowCount(); ++row) {
        design::DesignCombination c;
        c.sum.key = FromQt(table_->item(row, kKeyColumn)->text().trimmed());
        c.factored = table_->item(row, kFactoredColumn)->checkState() == Qt::Checked;
        for (std::size_t k = 0; k < consistent::kCases; ++k)
            c.sum.factor[k] = ParseNumber(FromQt(table_->item(row, kFirstCase + static_cast<int>(k))->text()));
        if (!c.sum.key.empty())
            all.push_back(c);
    }
    changed(all);
}

} // namespace havuz
