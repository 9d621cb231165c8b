// A row of proof: a model small enough to be known, what a book or statics says of it, and what the program makes of it
// at three mesh widths. The manual prints examples, the tests hold them to bounds. Units as each example says.
#pragma once

#include "verification/hand_tank.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace havuz::verification {

using namespace consistent;

// One number of an example.
struct Quantity {
    std::string name, unit;
    double target = 0.0;
    std::string source = {};      // author, table or equation
    std::string explanation = {}; // of a difference above 2 % at the finest width, a sentence
    std::string literally = {};   // the same of the literal result
    double scale = 0.0;           // what a difference is a part of; 0: the target
};

struct Example {
    std::string key;   // of its pictures: lower case and dashes
    std::string title; // a heading
    std::string words; // model, measures, units
    std::vector<Quantity> quantities;
    std::vector<std::string> meshes; // coarse to fine, as a reader says them: "4 x 4"; one where no mesh can be finer
    std::function<std::vector<double>(std::size_t)> values; // of the quantities at a mesh; NaN: none
    std::function<std::vector<std::optional<double>>()> literal;
    std::size_t literalMesh = 0; // the mesh of the literal run
    std::string notLiteral;      // why the literal rules cannot model it, where literal is empty
    // Targets that come from finer meshes than those shown, computed anew; NaN: that target does not. A whole page
    // compares them.
    std::function<std::vector<double>()> finer;
    std::function<std::string()> sketch; // SVG text
};

// What most examples are made of.
struct Model {
    std::function<HandTank(std::size_t)> tank; // by mesh
    Case load = kPoint;
    std::function<std::vector<double>(const HandTank &, const CaseResult &)> measure; // in the order of quantities
    bool literal = false; // supports, concrete and shapes are those that a project can hold
};
// Takes values, sketch and, where the model says so, literal of the example from it.
void TakeModel(Example &example, const Model &model);

// A sketch of the model that make() gives under a load case.
std::function<std::string()> SketchOf(std::function<Tank()> make, Case load);

// The literal run tells nothing of these quantities.
void NoLiteralOf(Example &example, const std::vector<std::size_t> &quantities);

// The displacement of the node at a place; freedom 0 to 5.
double Moved(const HandTank &t, const CaseResult &r, Vector3 at, std::size_t freedom);
// Mean of a result over the mesh corners at a place.
double MeanAt(const HandTank &t, const CaseResult &r, Vector3 at, double ShellResult::*value);

bool Near(double a, double b);

constexpr double kPi = 3.14159265358979323846;
constexpr double kConcreteE = 2.85e6, kConcretePoisson = 0.25; // of the run for fck below 250 kg/cm2, t/m2
constexpr int kClamped = 4 | 1 | 2;                            // of HandTank::hold

// E t3 / 12 / (1 - v2).
double PlateRigidity(double E, double poisson, double thickness);

} // namespace havuz::verification
