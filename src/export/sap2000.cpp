#include "export/sap2000.h"

#include <algorithm>
#include <set>
#include <utility>

namespace havuz {

namespace {

constexpr std::size_t kLineLength = 240;

using Fields = std::vector<std::pair<std::string, std::string>>;

std::string Quoted(const std::string &value) {
    std::string text = value;
    std::replace(text.begin(), text.end(), '"', '\'');
    return text.find_first_of(" ,=") == std::string::npos && !text.empty() ? text : "\"" + text + "\"";
}

void AddTable(std::string &text, const std::string &name) { text += "\nTABLE:  \"" + name + "\"\n"; }

// One record, continued by "_" where it would be too long.
void AddRecord(std::string &text, const Fields &fields) {
    std::string line;
    for (const auto &[name, value] : fields) {
        const std::string field = "   " + name + "=" + value;
        if (line.size() + field.size() + 2 > kLineLength) {
            text += line + " _\n";
            line.clear();
        }
        line += field;
    }
    text += line + "\n";
}

std::string YesNo(bool yes) { return yes ? "Yes" : "No"; }

// A section for each thickness.
std::string SectionOf(const ShellMesh &m) { return "T" + ShellNumber(m.thickness); }

void AddHead(std::string &text, const ShellModel &model) {
    AddTable(text, "PROGRAM CONTROL");
    AddRecord(text, {{"ProgramName", "SAP2000"}, {"Version", "14.0.0"}, {"CurrUnits", Quoted("Tonf, m, C")}});
    AddTable(text, "PROJECT INFORMATION");
    AddRecord(text, {{"Item", Quoted("Project Name")}, {"Data", Quoted(model.name)}});
    AddTable(text, "COORDINATE SYSTEMS");
    AddRecord(text, {{"Name", "GLOBAL"},
                     {"Type", "Cartesian"},
                     {"X", "0"},
                     {"Y", "0"},
                     {"Z", "0"},
                     {"AboutZ", "0"},
                     {"AboutY", "0"},
                     {"AboutX", "0"}});
    AddTable(text, "MATERIAL PROPERTIES 01 - GENERAL");
    AddRecord(text, {{"Material", "CONCRETE"}, {"Type", "Concrete"}, {"SymType", "Isotropic"}, {"TempDepend", "No"}});
    AddTable(text, "MATERIAL PROPERTIES 02 - BASIC MECHANICAL PROPERTIES");
    AddRecord(text, {{"Material", "CONCRETE"},
                     {"UnitWeight", "0"},
                     {"UnitMass", "0"},
                     {"E1", ShellNumber(model.E)},
                     {"G12", ShellNumber(model.E / (2.0 * (1.0 + model.poisson)))},
                     {"U12", ShellNumber(model.poisson)},
                     {"A1", "0"}});
}

void AddShape(std::string &text, const ShellModel &model) {
    AddTable(text, "JOINT COORDINATES");
    for (const ShellNode &n : model.nodes)
        AddRecord(text, {{"Joint", std::to_string(n.number)},
                         {"CoordSys", "GLOBAL"},
                         {"CoordType", "Cartesian"},
                         {"XorR", ShellNumber(n.at.x)},
                         {"Y", ShellNumber(n.at.y)},
                         {"Z", ShellNumber(n.at.z)},
                         {"SpecialJt", "Yes"}});
    AddTable(text, "CONNECTIVITY - AREA");
    for (const ShellMesh &m : model.meshes) {
        Fields fields = {{"Area", std::to_string(m.number)}, {"NumJoints", std::to_string(m.corners.size())}};
        for (std::size_t k = 0; k < m.corners.size(); ++k)
            fields.emplace_back("Joint" + std::to_string(k + 1), std::to_string(m.corners[k]));
        AddRecord(text, fields);
    }
    AddTable(text, "AREA SECTION PROPERTIES");
    std::set<std::string> sections;
    for (const ShellMesh &m : model.meshes)
        if (sections.insert(SectionOf(m)).second)
            AddRecord(text, {{"Section", SectionOf(m)},
                             {"Material", "CONCRETE"},
                             {"MatAngle", "0"},
                             {"AreaType", "Shell"},
                             {"Type", "Shell-Thin"},
                             {"DrillDOF", "Yes"},
                             {"Thickness", ShellNumber(m.thickness)},
                             {"BendThick", ShellNumber(m.thickness)}});
    AddTable(text, "AREA SECTION ASSIGNMENTS");
    for (const ShellMesh &m : model.meshes)
        AddRecord(text, {{"Area", std::to_string(m.number)}, {"Section", SectionOf(m)}, {"MatProp", "Default"}});
    if (model.hanging.empty())
        return;
    AddTable(text, "AREA EDGE CONSTRAINT ASSIGNMENTS");
    for (const ShellMesh &m : model.meshes)
        AddRecord(text, {{"Area", std::to_string(m.number)}, {"Constrained", "Yes"}});
}

void AddSupports(std::string &text, const ShellModel &model) {
    std::string records;
    for (const ShellNode &n : model.nodes) {
        if (std::find(n.held.begin(), n.held.end(), true) == n.held.end())
            continue;
        Fields fields = {{"Joint", std::to_string(n.number)}};
        for (std::size_t i = 0; i < 6; ++i)
            fields.emplace_back(std::array{"U1", "U2", "U3", "R1", "R2", "R3"}[i], YesNo(n.held[i]));
        AddRecord(records, fields);
    }
    if (records.empty())
        return;
    AddTable(text, "JOINT RESTRAINT ASSIGNMENTS");
    text += records;
}

void AddCases(std::string &text, const ShellModel &model) {
    AddTable(text, "LOAD PATTERN DEFINITIONS");
    for (const ShellCase &c : model.cases)
        AddRecord(text,
                  {{"LoadPat", Quoted(c.key)}, {"DesignType", c.key == "G" ? "DEAD" : "OTHER"}, {"SelfWtMult", "0"}});
    AddTable(text, "LOAD CASE DEFINITIONS");
    for (const ShellCase &c : model.cases)
        AddRecord(text, {{"Case", Quoted(c.key)}, {"Type", "LinStatic"}, {"InitialCond", "Zero"}});
    AddTable(text, "CASE - STATIC 1 - LOAD ASSIGNMENTS");
    for (const ShellCase &c : model.cases)
        AddRecord(text, {{"Case", Quoted(c.key)},
                         {"LoadType", Quoted("Load pattern")},
                         {"LoadName", Quoted(c.key)},
                         {"LoadSF", "1"}});
    AddTable(text, "JOINT LOADS - FORCE");
    for (const ShellCase &c : model.cases)
        for (std::size_t n = 1; n < c.force.size(); ++n) {
            if (c.force[n] == NodalForce{})
                continue;
            Fields fields = {{"Joint", std::to_string(n)}, {"LoadPat", Quoted(c.key)}, {"CoordSys", "GLOBAL"}};
            for (std::size_t i = 0; i < 6; ++i)
                fields.emplace_back(std::array{"F1", "F2", "F3", "M1", "M2", "M3"}[i], ShellNumber(c.force[n][i]));
            AddRecord(text, fields);
        }
}

void AddSprings(std::string &text, const ShellModel &model) {
    AddTable(text, "JOINT SPRING ASSIGNMENTS 1 - UNCOUPLED");
    for (const ShellNode &n : model.nodes)
        if (n.spring != 0.0)
            AddRecord(text, {{"Joint", std::to_string(n.number)},
                             {"CoordSys", "GLOBAL"},
                             {"U1", ShellNumber(n.spring)},
                             {"U2", ShellNumber(n.spring)},
                             {"U3", ShellNumber(n.spring)},
                             {"R1", "0"},
                             {"R2", "0"},
                             {"R3", "0"}});
}

} // namespace

std::string Sap2000Text(const ShellModel &model) {
    std::string text = "File " + model.name + ".s2k: node and area numbers are those of the project\n";
    AddHead(text, model);
    AddShape(text, model);
    AddSupports(text, model);
    AddCases(text, model);
    AddSprings(text, model);
    return text + "\nEND TABLE DATA\n";
}

} // namespace havuz
