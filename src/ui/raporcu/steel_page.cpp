#include "ui/raporcu/steel_page.h"

#include "design/number_words.h"
#include "design/worked.h"
#include "report/result_picture.h"
#include "ui/qt/text.h"
#include "ui/raporcu/steel_view.h"

#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <algorithm>

namespace havuz {

namespace {

const QStringList kHead = {
    QStringLiteral("sonuç"),         QStringLiteral("panel"),      QStringLiteral("bölge"),
    QStringLiteral("yüz"),           QStringLiteral("doğrultu"),   QStringLiteral("M* (t.m/m)"),
    QStringLiteral("N* (t/m)"),      QStringLiteral("As (cm²/m)"), QStringLiteral("As,min (cm²/m)"),
    QStringLiteral("seçilen"),       QStringLiteral("As (cm²/m)"), QStringLiteral("wk / sınır (mm)"),
    QStringLiteral("V / VRd (t/m)"), QStringLiteral("kombinasyon")};

QString CombinationName(const TankAnswer &answer, int place) {
    if (place < 0)
        return QStringLiteral("-");
    return ToQt(design::TurkishName(answer.basis.combinations[static_cast<std::size_t>(place)].sum.key));
}

QStringList CellsOf(const TankAnswer &answer, const design::SteelRow &row) {
    const auto number = [](double v, int d) { return ToQt(design::Turkish(v, d)); };
    const design::LayerChoice &l = row.layer;
    return {QString::fromUtf8(design::VerdictText(row.met())),
            ToQt(PanelWords(answer.tank.panels.at(row.panel))),
            QString::fromUtf8(design::TurkishNameOf(row.zone)),
            QString::fromUtf8(design::TurkishFaceName(row)),
            QString::number(row.direction),
            number(l.governs.M, 3),
            number(l.governs.N, 2),
            number(l.need.area, 2),
            number(l.least, 2),
            ToQt(design::BarsText(l.bars)),
            number(l.bars.area(), 2),
            number(l.crack.wk, 3) + QStringLiteral(" / ") + number(row.crackLimit, 3),
            number(row.shear.V, 2) + QStringLiteral(" / ") + number(row.shear.allowed, 2),
            CombinationName(answer, l.governs.combination)};
}

QString WorkedText(const design::Worked &w) {
    QString text =
        QStringLiteral("<p><b>%1</b> &nbsp; <span style=\"color:#606060\">%2</span><br>%3<br>%4<br>%5 &nbsp; <b>%6</b>")
            .arg(ToQt(w.title).toHtmlEscaped(), ToQt(w.clause).toHtmlEscaped(), ToQt(w.formula).toHtmlEscaped(),
                 ToQt(w.numbers).toHtmlEscaped(), ToQt(w.result).toHtmlEscaped(),
                 QString::fromUtf8(design::VerdictText(w.met)));
    if (!w.advice.empty())
        text += QStringLiteral("<br>") + ToQt(w.advice).toHtmlEscaped();
    return text + QStringLiteral("</p>");
}

// Where the row is governed: mesh, place, combination.
QString PlaceWords(const TankAnswer &answer, const design::SteelRow &row) {
    const design::Demand &at = row.layer.governs;
    for (const consistent::TankMesh &m : answer.tank.meshes)
        if (m.mesh == at.mesh && at.corner >= 1 && at.corner <= 4) {
            const Vector3 &p = answer.tank.corner(m, static_cast<std::size_t>(at.corner - 1));
            return QStringLiteral("<p><b>%1, %2, %3 yüz, %4 doğrultusu</b><br>Belirleyen yer: mesh %5, nokta %6, "
                                  "(%7; %8; %9) m; %10</p>")
                .arg(ToQt(PanelWords(answer.tank.panels.at(row.panel))),
                     QString::fromUtf8(design::TurkishNameOf(row.zone)),
                     QString::fromUtf8(design::TurkishFaceName(row)))
                .arg(row.direction)
                .arg(m.mesh)
                .arg(m.node[static_cast<std::size_t>(at.corner - 1)])
                .arg(ToQt(design::Turkish(p.x, 2)), ToQt(design::Turkish(p.y, 2)), ToQt(design::Turkish(p.z, 2)),
                     CombinationName(answer, at.combination));
        }
    return {};
}

} // namespace

SteelPage::SteelPage(QWidget *parent)
    : Page(parent), panel_(new QComboBox), view_(new SteelView), table_(new QTableWidget), worked_(new QTextBrowser) {
    panel_->setObjectName(QStringLiteral("steelPanel"));
    view_->setObjectName(QStringLiteral("steelView"));
    table_->setObjectName(QStringLiteral("steel"));
    table_->setColumnCount(static_cast<int>(kHead.size()));
    table_->setHorizontalHeaderLabels(kHead);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 8);
    worked_->setObjectName(QStringLiteral("worked"));
    layOut();
    connect(table_, &QTableWidget::currentCellChanged, this, [this](int row) { rowChosen(row); });
    connect(panel_, &QComboBox::activated, this, [this] { panelChosen(panel_->currentData().toInt()); });
    view_->chosen = [this](int row) { table_->setCurrentCell(row, 0); };
}

void SteelPage::layOut() {
    auto *see = new QPushButton(QStringLiteral("resimde göster"));
    see->setObjectName(QStringLiteral("seeSteel"));
    connect(see, &QPushButton::clicked, this, [this] { showRow(); });
    auto *drawing = new QWidget;
    auto *left = new QVBoxLayout(drawing);
    left->setContentsMargins(0, 0, 0, 0);
    auto *row = new QHBoxLayout;
    row->addWidget(panel_);
    row->addWidget(see);
    row->addStretch(1);
    left->addLayout(row);
    left->addWidget(view_, 1);
    auto *top = new QSplitter(Qt::Horizontal);
    top->addWidget(drawing);
    top->addWidget(worked_);
    top->setStretchFactor(0, 5);
    top->setStretchFactor(1, 3);
    top->setSizes({700, 420});
    auto *split = new QSplitter(Qt::Vertical);
    split->addWidget(top);
    split->addWidget(table_);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 1);
    split->setSizes({440, 150});
    auto *column = new QVBoxLayout(this);
    column->addWidget(split, 1);
}

void SteelPage::show(const Answer &answer) {
    answer_ = answer;
    fillTable();
    panel_->clear();
    for (const design::SteelRow &row : answer->design.steel)
        if (panel_->findData(row.panel) < 0)
            panel_->addItem(ToQt(PanelWords(answer->tank.panels.at(row.panel))), row.panel);
    const auto &rows = answer->design.steel;
    const auto bad = std::find_if(rows.begin(), rows.end(), [](const design::SteelRow &r) { return !r.met(); });
    const int first = bad == rows.end() ? 0 : static_cast<int>(bad - rows.begin()); // what is not met comes first
    table_->setCurrentCell(first, 0);
    rowChosen(first);
    QMetaObject::invokeMethod(
        this, [this] { table_->scrollTo(table_->currentIndex()); }, Qt::QueuedConnection);
}

void SteelPage::fillTable() {
    table_->setRowCount(static_cast<int>(answer_->design.steel.size()));
    for (int r = 0; r < table_->rowCount(); ++r) {
        const design::SteelRow &row = answer_->design.steel[static_cast<std::size_t>(r)];
        const QStringList cells = CellsOf(*answer_, row);
        for (int c = 0; c < cells.size(); ++c) {
            auto *item = new QTableWidgetItem(cells[c]);
            if (!row.met())
                item->setBackground(QColor(0xFF, 0xDD, 0xD6));
            item->setForeground(QColor(0x20, 0x20, 0x20));
            table_->setItem(r, c, item);
        }
    }
    table_->resizeColumnsToContents();
}

// The row that is least met of the panel, or its first.
void SteelPage::panelChosen(int panel) {
    int first = -1;
    for (int r = 0; r < table_->rowCount(); ++r) {
        const design::SteelRow &row = answer_->design.steel[static_cast<std::size_t>(r)];
        if (row.panel != panel)
            continue;
        first = first < 0 ? r : first;
        if (!row.met()) {
            first = r;
            break;
        }
    }
    table_->setCurrentCell(first, 0);
}

void SteelPage::rowChosen(int row) {
    if (!answer_ || row < 0 || row >= static_cast<int>(answer_->design.steel.size())) {
        worked_->clear();
        view_->show(answer_, -1);
        return;
    }
    const design::SteelRow &s = answer_->design.steel[static_cast<std::size_t>(row)];
    const design::Basis &basis = answer_->design.basis;
    worked_->setHtml(PlaceWords(*answer_, s) + WorkedText(design::SteelWorked(basis, s)) +
                     WorkedText(design::LeastSteelWorked(basis, s)) + WorkedText(design::CrackWorked(s)) +
                     WorkedText(design::ShearWorked(basis, s)));
    view_->show(answer_, row);
    panel_->setCurrentIndex(panel_->findData(s.panel));
}

void SteelPage::showRow() {
    const int row = table_->currentRow();
    if (!answer_ || row < 0)
        return;
    const design::SteelRow &s = answer_->design.steel[static_cast<std::size_t>(row)];
    ShownPlace place;
    place.panel = s.panel;
    place.mesh = s.layer.governs.mesh;
    place.quantity = s.direction == 1 ? "M11" : "M22";
    if (s.layer.governs.combination >= 0)
        place.key = answer_->basis.combinations[static_cast<std::size_t>(s.layer.governs.combination)].sum.key;
    showPlace(place);
}

} // namespace havuz
