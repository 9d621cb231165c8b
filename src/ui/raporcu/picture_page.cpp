#include "ui/raporcu/picture_page.h"

#include "model/number_text.h"
#include "ui/qt/text.h"
#include "view/svg_canvas.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

constexpr int kDiagramPoints = 241;
const QString kSteel = QStringLiteral("AS"); // steel is not a Quantity: its keys are AS and a face and a direction

struct SteelChoice {
    const char *key, *turkish;
    design::Face face;
    int direction;
};
constexpr SteelChoice kSteelChoices[] = {{"AS_I1", "Donatı, iç/üst yüz, 1 doğrultusu", design::Face::Inner, 1},
                                         {"AS_I2", "Donatı, iç/üst yüz, 2 doğrultusu", design::Face::Inner, 2},
                                         {"AS_O1", "Donatı, dış/alt yüz, 1 doğrultusu", design::Face::Outer, 1},
                                         {"AS_O2", "Donatı, dış/alt yüz, 2 doğrultusu", design::Face::Outer, 2}};

const SteelChoice *FindSteel(const QString &key) {
    for (const SteelChoice &s : kSteelChoices)
        if (key == QLatin1String(s.key))
            return &s;
    return nullptr;
}

QComboBox *NewList(QFormLayout *form, const char *label, const char *name) {
    auto *list = new QComboBox;
    list->setObjectName(QLatin1String(name));
    form->addRow(QString::fromUtf8(label), list);
    return list;
}

QCheckBox *NewMark(QFormLayout *form, const char *label, const char *name, bool on) {
    auto *mark = new QCheckBox(QString::fromUtf8(label));
    mark->setObjectName(QLatin1String(name));
    mark->setChecked(on);
    form->addRow(mark);
    return mark;
}

QLineEdit *NewBox(QFormLayout *form, const char *label, const char *name) {
    auto *box = new QLineEdit;
    box->setObjectName(QLatin1String(name));
    form->addRow(QString::fromUtf8(label), box);
    return box;
}

} // namespace

PicturePage::PicturePage(QWidget *parent) : Page(parent) {
    auto *form = new QFormLayout;
    quantity_ = NewList(form, "sonuç", "quantity");
    case_ = NewList(form, "durum", "case");
    look_ = NewList(form, "görünüş", "look");
    scale_ = NewList(form, "ölçek", "scale");
    scale_->addItem(QStringLiteral("otomatik"));
    scale_->addItem(QStringLiteral("sabit"));
    low_ = NewBox(form, "en küçük", "low");
    high_ = NewBox(form, "en büyük", "high");
    smooth_ = NewMark(form, "yumuşak geçiş", "smooth", false);
    lines_ = NewMark(form, "mesh çizgileri", "lines", true);
    deformed_ = NewMark(form, "şekil değiştirmiş", "deformed", false);
    factor_ = NewBox(form, "büyütme", "factor");
    factor_->setPlaceholderText(QStringLiteral("boyutun % 10'u"));
    line_ = NewMark(form, "çizgi", "line", false);
    line_->setToolTip(QStringLiteral("panelin üzerine çekilen çizgi boyunca diyagram ve alanı"));
    auto *save = new QPushButton(QStringLiteral("resmi sakla..."));
    save->setObjectName(QStringLiteral("savePicture"));
    form->addRow(save);
    probe_ = new QLabel;
    probe_->setObjectName(QStringLiteral("probe"));
    probe_->setWordWrap(true);
    probe_->setMinimumHeight(190);
    probe_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *side = new QWidget;
    auto *column = new QVBoxLayout(side);
    column->addLayout(form);
    column->addWidget(probe_);
    column->addStretch(1);
    side->setFixedWidth(270);
    view_ = new ResultView(this);
    view_->setObjectName(QStringLiteral("picture"));
    diagram_ = new LineDiagram(this);
    diagram_->hide();
    auto *right = new QVBoxLayout;
    right->addWidget(view_, 1);
    right->addWidget(diagram_);
    auto *row = new QHBoxLayout(this);
    row->addWidget(side);
    row->addLayout(right, 1);

    for (QComboBox *list : {quantity_, case_})
        connect(list, &QComboBox::currentIndexChanged, this, [this] { redraw(false); });
    connect(look_, &QComboBox::currentIndexChanged, this, [this] { redraw(true); });
    connect(scale_, &QComboBox::currentIndexChanged, this, [this] { takeStyle(); });
    for (QCheckBox *mark : {smooth_, lines_, deformed_})
        connect(mark, &QCheckBox::toggled, this, [this] { takeStyle(); });
    for (QLineEdit *box : {low_, high_, factor_})
        connect(box, &QLineEdit::editingFinished, this, [this] { takeStyle(); });
    connect(line_, &QCheckBox::toggled, this, [this](bool on) {
        view_->drawLines(on);
        diagram_->setVisible(on);
    });
    connect(save, &QPushButton::clicked, this, [this] { savePicture(); });
    view_->probed = [this](const std::optional<SceneHit> &hit) { probe(hit); };
    view_->lineDrawn = [this](ScreenPoint from, ScreenPoint to) { diagram(from, to); };
}

void PicturePage::show(const Answer &answer) {
    answer_ = answer;
    fillLists();
    redraw(true);
}

void PicturePage::takeSource(bool files) {
    files_ = files;
    if (answer_) {
        fillLists();
        redraw(false);
    }
}

// The lists of the source; what was chosen stays chosen where it is still there.
void PicturePage::fillLists() {
    filling_ = true;
    const auto refill = [](QComboBox *list, const auto &fill) {
        const QVariant kept = list->currentData();
        list->clear();
        fill();
        const int at = list->findData(kept);
        list->setCurrentIndex(at >= 0 ? at : 0);
    };
    refill(quantity_, [this] {
        for (const Quantity &q : Quantities())
            if (!files_ || InFiles(q))
                quantity_->addItem(ToQt(q.turkish), ToQt(q.key));
        for (const SteelChoice &s : kSteelChoices)
            if (!files_)
                quantity_->addItem(QString::fromUtf8(s.turkish), QLatin1String(s.key));
    });
    refill(case_, [this] {
        if (files_) {
            for (std::size_t c = 0; c < answer_->columns.size(); ++c)
                case_->addItem(QStringLiteral("%1. %2").arg(c + 1).arg(ToQt(answer_->columns[c])),
                               static_cast<int>(c) + 1);
            return;
        }
        for (const design::DesignCombination &c : answer_->basis.combinations)
            case_->addItem(ToQt(design::TurkishName(c.sum.key)), ToQt(c.sum.key));
        for (const consistent::Case c : consistent::kAllCases)
            if (answer_->analysis->active(c))
                case_->addItem(ToQt(consistent::NameOf(c).key) + QStringLiteral("  ") +
                                   ToQt(consistent::NameOf(c).turkish),
                               ToQt(consistent::NameOf(c).key));
    });
    refill(look_, [this] {
        look_->addItem(QStringLiteral("döndürülmüş"), 0);
        look_->addItem(QStringLiteral("plan"), -1);
        for (const auto &[number, panel] : answer_->tank.panels)
            look_->addItem(ToQt(PanelWords(panel)), number);
    });
    if (quantity_->currentIndex() == 0 && !files_)
        quantity_->setCurrentIndex(quantity_->findData(QStringLiteral("M22")));
    filling_ = false;
}

PictureChoice PicturePage::choice() const {
    const int look = look_->currentData().toInt();
    if (look == 0)
        return {SceneLook::Rotated, 0};
    return look < 0 ? PictureChoice{SceneLook::Plan, 0} : PictureChoice{SceneLook::Flat, look};
}

const consistent::CaseResult *PicturePage::result() const {
    const std::string key = FromQt(case_->currentData().toString());
    for (const auto *list : {&answer_->design.combinations, &answer_->design.cases})
        for (const consistent::CaseResult &r : *list)
            if (r.key == key)
                return &r;
    return nullptr;
}

std::string PicturePage::nameOfResult() const {
    return FromQt(quantity_->currentText() + QStringLiteral("   ") + case_->currentText() + QStringLiteral("   ") +
                  look_->currentText() + QStringLiteral("   [") +
                  (files_ ? QStringLiteral(".SON dosyası") : QStringLiteral("tutarlı hesap")) + QStringLiteral("]"));
}

ResultScene PicturePage::makeScene() const {
    if (const SteelChoice *steel = FindSteel(quantity_->currentData().toString()))
        return SceneOfSteel(answer_->tank, answer_->design.steel, steel->face, steel->direction, choice());
    const Quantity *quantity = FindQuantity(FromQt(quantity_->currentData().toString()));
    if (files_)
        return SceneOfFiles(answer_->stem, case_->currentData().toInt(), *quantity, choice(), answer_->tank);
    return SceneOf(*answer_->analysis, *result(), *quantity, choice());
}

void PicturePage::redraw(bool refit) {
    if (filling_ || !answer_ || quantity_->currentIndex() < 0 || case_->currentIndex() < 0)
        return;
    ResultScene scene = makeScene();
    scene.title = nameOfResult();
    view_->highlight(0);
    view_->setScene(std::move(scene), refit);
    takeStyle();
}

void PicturePage::takeStyle() {
    SceneStyle style;
    style.smooth = smooth_->isChecked();
    style.meshLines = lines_->isChecked();
    if (deformed_->isChecked()) {
        const double factor = ParseNumber(FromQt(factor_->text()));
        style.deformation = factor > 0.0 ? factor : UsualDeformation(view_->scene());
    }
    const bool fixed = scale_->currentIndex() == 1;
    low_->setEnabled(fixed);
    high_->setEnabled(fixed);
    factor_->setEnabled(deformed_->isChecked());
    const double low = ParseNumber(FromQt(low_->text())), high = ParseNumber(FromQt(high_->text()));
    if (fixed && low < high)
        style.range = {low, high};
    view_->setStyle(style);
}

// The place under the pointer, and there the values of all cases.
void PicturePage::probe(const std::optional<SceneHit> &hit) {
    if (!hit || !answer_) {
        probe_->setText(QStringLiteral("sürükle: döndür   tekerlek: büyüt\norta düğme: kaydır   çift tık: sığdır"));
        return;
    }
    const ResultScene &scene = view_->scene();
    const ResultFace &face = scene.faces[hit->face];
    const auto number = [](double v, int d) { return ToQt(DecimalCommaText(v, d)); };
    QString text = QStringLiteral("<b>mesh %1</b>, %2<br>")
                       .arg(face.mesh)
                       .arg(ToQt(PanelWords(answer_->tank.panels.at(face.panel))));
    text +=
        QStringLiteral("yer (%1; %2; %3) m<br>").arg(number(hit->at.x, 2), number(hit->at.y, 2), number(hit->at.z, 2));
    if (face.hasValue)
        text += QStringLiteral("<b>%1 %2</b><br>").arg(number(hit->value, scene.decimals), ToQt(scene.unit));
    const Quantity *quantity = FindQuantity(FromQt(quantity_->currentData().toString()));
    if (quantity == nullptr || files_) {
        probe_->setText(text);
        return;
    }
    text += QStringLiteral("<table>");
    for (const consistent::CaseResult &r : answer_->design.cases) {
        const auto value = ValueAt(*answer_->analysis, r, *quantity, face.mesh);
        if (value && *value != 0.0)
            text += QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td align=right>%2 %3</td></tr>")
                        .arg(ToQt(r.key), number(*value, quantity->decimals), ToQt(quantity->unit));
    }
    probe_->setText(text + QStringLiteral("</table>(meshin ortasında)"));
}

void PicturePage::diagram(ScreenPoint from, ScreenPoint to) {
    std::vector<DiagramPoint> points;
    std::optional<SpacePoint> last;
    double along = 0.0;
    for (int i = 0; i < kDiagramPoints; ++i) {
        const double t = static_cast<double>(i) / (kDiagramPoints - 1);
        const auto hit = HitScene(view_->scene(), view_->transform(), view_->style().deformation,
                                  from.x + t * (to.x - from.x), from.y + t * (to.y - from.y));
        if (!hit)
            continue;
        along += last ? SpaceDistance(*last, hit->at) : 0.0;
        last = hit->at;
        points.push_back({along, hit->value});
    }
    diagram_->show(std::move(points), view_->scene().unit, view_->scene().decimals);
}

void PicturePage::savePicture() {
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Resmi sakla"), {}, QStringLiteral("Resimler (*.png *.svg)"));
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        view_->picture().save(path, "PNG");
        return;
    }
    SvgCanvas canvas(view_->width(), view_->height());
    DrawScene(canvas, view_->scene(), view_->style(), view_->transform());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray::fromStdString(canvas.document(view_->scene().title)));
}

void PicturePage::showAt(const ShownPlace &place) {
    const auto choose = [](QComboBox *list, const QVariant &value) {
        const int at = list->findData(value);
        if (at >= 0)
            list->setCurrentIndex(at);
    };
    if (!place.quantity.empty())
        choose(quantity_, ToQt(place.quantity));
    if (!place.key.empty())
        choose(case_, ToQt(place.key));
    choose(look_, place.panel);
    view_->highlight(place.mesh);
}

} // namespace havuz
