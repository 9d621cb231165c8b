#include "ui/raporcu/sweep_page.h"

#include "model/files.h"
#include "model/number_text.h"
#include "model/write_file.h"
#include "report/sweep.h"
#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"
#include "ui/raporcu/plot_view.h"
#include "view/result_scene.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace havuz {

namespace {

template <class Widget>
Widget *Named(Widget *widget, const char *name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QString Minutes(double seconds) {
    const int whole = static_cast<int>(seconds);
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

// Words of the columns that always come; others stand as they are.
QString TurkishColumn(const std::string &name) {
    constexpr std::pair<const char *, const char *> kNames[] = {{"steel_t", "donatı (t)"},
                                                                {"steel_kg_m3", "donatı (kg/m³)"},
                                                                {"concrete_m3", "beton (m³)"},
                                                                {"weight_t", "ağırlık (t)"},
                                                                {"settlement_mm", "oturma (mm)"},
                                                                {"soil_t_m2", "zemin gerilmesi (t/m²)"},
                                                                {"flotation", "yüzme G/U"},
                                                                {"crack_mm", "çatlak (mm)"},
                                                                {"nodes", "nokta"},
                                                                {"meshes", "mesh"},
                                                                {"residual", "artık"}};
    for (const auto &[column, turkish] : kNames)
        if (name == column)
            return QStringLiteral("%1: %2").arg(ToQt(name), QString::fromUtf8(turkish));
    return ToQt(name);
}

} // namespace

SweepPage::SweepPage(QWidget *parent)
    : Page(parent), sweep_(Named(new QLineEdit, "sweep")), extra_(Named(new QLineEdit, "sweepExtra")),
      concrete_(Named(new QLineEdit, "priceConcrete")), steel_(Named(new QLineEdit, "priceSteel")),
      start_(Named(new QPushButton(QStringLiteral("hesapla")), "startSweep")),
      stop_(Named(new QPushButton(QStringLiteral("durdur")), "stopSweep")),
      saveTable_(Named(new QPushButton(QStringLiteral("tabloyu sakla...")), "saveSweep")),
      savePlot_(Named(new QPushButton(QStringLiteral("grafiği sakla...")), "savePlot")),
      x_(Named(new QComboBox, "plotX")), y_(Named(new QComboBox, "plotY")), by_(Named(new QComboBox, "plotBy")),
      rows_(Named(new QLabel, "sweepRows")), lightest_(Named(new QLabel, "lightest")),
      progress_(Named(new QProgressBar, "sweepProgress")), plot_(Named(new PlotView, "plot")) {
    sweep_->setPlaceholderText(QStringLiteral("KenarKalinlik=20:40:5 AltKalinlik=30,40"));
    sweep_->setToolTip(QStringLiteral("ad=değer,değer ya da ad=ilk:son:adım; adlar boşlukla ayrılır"));
    extra_->setPlaceholderText(QStringLiteral("M_2_22_test"));
    extra_->setToolTip(QStringLiteral("panelin en büyük momenti: M_PANEL_11 ya da 22_KOMBINASYON"));
    concrete_->setText(QStringLiteral("120"));
    steel_->setText(QStringLiteral("900"));
    layOut();
    connect(sweep_, &QLineEdit::textChanged, this, [this] { countRows(); });
    connect(sweep_, &QLineEdit::returnPressed, start_, &QPushButton::click);
    connect(start_, &QPushButton::clicked, this, [this] { begin(); });
    connect(stop_, &QPushButton::clicked, this, [this] { run_->stop(); });
    connect(saveTable_, &QPushButton::clicked, this, [this] { save("csv"); });
    connect(savePlot_, &QPushButton::clicked, this, [this] { save("svg"); });
    for (QComboBox *list : {x_, y_, by_})
        connect(list, &QComboBox::activated, this, [this] { plot(); });
    for (QLineEdit *box : {concrete_, steel_})
        connect(box, &QLineEdit::editingFinished, this, [this] { tellLightest(); });
    countRows();
}

void SweepPage::layOut() {
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("değişenler"), sweep_);
    form->addRow(QStringLiteral("ek sonuçlar"), extra_);
    auto *run = new QHBoxLayout;
    for (QWidget *widget : std::initializer_list<QWidget *>{start_, stop_, progress_, rows_})
        run->addWidget(widget);
    run->setStretch(2, 1);
    run->addStretch(0);
    auto *choice = new QHBoxLayout;
    const auto add = [&](const char *words, QWidget *widget) {
        choice->addWidget(new QLabel(QString::fromUtf8(words)));
        choice->addWidget(widget);
    };
    add("yatay", x_);
    add("düşey", y_);
    add("çizgiler", by_);
    add("beton, 1 m³", concrete_);
    add("donatı, 1 t", steel_);
    concrete_->setFixedWidth(70);
    steel_->setFixedWidth(70);
    choice->addStretch(1);
    choice->addWidget(saveTable_);
    choice->addWidget(savePlot_);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addLayout(run);
    column->addWidget(plot_, 1);
    column->addLayout(choice);
    column->addWidget(lightest_);
    for (QComboBox *list : {x_, y_, by_})
        list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (QPushButton *button : {start_, stop_})
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    for (QPushButton *button : {stop_, saveTable_, savePlot_})
        button->setEnabled(false);
    progress_->setVisible(false);
}

void SweepPage::setProgram(const std::string &cli) {
    run_ = std::make_unique<SweepRun>(cli);
    run_->progressed = [this](int done, int rows, double perSecond) {
        progress_->setRange(0, rows);
        progress_->setValue(done);
        const double left = perSecond > 0.0 ? (rows - done) / perSecond : 0.0;
        rows_->setText(QStringLiteral("%1 / %2 havuz, saniyede %3, kalan %4")
                           .arg(done)
                           .arg(rows)
                           .arg(ToQt(DecimalCommaText(perSecond, 1)), Minutes(left)));
    };
    run_->finished = [this](const CsvTable &table) { takeTable(table); };
    run_->failed = [this](const std::string &words) { ended(ToQt(words)); };
}

void SweepPage::show(const Answer &answer) { answer_ = answer; }

// What the sweep that is being typed would make.
void SweepPage::countRows() {
    try {
        rows_->setText(sweep_->text().isEmpty()
                           ? QString()
                           : QStringLiteral("%1 havuz").arg(SweepTable(FromQt(sweep_->text())).rows.size()));
    } catch (const TableFailure &failure) {
        rows_->setText(QString::fromUtf8(failure.what()));
    }
}

void SweepPage::begin() {
    if (!answer_ || !run_ || run_->running())
        return;
    SweepQuestion question{FindFile(answer_->stem + ".POL"), FromQt(sweep_->text()), {}};
    for (const QString &name : extra_->text().split(QLatin1Char(','), Qt::SkipEmptyParts))
        question.extra.push_back(FromQt(name.trimmed()));
    if (const std::string words = run_->start(question); !words.empty()) {
        rows_->setText(ToQt(words));
        return;
    }
    inputs_ = SweepTable(question.sweep).head.size();
    start_->setEnabled(false);
    stop_->setEnabled(true);
    progress_->setVisible(true);
}

void SweepPage::ended(const QString &words) {
    start_->setEnabled(true);
    stop_->setEnabled(false);
    progress_->setVisible(false);
    rows_->setText(words);
}

void SweepPage::takeTable(const CsvTable &table) {
    table_ = table;
    const std::size_t words = table_.column("words");
    int failures = 0;
    std::string first;
    for (const auto &row : table_.rows)
        if (!row[words].text.empty()) {
            first = failures++ == 0 ? row[words].text : first;
        }
    ended(QStringLiteral("%1 havuz").arg(table_.rows.size()) +
          (failures == 0 ? QString() : QStringLiteral(", %1 hesaplanamadı: %2").arg(failures).arg(ToQt(first))));
    for (QComboBox *list : {x_, y_, by_})
        list->clear();
    by_->addItem(QStringLiteral("-"), QString());
    for (std::size_t c = 1; c < table_.head.size(); ++c) { // column 0 numbers the rows
        const std::string &name = table_.head[c].text;
        QComboBox *list = c <= inputs_ ? x_ : y_;
        if (name != "words" && name != "verdict")
            list->addItem(TurkishColumn(name), ToQt(name));
        if (c <= inputs_)
            by_->addItem(ToQt(name), ToQt(name));
    }
    y_->setCurrentIndex(std::max(0, y_->findData(QStringLiteral("steel_t"))));
    by_->setCurrentIndex(inputs_ > 1 ? 2 : 0);
    for (QPushButton *button : {saveTable_, savePlot_})
        button->setEnabled(true);
    plot();
    tellLightest();
}

void SweepPage::plot() {
    PlotQuestion question;
    question.x = FromQt(x_->currentData().toString());
    question.y = FromQt(y_->currentData().toString());
    question.by = FromQt(by_->currentData().toString());
    plot_->show(table_, question);
}

void SweepPage::tellLightest() {
    if (table_.rows.empty())
        return;
    const auto number = [&](std::size_t row, const char *column) {
        return DecimalCommaText(ParseNumber(table_.rows[row][table_.column(column)].text), 2);
    };
    try {
        const auto least =
            LightestRow(table_, {ParseNumber(FromQt(concrete_->text())), ParseNumber(FromQt(steel_->text()))});
        if (!least) {
            lightest_->setText(QStringLiteral("En hafif: bütün kontrolleri sağlayan havuz yok"));
            return;
        }
        std::string words;
        for (std::size_t c = 1; c <= inputs_; ++c)
            words += (c == 1 ? "" : ", ") + table_.head[c].text + " = " + table_.rows[least->row][c].text;
        lightest_->setText(ToQt("En hafif: " + words + "; beton " + number(least->row, kConcreteColumn) +
                                " m³, donatı " + number(least->row, kSteelColumn) + " t, tutar " +
                                DecimalCommaText(least->cost, 0)));
    } catch (const TableFailure &failure) {
        lightest_->setText(QString::fromUtf8(failure.what()));
    }
}

void SweepPage::save(const char *suffix) {
    const QString ending = QLatin1String(suffix);
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Sakla"),
                                                      ToQt(answer_->stem) + QStringLiteral("-varyant.") + ending,
                                                      QStringLiteral("%1 (*.%2)").arg(ending.toUpper(), ending));
    if (path.isEmpty())
        return;
    try {
        WriteWholeFile(FromQt(path), ending == QLatin1String("csv") ? CsvText(table_) : plot_->svg());
        tell("YAZILDI: " + FromQt(path));
    } catch (const std::exception &) {
        tell(CaughtInTurkish());
    }
}

} // namespace havuz
