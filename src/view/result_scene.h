// A result as a picture: faces with values at their corners, seen in plan, rotated as in the main window, or flat in
// the axes of one panel; contours, mesh lines, marks and a legend with its unit. Model lengths in m, values in the unit
// that the scene names. Reads the view angles (store.h) in the rotated view; writes nothing.
#pragma once

#include "mesh/space_point.h"
#include "view/result_canvas.h"

#include <optional>
#include <vector>

namespace havuz {

struct ResultFace {
    std::array<SpacePoint, 4> at;
    std::array<SpacePoint, 4> moved{}; // displacement of each corner, m
    std::array<double, 4> value{};
    int mesh = 0, panel = 0;
    bool hasValue = true;         // false: drawn grey
    std::array<bool, 4> lifted{}; // the bed under a corner was let go: its quarter is hatched
    bool marked = false;          // the mesh report names it: outlined
    bool anyLifted() const { return lifted[0] || lifted[1] || lifted[2] || lifted[3]; }
};

enum class SceneLook {
    Plan,    // X to the right, Y downward, as in the plan of the main window
    Rotated, // by the view angles
    Flat     // x to the right, y upward: the points are in the axes of a panel already
};

struct ResultScene {
    std::vector<ResultFace> faces;
    SceneLook look = SceneLook::Rotated;
    std::string title;    // the result, its case, its source
    std::string unit;     // "t.m/m"
    bool isSigned = true; // a scale that is white at zero
    int decimals = 3;     // of written values
};

struct SceneStyle {
    bool smooth = false, meshLines = true, marks = true, legend = true;
    double deformation = 0.0;                       // times the displacements
    std::optional<std::pair<double, double>> range; // fixed; none: of the values shown
};

// pixel = offset + scale * projected
struct SceneTransform {
    double scale = 1.0, x = 0.0, y = 0.0;
};

// The projected place of a point, m, y downward, and its distance before the eye (more is farther; 0 but in Rotated).
struct ScenePlace {
    double x = 0.0, y = 0.0, depth = 0.0;
};
ScenePlace ProjectScene(SceneLook look, const SpacePoint &p);

// Fits the undeformed faces into width * height pixels beside the legend.
SceneTransform FitScene(const ResultScene &scene, double width, double height);

// Least and greatest value and the factor that shows the greatest displacement as a tenth of the model's size.
struct SceneExtreme {
    double value = 0.0;
    std::size_t face = 0;
    std::size_t corner = 0;
};
struct SceneExtremes {
    SceneExtreme least, greatest;
};
std::optional<SceneExtremes> ExtremesOf(const ResultScene &scene); // none: no face has a value
double UsualDeformation(const ResultScene &scene);                 // 0: nothing moves

ColourMap MapOf(const ResultScene &scene, const SceneStyle &style);

void DrawScene(ResultCanvas &canvas, const ResultScene &scene, const SceneStyle &style, const SceneTransform &to);

// The face under a pixel, the nearest of those that cover it, with the value there.
struct SceneHit {
    std::size_t face = 0;
    double value = 0.0;
    SpacePoint at; // on the face, m
};
std::optional<SceneHit> HitScene(const ResultScene &scene, const SceneTransform &to, double deformation, double px,
                                 double py);

// The corner of a face, 1 to 4, that lies within `reach` pixels of a pixel, the nearest; 0: none.
int CornerNear(const ResultScene &scene, const SceneTransform &to, double deformation, std::size_t face, ScreenPoint at,
               double reach);

// "1,250" with the decimals given; a value that rounds to zero has no sign.
std::string DecimalCommaText(double value, int decimals);

} // namespace havuz
