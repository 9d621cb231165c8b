#include "ui/raporcu/picture_side.h"

#include "model/number_text.h"
#include "ui/qt/text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace havuz {

QComboBox *PictureSide::newList(const char *label, const char *name) {
    auto *list = new QComboBox;
    list->setObjectName(QLatin1String(name));
    list->setMaxVisibleItems(24);
    form_->addRow(QString::fromUtf8(label), list);
    return list;
}

QCheckBox *PictureSide::newMark(const char *label, const char *name, bool on) {
    auto *mark = new QCheckBox(QString::fromUtf8(label));
    mark->setObjectName(QLatin1String(name));
    mark->setChecked(on);
    form_->addRow(mark);
    return mark;
}

QLineEdit *PictureSide::newBox(const char *label, const char *name) {
    auto *box = new QLineEdit;
    box->setObjectName(QLatin1String(name));
    form_->addRow(QString::fromUtf8(label), box);
    return box;
}

PictureSide::PictureSide(QWidget *parent) : QWidget(parent), form_(new QFormLayout) {
    form_->setVerticalSpacing(4);
    quantity = newList("sonuç", "quantity");
    result = newList("durum", "case");
    look = newList("görünüş", "look");
    scale = newList("ölçek", "scale");
    scale->addItem(QStringLiteral("otomatik"), 0);
    scale->addItem(QStringLiteral("sabit"), 1);
    low = newBox("en küçük", "low");
    high = newBox("en büyük", "high");
    smooth = newMark("yumuşak geçiş", "smooth", false);
    lines = newMark("mesh çizgileri", "lines", true);
    marks = newMark("en büyük ve en küçük", "marks", true);
    faults = newMark("mesh raporundaki yerler", "faults", true);
    deformed = newMark("şekil değiştirmiş", "deformed", false);
    factor = newBox("büyütme", "factor");
    factor->setPlaceholderText(QStringLiteral("boyutun % 10'u"));
    line = newMark("çizgi boyunca diyagram", "line", false);
    line->setToolTip(QStringLiteral("panelin üzerine çekilen çizgi boyunca diyagram ve alanı"));
    auto *save = new QPushButton(QStringLiteral("resmi sakla..."));
    save->setObjectName(QStringLiteral("savePicture"));
    form_->addRow(save);
    probe = new QLabel;
    probe->setObjectName(QStringLiteral("probe"));
    probe->setWordWrap(true);
    probe->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    probe->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored); // long words do not move the page
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 6, 0);
    column->addLayout(form_);
    column->addWidget(probe, 1);
    setFixedWidth(290);
    connect(save, &QPushButton::clicked, this, [this] { saveAsked(); });
    connectAll();
    enableBoxes();
}

void PictureSide::connectAll() {
    for (QComboBox *list : {quantity, result})
        connect(list, &QComboBox::currentIndexChanged, this, [this] { resultChanged(); });
    connect(look, &QComboBox::currentIndexChanged, this, [this] { lookChanged(); });
    connect(faults, &QCheckBox::toggled, this, [this] { resultChanged(); });
    const auto style = [this] {
        enableBoxes();
        styleChanged();
    };
    connect(scale, &QComboBox::currentIndexChanged, this, style);
    for (QCheckBox *mark : {smooth, lines, marks, deformed})
        connect(mark, &QCheckBox::toggled, this, style);
    for (QLineEdit *box : {low, high, factor})
        connect(box, &QLineEdit::editingFinished, this, style);
    connect(line, &QCheckBox::toggled, this, [this](bool on) { lineToggled(on); });
}

void PictureSide::enableBoxes() {
    low->setEnabled(scale->currentIndex() == 1);
    high->setEnabled(scale->currentIndex() == 1);
    factor->setEnabled(deformed->isChecked());
}

std::optional<std::pair<double, double>> PictureSide::range() const {
    const double from = ParseNumber(FromQt(low->text())), to = ParseNumber(FromQt(high->text()));
    if (scale->currentIndex() != 1 || !(from < to))
        return std::nullopt;
    return std::pair{from, to};
}

std::optional<double> PictureSide::deformation() const {
    if (!deformed->isChecked())
        return 0.0;
    const double times = ParseNumber(FromQt(factor->text()));
    return times > 0.0 ? std::optional(times) : std::nullopt;
}

} // namespace havuz
