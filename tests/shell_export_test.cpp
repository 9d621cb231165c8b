// The exports to shell programs of today, read back by a small reader of each format: the model is rebuilt from the
// text alone and compared with the tank, its loads summed and compared with statics.
#include "cli_support.h"
#include "consistent/equations.h"
#include "consistent/loads.h"
#include "export/calculix.h"
#include "export/sap2000.h"
#include "export/staad_pro.h"
#include "mesh/oto_mesh.h"
#include "model/store.h"
#include "pool/pool_library.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace havuz {

namespace {

struct ReadModel {
    std::map<int, Vector3> nodes;
    std::map<int, std::vector<int>> meshes; // corners alone
    std::map<int, double> thickness;        // by mesh
    std::map<int, std::array<bool, 6>> held;
    std::map<int, std::array<double, 3>> springs;
    std::map<std::string, std::map<int, NodalForce>> cases;
    std::vector<std::string> order; // of the cases
    std::vector<std::map<std::pair<int, int>, double>> equations;
    double E = 0.0, poisson = 0.0;
};

std::vector<std::string> Words(const std::string &line, const std::string &separators) {
    std::vector<std::string> words;
    for (std::size_t at = line.find_first_not_of(separators); at != std::string::npos;) {
        const std::size_t end = std::min(line.find_first_of(separators, at), line.size());
        words.push_back(line.substr(at, end - at));
        at = line.find_first_not_of(separators, end);
    }
    return words;
}

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// CalculiX: cards begin with one star, comments with two.
class CalculixReader {
public:
    ReadModel read(const std::string &text) {
        for (const std::string &line : Lines(text)) {
            if (line.rfind("** CASE ", 0) == 0)
                m_.order.push_back(line.substr(8));
            else if (line.rfind("**", 0) == 0)
                continue;
            else if (line[0] == '*')
                card(line);
            else
                data(Words(line, ", "));
        }
        for (const auto &[mesh, set] : setOf_)
            if (set.rfind("PANEL_", 0) == 0)
                m_.thickness[mesh] = thicknessOf_[set];
        for (const auto &[element, node] : springNode_)
            for (const auto &[dof, k] : springOf_[setOf_[element]])
                m_.springs[node][static_cast<std::size_t>(dof - 1)] += k;
        return m_;
    }

private:
    static std::string parameter(const std::string &card, const std::string &name) {
        const std::size_t at = card.find(name + "=");
        return at == std::string::npos ? ""
                                       : card.substr(at + name.size() + 1, card.find(',', at) - at - name.size() - 1);
    }
    void card(const std::string &line) {
        card_ = line.substr(0, line.find(','));
        type_ = parameter(line, "TYPE");
        set_ = parameter(line, "ELSET");
        lineOfCard_ = 0;
        if (card_ == "*CLOAD") {
            EXPECT_EQ(parameter(line, "OP"), "NEW");
        }
        if (card_ == "*NODE PRINT") {
            EXPECT_EQ(parameter(line, "NSET"), "NALL");
        }
    }
    void data(const std::vector<std::string> &w) {
        for (const std::string &field : w)
            EXPECT_LE(field.size(), 20U) << "CalculiX reads 20 characters of a field";
        ++lineOfCard_;
        if (card_ == "*NODE")
            m_.nodes[std::stoi(w[0])] = {std::stod(w[1]), std::stod(w[2]), std::stod(w[3])};
        else if (card_ == "*ELEMENT")
            element(w);
        else if (card_ == "*ELASTIC")
            m_.E = std::stod(w[0]), m_.poisson = std::stod(w[1]);
        else if (card_ == "*SHELL SECTION")
            thicknessOf_[set_] = std::stod(w[0]);
        else if (card_ == "*SPRING" && lineOfCard_ == 1)
            dof_ = std::stoi(w[0]);
        else if (card_ == "*SPRING" && w[0].find('.') != std::string::npos) // without a point it is no data
            springOf_[set_][dof_] = std::stod(w[0]);
        else if (card_ == "*BOUNDARY")
            m_.held[std::stoi(w[0])][static_cast<std::size_t>(std::stoi(w[1]) - 1)] = true;
        else if (card_ == "*CLOAD")
            m_.cases[m_.order.back()][std::stoi(w[0])][static_cast<std::size_t>(std::stoi(w[1]) - 1)] +=
                std::stod(w[2]);
        else if (card_ == "*EQUATION")
            equation(w);
    }
    void element(const std::vector<std::string> &w) {
        const int number = std::stoi(w[0]);
        EXPECT_EQ(setOf_.count(number), 0U) << "an element number twice";
        setOf_[number] = set_;
        if (type_ == "SPRING1") {
            springNode_[number] = std::stoi(w[1]);
            return;
        }
        const std::size_t corners = type_ == "S6" ? 3 : 4;
        ASSERT_EQ(w.size(), 1 + 2 * corners);
        for (std::size_t k = 0; k < corners; ++k) {
            m_.meshes[number].push_back(std::stoi(w[1 + k]));
            const Vector3 a = m_.nodes[std::stoi(w[1 + k])], b = m_.nodes[std::stoi(w[1 + (k + 1) % corners])];
            const Vector3 off = 0.5 * (a + b) - m_.nodes[std::stoi(w[1 + corners + k])];
            EXPECT_LT(Dot(off, off), 1e-18) << "the node of a side stands in its middle";
        }
    }
    void equation(const std::vector<std::string> &w) {
        if (lineOfCard_ == 1) {
            m_.equations.emplace_back();
            terms_ = std::stoul(w[0]);
            return;
        }
        EXPECT_LE(w.size(), 12U);
        for (std::size_t i = 0; i < w.size(); i += 3)
            m_.equations.back()[{std::stoi(w[i]), std::stoi(w[i + 1])}] += std::stod(w[i + 2]);
        EXPECT_LE(m_.equations.back().size(), terms_);
    }

    ReadModel m_;
    std::string card_, type_, set_;
    int lineOfCard_ = 0, dof_ = 0;
    std::size_t terms_ = 0;
    std::map<int, std::string> setOf_;
    std::map<int, int> springNode_;
    std::map<std::string, double> thicknessOf_;
    std::map<std::string, std::map<int, double>> springOf_;
};

// STAAD: words; a line that ends with "-" goes on; a word that is no number opens a part.
ReadModel ReadStaad(const std::string &text) {
    ReadModel m;
    std::string part, whole;
    for (const std::string &line : Lines(text)) {
        EXPECT_LE(line.size(), 79U);
        if (line[0] == '*')
            continue;
        if (line.size() > 2 && line.substr(line.size() - 2) == " -") {
            whole += line.substr(0, line.size() - 1);
            continue;
        }
        const std::vector<std::string> w = Words(whole + line, " ");
        whole.clear();
        if (std::isdigit(static_cast<unsigned char>(w[0][0])) == 0) {
            part = w[0] + (w.size() > 1 ? " " + w[1] : "");
            if (w[0] == "LOAD") {
                EXPECT_EQ(w[2] + w[3] + w[4], "LOADTYPENoneTITLE");
                m.order.push_back(line.substr(line.find("TITLE ") + 6));
            }
            if (w[0] == "E")
                m.E = std::stod(w[1]);
            if (w[0] == "POISSON")
                m.poisson = std::stod(w[1]);
            continue;
        }
        const int number = std::stoi(w[0]);
        if (part == "JOINT COORDINATES")
            m.nodes[number] = {std::stod(w[1]), std::stod(w[2]), std::stod(w[3])};
        else if (part == "ELEMENT INCIDENCES")
            for (std::size_t k = 1; k < w.size(); ++k)
                m.meshes[number].push_back(std::stoi(w[k]));
        else if (part == "ELEMENT PROPERTY")
            m.thickness[number] = std::stod(w[2]);
        else if (part == "JOINT LOAD")
            for (std::size_t i = 0; i < 6; ++i) {
                EXPECT_EQ(w[1 + 2 * i], (std::array{"FX", "FY", "FZ", "MX", "MY", "MZ"}[i]));
                m.cases[m.order.back()][number][i] = std::stod(w[2 + 2 * i]);
            }
        else if (part == "SUPPORTS") {
            m.held[number].fill(true);
            for (std::size_t k = 3; k < w.size(); ++k)
                for (std::size_t i = 0; i < 6; ++i) {
                    const std::string name = std::array{"FX", "FY", "FZ", "MX", "MY", "MZ"}[i];
                    if (w[k] == name || w[k] == "K" + name)
                        m.held[number][i] = false;
                    if (w[k] == "K" + name)
                        m.springs[number][i] = std::stod(w[k + 1]);
                }
        }
    }
    return m;
}

// SAP2000: tables of name=value records; a line that ends with "_" goes on.
ReadModel ReadSap(const std::string &text) {
    ReadModel m;
    std::string table, whole, name;
    std::map<std::string, double> sections;
    for (const std::string &line : Lines(text)) {
        if (line.rfind("TABLE:", 0) == 0)
            table = line.substr(9, line.size() - 10);
        if (line.empty() || line[0] != ' ')
            continue;
        if (line.substr(line.size() - 2) == " _") {
            whole += line.substr(0, line.size() - 1);
            continue;
        }
        std::map<std::string, std::string> f;
        for (const std::string &word : Words(whole + line, " "))
            if (const std::size_t at = word.find('='); at != std::string::npos)
                name = word.substr(0, at), f[name] = word.substr(at + 1);
            else
                f[name] += " " + word; // of a value in quotes
        for (auto &[field, value] : f)
            value.erase(std::remove(value.begin(), value.end(), '"'), value.end());
        whole.clear();
        const auto number = [&f](const std::string &name) { return std::stod(f.at(name)); };
        const auto whole1 = [&f](const std::string &name) { return std::stoi(f.at(name)); };
        if (table == "PROGRAM CONTROL") {
            EXPECT_NE(line.find("CurrUnits=\"Tonf, m, C\""), std::string::npos);
        }
        if (table == "MATERIAL PROPERTIES 02 - BASIC MECHANICAL PROPERTIES")
            m.E = number("E1"), m.poisson = number("U12");
        if (table == "JOINT COORDINATES")
            m.nodes[whole1("Joint")] = {number("XorR"), number("Y"), number("Z")};
        if (table == "CONNECTIVITY - AREA")
            for (int k = 1; k <= whole1("NumJoints"); ++k)
                m.meshes[whole1("Area")].push_back(whole1("Joint" + std::to_string(k)));
        if (table == "AREA SECTION PROPERTIES")
            sections[f["Section"]] = number("Thickness");
        if (table == "AREA SECTION ASSIGNMENTS")
            m.thickness[whole1("Area")] = sections.at(f["Section"]);
        if (table == "LOAD PATTERN DEFINITIONS")
            m.order.push_back(f["LoadPat"]);
        for (std::size_t i = 0; i < 6; ++i) {
            const std::string k = std::to_string(i % 3 + 1);
            if (table == "JOINT LOADS - FORCE")
                m.cases[f["LoadPat"]][whole1("Joint")][i] = number((i < 3 ? "F" : "M") + k);
            if (table == "JOINT RESTRAINT ASSIGNMENTS")
                m.held[whole1("Joint")][i] = f[(i < 3 ? "U" : "R") + k] == "Yes";
            if (table == "JOINT SPRING ASSIGNMENTS 1 - UNCOUPLED" && i < 3)
                m.springs[whole1("Joint")][i] = number("U" + k);
        }
    }
    return m;
}

std::vector<std::pair<std::string, ReadModel>> ReadAll(const ShellModel &model) {
    return {{"calculix", CalculixReader().read(CalculixText(model))},
            {"staadpro", ReadStaad(StaadProText(model))},
            {"s2k", ReadSap(Sap2000Text(model))}};
}

// A pool of 12 x 6 x 4 m without strip: liquid to 3.7 m, soil to 2.5 m, water to 1 m, a point load, supports.
void MakePool() {
    ResetAll();
    Lx = 12;
    Ly = 6;
    UstKot = 4;
    Bk = 0;
    KenarKalinlik = 30;
    AltKalinlik = 40;
    SiviKotu = 3.7;
    ToprakKotu = 2.5;
    YeraltiSuKotu = 1;
    PoolWindow none;
    GeneratePool(1, none);
    MeshWindow window;
    AutoMesh(window);
    NokYukTable[9] = {};
    NokYukTable[9].Nokta = 9;
    NokYukTable[9].FX = 1.5;
    NokYukTable[9].FZ = 2.5;
    NoktaTable[1].Mesnet = 4;
    NoktaTable[2].Mesnet = 7;
    NoktaTable[3].Mesnet = 1;
}

void ExpectTheTank(const ReadModel &m, const ShellModel &model) {
    EXPECT_NEAR(m.E, 2850000.0, 1e-6);
    EXPECT_EQ(m.poisson, 0.25);
    ASSERT_EQ(m.meshes.size(), static_cast<std::size_t>(MeshCount));
    for (int i = 1; i <= MeshCount; ++i) {
        const MeshRecord &mesh = MeshTable[i];
        EXPECT_EQ(m.meshes.at(i), (std::vector<int>{mesh.N1, mesh.N2, mesh.N3, mesh.N4})) << i;
        EXPECT_NEAR(m.thickness.at(i), PanelTable[mesh.PanelNo].D / 100.0, 1e-9) << i;
    }
    for (int n = 1; n <= NoktaCount; ++n) {
        const Vector3 off = m.nodes.at(n) - Vector3{NoktaTable[n].X, NoktaTable[n].Y, NoktaTable[n].Z};
        EXPECT_LT(Dot(off, off), 1e-20) << n;
    }
    std::vector<std::string> keys;
    for (const ShellCase &c : model.cases)
        keys.push_back(c.key);
    EXPECT_EQ(m.order, keys);
}

double SumOf(const std::map<int, NodalForce> &forces, std::size_t component) {
    double sum = 0.0;
    for (const auto &[node, force] : forces)
        sum += force[component];
    return sum;
}

ReadModel ReadFile(const std::string &format, const std::string &path) {
    const std::string text = ReadBytes(path);
    return format == "calculix" ? CalculixReader().read(text) : format == "staadpro" ? ReadStaad(text) : ReadSap(text);
}

} // namespace

// What stands in a file of the command line, with the run's own loads and springs: quarters of areas, a column each.
TEST(ShellExport, TheRunsOwnLoadsFromTheCommandLine) {
    const TemporaryFolder folder;
    ASSERT_EQ(Cli(folder,
                  "pool rectangular -o P.POL --set Lx=12 --set Ly=6 --set UstKot=4 --set Bk=0 --set SiviKotu=3.7 "
                  "--set KenarKalinlik=30 --set AltKalinlik=40 --set ToprakKotu=2.5 --set YeraltiSuKotu=1")
                  .status,
              0);
    EXPECT_EQ(Cli(folder, "export s2k P.POL -o U.s2k").status, 1) << "not meshed";
    EXPECT_FALSE(std::filesystem::exists(folder.file("U.s2k")));
    ASSERT_EQ(Cli(folder, "mesh P.POL").status, 0);
    EXPECT_EQ(Cli(folder, "export dxf P.POL -o P.dxf --literal").status, 2)
        << "a drawing shows the consistent analysis";
    for (const std::string format : {"calculix", "staadpro", "s2k"}) {
        SCOPED_TRACE(format);
        ASSERT_EQ(Cli(folder, "export " + format + " P.POL -o P.out --literal").status, 0);
        const ReadModel m = ReadFile(format, folder.file("P.out"));
        EXPECT_EQ(m.order, (std::vector<std::string>{"column 1", "column 2", "column 3", "column 4", "column 5"}));
        double bed = 0.0;
        for (const auto &[node, k] : m.springs)
            bed += k[2];
        EXPECT_NEAR(bed, 2000.0 * 12 * 6, 0.1); // of 32-bit stores
        EXPECT_NEAR(SumOf(m.cases.at("column 1"), 2), -2.5 * (12 * 6 * .4 + 36 * 4 * .3), 1e-3);
        EXPECT_NEAR(SumOf(m.cases.at("column 3"), 2), -12 * 6 * (3.7 - .4), 1e-3); // liquid
        EXPECT_NEAR(SumOf(m.cases.at("column 5"), 2), 12 * 6 * (1.0 - .4), 1e-3);  // its head from the slab's top
        EXPECT_NEAR(SumOf(m.cases.at("column 3"), 0), 0.0, 1e-3);
    }
}

TEST(ShellExport, TheTankReadBackIsTheTank) {
    MakePool();
    const consistent::Tank tank = consistent::ReadTank();
    const ShellModel model = ConsistentModel(tank, "P");
    for (const auto &[format, m] : ReadAll(model)) {
        SCOPED_TRACE(format);
        ExpectTheTank(m, model);
        EXPECT_EQ(m.order, (std::vector<std::string>{"G", "N", "L", "S", "W", "U"}));
        EXPECT_EQ(m.held.at(1), (std::array<bool, 6>{true, true, true, false, false, false}));
        EXPECT_EQ(m.held.at(2), (std::array<bool, 6>{true, true, true, true, true, true}));
        EXPECT_EQ(m.held.at(3), (std::array<bool, 6>{false, false, false, true, false, true}));
        // a uniform bed; a node that is held needs no spring
        double bed = 0.0;
        for (const auto &[node, k] : m.springs) {
            EXPECT_EQ(k[0], k[2]);
            EXPECT_EQ(k[1], k[2]);
            bed += node > 2 ? k[2] : 0.0;
        }
        const std::vector<double> areas = consistent::BedAreas(tank);
        EXPECT_NEAR(bed, 2000.0 * (12 * 6 - areas[1] - areas[2]), 1e-5);
        // statics by hand, t
        EXPECT_NEAR(SumOf(m.cases.at("G"), 2), -2.5 * (12 * 6 * .4 + 36 * 4 * .3), 1e-4);
        EXPECT_NEAR(SumOf(m.cases.at("N"), 2), -2.5, 1e-9);
        EXPECT_NEAR(SumOf(m.cases.at("N"), 0), -1.5, 1e-9);
        EXPECT_NEAR(SumOf(m.cases.at("L"), 2), -12 * 6 * (3.7 - .4), 1e-4);
        EXPECT_NEAR(SumOf(m.cases.at("U"), 2), 12 * 6 * 1.0, 1e-4);
        EXPECT_NEAR(SumOf(m.cases.at("S"), 0), 0.0, 1e-9); // opposite walls
        double pushed = 0.0;                               // on the wall at x = 12
        for (const auto &[node, force] : m.cases.at("S"))
            pushed += NoktaTable[node].X == 12 ? std::min(force[0], 0.0) : 0.0;
        EXPECT_NEAR(pushed, -.4 * 1.8 * 2.5 * 2.5 / 2 * 6, 1e-4);
        // each force at its node
        for (const consistent::Case c : consistent::kAllCases) {
            const auto found = m.cases.find(std::string(consistent::NameOf(c).key));
            const std::vector<Vector3> loads = consistent::NodalLoads(tank, c);
            for (std::size_t n = 1; n < loads.size() && found != m.cases.end(); ++n) {
                const auto at = found->second.find(static_cast<int>(n));
                const NodalForce force = at == found->second.end() ? NodalForce{} : at->second;
                EXPECT_NEAR(force[0], loads[n].x, 1e-11 * std::fabs(loads[n].x));
                EXPECT_NEAR(force[1], loads[n].y, 1e-11 * std::fabs(loads[n].y));
                EXPECT_NEAR(force[2], loads[n].z, 1e-11 * std::fabs(loads[n].z));
            }
        }
    }
}

// A coarse slab beside a fine one: node 7 hangs in the middle of the edge from 2 to 3; mesh 4 is a triangle.
TEST(ShellExport, WhatHangsFollowsAnyRigidMotion) {
    PanelCount = 1;
    PanelTable[1].No = 1;
    PanelTable[1].D = 25;
    PanelTable[1].G = 1;
    const std::array<std::array<double, 2>, 10> places = {
        {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {4, 0}, {4, 1}, {2, 1}, {4, 2}, {6, 0}, {9, 9}}};
    for (const auto &p : places) {
        NoktaRecord &n = NoktaTable[++NoktaCount];
        n.X = p[0];
        n.Y = p[1];
    }
    const std::array<std::array<int, 4>, 4> corners = {{{1, 2, 3, 4}, {2, 5, 6, 7}, {7, 6, 8, 3}, {5, 9, 8, 8}}};
    for (const auto &c : corners) {
        MeshRecord &m = MeshTable[++MeshCount];
        m.N1 = c[0];
        m.N2 = c[1];
        m.N3 = c[2];
        m.N4 = c[3];
        m.PanelNo = 1;
    }
    const ShellModel model = ConsistentModel(consistent::ReadTank(), "H");
    for (const auto &[format, m] : ReadAll(model)) {
        EXPECT_EQ(m.meshes.at(4), (std::vector<int>{5, 9, 8})) << format;
        EXPECT_EQ(m.nodes.count(10), 0U) << "a node that no mesh uses";
        EXPECT_NEAR(SumOf(m.cases.at("G"), 2), -(8.0 + 2.0), 1e-6) << format;
    }
    const ReadModel m = CalculixReader().read(CalculixText(model));
    ASSERT_EQ(m.equations.size(), 12U); // of nodes 7 and 6, which lies on the triangle's side from 5 to 8
    const Vector3 shift{.3, -.2, .5}, turn{.1, .7, -.4};
    for (const auto &equation : m.equations) {
        double sum = 0.0;
        for (const auto &[freedom, factor] : equation) {
            const Vector3 u = shift + Cross(turn, m.nodes.at(freedom.first));
            sum += factor * (freedom.second <= 3 ? u(freedom.second) : turn(freedom.second - 3));
        }
        EXPECT_NEAR(sum, 0.0, 1e-12);
    }
    EXPECT_NE(Sap2000Text(model).find("AREA EDGE CONSTRAINT ASSIGNMENTS"), std::string::npos);
    EXPECT_NE(StaadProText(model).find("joints lie on an edge"), std::string::npos);
}

} // namespace havuz
