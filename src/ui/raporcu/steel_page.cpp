#include "ui/raporcu/steel_page.h"

#include "design/number_words.h"
#include "design/worked.h"
#include "report/result_picture.h"
#include "ui/qt/text.h"

#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace havuz {

namespace {

const QStringList kHead = {QStringLiteral("panel"),
                           QStringLiteral("bölge"),
                           QStringLiteral("yüz"),
                           QStringLiteral("doğrultu"),
                           QStringLiteral("M* (t.m/m)"),
                           QStringLiteral("N* (t/m)"),
                           QStringLiteral("As (cm²/m)"),
                           QStringLiteral("As,min (cm²/m)"),
                           QStringLiteral("seçilen"),
                           QStringLiteral("As (cm²/m)"),
                           QStringLiteral("wk / sınır (mm)"),
                           QStringLiteral("V / VRd (t/m)"),
                           QStringLiteral("kombinasyon"),
                           QStringLiteral("sonuç")};

QString CombinationName(const TankAnswer &answer, int place) {
    if (place < 0)
        return QStringLiteral("-");
    return ToQt(design::TurkishName(answer.basis.combinations[static_cast<std::size_t>(place)].sum.key));
}

QStringList CellsOf(const TankAnswer &answer, const design::SteelRow &row) {
    const auto number = [](double v, int d) { return ToQt(design::Turkish(v, d)); };
    const design::LayerChoice &l = row.layer;
    return {ToQt(PanelWords(answer.tank.panels.at(row.panel))),
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
            CombinationName(answer, l.governs.combination),
            QString::fromUtf8(design::VerdictText(row.met()))};
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

} // namespace

SteelPage::SteelPage(QWidget *parent) : Page(parent) {
    table_ = new QTableWidget;
    table_->setObjectName(QStringLiteral("steel"));
    table_->setColumnCount(static_cast<int>(kHead.size()));
    table_->setHorizontalHeaderLabels(kHead);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    worked_ = new QTextBrowser;
    worked_->setObjectName(QStringLiteral("worked"));
    auto *see = new QPushButton(QStringLiteral("resimde göster"));
    see->setObjectName(QStringLiteral("seeSteel"));
    auto *split = new QSplitter(Qt::Vertical);
    split->addWidget(table_);
    split->addWidget(worked_);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto *column = new QVBoxLayout(this);
    column->addWidget(split, 1);
    column->addWidget(see, 0, Qt::AlignLeft);
    connect(table_, &QTableWidget::currentCellChanged, this, [this](int row) { rowChosen(row); });
    connect(see, &QPushButton::clicked, this, [this] { showRow(); });
}

void SteelPage::show(const Answer &answer) {
    answer_ = answer;
    table_->setRowCount(static_cast<int>(answer->design.steel.size()));
    for (int r = 0; r < table_->rowCount(); ++r) {
        const design::SteelRow &row = answer->design.steel[static_cast<std::size_t>(r)];
        const QStringList cells = CellsOf(*answer, row);
        for (int c = 0; c < cells.size(); ++c) {
            auto *item = new QTableWidgetItem(cells[c]);
            if (!row.met())
                item->setBackground(QColor(0xFF, 0xDD, 0xD6));
            item->setForeground(QColor(0x20, 0x20, 0x20));
            table_->setItem(r, c, item);
        }
    }
    table_->resizeColumnsToContents();
    table_->setCurrentCell(0, 0);
    rowChosen(0);
}

void SteelPage::rowChosen(int row) {
    if (!answer_ || row < 0 || row >= static_cast<int>(answer_->design.steel.size())) {
        worked_->clear();
        return;
    }
    const design::SteelRow &s = answer_->design.steel[static_cast<std::size_t>(row)];
    const design::Basis &basis = answer_->design.basis;
    worked_->setHtml(WorkedText(design::SteelWorked(basis, s)) + WorkedText(design::LeastSteelWorked(basis, s)) +
                     WorkedText(design::CrackWorked(s)) + WorkedText(design::ShearWorked(basis, s)));
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
