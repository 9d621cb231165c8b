// Results of the consistent analysis and of the .SON and .DEP files as scenes (view/result_scene.h): which results
// there are, their words and units, and how the panels of a tank are laid flat. Reads values only; no window.
#pragma once

#include "consistent/analysis.h"
#include "design/steel.h"
#include "view/result_scene.h"

#include <string_view>

namespace havuz {

// A result that can be drawn over the tank.
struct Quantity {
    std::string_view key;     // "M22"
    std::string_view turkish; // what the list shows
    std::string_view unit;
    bool isSigned;
    int decimals;
    double factor; // from the unit of the analysis to that shown
};
// Displacements UX UY UZ U, forces N11 N22 N12, moments M11 M22 M12, the principal moments MI (algebraically greater)
// and MII, shear forces Q1 Q2, and the soil pressure SOIL.
std::span<const Quantity> Quantities();
const Quantity *FindQuantity(std::string_view key); // nullptr: there is none of that key; any letter case

// How the faces are laid out.
struct PictureChoice {
    SceneLook look = SceneLook::Rotated;
    int panel = 0; // only this one (1000 + plate for plates), and with Flat in its axes; 0: all
};

// The faces alone, in the order of Tank::meshes, without values.
ResultScene BareScene(const consistent::Tank &tank, const PictureChoice &choice);

// A result of one case or combination over the tank: means at the nodes within one plane, no means across an edge.
ResultScene SceneOf(const consistent::Analysis &analysis, const consistent::CaseResult &result,
                    const Quantity &quantity, const PictureChoice &choice);

// Steel that the zones of a face ask for in a direction (1 or 2), least steel included, cm2/m.
ResultScene SceneOfSteel(const consistent::Tank &tank, const std::vector<design::SteelRow> &rows, design::Face face,
                         int direction, const PictureChoice &choice);

// The values of several results in the middle of a mesh (corner 0) or at its corner 1 to 4, there the means that the
// picture shows; mesh by its number. None where the quantity has none there.
std::vector<std::optional<double>> ValuesAt(const consistent::Analysis &analysis,
                                            const std::vector<const consistent::CaseResult *> &results,
                                            const Quantity &quantity, int mesh, int corner);

// A result of one load column of the files of the run (columns from 1), corner values as they stand: of the results
// above those that the files hold (UX UY UZ U; N11.. and M11.. in the axes of each element). Reads the store and
// project.DEP and project.SON; a file that cannot be read is File.
bool InFiles(const Quantity &quantity);
ResultScene SceneOfFiles(const std::string &project, int column, const Quantity &quantity, const PictureChoice &choice,
                         const consistent::Tank &tank);
// All columns at one mesh: at its corner 1 to 4, or the mean of the corners (0).
std::vector<double> FileValuesAt(const std::string &project, int columns, const Quantity &quantity,
                                 const consistent::Tank &tank, int mesh, int corner);

// The value of a quantity.
double ValueOf(const Quantity &quantity, const consistent::ShellResult &shell);

// "Panel 3 (duvar)", "Plak 2 (taban)".
std::string PanelWords(const consistent::TankPanel &panel);

// A node of a panel in the panel's own flat axes, m: walls run to the right as seen from inside, height upward, round
// walls unrolled; slabs are X and Y.
class FlatPanel {
public:
    FlatPanel(const consistent::Tank &tank, int panel);
    SpacePoint operator()(const SpacePoint &p) const;
    double wayAround() const; // of a round wall, m; 0: not round

private:
    bool wall_ = false, round_ = false;
    double rightX_ = 1.0, rightY_ = 0.0; // direction to the right
    double radius_ = 0.0, from_ = 0.0;   // of a round wall: angle where it is cut open, rad
    double turn_ = 1.0;                  // sense in which the angle runs to the right
    SpacePoint centre_;
};

} // namespace havuz
