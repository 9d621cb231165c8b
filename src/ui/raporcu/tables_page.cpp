#include "ui/raporcu/tables_page.h"

#include "design/tables.h"
#include "model/failure.h"
#include "model/write_file.h"
#include "report/result_picture.h"
#include "ui/qt/text.h"
#include "ui/raporcu/csv_model.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>
#include <cmath>
#include <map>

namespace havuz {

namespace {

struct TableName {
    const char *file, *turkish;
};
constexpr TableName kNames[] = {{"extremes.csv", "Uç değerler (panellere göre)"},
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

struct Extreme {
    double least = 0.0, greatest = 0.0;
    int leastMesh = 0, greatestMesh = 0;
};

void Take(Extreme &e, double value, int mesh) {
    if (e.leastMesh == 0 || value < e.least)
        e.least = value, e.leastMesh = mesh;
    if (e.greatestMesh == 0 || value > e.greatest)
        e.greatest = value, e.greatestMesh = mesh;
}

// Of the corner values of one result of one case.
std::map<int, Extreme> ExtremesByPanel(const consistent::Tank &tank, const consistent::CaseResult &r,
                                       const Quantity &q) {
    std::map<int, Extreme> byPanel;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4; ++k)
            Take(byPanel[tank.meshes[i].panel], q.factor * ValueOf(q, r.meshes[i][k]), tank.meshes[i].mesh);
    return byPanel;
}

bool IsShellQuantity(const Quantity &q) { return q.key[0] != 'U' && q.key != "SOIL"; }

} // namespace

std::string ExtremesTable(const TankAnswer &answer) {
    design::CsvText text("panel,kind,case,result,unit,least,mesh_least,greatest,mesh_greatest",
                         design::TableStyle::International);
    const consistent::Tank &tank = answer.tank;
    for (const auto *list : {&answer.design.combinations, &answer.design.cases})
        for (const consistent::CaseResult &r : *list)
            for (const Quantity &q : Quantities()) {
                if (!IsShellQuantity(q))
                    continue;
                for (const auto &[panel, e] : ExtremesByPanel(tank, r, q)) {
                    if (e.least == 0.0 && e.greatest == 0.0)
                        continue;
                    text.put(panel).put(tank.panels.at(panel).kind).put(r.key).put(std::string(q.key));
                    text.put(std::string(q.unit)).put(e.least).put(e.leastMesh).put(e.greatest).put(e.greatestMesh);
                    text.endRow();
                }
            }
    return text.text();
}

TablesPage::TablesPage(QWidget *parent) : Page(parent) {
    table_ = new QComboBox;
    table_->setObjectName(QStringLiteral("table"));
    filter_ = new QLineEdit;
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setPlaceholderText(QStringLiteral("süz"));
    auto *copy = new QPushButton(QStringLiteral("kopyala"));
    auto *write = new QPushButton(QStringLiteral("CSV olarak sakla..."));
    write->setObjectName(QStringLiteral("writeTables"));
    auto *row = new QHBoxLayout;
    row->addWidget(table_);
    row->addWidget(filter_, 1);
    row->addWidget(copy);
    row->addWidget(write);
    model_ = new QStandardItemModel(this);
    sorted_ = new QSortFilterProxyModel(this);
    sorted_->setSourceModel(model_);
    sorted_->setSortRole(Qt::UserRole);
    sorted_->setFilterKeyColumn(-1);
    sorted_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    view_ = new QTableView;
    view_->setObjectName(QStringLiteral("tableView"));
    view_->setModel(sorted_);
    view_->setSortingEnabled(true);
    view_->setAlternatingRowColors(true);
    view_->verticalHeader()->hide();
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(view_, 1);
    connect(table_, &QComboBox::currentIndexChanged, this, [this] { fill(); });
    connect(filter_, &QLineEdit::textChanged, sorted_, &QSortFilterProxyModel::setFilterFixedString);
    connect(copy, &QPushButton::clicked, this, [this] { this->copy(); });
    connect(write, &QPushButton::clicked, this, [this] { writeFiles(); });
    connect(view_, &QTableView::clicked, this, [this](const QModelIndex &index) { rowClicked(index); });
    connect(new QShortcut(QKeySequence::Copy, view_), &QShortcut::activated, this, [this] { this->copy(); });
}

void TablesPage::show(const Answer &answer) {
    answer_ = answer;
    tables_ = {{"extremes.csv", ExtremesTable(*answer)}};
    for (const design::NamedTable &t :
         design::ResultTables(*answer->analysis, answer->design, design::TableStyle::International, ""))
        tables_.emplace_back(t.file, t.text);
    const int kept = std::max(0, table_->currentIndex());
    table_->clear();
    for (const auto &[file, text] : tables_)
        table_->addItem(TurkishOf(file));
    table_->setCurrentIndex(kept);
}

void TablesPage::fill() {
    if (table_->currentIndex() < 0)
        return;
    view_->setSortingEnabled(false);
    FillModel(*model_, tables_[static_cast<std::size_t>(table_->currentIndex())].second);
    view_->resizeColumnsToContents();
    view_->setSortingEnabled(true);
    sorted_->sort(-1);
}

// The rows that are chosen, or all that are shown, with tabs between.
void TablesPage::copy() {
    QModelIndexList chosen = view_->selectionModel()->selectedRows();
    QList<int> rows;
    for (const QModelIndex &index : chosen)
        rows.append(index.row());
    if (rows.isEmpty() && view_->selectionModel()->hasSelection())
        for (const QModelIndex &index : view_->selectionModel()->selectedIndexes())
            if (!rows.contains(index.row()))
                rows.append(index.row());
    if (rows.isEmpty())
        for (int r = 0; r < sorted_->rowCount(); ++r)
            rows.append(r);
    QStringList lines, head;
    for (int c = 0; c < sorted_->columnCount(); ++c)
        head.append(model_->horizontalHeaderItem(c)->text());
    lines.append(head.join(QLatin1Char('\t')));
    for (const int r : rows) {
        QStringList cells;
        for (int c = 0; c < sorted_->columnCount(); ++c)
            cells.append(sorted_->index(r, c).data().toString());
        lines.append(cells.join(QLatin1Char('\t')));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
    tell("KOPYALANDI: " + std::to_string(rows.size()) + " satır");
}

void TablesPage::writeFiles() {
    if (!answer_)
        return;
    QString chosen;
    const QString path = QFileDialog::getSaveFileName(
        this, QStringLiteral("Tabloyu sakla"), ToQt(tables_[static_cast<std::size_t>(table_->currentIndex())].first),
        QStringLiteral("CSV, Türkçe (; ve ,) (*.csv);;CSV, uluslararası (, ve .) (*.csv)"), &chosen);
    if (path.isEmpty())
        return;
    std::string text = tables_[static_cast<std::size_t>(table_->currentIndex())].second;
    if (chosen.contains(QStringLiteral("Türkçe")) || chosen.isEmpty())
        for (char &c : text)
            c = c == ',' ? ';' : c == '.' ? ',' : c;
    try {
        WriteWholeFile(FromQt(path), text);
        tell("YAZILDI: " + FromQt(path));
    } catch (const RuntimeFailure &failure) {
        tell(FailureInTurkish(failure));
    }
}

QString TablesPage::cell(int row, const char *column) const {
    for (int c = 0; c < model_->columnCount(); ++c)
        if (model_->horizontalHeaderItem(c)->text() == QLatin1String(column))
            return model_->item(row, c)->data(Qt::UserRole).toString();
    return {};
}

// What the row is about: its panel, its case, its mesh or node.
void TablesPage::rowClicked(const QModelIndex &index) {
    const int row = sorted_->mapToSource(index).row();
    ShownPlace place;
    place.panel = cell(row, "panel").toInt();
    place.key = FromQt(cell(row, "case").isEmpty() ? cell(row, "combination") : cell(row, "case"));
    place.quantity = FromQt(cell(row, "result"));
    const bool atLeast = std::fabs(cell(row, "least").toDouble()) > std::fabs(cell(row, "greatest").toDouble());
    place.mesh = cell(row, "mesh").isEmpty() ? cell(row, atLeast ? "mesh_least" : "mesh_greatest").toInt()
                                             : cell(row, "mesh").toInt();
    place.node = cell(row, "node").toInt();
    if (showPlace && (place.panel != 0 || place.mesh != 0))
        showPlace(place);
}

} // namespace havuz
