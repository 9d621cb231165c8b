#include "report/result_picture.h"

#include "fea/record_file.h"
#include "model/store.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <map>

namespace havuz {

using consistent::Analysis;
using consistent::CaseResult;
using consistent::ShellResult;
using consistent::Tank;
using consistent::TankMesh;

namespace {

constexpr std::array<Quantity, 15> kQuantities = {{
    {"UX", "Yer değiştirme UX", "mm", true, 3, 1000.0},
    {"UY", "Yer değiştirme UY", "mm", true, 3, 1000.0},
    {"UZ", "Yer değiştirme UZ", "mm", true, 3, 1000.0},
    {"U", "Yer değiştirme, toplam", "mm", false, 3, 1000.0},
    {"N11", "Normal kuvvet N11", "t/m", true, 2, 1.0},
    {"N22", "Normal kuvvet N22", "t/m", true, 2, 1.0},
    {"N12", "Kayma N12", "t/m", true, 2, 1.0},
    {"M11", "Moment M11", "t.m/m", true, 3, 1.0},
    {"M22", "Moment M22", "t.m/m", true, 3, 1.0},
    {"M12", "Burulma M12", "t.m/m", true, 3, 1.0},
    {"MI", "Asal moment MI", "t.m/m", true, 3, 1.0},
    {"MII", "Asal moment MII", "t.m/m", true, 3, 1.0},
    {"Q1", "Kesme kuvveti Q1", "t/m", true, 2, 1.0},
    {"Q2", "Kesme kuvveti Q2", "t/m", true, 2, 1.0},
    {"SOIL", "Zemin gerilmesi", "t/m²", false, 2, 1.0},
}};

bool IsDisplacement(const Quantity &q) { return q.key[0] == 'U'; }
bool IsSoil(const Quantity &q) { return q.key == "SOIL"; }

double OfDisplacement(std::string_view key, double x, double y, double z) {
    if (key == "UX")
        return x;
    if (key == "UY")
        return y;
    return key == "UZ" ? z : std::sqrt(x * x + y * y + z * z);
}

// Principal value, the greater with sign 1.
double Principal(double a, double b, double ab, double sign) {
    return (a + b) / 2.0 + sign * std::sqrt((a - b) * (a - b) / 4.0 + ab * ab);
}

SpacePoint PlaceOf(const Vector3 &v) { return {v.x, v.y, v.z}; }

// Faces of a choice with their places; values are for the caller.
class SceneFrame {
public:
    SceneFrame(const Tank &tank, const PictureChoice &choice) : tank_(tank), choice_(choice) {
        if (choice.look == SceneLook::Flat)
            flat_.emplace(tank, choice.panel);
    }
    bool shows(const TankMesh &m) const { return choice_.panel == 0 || m.panel == choice_.panel; }
    ResultFace face(const TankMesh &m) const {
        ResultFace f;
        f.mesh = m.mesh;
        f.panel = m.panel;
        for (std::size_t k = 0; k < 4; ++k) {
            const SpacePoint p = PlaceOf(tank_.corner(m, k));
            f.at[k] = flat_ ? (*flat_)(p) : p;
        }
        if (flat_)
            CloseRound(f);
        return f;
    }

private:
    // The mesh at which a round wall was cut open has corners at both ends: they are brought together.
    void CloseRound(ResultFace &f) const {
        const double round = flat_->wayAround();
        if (round == 0.0)
            return;
        for (std::size_t k = 1; k < 4; ++k)
            while (f.at[k].x - f.at[0].x > round / 2.0)
                f.at[k].x -= round;
        for (std::size_t k = 1; k < 4; ++k)
            while (f.at[0].x - f.at[k].x > round / 2.0)
                f.at[k].x += round;
    }
    const Tank &tank_;
    PictureChoice choice_;
    std::optional<FlatPanel> flat_;
};

ResultScene EmptyScene(const Quantity &q, const PictureChoice &choice) {
    ResultScene scene;
    scene.look = choice.look;
    scene.unit = std::string(q.unit);
    scene.isSigned = q.isSigned;
    scene.decimals = q.decimals;
    return scene;
}

// Where the mean of a node in a plane stands.
std::map<std::pair<int, int>, std::size_t> MeanPlaces(const Analysis &analysis) {
    std::map<std::pair<int, int>, std::size_t> place;
    const std::vector<consistent::PlaneNode> nodes = analysis.planeNodes();
    for (std::size_t i = 0; i < nodes.size(); ++i)
        place[{nodes[i].node, nodes[i].plane}] = i;
    return place;
}

} // namespace

std::span<const Quantity> Quantities() { return kQuantities; }

const Quantity *FindQuantity(std::string_view key) {
    std::string upper(key);
    for (char &c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto found =
        std::find_if(kQuantities.begin(), kQuantities.end(), [&](const Quantity &q) { return q.key == upper; });
    return found == kQuantities.end() ? nullptr : &*found;
}

double ValueOf(const Quantity &q, const ShellResult &s) {
    const std::string_view key = q.key;
    if (key == "MI" || key == "MII")
        return Principal(s.M11, s.M22, s.M12, key == "MI" ? 1.0 : -1.0);
    const std::array<std::pair<std::string_view, double>, 8> values = {{{"N11", s.N11},
                                                                        {"N22", s.N22},
                                                                        {"N12", s.N12},
                                                                        {"M11", s.M11},
                                                                        {"M22", s.M22},
                                                                        {"M12", s.M12},
                                                                        {"Q1", s.Q1},
                                                                        {"Q2", s.Q2}}};
    for (const auto &[name, value] : values)
        if (name == key)
            return value;
    return 0.0;
}

ResultScene BareScene(const Tank &tank, const PictureChoice &choice) {
    const SceneFrame frame(tank, choice);
    ResultScene scene;
    scene.look = choice.look;
    for (const TankMesh &m : tank.meshes)
        if (frame.shows(m)) {
            scene.faces.push_back(frame.face(m));
            scene.faces.back().hasValue = false;
        }
    return scene;
}

ResultScene SceneOf(const Analysis &analysis, const CaseResult &result, const Quantity &q,
                    const PictureChoice &choice) {
    const Tank &tank = analysis.tank();
    const SceneFrame frame(tank, choice);
    const auto place = MeanPlaces(analysis);
    const std::vector<int> plane = analysis.meshPlanes();
    const std::vector<double> &bed = analysis.bedAreas();
    ResultScene scene = EmptyScene(q, choice);
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const TankMesh &m = tank.meshes[i];
        if (!frame.shows(m))
            continue;
        ResultFace face = frame.face(m);
        face.hasValue = !IsSoil(q);
        bool onBed = tank.panelOf(m).kind == 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const auto node = static_cast<std::size_t>(m.node[k]);
            const consistent::NodeResult &n = result.nodes[node];
            if (choice.look != SceneLook::Flat)
                face.moved[k] = {n.u[0], n.u[1], n.u[2]};
            onBed = onBed && bed[node] > 0.0;
            if (IsDisplacement(q))
                face.value[k] = q.factor * OfDisplacement(q.key, n.u[0], n.u[1], n.u[2]);
            else if (IsSoil(q))
                face.value[k] = q.factor * n.soil;
            else
                face.value[k] = q.factor * ValueOf(q, result.means[place.at({m.node[k], plane[i]})]);
        }
        face.hasValue = face.hasValue || onBed;
        for (std::size_t k = 0; k < 4; ++k)
            face.lifted[k] =
                result.tensionFree && onBed && result.nodes[static_cast<std::size_t>(m.node[k])].soil == 0.0;
        scene.faces.push_back(face);
    }
    return scene;
}

ResultScene SceneOfSteel(const Tank &tank, const std::vector<design::SteelRow> &rows, design::Face face, int direction,
                         const PictureChoice &choice) {
    const SceneFrame frame(tank, choice);
    const std::vector<design::MeshPlace> places = design::FindPlaces(tank);
    ResultScene scene;
    scene.look = choice.look;
    scene.unit = "cm²/m";
    scene.isSigned = false;
    scene.decimals = 2;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const TankMesh &m = tank.meshes[i];
        if (!frame.shows(m))
            continue;
        ResultFace shown = frame.face(m);
        shown.hasValue = false;
        for (const design::SteelRow &row : rows)
            if (row.panel == m.panel && row.face == face && row.direction == direction &&
                row.zone == places[i].zone[static_cast<std::size_t>(direction - 1)]) {
                const double area = std::max(row.layer.need.area, row.layer.least);
                shown.hasValue = std::isfinite(area);
                shown.value = {area, area, area, area};
            }
        scene.faces.push_back(shown);
    }
    return scene;
}

std::vector<std::optional<double>> ValuesAt(const Analysis &analysis, const std::vector<const CaseResult *> &results,
                                            const Quantity &q, int mesh, int corner) {
    const Tank &tank = analysis.tank();
    std::vector<std::optional<double>> values(results.size());
    const auto found =
        std::find_if(tank.meshes.begin(), tank.meshes.end(), [&](const TankMesh &m) { return m.mesh == mesh; });
    if (found == tank.meshes.end() || (IsSoil(q) && tank.panelOf(*found).kind != 0))
        return values;
    const auto index = static_cast<std::size_t>(found - tank.meshes.begin());
    const int plane = analysis.meshPlanes()[index];
    const auto place = corner == 0 ? std::map<std::pair<int, int>, std::size_t>{} : MeanPlaces(analysis);
    for (std::size_t i = 0; i < results.size(); ++i) {
        const CaseResult &r = *results[i];
        if (!IsDisplacement(q) && !IsSoil(q)) {
            const auto at = static_cast<std::size_t>(std::max(corner - 1, 0));
            values[i] =
                q.factor * ValueOf(q, corner == 0 ? r.meshes[index][0] : r.means[place.at({found->node[at], plane})]);
            continue;
        }
        double sum = 0.0;
        for (std::size_t k = 0; k < 4; ++k) {
            const consistent::NodeResult &n = r.nodes[static_cast<std::size_t>(found->node[k])];
            const double value = IsSoil(q) ? n.soil : OfDisplacement(q.key, n.u[0], n.u[1], n.u[2]);
            sum += corner == 0 ? value / 4.0 : static_cast<int>(k) + 1 == corner ? value : 0.0;
        }
        values[i] = q.factor * sum;
    }
    return values;
}

bool InFiles(const Quantity &q) { return q.key[0] != 'Q' && !IsSoil(q); }

// Place of a stress result in a corner of .SON; the files hold membrane stresses, t/m2.
static int SonPlace(std::string_view key) {
    constexpr std::array<std::string_view, 6> names = {"N11", "N22", "N12", "M11", "M22", "M12"};
    return static_cast<int>(std::find(names.begin(), names.end(), key) - names.begin());
}

static double OfSon(const Quantity &q, const SonRecord &record, int column, std::size_t corner, double thickness) {
    const auto at = [&](int r) -> double {
        return record[static_cast<std::size_t>(24 * (column - 1) + 6 * static_cast<int>(corner) + r)];
    };
    if (q.key == "MI" || q.key == "MII")
        return Principal(at(3), at(4), at(5), q.key == "MI" ? 1.0 : -1.0);
    const int place = SonPlace(q.key);
    return place < 3 ? thickness * at(place) : at(place);
}

namespace {

// The files of a run, open to be read at single meshes.
class RunFiles {
public:
    explicit RunFiles(const std::string &project)
        : dep_(project + ".DEP", sizeof(DepRecord), RecordFile::ReadOnly),
          son_(project + ".SON", sizeof(SonRecord), RecordFile::ReadOnly) {}

    // Values of the corners in a column, from 1; moved: their displacements, m.
    std::array<double, 4> valuesAt(const Tank &tank, const TankMesh &m, const Quantity &q, int column,
                                   std::array<SpacePoint, 4> &moved) const {
        std::array<double, 4> values{};
        SonRecord stress{};
        DepRecord displacement{};
        son_.GetRecord(stress, m.mesh);
        for (std::size_t k = 0; k < 4; ++k) {
            dep_.GetRecord(displacement, m.node[k]);
            const auto first = static_cast<std::size_t>(6 * (column - 1));
            moved[k] = {displacement[first], displacement[first + 1], displacement[first + 2]};
            values[k] = q.factor * (IsDisplacement(q) ? OfDisplacement(q.key, moved[k].x, moved[k].y, moved[k].z)
                                                      : OfSon(q, stress, column, k, tank.panelOf(m).thickness));
        }
        return values;
    }

private:
    RecordFile dep_, son_;
};

} // namespace

ResultScene SceneOfFiles(const std::string &project, int column, const Quantity &q, const PictureChoice &choice,
                         const Tank &tank) {
    const SceneFrame frame(tank, choice);
    const RunFiles files(project);
    ResultScene scene = EmptyScene(q, choice);
    for (const TankMesh &m : tank.meshes) {
        if (!frame.shows(m))
            continue;
        ResultFace face = frame.face(m);
        face.value = files.valuesAt(tank, m, q, column, face.moved);
        if (choice.look == SceneLook::Flat)
            face.moved = {};
        scene.faces.push_back(face);
    }
    return scene;
}

std::vector<double> FileValuesAt(const std::string &project, int columns, const Quantity &q, const Tank &tank, int mesh,
                                 int corner) {
    const RunFiles files(project);
    std::vector<double> values;
    for (const TankMesh &m : tank.meshes)
        for (int c = 1; m.mesh == mesh && c <= columns; ++c) {
            std::array<SpacePoint, 4> moved{};
            const std::array<double, 4> v = files.valuesAt(tank, m, q, c, moved);
            values.push_back(corner == 0 ? (v[0] + v[1] + v[2] + v[3]) / 4.0 : v[static_cast<std::size_t>(corner - 1)]);
        }
    return values;
}

std::string PanelWords(const consistent::TankPanel &panel) {
    if (panel.number > 1000)
        return "Plak " + std::to_string(panel.number - 1000) + " (taban)";
    constexpr const char *kinds[] = {"taban", "duvar", "konsol"};
    const int kind = std::clamp(panel.kind, 0, 2);
    return "Panel " + std::to_string(panel.number) + " (" + kinds[kind] + ")";
}

// The laying flat

static constexpr double kPi2 = 6.283185307179586;

static double AngleOf(const SpacePoint &p, const SpacePoint &centre) {
    return std::atan2(p.y - centre.y, p.x - centre.x);
}

FlatPanel::FlatPanel(const Tank &tank, int panel) {
    const std::vector<Vector3> outward = consistent::OutwardNormals(tank);
    double least = 0.0, most = 0.0;
    Vector3 first;
    bool any = false;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const TankMesh &m = tank.meshes[i];
        if (m.panel != panel || tank.panelOf(m).kind != 1)
            continue;
        const Vector3 right = Cross(outward[i], {0.0, 0.0, 1.0});
        if (!any) {
            first = right;
            least = most = 0.0;
        }
        any = true;
        const double angle = std::atan2(first.x * right.y - first.y * right.x, first.x * right.x + first.y * right.y);
        least = std::min(least, angle), most = std::max(most, angle);
    }
    wall_ = any;
    if (!any)
        return;
    const double length = std::hypot(first.x, first.y);
    if (length > 0.0)
        rightX_ = first.x / length, rightY_ = first.y / length;
    constexpr double kFlatEnough = 0.02; // rad
    round_ = tank.circular && most - least > kFlatEnough;
    if (!round_)
        return;
    centre_ = {tank.centre.x, tank.centre.y, 0.0};
    for (const TankMesh &m : tank.meshes)
        if (m.panel == panel) {
            const SpacePoint p = PlaceOf(tank.corner(m, 0));
            radius_ = std::hypot(p.x - centre_.x, p.y - centre_.y);
            from_ = AngleOf(p, centre_);
            // the right-hand direction against the tangent of growing angle
            turn_ = rightX_ * -(p.y - centre_.y) + rightY_ * (p.x - centre_.x) >= 0.0 ? 1.0 : -1.0;
            break;
        }
}

double FlatPanel::wayAround() const { return round_ ? kPi2 * radius_ : 0.0; }

SpacePoint FlatPanel::operator()(const SpacePoint &p) const {
    if (!wall_)
        return p;
    if (!round_)
        return {rightX_ * p.x + rightY_ * p.y, p.z, 0.0};
    double angle = turn_ * (AngleOf(p, centre_) - from_);
    angle -= kPi2 * std::floor(angle / kPi2 + 1e-9);
    return {radius_ * angle, p.z, 0.0};
}

} // namespace havuz
