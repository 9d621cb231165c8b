#include "design/vtk_file.h"

#include "design/number_words.h"
#include "design/tables.h"

#include <array>

namespace havuz::design {

using consistent::CaseResult;
using consistent::ShellResult;
using consistent::Tank;

namespace {

struct Field {
    const char *name;
    double ShellResult::*value;
};
constexpr std::array<Field, 8> kFields = {{{"N11", &ShellResult::N11},
                                           {"N22", &ShellResult::N22},
                                           {"N12", &ShellResult::N12},
                                           {"M11", &ShellResult::M11},
                                           {"M22", &ShellResult::M22},
                                           {"M12", &ShellResult::M12},
                                           {"Q1", &ShellResult::Q1},
                                           {"Q2", &ShellResult::Q2}}};

// Project numbers of the points, in the order of nodes.csv.
std::vector<std::size_t> UsedNodes(const Tank &tank) {
    std::vector<std::size_t> used;
    for (std::size_t n = 1; n < tank.nodes.size(); ++n)
        if (tank.nodes[n].used)
            used.push_back(n);
    return used;
}

std::string Attribute(const char *name, const std::string &value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

void BeginArray(std::string &text, const std::string &type, const std::string &name, int components) {
    text += "<DataArray" + Attribute("type", type) + Attribute("Name", name) +
            (components > 1 ? Attribute("NumberOfComponents", std::to_string(components)) : "") +
            " format=\"ascii\">\n";
}

void EndArray(std::string &text) { text += "</DataArray>\n"; }

void PutVector(std::string &text, double x, double y, double z) {
    text += TwelveDigits(x) + " " + TwelveDigits(y) + " " + TwelveDigits(z) + "\n";
}

void PutPoints(std::string &text, const Tank &tank, const std::vector<std::size_t> &used) {
    text += "<Points>\n";
    BeginArray(text, "Float64", "Points", 3);
    for (const std::size_t n : used)
        PutVector(text, tank.nodes[n].at.x, tank.nodes[n].at.y, tank.nodes[n].at.z);
    EndArray(text);
    text += "</Points>\n";
}

void PutCells(std::string &text, const Tank &tank, const std::vector<std::size_t> &used) {
    std::vector<std::size_t> point(tank.nodes.size(), 0);
    for (std::size_t i = 0; i < used.size(); ++i)
        point[used[i]] = i;
    text += "<Cells>\n";
    BeginArray(text, "Int64", "connectivity", 1);
    for (const consistent::TankMesh &m : tank.meshes) {
        for (std::size_t k = 0; k < 4; ++k)
            text += std::to_string(point[static_cast<std::size_t>(m.node[k])]) + (k < 3 ? " " : "\n");
    }
    EndArray(text);
    BeginArray(text, "Int64", "offsets", 1);
    for (std::size_t i = 1; i <= tank.meshes.size(); ++i)
        text += std::to_string(4 * i) + "\n";
    EndArray(text);
    BeginArray(text, "UInt8", "types", 1);
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        text += "9\n"; // VTK_QUAD
    EndArray(text);
    text += "</Cells>\n";
}

void PutPointData(std::string &text, const CaseResult &r, const std::vector<std::size_t> &used) {
    BeginArray(text, "Float64", "U_" + r.key, 3);
    for (const std::size_t n : used)
        PutVector(text, r.nodes[n].u[0], r.nodes[n].u[1], r.nodes[n].u[2]);
    EndArray(text);
    BeginArray(text, "Float64", "SOIL_" + r.key, 1);
    for (const std::size_t n : used)
        text += TwelveDigits(r.nodes[n].soil) + "\n";
    EndArray(text);
}

void PutCellData(std::string &text, const CaseResult &r) {
    for (const Field &field : kFields) {
        BeginArray(text, "Float64", std::string(field.name) + "_" + r.key, 1);
        for (const consistent::MeshResult &mesh : r.meshes)
            text += TwelveDigits(mesh[0].*field.value) + "\n";
        EndArray(text);
    }
}

void PutNumbers(std::string &text, const Tank &tank, const char *name, int consistent::TankMesh::*number) {
    BeginArray(text, "Int32", name, 1);
    for (const consistent::TankMesh &m : tank.meshes)
        text += std::to_string(m.*number) + "\n";
    EndArray(text);
}

} // namespace

std::string VtkText(const Tank &tank, const Design &design, const std::string &combination) {
    const std::vector<const CaseResult *> shown = ShownResults(design, combination);
    const std::vector<std::size_t> used = UsedNodes(tank);
    std::string text = "<?xml version=\"1.0\"?>\n<VTKFile type=\"UnstructuredGrid\" version=\"0.1\" "
                       "byte_order=\"LittleEndian\">\n<UnstructuredGrid>\n<Piece" +
                       Attribute("NumberOfPoints", std::to_string(used.size())) +
                       Attribute("NumberOfCells", std::to_string(tank.meshes.size())) + ">\n";
    PutPoints(text, tank, used);
    PutCells(text, tank, used);
    text += "<PointData>\n";
    for (const CaseResult *r : shown)
        PutPointData(text, *r, used);
    text += "</PointData>\n<CellData>\n";
    for (const CaseResult *r : shown)
        PutCellData(text, *r);
    PutNumbers(text, tank, "PANEL", &consistent::TankMesh::panel);
    PutNumbers(text, tank, "MESH", &consistent::TankMesh::mesh);
    return text + "</CellData>\n</Piece>\n</UnstructuredGrid>\n</VTKFile>\n";
}

} // namespace havuz::design
