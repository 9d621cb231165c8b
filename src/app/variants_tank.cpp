#include "app/variants_tank.h"

#include "app/cli.h"
#include "app/model_names.h"
#include "app/plan_points.h"
#include "app/project.h"
#include "mesh/oto_mesh.h"
#include "mesh/polygon_pool.h"
#include "mesh/sound_mesh.h"
#include "model/number_text.h"
#include "model/project_file.h"
#include "model/springs.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <algorithm>
#include <array>
#include <optional>

namespace havuz {

namespace {

// The parameters that the pool library builds from.
constexpr std::array kShapeParameters = {"Lx",     "Ly", "KenarKalinlik", "AltKalinlik", "UstKot",
                                         "AltKot", "Bk", "MeshGenisligi"};

// Saves and opens again: numbers are those that a project file keeps, and nothing else is left of what was before.
void PassThroughFile() {
    SpringStiffness();
    const std::string text = ProjectText();
    ResetStore();
    BeginProgram();
    ProjectWindow none;
    LoadProjectText("tank", text, none);
}

// The values of a row by what they are for.
struct RowParts {
    std::string pool, points, sound;
    std::optional<double> width; // column mesh or MeshGenisligi
    bool shapeNamed = false;     // a parameter that the library builds from
    bool meshNamed = false;      // a panel value that the meshing reads
    std::vector<Assignment> parameters, shape, mesh;
};

double WidthOf(const std::string &name, const std::string &value) {
    std::string text = value;
    std::replace(text.begin(), text.end(), ',', '.');
    const auto width = ReadNumberField(text);
    if (!width || !(*width > 0.0))
        throw UsageError(name + ": \"" + value + "\" is no mesh width, m");
    return *width;
}

void TakeWidth(RowParts &row, const std::string &name, const std::string &value) {
    const double width = WidthOf(name, value);
    if (row.width && *row.width != width)
        throw UsageError("mesh and MeshGenisligi are one width and differ");
    row.width = width;
}

bool Among(const std::string &name, const auto &names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void TakeModelValue(RowParts &row, const std::string &name, const std::string &value) {
    Assignment a = ParseModelName(name);
    a.value = value;
    row.shapeNamed = row.shapeNamed || Among(a.name, kShapeParameters);
    row.meshNamed = row.meshNamed || Among(a.name, std::array{"Nx", "Ny", "KenarMesnet"});
    switch (PartOfModel(a)) {
    case ModelPart::Parameter:
        row.parameters.push_back(a);
        break;
    case ModelPart::ShapePart:
        row.shape.push_back(a);
        break;
    case ModelPart::MeshPart:
        row.mesh.push_back(a);
        break;
    }
}

RowParts PartsOf(const RowValues &values) {
    RowParts row;
    for (const auto &[name, value] : values) {
        if (name == "mesh" || name == "MeshGenisligi")
            TakeWidth(row, name, value);
        else if (name == "pool")
            row.pool = value;
        else if (name == "points")
            row.points = value;
        else if (name == "sound")
            row.sound = value;
        else
            TakeModelValue(row, name, value);
    }
    if (!row.pool.empty() && !row.points.empty())
        throw UsageError("pool and points exclude each other");
    if (!row.pool.empty() && row.pool != "rectangular" && row.pool != "circular")
        throw UsageError("pool: \"" + row.pool + "\" is neither rectangular nor circular");
    if (!row.sound.empty() && row.sound != "0" && row.sound != "1")
        throw UsageError("sound: \"" + row.sound + "\" is neither 0 nor 1");
    return row;
}

void TakeParameters(const RowParts &row) {
    for (const Assignment &a : row.parameters)
        SetModelValue(a);
    if (row.width)
        MeshGenisligi = *row.width;
}

void GenerateLibraryPool(bool circular) {
    ClearModel();
    PoolWindow none;
    GeneratePool(circular ? 2 : 1, none);
}

void GeneratePolygon(const std::string &points) {
    PolygonPool pool;
    pool.points = ParsePlanPoints(points);
    if (pool.points.size() < 3)
        throw UsageError("points: an outline has three points or more");
    pool.dp = KenarKalinlik;
    pool.ds = AltKalinlik;
    pool.UstKot = UstKot;
    pool.AltKot = AltKot;
    ClearModel();
    HavuzTip = 0.0;
    BuildPolygonPool(pool);
}

// Everything of the panels that the library or a person gives them, but for the divisions.
std::vector<double> PanelValues() {
    std::vector<double> all;
    for (int i = 1; i <= PanelCount; ++i) {
        const PanelRecord &p = PanelTable[i];
        all.insert(all.end(), {p.Tip + 0.0, p.D + 0.0, p.G + 0.0, p.P + 0.0});
        for (int k = 1; k <= 4; ++k)
            all.insert(all.end(), {p.X[k] + 0.0, p.Y[k] + 0.0, p.Z[k] + 0.0, p.KenarMesnet[k] + 0.0});
    }
    return all;
}

bool BaseIsOfLibrary() { return PlakCount == 0 && (HavuzTip == 1.0 || HavuzTip == 2.0); }

// What a person gave to the nodes goes with the mesh; a pool that is generated anew would lose it without a word.
bool NodesAreWorkedBy() {
    for (int i = 1; i <= NoktaCount; ++i)
        if (NoktaTable[i].Mesnet != 0 || HasPointLoad(NokYukTable[i]))
            return true;
    return false;
}

// The mesh width of a rectangular base, from its divisions: the file does not keep it.
double BaseWidth(const RowParts &row) {
    if (row.width)
        return *row.width;
    if (HavuzTip == 2.0)
        throw UsageError("mesh: the base does not keep its mesh width; give one in the column mesh");
    const int divisions = PanelTable[1].Nx;
    return divisions > 0 ? Lx / divisions : 1.0;
}

// The base made anew with the row's parameters. Only a base that the library makes again as it stands can be varied
// so: what was changed by hand would be lost.
void RegenerateBase(const RowParts &row) {
    if (!BaseIsOfLibrary())
        throw UsageError("the base is no pool of the library: Lx, Ly, Bk, levels and thicknesses of its shape cannot "
                         "be varied; name its panels and plates, or give pool or points");
    if (NodesAreWorkedBy())
        throw UsageError("supports and point loads of the base's nodes go with its mesh when its shape is varied");
    const bool circular = HavuzTip == 2.0;
    const std::vector<double> stored = PanelValues();
    MeshGenisligi = BaseWidth(row);
    const double width = MeshGenisligi;
    GenerateLibraryPool(circular);
    PassThroughFile();
    if (PanelValues() != stored)
        throw UsageError("the panels of the base are not those that its parameters make: its shape cannot be varied");
    MeshGenisligi = width;
    TakeParameters(row);
    GenerateLibraryPool(circular);
}

// Panels and plates. True when a mesh is to be made of them.
bool MakeShape(const RowParts &row, bool hasBase) {
    const bool library = hasBase && BaseIsOfLibrary();
    if (!row.points.empty() || !row.pool.empty() || !hasBase) {
        TakeParameters(row);
        if (!row.points.empty())
            GeneratePolygon(row.points);
        else
            GenerateLibraryPool(row.pool == "circular");
        return HavuzTip != 2.0;
    }
    if (row.shapeNamed || (row.width && library)) {
        RegenerateBase(row);
        return HavuzTip != 2.0;
    }
    TakeParameters(row);
    return MeshCount == 0 || row.meshNamed || row.width;
}

void MakeMesh(const RowParts &row) {
    PassThroughFile();
    if (row.width)
        MeshGenisligi = *row.width;
    MeshWindow none;
    if (row.sound != "1") {
        AutoMesh(none);
        return;
    }
    SoundOptions options;
    options.width = row.width.value_or(0.0);
    const std::vector<std::string> losses = SoundMesh(none, options);
    if (!losses.empty()) // supports and loads of the base: a row must not go on without them
        throw UsageError("the sound mesh does not carry over: " + losses.front());
}

void TakeValues(const std::vector<Assignment> &values) {
    if (values.empty())
        return;
    PassThroughFile();
    for (const Assignment &a : values)
        SetModelValue(a);
}

} // namespace

void CheckVariantColumn(const std::string &name) {
    if (!Among(name, std::array{"pool", "points", "mesh", "sound"}))
        PartOfModel(ParseModelName(name));
}

void MakeVariant(const RowValues &values, bool hasBase) {
    const RowParts row = PartsOf(values);
    const bool meshing = MakeShape(row, hasBase);
    TakeValues(row.shape);
    if (meshing || row.sound == "1")
        MakeMesh(row);
    TakeValues(row.mesh);
    PassThroughFile();
}

} // namespace havuz
