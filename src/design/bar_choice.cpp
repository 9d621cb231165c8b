#include "design/bar_choice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace havuz::design {

namespace {

// Demands that may open the widest crack. Under loads that grow together a crack grows, so of the demands in one
// direction of the M-N plane the greatest is enough to look at first; the choice is proved on all of them afterwards.
class CrackScreen {
public:
    CrackScreen(const Materials &m, double h, const LayerDemand &demand) : m_(m), h_(h), demand_(demand) {
        std::array<const Demand *, kDirections> greatest{};
        for (const Demand &d : demand.service) {
            const Demand *&kept = greatest[direction(d)];
            if (kept == nullptr || size(d) > size(*kept))
                kept = &d;
        }
        for (const Demand *d : greatest)
            if (d != nullptr)
                screened_.push_back(*d);
    }

    bool passes(const Bars &bars) { return worst(screened_, bars).first.wk <= demand_.crackLimit && passesAll(bars); }

    std::pair<CrackWidth, Demand> worstOfAll(const Bars &bars) const { return worst(demand_.service, bars); }

private:
    static constexpr std::size_t kDirections = 128;

    double size(const Demand &d) const { return std::hypot(d.M * 100.0 / h_, d.N); }
    std::size_t direction(const Demand &d) const {
        const double turn = std::atan2(d.M * 100.0 / h_, d.N) / (2.0 * std::numbers::pi) + .5;
        return std::min(kDirections - 1, static_cast<std::size_t>(turn * kDirections));
    }

    std::pair<CrackWidth, Demand> worst(const std::vector<Demand> &demands, const Bars &bars) const {
        const Section s{h_, h_ - demand_.cover - bars.diameter / 20.0};
        std::pair<CrackWidth, Demand> found;
        found.second.combination = -1;
        for (const Demand &d : demands) {
            const CrackWidth w = CrackWidthOf(m_, s, bars, demand_.cover, d.M, d.N);
            if (found.second.combination < 0 || w.wk > found.first.wk)
                found = {w, d};
        }
        return found;
    }

    // A demand that the screen missed joins it.
    bool passesAll(const Bars &bars) {
        const auto [crack, place] = worstOfAll(bars);
        if (crack.wk <= demand_.crackLimit)
            return true;
        screened_.push_back(place);
        return false;
    }

    const Materials &m_;
    double h_;
    const LayerDemand &demand_;
    std::vector<Demand> screened_;
};

// The spacings in whole cm, the widest first.
std::vector<double> Spacings(const Settings &settings) {
    std::vector<double> all;
    for (double s = std::floor(settings.spacingGreatest); s >= settings.spacingLeast; s -= 1.0)
        all.push_back(s);
    if (all.empty())
        all.push_back(settings.spacingGreatest);
    return all;
}

LayerChoice WithDiameter(const Materials &m, double h, const LayerDemand &demand, double diameter) {
    LayerChoice choice;
    choice.bars.diameter = diameter;
    choice.section = {h, h - demand.cover - diameter / 20.0};
    choice.least = LeastSteel(m, choice.section.d);
    TakeGoverning(m, demand, choice);
    return choice;
}

// Bars of one face that serve, each diameter from its widest spacing on; empty when none does.
std::vector<LayerChoice> Serving(const Materials &m, double h, const std::vector<double> &spacings,
                                 const std::vector<double> &diameters, const LayerDemand &demand) {
    CrackScreen screen(m, h, demand);
    std::vector<LayerChoice> serving;
    for (const double diameter : diameters) {
        LayerChoice choice = WithDiameter(m, h, demand, diameter);
        if (!(choice.section.d > 0.0) || !choice.need.met)
            continue;
        for (const double spacing : spacings) {
            choice.bars.spacing = spacing;
            if (!choice.serves &&
                (choice.bars.area() < std::max(choice.need.area, choice.least) || !screen.passes(choice.bars)))
                continue;
            choice.serves = true; // narrower spacings serve as well
            serving.push_back(choice);
        }
    }
    std::stable_sort(serving.begin(), serving.end(),
                     [](const LayerChoice &a, const LayerChoice &b) { return a.bars.area() < b.bars.area() - 1e-9; });
    return serving;
}

// The bars that come closest where none serves: the greatest diameter at the least spacing.
LayerChoice Heaviest(const Materials &m, double h, const std::vector<double> &spacings,
                     const std::vector<double> &diameters, const LayerDemand &demand) {
    LayerChoice choice = WithDiameter(m, h, demand, diameters.empty() ? 0.0 : diameters.back());
    choice.bars.spacing = diameters.empty() ? 0.0 : spacings.back();
    return choice;
}

// The lightest choices of both faces whose sum reaches the total.
void LightestPair(const std::vector<LayerChoice> &a, const std::vector<LayerChoice> &b, double total,
                  std::vector<LayerChoice> &chosen) {
    double least = -1.0;
    for (const LayerChoice &first : a)
        for (const LayerChoice &second : b) {
            const double sum = first.bars.area() + second.bars.area();
            if (sum < total || (least >= 0.0 && sum >= least - 1e-9))
                continue;
            least = sum;
            chosen = {first, second};
        }
    if (least < 0.0) { // even the heaviest stay below the total
        chosen = {a.back(), b.back()};
        chosen[0].totalMet = chosen[1].totalMet = false;
    }
}

void TakeWidestCrack(const Materials &m, double h, const LayerDemand &demand, LayerChoice &choice) {
    if (!(choice.bars.area() > 0.0) || !(choice.section.d > 0.0)) {
        choice.crackPlace.combination = -1;
        return;
    }
    std::tie(choice.crack, choice.crackPlace) = CrackScreen(m, h, demand).worstOfAll(choice.bars);
}

} // namespace

double LeastSteel(const Materials &m, double d) { return std::max(.26 * m.fctm() / m.fyk, .0013) * kWidth * d; }

void TakeGoverning(const Materials &m, const LayerDemand &demand, LayerChoice &choice) {
    bool first = true;
    bool met = true;
    for (const Demand &d : demand.strength) {
        const SteelNeed need = RequiredSteel(m, choice.section, d.M, d.N);
        met = met && need.met;
        // Where nothing asks for steel the place with the greatest moment is named.
        if (first || need.area > choice.need.area ||
            (need.area == 0.0 && choice.need.area == 0.0 && d.M > choice.governs.M)) {
            choice.need = need;
            choice.governs = d;
        }
        first = false;
    }
    choice.need.met = met;
}

std::vector<LayerChoice> ChooseBars(const Materials &m, double h, const Settings &settings,
                                    const std::vector<double> &diameters, const std::vector<LayerDemand> &faces) {
    const std::vector<double> spacings = Spacings(settings);
    std::vector<std::vector<LayerChoice>> serving;
    for (const LayerDemand &face : faces) {
        serving.push_back(Serving(m, h, spacings, diameters, face));
        if (serving.back().empty())
            serving.back().push_back(Heaviest(m, h, spacings, diameters, face));
    }
    std::vector<LayerChoice> chosen;
    LightestPair(serving.at(0), serving.at(1), settings.leastTotal * kWidth * h, chosen);
    for (std::size_t k = 0; k < chosen.size(); ++k)
        TakeWidestCrack(m, h, faces[k], chosen[k]);
    return chosen;
}

} // namespace havuz::design
