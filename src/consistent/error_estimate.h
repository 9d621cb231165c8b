// How far the mesh is from being fine enough: the error estimate of Zienkiewicz and Zhu, "A simple error estimator and
// adaptive procedure for practical engineering analysis", Int. J. Num. Meth. Eng. 24 (1987) 337-357. The moments and
// membrane forces of the elements against those smoothed over the nodes, in the norm of the strain energy.
#pragma once

#include "consistent/analysis.h"

#include <map>

namespace havuz::consistent {

// Of a panel or of the whole tank.
struct ErrorShare {
    double energy = 0.0; // |smoothed|^2, t.m: twice the strain energy
    double error = 0.0;  // |smoothed - of the elements|^2, t.m
    double area = 0.0;   // m2
    int meshes = 0;

    double relative() const; // |error| / |smoothed|; 0 where nothing is strained
    double width() const;    // m: side of a square of the mean area
    // Mesh width that would bring the relative error down to `wanted`, m: the error falls with the first power of the
    // width, as it does for these elements. Not above the width that there is.
    double widthFor(double wanted) const;
};

struct ErrorEstimate {
    ErrorShare whole;
    std::map<int, ErrorShare> panels; // by number; plates 1001 and up
};

constexpr double kErrorWanted = .05; // the usual aim of the method

// result: of a case or a combination of this analysis, with its nodal means.
ErrorEstimate EstimateError(const Analysis &analysis, const CaseResult &result);

} // namespace havuz::consistent
