#include "ui/raporcu/picture_page.h"

#include "model/write_file.h"
#include "ui/qt/text.h"
#include "ui/raporcu/caught.h"
#include "ui/raporcu/probe_words.h"
#include "view/svg_canvas.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace havuz {

namespace {

constexpr int kDiagramPoints = 241;
constexpr double kNodeReach = 6.0; // pixels: as near to a corner the probe tells of the node

struct SteelChoice { // steel is not a Quantity: its keys are AS and a face and a direction
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

// Fills a list anew; what was chosen stays chosen where it is still there.
template <class Fill>
void Refill(QComboBox *list, Fill fill) {
    const QVariant kept = list->currentData();
    list->clear();
    fill();
    const int at = list->findData(kept);
    list->setCurrentIndex(at >= 0 ? at : 0);
}

} // namespace

PicturePage::PicturePage(QWidget *parent)
    : Page(parent), side_(new PictureSide(this)), view_(new ResultView(this)), diagram_(new LineDiagram(this)) {
    view_->setObjectName(QStringLiteral("picture"));
    diagram_->setObjectName(QStringLiteral("diagram"));
    diagram_->hide();
    auto *right = new QVBoxLayout;
    right->addWidget(view_, 1);
    right->addWidget(diagram_);
    auto *row = new QHBoxLayout(this);
    row->addWidget(side_);
    row->addLayout(right, 1);
    side_->resultChanged = [this] { redraw(false); };
    side_->lookChanged = [this] { redraw(true); };
    side_->styleChanged = [this] { takeStyle(); };
    side_->saveAsked = [this] { savePicture(); };
    side_->lineToggled = [this](bool on) {
        view_->drawLines(on);
        diagram_->setVisible(on);
    };
    view_->probed = [this](const std::optional<SceneHit> &hit, ScreenPoint at) { probe(hit, at); };
    view_->lineDrawn = [this](ScreenPoint from, ScreenPoint to) { diagram(from, to); };
    probe(std::nullopt, {});
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

void PicturePage::fillLists() {
    filling_ = true;
    const bool first = side_->quantity->count() == 0;
    Refill(side_->quantity, [this] { fillQuantities(); });
    Refill(side_->result, [this] { fillResults(); });
    Refill(side_->look, [this] {
        side_->look->addItem(QStringLiteral("döndürülmüş"), 0);
        side_->look->addItem(QStringLiteral("plan"), -1);
        for (const auto &[number, panel] : answer_->tank.panels)
            side_->look->addItem(ToQt(PanelWords(panel)) + QStringLiteral(", açılmış"), number);
    });
    if (first)
        side_->quantity->setCurrentIndex(side_->quantity->findData(QStringLiteral("M22")));
    const bool faulty = std::any_of(answer_->meshFaults.begin(), answer_->meshFaults.end(),
                                    [](const MeshFault &f) { return !f.meshes.empty(); });
    side_->faults->setEnabled(faulty);
    filling_ = false;
}

void PicturePage::fillQuantities() {
    for (const Quantity &q : Quantities())
        if (!files_ || InFiles(q))
            side_->quantity->addItem(ToQt(q.turkish), ToQt(q.key));
    for (const SteelChoice &s : kSteelChoices)
        if (!files_)
            side_->quantity->addItem(QString::fromUtf8(s.turkish), QLatin1String(s.key));
}

void PicturePage::fillResults() {
    results_.clear();
    if (files_) {
        for (std::size_t c = 0; c < answer_->columns.size(); ++c)
            side_->result->addItem(QStringLiteral("%1. %2").arg(c + 1).arg(ToQt(answer_->columns[c])),
                                   static_cast<int>(c) + 1);
        return;
    }
    results_ = PictureResults(*answer_);
    for (const PictureResult &r : results_)
        side_->result->addItem(ToQt(r.turkish), ToQt(r.key));
}

PictureChoice PicturePage::choice() const {
    const int look = side_->look->currentData().toInt();
    if (look == 0)
        return {SceneLook::Rotated, 0};
    return look < 0 ? PictureChoice{SceneLook::Plan, 0} : PictureChoice{SceneLook::Flat, look};
}

const Quantity *PicturePage::quantity() const {
    return FindQuantity(FromQt(side_->quantity->currentData().toString()));
}

std::string PicturePage::nameOfResult() const {
    const bool steel = quantity() == nullptr; // of all combinations
    return FromQt(side_->quantity->currentText() + QStringLiteral("   ") +
                  (steel ? QString() : side_->result->currentText() + QStringLiteral("   ")) +
                  side_->look->currentText() + QStringLiteral("   [") +
                  (files_ ? QStringLiteral(".SON dosyası") : QStringLiteral("tutarlı hesap")) + QStringLiteral("]"));
}

ResultScene PicturePage::makeScene() const {
    if (const SteelChoice *steel = FindSteel(side_->quantity->currentData().toString()))
        return SceneOfSteel(answer_->tank, answer_->design.steel, steel->face, steel->direction, choice());
    if (files_)
        return SceneOfFiles(answer_->stem, side_->result->currentData().toInt(), *quantity(), choice(), answer_->tank);
    return SceneOf(*answer_, results_[static_cast<std::size_t>(side_->result->currentIndex())], *quantity(), choice());
}

void PicturePage::markFaults(ResultScene &scene) const {
    for (ResultFace &face : scene.faces)
        for (const MeshFault &fault : answer_->meshFaults)
            face.marked = face.marked || std::binary_search(fault.meshes.begin(), fault.meshes.end(), face.mesh);
}

void PicturePage::redraw(bool refit) {
    if (filling_ || !answer_ || side_->quantity->currentIndex() < 0 || side_->result->currentIndex() < 0)
        return;
    ResultScene scene;
    try {
        scene = makeScene();
    } catch (const std::exception &) { // a file that went or was cut since
        tell(CaughtInTurkish());
    }
    scene.title = nameOfResult();
    if (side_->faults->isChecked())
        markFaults(scene);
    side_->result->setEnabled(quantity() != nullptr);
    view_->highlight(0);
    view_->setScene(std::move(scene), refit);
    takeStyle();
}

void PicturePage::takeStyle() {
    SceneStyle style;
    style.smooth = side_->smooth->isChecked();
    style.meshLines = side_->lines->isChecked();
    style.marks = side_->marks->isChecked();
    style.deformation = side_->deformation().value_or(UsualDeformation(view_->scene()));
    style.range = side_->range();
    view_->setStyle(style);
}

void PicturePage::probe(const std::optional<SceneHit> &hit, ScreenPoint at) {
    if (!hit || !answer_) {
        side_->probe->setText(QStringLiteral("sürükle: döndür; tekerlek: büyüt<br>orta düğme: kaydır; "
                                             "çift tık: sığdır<br>imleç: nokta ya da mesh, bütün durumlar"));
        return;
    }
    const int corner =
        CornerNear(view_->scene(), view_->transform(), view_->style().deformation, hit->face, at, kNodeReach);
    side_->probe->setText(ProbeWords(*answer_, view_->scene(), {*hit, corner}, quantity(), files_));
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
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Resmi sakla"),
                                                      answer_ ? ToQt(answer_->stem) + QStringLiteral(".png") : "",
                                                      QStringLiteral("Resimler (*.png *.svg)"));
    if (path.isEmpty())
        return;
    std::string bytes;
    if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        SvgCanvas canvas(view_->width(), view_->height());
        DrawScene(canvas, view_->scene(), view_->style(), view_->transform());
        bytes = canvas.document(view_->scene().title);
    } else {
        QByteArray png;
        QBuffer buffer(&png);
        view_->picture().save(&buffer, "PNG");
        bytes = png.toStdString();
    }
    try {
        WriteWholeFile(FromQt(path), bytes);
        tell("YAZILDI: " + FromQt(path));
    } catch (const std::exception &) {
        tell(CaughtInTurkish());
    }
}

// A place without a panel is shown in the view that stands, or on the panel of its mesh.
void PicturePage::showAt(const ShownPlace &place) {
    const auto choose = [](QComboBox *list, const QVariant &value) {
        const int at = list->findData(value);
        if (at >= 0)
            list->setCurrentIndex(at);
    };
    int mesh = place.mesh, panel = place.panel, corner = 0;
    for (const consistent::TankMesh &m : answer_->tank.meshes) {
        if (mesh != 0 ? m.mesh != mesh : std::find(m.node.begin(), m.node.end(), place.node) == m.node.end())
            continue;
        mesh = m.mesh;
        panel = panel != 0 ? panel : m.panel;
        const auto found = std::find(m.node.begin(), m.node.end(), place.node);
        corner = found == m.node.end() ? 0 : static_cast<int>(found - m.node.begin()) + 1;
        break;
    }
    if (!place.quantity.empty())
        choose(side_->quantity, ToQt(place.quantity));
    if (!place.key.empty())
        choose(side_->result, ToQt(place.key));
    if (panel != 0)
        choose(side_->look, panel);
    view_->highlight(mesh, corner);
}

} // namespace havuz
