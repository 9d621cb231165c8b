// A run of the analysis in a test, and its results by node and mesh.
#pragma once

#include "fea/analysis_window.h"
#include "fea/record_file.h"
#include "support.h"

#include <vector>

namespace havuz {

// What a run asked of its window.
struct RunWindow : AnalysisWindow {
    void TextLine(int, const std::string &text) override { lines += text + "\n"; }
    void StartProgram(const std::string &command, const std::string &path) override { started = command + " " + path; }
    std::string lines, started;
};

struct RunResults {
    std::vector<DepRecord> dep; // by node, from element 1
    std::vector<SonRecord> son; // by mesh, from element 1
    double displacement(int node, int freedom, int column = 1) const {
        return dep.at(static_cast<std::size_t>(node)).at(static_cast<std::size_t>((column - 1) * 6 + freedom - 1));
    }
    // result 1..6 at corner 1..4 of a mesh
    double result(int mesh, int corner, int result, int column = 1) const {
        return son.at(static_cast<std::size_t>(mesh))
            .at(static_cast<std::size_t>((column - 1) * 24 + (corner - 1) * 6 + result - 1));
    }
};

void RunInto(const TemporaryFolder &folder, RunWindow &window);
RunResults RunModel();

// The node at a place; 0 when there is none.
int NodeAt(double x, double y, double z);

} // namespace havuz
