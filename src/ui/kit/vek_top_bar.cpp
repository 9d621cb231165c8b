#include "ui/kit/vek_top_bar.h"

#include "ui/kit/cad_logo.h"

#include <QHBoxLayout>
#include <QLabel>

namespace havuz {

VekTopBar::VekTopBar(QWidget *parent)
    : QWidget(parent), row_(new QHBoxLayout(this)), title_(new QLabel(this)), subtitle_(new QLabel(this)) {
    QFont bold = font();
    bold.setBold(true);
    title_->setFont(bold);
    auto *words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(title_);
    words->addWidget(subtitle_);
    row_->setContentsMargins(4, 2, 4, 2);
    row_->setSpacing(4);
    row_->addWidget(new CadLogo(this));
    row_->addSpacing(4);
    row_->addLayout(words);
    row_->addStretch(1);
}

void VekTopBar::put(const char *key, const QVariant &value) {
    bag_.put(key, value);
    const QStringList lines = bag_.get(bag::kCaption).toString().split(QLatin1Char('^'));
    title_->setText(lines.value(0).trimmed());
    subtitle_->setText(lines.value(1).trimmed());
}

void VekTopBar::add(QWidget *button) { row_->addWidget(button); }

} // namespace havuz
