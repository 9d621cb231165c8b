// The shell against published values: the models of the verification manual, their ratios to the target held between
// bounds that follow from the mesh. docs/verification.md tells every figure.
#include "report/plot_axis.h"
#include "verification/examples.h"
#include "verification/page.h"
#include "verification/ritz.h"

#include <gtest/gtest.h>
#include <map>

namespace havuz::verification {

namespace {

struct Bound {
    const char *key;
    std::size_t quantity, mesh; // of the example
    double low, high;           // of value over target
};

// Error of a plate of n by n meshes: 0.5/n2 and a rest, times what the quantity takes of it.
Bound OfPlate(const char *key, std::size_t quantity, std::size_t mesh, double times) {
    const double n = 8 << mesh, slack = times * (0.5 / (n * n) + 1e-3);
    return {key, quantity, mesh, 1 - slack, 1 + slack};
}

std::vector<Bound> Bounds() {
    std::vector<Bound> bounds = {{"macneal-patch", 0, 0, 1 - 1e-9, 1 + 1e-9},
                                 {"macneal-patch", 1, 0, 1 - 1e-9, 1 + 1e-9},
                                 {"macneal-patch", 2, 0, 1 - 1e-6, 1 + 1e-6},
                                 {"macneal-patch", 3, 0, 1 - 1e-6, 1 + 1e-6},
                                 {"macneal-patch", 1, 2, 1 - 1e-9, 1 + 1e-9},
                                 {"macneal-patch", 3, 2, 1 - 1e-6, 1 + 1e-6},
                                 {"macneal-thick-cylinder", 2, 0, 0.98, 1.0},
                                 {"macneal-thick-cylinder", 2, 1, 0.995, 1.0},
                                 {"macneal-beam-rectangles", 0, 0, 0.99, 1.01},
                                 {"macneal-beam-rectangles", 1, 0, 0.98, 1.0},
                                 {"macneal-beam-rectangles", 2, 0, 0.98, 1.01},
                                 {"macneal-beam-parallelograms", 1, 0, 0.5, 1.0},
                                 {"macneal-beam-parallelograms", 2, 0, 0.98, 1.01},
                                 {"macneal-beam-trapezoids", 1, 0, 0.02, 1.0},
                                 {"macneal-beam-trapezoids", 2, 0, 0.98, 1.01},
                                 {"macneal-curved-beam", 0, 0, 0.75, 1.02},
                                 {"macneal-curved-beam", 1, 0, 0.85, 1.05},
                                 {"macneal-twisted-beam", 0, 1, 0.97, 1.03},
                                 {"macneal-twisted-beam", 1, 1, 0.97, 1.03},
                                 {"scordelis-lo", 0, 0, 0.93, 1.08},
                                 {"scordelis-lo", 0, 1, 0.98, 1.02},
                                 {"scordelis-lo", 0, 2, 0.98, 1.02},
                                 {"pinched-cylinder", 0, 0, 0.9, 1.1},
                                 {"pinched-cylinder", 0, 1, 0.97, 1.03},
                                 {"hemisphere-hole", 0, 0, 0.7, 1.2},
                                 {"hemisphere-hole", 0, 1, 0.95, 1.05},
                                 {"hemisphere-hole", 0, 2, 0.95, 1.05},
                                 {"round-tank-fixed", 0, 1, 0.99, 1.01},
                                 {"round-tank-fixed", 1, 1, 0.99, 1.01},
                                 {"round-tank-fixed", 2, 1, 0.97, 1.03},
                                 {"great-plate-point", 0, 1, 0.98, 1.02},
                                 {"two-plates", 0, 1, 0.99, 1.01},
                                 {"channel-slice", 0, 0, 0.99, 1.01},
                                 {"channel-slice", 2, 0, 1 - 1e-9, 1 + 1e-9}};
    for (std::size_t mesh = 0; mesh < 3; ++mesh) {
        bounds.push_back(OfPlate("plate-hinged-even", 0, mesh, 1));
        bounds.push_back(OfPlate("plate-hinged-even", 1, mesh, 2));
        bounds.push_back(OfPlate("plate-clamped-even", 0, mesh, 6));
        bounds.push_back(OfPlate("plate-clamped-even", 2, mesh, 6));
        bounds.push_back(OfPlate("plate-hinged-point", 0, mesh, 6));
        bounds.push_back(OfPlate("plate-clamped-point", 0, mesh, 6));
    }
    return bounds;
}

} // namespace

TEST(ConsistentBenchmark, RatiosToTheTargets) {
    std::map<std::string, Example> examples;
    for (const Example &e : AllExamples())
        examples[e.key] = e;
    std::map<std::pair<std::string, std::size_t>, std::vector<double>> solved;
    for (const Bound &b : Bounds()) {
        SCOPED_TRACE(std::string(b.key) + ", mesh " + std::to_string(b.mesh));
        const Example &e = examples.at(b.key);
        std::vector<double> &values = solved[{b.key, b.mesh}];
        if (values.empty())
            values = e.values(b.mesh);
        const double ratio = values.at(b.quantity) / e.quantities.at(b.quantity).target;
        EXPECT_GE(ratio, b.low) << e.quantities[b.quantity].name;
        EXPECT_LE(ratio, b.high) << e.quantities[b.quantity].name;
    }
}

// Timoshenko and Woinowsky-Krieger as printed (tables 8 and 35, articles 44 and 46), beside what Ritz's method gives.
TEST(ConsistentBenchmark, RitzGivesThePrintedTables) {
    std::map<std::string, std::vector<Quantity>> of;
    for (const Example &e : PlateExamples())
        of[e.key] = e.quantities;
    EXPECT_NEAR(of["plate-hinged-even"][0].target, 0.00406, 5e-6);
    EXPECT_NEAR(of["plate-hinged-even"][1].target, 0.0479, 5e-5);
    EXPECT_NEAR(of["plate-clamped-even"][0].target, 0.00126, 6e-6);
    EXPECT_NEAR(of["plate-clamped-even"][2].target, 0.0513, 5e-5);

    using enum Edge;
    const auto even = [](double, double) { return 1.0; };
    const auto falling = [](double, double y) { return 1.0 - y; };
    const RitzSolution wide({1, 2.0 / 3, 1, .3, {Hinged, Hinged, Hinged, Free}, even, 16});
    EXPECT_NEAR(wide.deflection(.5, 2.0 / 3), 0.00968, 5e-6);
    EXPECT_NEAR(wide.momentX(.5, 1.0 / 3), 0.055, 5e-4);
    const RitzSolution hinged({1, 1, 1, .3, {Hinged, Hinged, Hinged, Free}, falling, 16});
    EXPECT_NEAR(hinged.deflection(.5, 1), 0.00368, 5e-6);
    EXPECT_NEAR(hinged.momentX(.5, .5), 0.0331, 5e-5);
    const RitzSolution clamped({1, 1, 1, .3, {Clamped, Clamped, Clamped, Clamped}, falling, 16});
    EXPECT_NEAR(clamped.deflection(.5, .5), 0.00063, 5e-6);
    EXPECT_NEAR(clamped.momentY(.5, 0), -0.0334, 5e-5);
    EXPECT_NEAR(clamped.momentX(0, .5), -0.0257, 5e-5);
    const RitzSolution whole({1, 1, 1, .3, {Hinged, Hinged, Hinged, Hinged}, falling, 16});
    EXPECT_NEAR(whole.deflection(.5, .5), 0.00406 / 2, 5e-6);
    EXPECT_NEAR(whole.momentX(.5, .5), 0.0479 / 2, 5e-5);
}

// Three widths, a sketch, a source for each target, a literal result or why there is none; of sections, one column.
TEST(VerificationPage, EveryCaseIsWhole) {
    for (const Chapter &chapter : AllChapters(std::string(HAVUZ_SOURCE_DIR) + "/examples"))
        for (const Example &e : chapter.examples) {
            SCOPED_TRACE(e.title);
            EXPECT_EQ(e.meshes.size(), e.meshes[0] == "program" ? 1U : 3U);
            EXPECT_TRUE(e.sketch != nullptr && !e.key.empty());
            EXPECT_NE(e.literal != nullptr, !e.notLiteral.empty());
            for (const Quantity &q : e.quantities)
                EXPECT_FALSE(q.source.empty()) << q.name;
        }
}

// Ratios that differ by rounding alone are one value: an axis of few marks, not of 1e16.
TEST(VerificationPage, AnAxisOfOneValueButForRounding) {
    EXPECT_LT(PlotAxis::OfNumbers({1.0, 1.0 + 1e-15, 1.0 - 1e-15}, 5).marks().size(), 20U);
}

// A page that is old in one figure is found, whichever line it stands in; open cells of a coarse page match any number.
TEST(VerificationPage, AnOldFigureIsFound) {
    const std::string coarse = "# M\n| a | 1.000 | 0.900 | ~ | ~ |\nwords\n";
    EXPECT_EQ(FirstDifference(coarse, "# M\n| a | 1.000 | 0.900 | 0.990 | -1.0 % |\n- a, finest +9.0 %: b.\nwords\n"),
              "");
    EXPECT_NE(FirstDifference(coarse, "# M\n| a | 1.001 | 0.900 | 0.990 | -1.0 % |\nwords\n"), "");
    EXPECT_NE(FirstDifference(coarse, "# M\n| a | 1.000 | 0.900 | none | -1.0 % |\nwords\n"), "");
    EXPECT_NE(FirstDifference(coarse, "# M\n| a | 1.000 | 0.900 | 0.990 | -1.0 % |\n"), "");
    EXPECT_NE(FirstDifference(coarse, "# M\n| a | 1.000 | 0.900 | 0.990 | -1.0 % |\nother words\n"), "");
    EXPECT_EQ(Digits(-1e-15, 1), "0.000");
    EXPECT_EQ(Digits(0.00406235, 0.00406), "0.004062");
}

} // namespace havuz::verification
