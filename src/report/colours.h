// Colour scales for contours: a diverging one, white at zero, for signed quantities; one of even rise in lightness for
// the others. Source of the idea: Moreland, "Diverging Color Maps for Scientific Visualization" (2009). Grey prints
// keep the order on either side of zero.
#pragma once

#include <string>
#include <vector>

namespace havuz::report {

// Limits of bands with a round step, least first; zero is a limit where the range holds it.
struct Bands {
    std::vector<double> limits; // one more than there are bands
    std::vector<std::string> colours;
    std::size_t bandOf(double value) const;
};

// About `count` bands from least to greatest. An empty or flat range gives one band.
Bands MakeBands(double least, double greatest, int count);

// "#rrggbb" at t from -1 (blue) over 0 (white) to 1 (red).
std::string Diverging(double t);

} // namespace havuz::report
