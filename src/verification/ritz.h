// Targets for rectangular thin plates by Ritz's method with polynomials: another way than elements, exact in the limit.
// Source: S. Timoshenko and S. Woinowsky-Krieger, "Theory of Plates and Shells", 1959, article 82 (energy of bending).
#pragma once

#include <array>
#include <functional>
#include <vector>

namespace havuz::verification {

enum class Edge { Free, Hinged, Clamped };

struct RitzPlate {
    double a = 1.0, b = 1.0; // sides along x and y
    double rigidity = 1.0;   // E t3 / 12 / (1 - v2)
    double poisson = 0.3;
    std::array<Edge, 4> edge{};                  // at x = 0, x = a, y = 0, y = b
    std::function<double(double, double)> press; // load by x and y, along w; smooth
    int terms = 14;                              // in each direction
};

class RitzSolution {
public:
    explicit RitzSolution(const RitzPlate &plate);
    double deflection(double x, double y) const { return sum(x, y, 0, 0); }
    double momentX(double x, double y) const; // bends fibres along x; positive where w presses the upper side
    double momentY(double x, double y) const;

private:
    double sum(double x, double y, int dx, int dy) const; // a derivative of w
    RitzPlate plate_;
    std::vector<std::vector<double>> alongX_, alongY_; // functions as polynomials on -1..1
    std::vector<double> factor_;
};

} // namespace havuz::verification
