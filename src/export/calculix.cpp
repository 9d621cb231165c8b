#include "export/calculix.h"

#include "model/link_code.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace havuz {

namespace {

// CalculiX takes a spring stiffness without a point for no data at all.
std::string Real(double value) {
    std::string text = ShellNumber(value);
    if (text.find('.') == std::string::npos)
        text.insert(std::min(text.find('e'), text.size()), ".");
    return text;
}

class CalculixWriter {
public:
    explicit CalculixWriter(const ShellModel &model) : m_(model) {}

    std::string text() {
        findSideNodes();
        head();
        nodes();
        meshes();
        springs();
        equations();
        supports();
        for (const ShellCase &c : m_.cases)
            step(c);
        return std::move(text_);
    }

private:
    void line(const std::string &words) { text_ += words + "\n"; }

    void head() {
        line("** " + m_.name + ": a tank for CalculiX 2.20");
        line("** units: m, t (force of 1000 kg), t/m2; z upward; rotations in rad, right-hand");
        line("** node and mesh numbers are those of the project; nodes above " + std::to_string(m_.lastNode) +
             " stand in the middle of mesh sides");
        line("** loads are the nodal loads of the tank, one step for each load case");
    }

    // A node in the middle of each side, shared by the meshes that have the side.
    void findSideNodes() {
        int next = m_.lastNode;
        std::map<int, Vector3> at;
        for (const ShellNode &n : m_.nodes)
            at[n.number] = n.at;
        for (const ShellMesh &mesh : m_.meshes)
            for (std::size_t k = 0; k < mesh.corners.size(); ++k) {
                const auto side = sideOf(mesh, k);
                if (sides_.emplace(side, next + 1).second)
                    middles_.push_back({++next, 0.5 * (at[side.first] + at[side.second]), {}, 0.0});
            }
    }
    static std::pair<int, int> sideOf(const ShellMesh &mesh, std::size_t k) {
        return std::minmax({mesh.corners[k], mesh.corners[(k + 1) % mesh.corners.size()]});
    }

    void node(const ShellNode &n) {
        line(std::to_string(n.number) + ", " + Real(n.at.x) + ", " + Real(n.at.y) + ", " + Real(n.at.z));
    }
    void nodes() {
        line("*NODE, NSET=NALL");
        for (const ShellNode &n : m_.nodes)
            node(n);
        line("*NODE, NSET=NSIDE");
        for (const ShellNode &n : middles_)
            node(n);
    }

    void meshes() {
        std::map<int, double> thickness; // by panel
        std::string open;
        for (const ShellMesh &mesh : m_.meshes) {
            thickness[mesh.panel] = mesh.thickness;
            const std::string type = mesh.corners.size() == 3 ? "S6" : "S8R";
            const std::string card = "*ELEMENT, TYPE=" + type + ", ELSET=PANEL_" + std::to_string(mesh.panel);
            if (card != open)
                line(card);
            open = card;
            std::string fields = std::to_string(mesh.number);
            for (const int corner : mesh.corners)
                fields += ", " + std::to_string(corner);
            for (std::size_t k = 0; k < mesh.corners.size(); ++k)
                fields += ", " + std::to_string(sides_.at(sideOf(mesh, k)));
            line(fields);
        }
        line("** concrete: modulus of elasticity t/m2, Poisson's ratio");
        line("*MATERIAL, NAME=CONCRETE");
        line("*ELASTIC");
        line(Real(m_.E) + ", " + Real(m_.poisson));
        for (const auto &[panel, t] : thickness) {
            line("** " +
                 (OwnerIsPlate(panel) ? "plate " + std::to_string(OwnerPlate(panel))
                                      : "panel " + std::to_string(panel)) +
                 ": thickness m");
            line("*SHELL SECTION, MATERIAL=CONCRETE, ELSET=PANEL_" + std::to_string(panel));
            line(Real(t));
        }
    }

    // One spring element along each axis; those of one stiffness in one set.
    void springs() {
        std::map<std::string, std::vector<int>> byStiffness;
        for (const ShellNode &n : m_.nodes)
            if (n.spring != 0.0)
                byStiffness[Real(n.spring)].push_back(n.number);
        if (!byStiffness.empty())
            line("** springs of the soil, t/m along x, y and z");
        int element = m_.lastMesh, set = 0;
        for (const auto &[stiffness, bearing] : byStiffness) {
            ++set;
            for (const char *axis : {"1", "2", "3"}) {
                const std::string name = "SOIL_" + std::to_string(set) + "_" + axis;
                line("*ELEMENT, TYPE=SPRING1, ELSET=" + name);
                for (const int n : bearing)
                    line(std::to_string(++element) + ", " + std::to_string(n));
                line("*SPRING, ELSET=" + name);
                line(axis);
                line(stiffness);
            }
        }
    }

    // A freedom that is held follows nothing.
    void equations() {
        if (!m_.hanging.empty())
            line("** nodes that hang on an edge follow its ends");
        std::map<int, std::array<bool, 6>> held;
        for (const ShellNode &n : m_.nodes)
            held[n.number] = n.held;
        for (const ShellHanging &h : m_.hanging)
            for (int freedom = 0; freedom < 6; ++freedom)
                if (!held[h.node][static_cast<std::size_t>(freedom)])
                    equation(h, freedom);
    }
    void equation(const ShellHanging &h, int freedom) {
        std::vector<std::string> terms = {term(h.node, freedom, -1.0)};
        for (const consistent::NodeLink &link : h.links)
            for (int i = 0; i < 6; ++i)
                if (std::fabs(link.from(freedom, i)) > 1e-12)
                    terms.push_back(term(link.master, i, link.from(freedom, i)));
        line("*EQUATION");
        line(std::to_string(terms.size()));
        std::string fields;
        for (std::size_t i = 0; i < terms.size(); ++i) {
            fields += terms[i];
            const bool last = i + 1 == terms.size();
            fields += last ? "" : ", ";
            if (i % 4 == 3 || last) {
                line(fields);
                fields.clear();
            }
        }
    }
    static std::string term(int node, int freedom, double factor) {
        return std::to_string(node) + ", " + std::to_string(freedom + 1) + ", " + Real(factor);
    }

    void supports() {
        std::string lines;
        for (const ShellNode &n : m_.nodes)
            for (std::size_t i = 0; i < 6; ++i)
                if (n.held[i])
                    lines += std::to_string(n.number) + ", " + std::to_string(i + 1) + "\n";
        if (!lines.empty())
            text_ += "** supports: node, freedom (1 to 3 displacements, 4 to 6 rotations)\n*BOUNDARY\n" + lines;
    }

    void step(const ShellCase &c) {
        line("** CASE " + c.key);
        line("*STEP");
        line("*STATIC");
        line("** " + c.title + ", t and t.m");
        line("*CLOAD, OP=NEW");
        for (std::size_t n = 1; n < c.force.size(); ++n)
            for (std::size_t i = 0; i < 6; ++i)
                if (c.force[n][i] != 0.0)
                    line(std::to_string(n) + ", " + std::to_string(i + 1) + ", " + Real(c.force[n][i]));
        line("*NODE PRINT, NSET=NALL");
        line("U");
        line("*END STEP");
    }

    const ShellModel &m_;
    std::map<std::pair<int, int>, int> sides_; // ends of a side, its middle node
    std::vector<ShellNode> middles_;
    std::string text_;
};

} // namespace

std::string CalculixText(const ShellModel &model) { return CalculixWriter(model).text(); }

} // namespace havuz
