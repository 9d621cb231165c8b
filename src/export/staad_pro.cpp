#include "export/staad_pro.h"

#include <algorithm>
#include <utility>

namespace havuz {

namespace {

constexpr std::size_t kLineLength = 79;

// A line of words, continued by " -" where it would be too long.
void AddWords(std::string &text, const std::vector<std::string> &words) {
    std::string line;
    for (const std::string &word : words) {
        if (!line.empty() && line.size() + 1 + word.size() + 2 > kLineLength) {
            text += line + " -\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    text += line + "\n";
}

// Three held translations go before a spring; what is not held is released or springs.
std::vector<std::string> SupportWords(const ShellNode &n) {
    std::vector<std::string> words = {std::to_string(n.number), "FIXED"};
    std::vector<std::string> released;
    const bool springs = n.spring != 0.0;
    for (std::size_t i = 0; i < 3; ++i)
        if (!n.held[i] && !springs)
            released.push_back(std::array{"FX", "FY", "FZ"}[i]);
    for (std::size_t i = 3; i < 6; ++i)
        if (!n.held[i])
            released.push_back(std::array{"MX", "MY", "MZ"}[i - 3]);
    for (std::size_t i = 0; i < 3; ++i)
        if (!n.held[i] && springs) {
            released.push_back(std::array{"KFX", "KFY", "KFZ"}[i]);
            released.push_back(ShellNumber(n.spring));
        }
    if (released.empty())
        return words;
    words.push_back("BUT");
    words.insert(words.end(), released.begin(), released.end());
    return words;
}

bool IsSupported(const ShellNode &n) {
    return n.spring != 0.0 || std::find(n.held.begin(), n.held.end(), true) != n.held.end();
}

void AddHead(std::string &text, const ShellModel &model) {
    text += "STAAD SPACE " + model.name + "\nINPUT WIDTH 79\nSET Z UP\nUNIT METER MTON\n";
    text += "* nodes and elements have the numbers of the project; loads are nodal loads\n";
    if (!model.hanging.empty())
        text += "* " + std::to_string(model.hanging.size()) +
                " joints lie on an edge of an element and are not joined to it here\n";
}

void AddShape(std::string &text, const ShellModel &model) {
    text += "JOINT COORDINATES\n";
    for (const ShellNode &n : model.nodes)
        AddWords(text, {std::to_string(n.number), ShellNumber(n.at.x), ShellNumber(n.at.y), ShellNumber(n.at.z)});
    text += "ELEMENT INCIDENCES SHELL\n";
    for (const ShellMesh &m : model.meshes) {
        std::vector<std::string> words = {std::to_string(m.number)};
        for (const int corner : m.corners)
            words.push_back(std::to_string(corner));
        AddWords(text, words);
    }
    text += "ELEMENT PROPERTY\n";
    for (const ShellMesh &m : model.meshes)
        AddWords(text, {std::to_string(m.number), "THICKNESS", ShellNumber(m.thickness)});
    text += "CONSTANTS\n";
    AddWords(text, {"E", ShellNumber(model.E), "ALL"});
    AddWords(text, {"POISSON", ShellNumber(model.poisson), "ALL"});
}

void AddSupports(std::string &text, const ShellModel &model) {
    text += "SUPPORTS\n";
    for (const ShellNode &n : model.nodes)
        if (IsSupported(n))
            AddWords(text, SupportWords(n));
}

void AddCase(std::string &text, const ShellCase &c, int number) {
    text += "LOAD " + std::to_string(number) + " LOADTYPE None TITLE " + c.key + "\nJOINT LOAD\n";
    for (std::size_t n = 1; n < c.force.size(); ++n) {
        if (c.force[n] == NodalForce{})
            continue;
        std::vector<std::string> words = {std::to_string(n)};
        for (std::size_t i = 0; i < 6; ++i) {
            words.push_back(std::array{"FX", "FY", "FZ", "MX", "MY", "MZ"}[i]);
            words.push_back(ShellNumber(c.force[n][i]));
        }
        AddWords(text, words);
    }
}

} // namespace

std::string StaadProText(const ShellModel &model) {
    std::string text;
    AddHead(text, model);
    AddShape(text, model);
    AddSupports(text, model);
    int number = 0;
    for (const ShellCase &c : model.cases)
        AddCase(text, c, ++number);
    return text + "PERFORM ANALYSIS PRINT STATICS CHECK\nFINISH\n";
}

} // namespace havuz
