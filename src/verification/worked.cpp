// Checks of the design worked out by hand, number by number, beside what the program says. kg/cm2, cm, t, m as the
// report has them; 1 N/mm2 counts as 10 kg/cm2.
#include "design/bar_choice.h"
#include "design/checks.h"
#include "design/crack.h"
#include "design/section.h"
#include "design/shear.h"
#include "design/wood.h"
#include "model/store.h"
#include "verification/examples.h"
#include "verification/pools.h"
#include "verification/sketch.h"

namespace havuz::verification {

namespace {

using namespace design;

const char *const kByHand = "the calculation above";
const char *const kNoCheck = "the run makes no such check";
const Section kThirty{30.0, 25.4}; // h 30, cover 4, bars of 12 mm: d = 30 - 4 - .6

Materials Strength(double fck, double fyk) { return MakeMaterials(fck, fyk, DesignMethod::Strength); }

Example ByHand(const std::string &key, const std::string &title, const std::string &words,
               std::vector<Quantity> quantities, std::function<std::vector<double>()> program) {
    Example e;
    e.key = key;
    e.title = title;
    e.words = words;
    e.quantities = std::move(quantities);
    for (Quantity &q : e.quantities)
        q.source = kByHand;
    e.meshes = {"program"};
    e.notLiteral = kNoCheck;
    e.values = [program = std::move(program)](std::size_t) { return program(); };
    return e;
}

Example OfSection(Example e, const Section &s, const std::string &words) {
    e.sketch = [=] { return SectionSketch(s.h, s.d, words); };
    return e;
}

std::vector<Example> SteelByHand() {
    return {
        OfSection(
            ByHand("worked-steel-strength", "Steel, strength method: moment and tension",
                   "fck 200, fyk 2200 kg/cm²; h 30, d 25.4 cm; M 5 t.m/m, N 3 t/m (tension). fcd = 200/1.5 = 133.33, "
                   "fyd = "
                   "2200/1.15 = 1913.04. Ms = 5 − 3 · (25.4 − 15)/100 = 4.688 t.m = 468800 kg.cm. 0.85 fcd b = 11333.3 "
                   "kg/cm. a = 25.4 − √(25.4² − 2 · 468800/11333.3) = 1.6844, c = a/0.85 = 1.9816 cm. As = (11333.3 · "
                   "1.6844 + 3000)/1913.04 = 11.547 cm²/m.",
                   {{"Ms", "t.m/m", 4.688}, {"c", "cm", 1.9816}, {"As", "cm²/m", 11.547}},
                   [] {
                       const SteelNeed n = RequiredSteel(Strength(200, 2200), kThirty, 5, 3);
                       return std::vector<double>{n.ms, n.depth, n.area};
                   }),
            kThirty, "30"),
        OfSection(
            ByHand(
                "worked-steel-pulled", "Steel, both layers in tension",
                "The same section under M 0.2 t.m/m, N 10 t/m: N (d − d')/2 = 10 · 0.104 = 1.04 > 0.2. As = 10000/(2 · "
                "1913.04) + 20000/(1913.04 · 20.8) = 2.6136 + 0.5026 = 3.1163 cm²/m.",
                {{"As", "cm²/m", 3.1163}},
                [] { return std::vector<double>{RequiredSteel(Strength(200, 2200), kThirty, .2, 10).area}; }),
            kThirty, "30"),
        OfSection(
            ByHand("worked-steel-elastic", "Steel, allowable stresses",
                   "fck 200, fyk 2200: allowed 2200/1.75 = 1257.14 and 0.40 · 200 = 80 kg/cm². With x = 9 cm: σc = "
                   "1257.14 · "
                   "9/(15 · 16.4) = 45.993, M = 45.993 · 100 · 9 · (25.4 − 3)/2 = 463609 kg.cm, As = 45.993 · 100 · "
                   "9/2/1257.14 = 16.4635 cm²/m. So M 4.63609 t.m/m asks for it.",
                   {{"x", "cm", 9.0}, {"σc", "kg/cm²", 45.993}, {"As", "cm²/m", 16.4635}},
                   [] {
                       const SteelNeed n =
                           RequiredSteel(MakeMaterials(200, 2200, DesignMethod::Elastic), kThirty, 4.63609, 0);
                       return std::vector<double>{n.depth, n.concrete, n.area};
                   }),
            kThirty, "30"),
        OfSection(
            ByHand(
                "worked-steel-least", "Least steel and twist",
                "EN 1992-1-1 9.2.1.1: fctm = 0.30 · 20^(2/3) = 2.2104 N/mm²; 0.26 · 22.104/2200 · 100 · 25.4 = 6.6352 "
                "cm²/m, above "
                "0.0013 · 100 · 25.4 = 3.302. Wood: m11 2, m22 1, m12 −0.5 give 2.5 and 1.5; m11 −3, m22 1, m12 1 "
                "turns "
                "direction 1, "
                "so direction 2 asks for 1 + 1²/3 = 1.3333.",
                {{"As,min", "cm²/m", 6.6352},
                 {"M* along 1", "t.m/m", 2.5},
                 {"M* along 2", "t.m/m", 1.5},
                 {"M* along 2, turned", "t.m/m", 4.0 / 3}},
                [] {
                    const auto plain = WoodMoments(2, 1, -.5), turned = WoodMoments(-3, 1, 1);
                    return std::vector<double>{LeastSteel(Strength(200, 2200), 25.4), plain[0], plain[1], turned[1]};
                }),
            kThirty, "30")};
}

std::vector<Example> CracksAndShearByHand() {
    const Section twenty{20.0, 15.5};
    return {
        OfSection(ByHand("worked-crack-bending", "Crack width in bending",
                         "EN 1992-1-1 7.3.4. fck 300: fctm = 0.30 · 30^(2/3) = 2.8965, Ecm = 22000 · 3.8^0.3 = 32836.6 "
                         "N/mm², ratio "
                         "6.0908. Bars 12/15: 7.5398 cm²/m; M 4 t.m/m. 50 x² = 45.9234 (25.4 − x): x = 4.3926 cm; σs = "
                         "400000/(7.5398 "
                         "· 23.9358) = 2216.4 kg/cm². hc,ef = (30 − 4.3926)/3 = 8.5358, ρ = 0.0088332. εsm − εcm = 0.6 "
                         "· 221.64/200000 "
                         "= 0.66492 ‰. sr,max = 3.4 · 40 + 0.8 · 0.5 · 0.425 · 12/0.0088332 = 366.95 mm. wk = 0.24399 "
                         "mm. Limit, EN "
                         "1992-3 class 1: 3.7 m of water on 30 cm are 12.333 h: 0.20 − 7.3333/30 · 0.15 = 0.16333 mm.",
                         {{"σs", "kg/cm²", 2216.4},
                          {"sr,max", "mm", 366.95},
                          {"εsm − εcm", "‰", .66492},
                          {"wk", "mm", .24399},
                          {"limit", "mm", .163333}},
                         [] {
                             const CrackWidth w = CrackWidthOf(Strength(300, 4200), kThirty, {12, 15}, 4, 4, 0);
                             return std::vector<double>{w.steel, w.srMax, 1000 * w.strain, w.wk, CrackLimit(3.7, 30)};
                         }),
                  kThirty, "30"),
        OfSection(ByHand("worked-crack-tension", "Crack width in tension",
                         "h 20, d 15.5 cm, bars 10/10 on both faces (7.854 cm²/m), N 20 t/m: each layer 10 t, σs = "
                         "1273.24 kg/cm². "
                         "hc,ef = 20/2 = 10, ρ = 0.007854, k2 = 1. 0.6 · 127.324/200000 = 0.38197 ‰. sr,max = 136 + "
                         "0.8 · 0.425 · "
                         "10/0.007854 = 568.90 mm. wk = 0.21730 mm.",
                         {{"σs", "kg/cm²", 1273.24}, {"sr,max", "mm", 568.90}, {"wk", "mm", .21730}},
                         [=] {
                             const CrackWidth w = CrackWidthOf(Strength(300, 4200), twenty, {10, 10}, 4, 0, 20);
                             return std::vector<double>{w.steel, w.srMax, w.wk};
                         }),
                  twenty, "20"),
        OfSection(ByHand("worked-shear", "Shear without links",
                         "EN 1992-1-1 6.2.2. d 254 mm: k = 1 + √(200/254) = 1.88736; As 7.54: ρ = 0.0029685; fck 20 "
                         "N/mm². 0.12 · "
                         "1.88736 · (100 · 0.0029685 · 20)^(1/3) = 0.41010 N/mm², times 254 = 104.17 N/mm = 10.417 "
                         "t/m. vmin = 0.035 · "
                         "1.88736^1.5 · √20 = 0.40585: 10.309 t/m. N 10 t/m pulls: σcp = −10/30 N/mm², 0.15 of it "
                         "−0.05: 9.147 t/m.",
                         {{"VRd,c", "t/m", 10.417}, {"by vmin", "t/m", 10.309}, {"VRd,c under N", "t/m", 9.147}},
                         [] {
                             const Materials m = Strength(200, 2200);
                             const ShearStrength v = ShearWithoutLinks(m, kThirty, 7.54, 0);
                             return std::vector<double>{v.vrd, v.least, ShearWithoutLinks(m, kThirty, 7.54, 10).vrd};
                         }),
                  kThirty, "30")};
}

Tank FloatingPool(double width) {
    return LibraryPool(1, {{&Lx, 8},
                           {&Ly, 8},
                           {&UstKot, 6},
                           {&Bk, 0},
                           {&KenarKalinlik, 40},
                           {&AltKalinlik, 60},
                           {&YeraltiSuKotu, 4},
                           {&MeshGenisligi, width}});
}

Example FlotationByHand() {
    Example e;
    e.key = "worked-flotation";
    e.title = "Flotation";
    e.words = "8 by 8 m and 6 m high at the mid-planes, no strip, walls 40, base 60 cm, groundwater 4 m above the "
              "underside. G = 2.5 · (64 · 0.60 + 4 · 8 · 6 · 0.40) = 96 + 192 = 288 t. U = 4 · 64 = 256 t. "
              "G/U = 1.125, limit 1.10.";
    e.quantities = {{"G", "t", 288, kByHand}, {"U", "t", 256, kByHand}, {"G/U", "", 1.125, kByHand}};
    e.meshes = {"2 m", "1 m", "0.5 m"};
    e.notLiteral = kNoCheck;
    e.values = [](std::size_t mesh) {
        const Flotation f = DesignTank(Analysis(FloatingPool(2.0 / (1 << mesh))), MakeBasis({})).flotation;
        return std::vector<double>{f.dead, f.uplift, f.ratio()};
    };
    e.sketch = SketchOf([] { return FloatingPool(1); }, kUplift);
    return e;
}

// A block so stiff that the soil under it is pressed linearly.
Example SoilByHand() {
    Example e;
    e.key = "worked-soil";
    e.title = "Soil pressure under a stiff block, with and without lifting";
    e.words = "3 by 3 m, 2 m thick, bed 100 t/m³, 18 t. At 0.5 m from the middle: σ = 18/9 · (1 + 6 · 0.5/3) = 4.0 "
              "t/m². At 1 m, "
              "outside the kern: σ = 2 · 18/(3 · 3 · (1.5 − 1)) = 8.0 t/m², and 3 · (3 − 3 · 0.5) = 4.5 m² lift.";
    e.quantities = {{"greatest at 0.5 m", "t/m²", 4.0, kByHand},
                    {"greatest at 1 m", "t/m²", 8.0, kByHand},
                    {"lifted at 1 m", "m²", 4.5, kByHand, "the bed stands on nodes: it lifts by whole rows of them"}};
    e.meshes = {"0.5 m", "0.25 m", "0.125 m"};
    e.notLiteral = kNoCheck;
    const auto block = [](std::size_t mesh, double away) {
        HandTank t(kConcreteE, kConcretePoisson);
        const int p = t.panel(0, 2.0), n = 6 << mesh;
        t.grid(p, n, n, [](double s, double v) { return Vector3{3 * s, 3 * v, 0}; });
        t.tank.bedding = 100;
        t.load(t.nodeAt({1.5 + away, 1.5, 0}), {0, 0, -18});
        return t;
    };
    const auto soil = [](const HandTank &t) {
        FreshModel();
        for (const SoilState &s : DesignTank(Analysis(t.tank), MakeBasis({})).soil)
            if (s.combination == "full")
                return s;
        return SoilState{};
    };
    e.values = [=](std::size_t mesh) {
        const SoilState lifted = soil(block(mesh, 1));
        return std::vector<double>{soil(block(mesh, .5)).pressure, lifted.pressure, lifted.liftedArea};
    };
    e.sketch = SketchOf([=] { return block(0, 1).tank; }, kPoint);
    return e;
}

} // namespace

std::vector<Example> WorkedExamples() {
    std::vector<Example> all = SteelByHand();
    for (Example &e : CracksAndShearByHand())
        all.push_back(std::move(e));
    all.push_back(FlotationByHand());
    all.push_back(SoilByHand());
    return all;
}

} // namespace havuz::verification
