#include "ui/raporcu/tables_page.h"

#include "design/tables.h"
#include "model/write_file.h"
#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"
#include "ui/raporcu/extremes_table.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

constexpr int kTypingPause = 250; // ms

struct TableName {
    const char *file, *turkish;
};
constexpr TableName kNames[] = {{"extremes.csv", "Uç değerler (panellere göre)"},
                                {"envelope.csv", "Zarf (panellere göre)"},
                                {"extremes-son.csv", "Uç değerler, .SON dosyası"},
                                {"nodes.csv", "Noktalar"},
                                {"corners.csv", "Meshler"},
                                {"walls.csv", "Duvar kuvvetleri"},
                                {"proof.csv", "Denge"},
                                {"combinations.csv", "Kombinasyonlar"},
                                {"steel.csv", "Donatı"},
                                {"checks.csv", "Kontroller"}};

QString TurkishOf(const std::string &file) {
    for (const TableName &n : kNames)
        if (file == n.file)
            return QString::fromUtf8(n.turkish);
    return ToQt(file);
}

QPushButton *NewButton(const char *words, const char *name) {
    auto *button = new QPushButton(QString::fromUtf8(words));
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

TablesPage::TablesPage(QWidget *parent)
    : Page(parent), table_(new QComboBox), filter_(new QLineEdit), soon_(new QTimer(this)), model_(new CsvModel(this)),
      sorted_(new QSortFilterProxyModel(this)), view_(new QTableView) {
    layOut();
    soon_->setSingleShot(true);
    soon_->setInterval(kTypingPause);
    connect(table_, &QComboBox::currentIndexChanged, this, [this] { fill(); });
    connect(filter_, &QLineEdit::textChanged, soon_, qOverload<>(&QTimer::start));
    connect(soon_, &QTimer::timeout, this, [this] { sorted_->setFilterFixedString(filter_->text()); });
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex &index) { rowClicked(index); });
    connect(new QShortcut(QKeySequence::Copy, view_), &QShortcut::activated, this, [this] { copy(); });
}

void TablesPage::layOut() {
    table_->setObjectName(QStringLiteral("table"));
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setPlaceholderText(QStringLiteral("süz"));
    QPushButton *copied = NewButton("kopyala", "copyTable"), *written = NewButton("CSV olarak sakla...", "writeTables");
    connect(copied, &QPushButton::clicked, this, [this] { copy(); });
    connect(written, &QPushButton::clicked, this, [this] { writeFiles(); });
    sorted_->setSourceModel(model_);
    sorted_->setSortRole(Qt::UserRole);
    sorted_->setFilterKeyColumn(-1);
    sorted_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    view_->setObjectName(QStringLiteral("tableView"));
    view_->setModel(sorted_);
    view_->setSortingEnabled(true);
    view_->setAlternatingRowColors(true);
    view_->verticalHeader()->hide();
    view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 8);
    auto *row = new QHBoxLayout;
    row->addWidget(table_);
    row->addWidget(filter_, 1);
    row->addWidget(copied);
    row->addWidget(written);
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(view_, 1);
}

void TablesPage::show(const Answer &answer) {
    answer_ = answer;
    makeTables();
}

void TablesPage::takeSource(bool files) {
    if (files == std::exchange(files_, files) || !answer_)
        return;
    makeTables();
    table_->setCurrentIndex(files ? table_->findText(TurkishOf("extremes-son.csv")) : 0);
}

void TablesPage::makeTables() {
    tables_ = {{"extremes.csv", ExtremesTable(*answer_)}, {"envelope.csv", EnvelopeTable(*answer_)}};
    if (files_)
        try {
            tables_.emplace_back("extremes-son.csv", FileExtremesTable(*answer_));
        } catch (const std::exception &) {
            tell(CaughtInTurkish());
        }
    for (const design::NamedTable &t :
         design::ResultTables(*answer_->analysis, answer_->design, design::TableStyle::International, ""))
        tables_.emplace_back(t.file, t.text());
    const QString kept = table_->currentText();
    table_->clear();
    for (const auto &[file, text] : tables_)
        table_->addItem(TurkishOf(file));
    table_->setCurrentIndex(std::max(0, table_->findText(kept)));
}

void TablesPage::fill() {
    if (table_->currentIndex() < 0)
        return;
    sorted_->sort(-1);
    model_->fill(tables_[static_cast<std::size_t>(table_->currentIndex())].second);
    view_->resizeColumnsToContents();
}

QList<int> TablesPage::chosenRows() const {
    QList<int> rows;
    for (const QModelIndex &index : view_->selectionModel()->selectedIndexes())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

// The rows that are chosen, or all that are shown, with tabs between; numbers in full, with the comma.
void TablesPage::copy() {
    QList<int> rows = chosenRows();
    for (int r = 0; rows.isEmpty() && r < sorted_->rowCount(); ++r)
        rows.append(r);
    QStringList lines, head;
    for (int c = 0; c < model_->columnCount(); ++c)
        head.append(model_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString());
    lines.append(head.join(QLatin1Char('\t')));
    for (const int r : rows) {
        QStringList cells;
        for (int c = 0; c < sorted_->columnCount(); ++c) {
            const QModelIndex at = sorted_->mapToSource(sorted_->index(r, c));
            cells.append(model_->field(at.row(), at.column()).replace(QLatin1Char('.'), QLatin1Char(',')));
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
    tell("KOPYALANDI: " + std::to_string(lines.size() - 1) + " satır");
}

void TablesPage::writeFiles() {
    if (!answer_)
        return;
    QString chosen;
    const auto &[file, international] = tables_[static_cast<std::size_t>(table_->currentIndex())];
    const QString beside = QFileInfo(ToQt(answer_->stem)).path() + QLatin1Char('/') + ToQt(file);
    const QString path = QFileDialog::getSaveFileName(
        this, QStringLiteral("Tabloyu sakla"), beside,
        QStringLiteral("CSV, Türkçe (; ve ,) (*.csv);;CSV, uluslararası (, ve .) (*.csv)"), &chosen);
    if (path.isEmpty())
        return;
    std::string text = international;
    if (chosen.contains(QStringLiteral("Türkçe")) || chosen.isEmpty())
        for (char &c : text)
            c = c == ',' ? ';' : c == '.' ? ',' : c;
    try {
        WriteWholeFile(FromQt(path), text);
        tell("YAZILDI: " + FromQt(path));
    } catch (const std::exception &) {
        tell(CaughtInTurkish());
    }
}

// What the row is about: its panel, its case, its mesh or node. Of two extremes the greater by size.
void TablesPage::rowClicked(const QModelIndex &index) {
    const int row = sorted_->mapToSource(index).row();
    const auto number = [&](const char *column) { return model_->field(row, column).toDouble(); };
    const auto word = [&](const char *column) { return FromQt(model_->field(row, column)); };
    const bool least = std::fabs(number("least")) > std::fabs(number("greatest"));
    ShownPlace place;
    place.panel = model_->field(row, "panel").toInt();
    place.key = word("case");
    if (place.key.empty())
        place.key = word("combination");
    place.quantity = word("result");
    place.mesh = model_->field(row, "mesh").toInt();
    if (place.mesh == 0)
        place.mesh = model_->field(row, least ? "mesh_least" : "mesh_greatest").toInt();
    if (const std::string envelope = word("envelope"); !envelope.empty())
        place.key = std::string("envelope-") + (least ? "least" : "most") + (envelope == "factored" ? "-u" : "");
    place.node = model_->field(row, "node").toInt();
    if (showPlace && (place.panel != 0 || place.mesh != 0 || place.node != 0))
        showPlace(place);
}

} // namespace havuz
