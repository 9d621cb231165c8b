#include "verification/samples.h"

#include "consistent/tables.h"
#include "design/checks.h"
#include "fea/equations.h"
#include "verification/literal_run.h"
#include "verification/outcome.h"
#include "verification/page.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>

namespace havuz::verification {

namespace {

namespace fs = std::filesystem;

// A project as it lies in the folder, solved.
struct Sample {
    explicit Sample(const std::string &path) {
        OpenProject(path);
        analysis = std::make_unique<Analysis>(ReadTank());
        design = design::DesignTank(*analysis, design::MakeBasis({}));
        run = RunStore(analysis->tank());
        codes = ColumnCodes();
    }
    const CaseResult &of(const std::string &key) const {
        for (const auto &results : {&design.cases, &design.combinations})
            for (const CaseResult &r : *results)
                if (r.key == key)
                    return r;
        throw std::runtime_error("no case " + key);
    }
    const CaseResult &runOf(const std::string &key) const {
        return run[PlaceOfColumn(codes, key == "L" ? kColumnLiquid : key == "S" ? kColumnSoil : -1)];
    }
    std::unique_ptr<Analysis> analysis;
    design::Design design;
    std::vector<CaseResult> run;
    std::vector<int> codes;
};

double GreatestOf(const Tank &tank, const CaseResult &r, int panel, const std::string &quantity) {
    const auto at = std::find(kQuantities.begin(), kQuantities.end(), quantity);
    if (at == kQuantities.end())
        throw std::runtime_error("no result " + quantity);
    double most = 0.0;
    bool found = false;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4 && tank.meshes[i].panel == panel; ++k) {
            const double v = ValuesOf(r.meshes[i][k])[static_cast<std::size_t>(at - kQuantities.begin())];
            most = std::fabs(v) > std::fabs(most) ? v : most;
            found = true;
        }
    if (!found)
        throw std::runtime_error("no panel " + std::to_string(panel));
    return most;
}

double OnWall(const CaseResult &r, int panel, bool moment) {
    for (const WallForce &w : r.walls)
        if (w.panel == panel)
            return (moment ? w.moment : w.force) / w.length;
    throw std::runtime_error("no wall " + std::to_string(panel));
}

double SinksMost(const Sample &s, const CaseResult &r) {
    double most = 0.0;
    for (std::size_t n = 1; n < r.nodes.size(); ++n)
        if (s.analysis->bedAreas()[n] > 0.0)
            most = std::max(most, -1000.0 * r.nodes[n].u[2]);
    return most;
}

double SoilOf(const Sample &s, const std::string &key) {
    for (const design::SoilState &soil : s.design.soil)
        if (soil.combination == key)
            return soil.pressure;
    throw std::runtime_error("no combination " + key);
}

// The zone of a panel's face that asks for most steel in a direction.
const design::LayerChoice &LayerOf(const Sample &s, int panel, const std::string &face, int direction) {
    if (face != "iç" && face != "dış")
        throw std::runtime_error("no face " + face);
    const design::SteelRow *most = nullptr;
    for (const design::SteelRow &row : s.design.steel)
        if (row.panel == panel && row.direction == direction && (row.face == design::Face::Inner) == (face == "iç") &&
            (most == nullptr || row.layer.need.area > most->layer.need.area))
            most = &row;
    if (most == nullptr)
        throw std::runtime_error("no steel in panel " + std::to_string(panel));
    return most->layer;
}

std::vector<std::string> WordsOf(std::string text) {
    std::replace(text.begin(), text.end(), ',', ' ');
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

// The whole of a tank.
double OfTank(const Sample &s, const std::vector<std::string> &w) {
    const design::Flotation &f = s.design.flotation;
    if (w[0] == "G/U")
        return f.ratio();
    if (w[0] == "kaldırma")
        return f.uplift;
    if (w[0] == "ölü")
        return f.dead;
    if (w[0] == "sıvı")
        return -s.of("L").proof.load[2];
    if (w[0] == "zemin" && w.size() == 2)
        return SoilOf(s, w[1]);
    if (w[0] == "çökme" && w.size() == 2)
        return SinksMost(s, s.of(w[1]));
    throw std::runtime_error("nothing known: " + w[0]);
}

// hesap M|N|As duvar|taban N iç|dış 1|2
double OfSteel(const Sample &s, const std::vector<std::string> &w) {
    if (w.size() != 6)
        throw std::runtime_error("hesap asks for a value, a panel, a face and a direction");
    const design::LayerChoice &layer = LayerOf(s, std::stoi(w[3]), w[4], std::stoi(w[5]));
    if (w[1] == "M")
        return layer.governs.M;
    if (w[1] == "N")
        return layer.governs.N;
    if (w[1] == "As")
        return layer.need.area;
    throw std::runtime_error("nothing known: hesap " + w[1]);
}

// asked: the first cell without what stands in brackets.
double ValueOf(const Sample &s, const std::string &asked) {
    std::vector<std::string> w = WordsOf(asked);
    const bool ofRun = !w.empty() && w[0] == "koşum";
    if (ofRun)
        w.erase(w.begin());
    if (w.empty())
        throw std::runtime_error("an empty row");
    if (w[0] == "hesap")
        return OfSteel(s, w);
    if (w[0] != "duvar" && w[0] != "taban")
        return OfTank(s, w);
    if (w.size() < 4)
        throw std::runtime_error("nothing known: " + asked);
    const CaseResult &r = ofRun ? s.runOf(w[2]) : s.of(w[2]);
    const int panel = std::stoi(w[1]);
    if (w[3] == "itki" || w[3] == "dip")
        return OnWall(r, panel, w[3] == "dip");
    return GreatestOf(s.analysis->tank(), r, panel, w[3]);
}

std::string Comma(std::string number) {
    std::replace(number.begin(), number.end(), '.', ',');
    return number;
}

// A row of three cells below its head; others stay.
std::string FilledRow(const std::string &line, const Sample &s) {
    const std::size_t second = line.find('|', 1), third = line.find('|', second + 1);
    if (line[0] != '|' || second == std::string::npos || third == std::string::npos || line[1] == '-' ||
        line.rfind("| büyüklük", 0) == 0)
        return line;
    const std::string asked = line.substr(1, second - 1);
    const double value = ValueOf(s, asked.substr(0, asked.find('(')));
    return line.substr(0, third) + "| " + Comma(Digits(value, std::fabs(value))) + " |";
}

// The project that a heading names in backquotes; "" for another line.
std::string ProjectIn(const std::string &line) {
    const std::size_t open = line.find('`'), close = line.find(".POL`");
    return line.rfind("#", 0) == 0 && close != std::string::npos ? line.substr(open + 1, close + 3 - open) : "";
}

} // namespace

namespace {

// told: the projects that have a section so far.
std::string Filled(const std::string &page, const std::string &projects, std::set<std::string> &told) {
    std::unique_ptr<Sample> sample;
    std::string filled;
    std::istringstream in(page);
    for (std::string line; std::getline(in, line);) {
        if (const std::string name = ProjectIn(line); !name.empty()) {
            sample = std::make_unique<Sample>(projects + "/" + name);
            told.insert(name);
        }
        filled += (sample && !line.empty() ? FilledRow(line, *sample) : line) + "\n";
    }
    return filled;
}

} // namespace

SamplePages ReadSamplePages(const std::string &docs) {
    SamplePages pages;
    for (const auto &entry : fs::directory_iterator(docs)) {
        const std::string name = entry.path().filename().string();
        if (name.rfind("ornek", 0) != 0 || entry.path().extension() != ".md")
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        pages[name] = {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    return pages;
}

SamplePages FillSamples(const SamplePages &pages, const std::string &projects) {
    std::set<std::string> told;
    SamplePages filled;
    for (const auto &[name, page] : pages)
        filled[name] = Filled(page, projects, told);
    for (const std::string &name : ProjectsOf(projects))
        if (told.count(name) == 0)
            throw std::runtime_error("no page of docs/ornek*.md has a section of " + name);
    return filled;
}

} // namespace havuz::verification
