#include "design/checks.h"

#include "design/failure.h"
#include "design/superpose.h"
#include "model/options.h"
#include "model/store.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace havuz::design {

using consistent::Analysis;
using consistent::CaseResult;

namespace {

// The panel on the ground that a node belongs to, the first one; 0 without.
int PanelOnGround(const consistent::Tank &tank, int node) {
    for (const consistent::TankMesh &m : tank.meshes)
        if (tank.panelOf(m).kind == 0 && std::find(m.node.begin(), m.node.end(), node) != m.node.end())
            return m.panel;
    return 0;
}

void TakeGreatestPressure(const Analysis &analysis, const CaseResult &result, SoilState &state) {
    for (std::size_t n = 1; n < result.nodes.size(); ++n)
        if (analysis.bedAreas()[n] > 0.0 && (state.node == 0 || result.nodes[n].soil > state.pressure)) {
            state.pressure = result.nodes[n].soil;
            state.node = static_cast<int>(n);
        }
    state.panel = PanelOnGround(analysis.tank(), state.node);
}

bool SpringsPull(const CaseResult &result) {
    return std::any_of(result.nodes.begin(), result.nodes.end(), [](const auto &n) { return n.soil < -1e-9; });
}

// Where springs pull the combination is solved again on a bed that only presses.
SoilState SoilUnder(const Analysis &analysis, const DesignCombination &combination, const CaseResult &result) {
    SoilState state;
    state.combination = combination.sum.key;
    state.pulls = !result.tensionFree && SpringsPull(result);
    state.liftedArea = result.liftedArea;
    state.rounds = result.rounds;
    if (!state.pulls) {
        TakeGreatestPressure(analysis, result, state);
        return state;
    }
    try {
        state.free = std::make_shared<const CaseResult>(analysis.solve(combination.sum, false));
        state.liftedArea = state.free->liftedArea;
        state.rounds = state.free->rounds;
        TakeGreatestPressure(analysis, *state.free, state);
    } catch (const consistent::AnalysisFailure &failure) {
        state.failure = failure.turkish();
        TakeGreatestPressure(analysis, result, state);
    }
    return state;
}

Flotation FlotationOf(const Design &design) {
    Flotation f;
    f.limit = design.basis.settings.flotationLimit;
    f.dead = -design.cases[consistent::kDead].proof.load[2];
    f.uplift = design.cases[consistent::kUplift].proof.load[2];
    return f;
}

void CheckSoil(Design &design) {
    for (const SoilState &s : design.soil)
        if (s.node != 0)
            design.checks.push_back({"soil", s.combination, s.panel, s.pressure, design.basis.allowableSoil, "t/m2",
                                     s.failure.empty() && s.pressure <= design.basis.allowableSoil, s.node});
}

// The combination with uplift that holds the least besides it stands for flotation.
void CheckFlotation(Design &design) {
    if (!design.flotation.asked())
        return;
    const DesignCombination *least = nullptr;
    for (const DesignCombination &c : design.basis.combinations)
        if (!c.factored && c.sum.factor[consistent::kUplift] != 0.0 &&
            (least == nullptr || c.sum.factor[consistent::kLiquid] < least->sum.factor[consistent::kLiquid]))
            least = &c;
    design.checks.push_back({"flotation", least == nullptr ? "" : least->sum.key, 0, design.flotation.ratio(),
                             design.flotation.limit, "-", design.flotation.met(), 0});
}

// How much of what is allowed a row uses, for the row of a panel that stands in the list.
double Use(double value, double limit) { return limit > 0.0 ? value / limit : value > 0.0 ? HUGE_VAL : 0.0; }

Check SteelCheck(const Basis &basis, const SteelRow &row, const std::string &kind) {
    const auto key = [&](int c) {
        return c < 0 || basis.combinations.empty() ? std::string()
                                                   : basis.combinations[static_cast<std::size_t>(c)].sum.key;
    };
    const LayerChoice &l = row.layer;
    if (kind == "steel")
        return {kind,    key(l.governs.combination), row.panel, std::max(l.need.area, l.least), l.bars.area(),
                "cm2/m", row.strengthMet(),          0};
    if (kind == "crack")
        return {kind, key(l.crackPlace.combination), row.panel, l.crack.wk, row.crackLimit, "mm", row.crackMet(), 0};
    if (kind == "shear")
        return {kind, key(row.shear.combination), row.panel, row.shear.V, row.shear.allowed, "t/m", row.shearMet(), 0};
    const Settings &s = basis.settings;
    const double spacing = l.bars.spacing;
    return {kind,
            key(l.governs.combination),
            row.panel,
            spacing,
            s.spacingGreatest,
            "cm",
            spacing >= s.spacingLeast && spacing <= s.spacingGreatest,
            0};
}

// What a row is ranked by: of steel what strength asks, since least steel says nothing of the place.
double Rank(const SteelRow &row, const Check &check) {
    return check.kind == "steel" ? Use(row.layer.need.area, check.limit) : Use(check.value, check.limit);
}

// For each panel the row that uses most of what is allowed; one that is not met stands before those that are.
void CheckSteel(Design &design, const std::string &kind) {
    const auto rank = [&design](const Check &c) {
        return std::pair(!c.met, Rank(design.steel[static_cast<std::size_t>(c.place)], c));
    };
    std::map<int, Check> worst;
    for (std::size_t i = 0; i < design.steel.size(); ++i) {
        Check check = SteelCheck(design.basis, design.steel[i], kind);
        check.place = static_cast<int>(i);
        const auto found = worst.find(check.panel);
        if (found == worst.end() || rank(check) > rank(found->second))
            worst[check.panel] = check;
    }
    for (const auto &[panel, check] : worst)
        design.checks.push_back(check);
}

void CheckResiduals(Design &design) {
    for (const CaseResult &r : design.combinations)
        design.checks.push_back(
            {"residual", r.key, 0, r.proof.residual, kResidualLimit, "-", r.proof.residual <= kResidualLimit, 0});
}

void RequireBothKinds(const Basis &basis) {
    const auto factored = std::count_if(basis.combinations.begin(), basis.combinations.end(),
                                        [](const DesignCombination &c) { return c.factored; });
    if (factored == static_cast<std::ptrdiff_t>(basis.combinations.size()))
        throw DesignFailure("combinations: none is in service", "kombinasyonlar: katsayısız olanı yok");
    if (factored == 0 && basis.materials.method == DesignMethod::Strength)
        throw DesignFailure("combinations: none is factored, and the method is TASIMA GUCU",
                            "kombinasyonlar: yöntem TASIMA GUCU, katsayılı olanı yok");
}

} // namespace

double Flotation::missing() const { return met() ? 0.0 : limit * uplift - dead; }

bool Design::met() const {
    return std::all_of(checks.begin(), checks.end(), [](const Check &c) { return c.met; });
}

Basis MakeBasis(const Settings &settings) {
    const DesignMethod method = HesapYontem == 0.0 ? DesignMethod::Elastic : DesignMethod::Strength;
    Basis basis;
    basis.materials = MakeMaterials(Fck, Fyk, method);
    if (settings.allowableSteel > 0.0)
        basis.materials.allowableSteel = settings.allowableSteel;
    if (settings.allowableConcrete > 0.0)
        basis.materials.allowableConcrete = settings.allowableConcrete;
    basis.settings = settings;
    for (int i = 1; i <= 13; ++i)
        if (DonatiCaplari[i] > 0.0)
            basis.diameters.push_back(DonatiCaplari[i]);
    std::sort(basis.diameters.begin(), basis.diameters.end());
    basis.allowableSoil = ZeminGzem;
    basis.combinations = settings.combinations;
    if (basis.combinations.empty())
        basis.combinations = DefaultCombinations(method, {YukFaktorG, YukFaktorP}, settings.surcharge > 0.0);
    RequireBothKinds(basis);
    return basis;
}

consistent::Options AnalysisOptions(const Basis &basis) {
    consistent::Options options;
    options.loads.saturatedDensity = basis.settings.saturatedDensity;
    options.loads.surcharge = basis.settings.surcharge;
    options.threads = consistent::AllowedThreads();
    return options;
}

Design DesignTank(const Analysis &analysis, const Basis &basis) {
    Design design;
    design.basis = basis;
    for (const consistent::Case c : consistent::kAllCases)
        design.cases.push_back(analysis.solve(c));
    for (const DesignCombination &c : basis.combinations)
        design.combinations.push_back(Superpose(analysis, design.cases, c.sum));
    for (std::size_t c = 0; c < basis.combinations.size(); ++c)
        if (!basis.combinations[c].factored)
            design.soil.push_back(SoilUnder(analysis, basis.combinations[c], design.combinations[c]));
    design.flotation = FlotationOf(design);
    design.steel = DesignSteel(analysis.tank(), basis, design.combinations);
    CheckSoil(design);
    CheckFlotation(design);
    for (const char *kind : {"steel", "crack", "shear", "spacing"})
        CheckSteel(design, kind);
    CheckResiduals(design);
    return design;
}

} // namespace havuz::design
