// A square plate solved by the driver's passes with both elements, against Timoshenko and Woinowsky-Krieger, "Theory of
// Plates and Shells", 2nd edition, table 8 (simply supported), the digits from the series of the text.
#include "analysis_support.h"
#include "element_support.h"
#include "fea/analysis.h"
#include "fea/assembly.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/plane_stress.h"
#include "fea/profile_solve.h"
#include "fea/quad_stress.h"
#include "fea/result_pass.h"
#include "fea/system.h"
#include "hand_models.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

constexpr double kSide = 4.0, kThickness = 0.2;                   // m; under 1 t/m2
constexpr double kMoment = -1.25 * 0.0736714 / 2 * kSide * kSide; // 0.0479 at v = 0.3: Mx + My goes with 1 + v

// n by n meshes, the inner nodes moved by up to `move` of a mesh.
void BuildPlate(int n, double move) {
    ResetAll();
    AddPanel(2, {}, {}, {}, {}); // neither springs nor pressures
    PanelTable[1].D = 100 * kThickness;
    PanelTable[1].G = 1.0;
    for (int i = 0; i < 4; ++i)
        YukDurum[i] = 0;
    AddGrid(n, n);
    for (int k = 1; k <= NoktaCount; ++k) {
        const int i = (k - 1) % (n + 1), j = (k - 1) / (n + 1);
        const bool onX = j % n == 0, onY = i % n == 0;
        const double part = onX || onY ? 0.0 : move;
        NoktaRecord &node = NoktaTable[k];
        node.X = (i + part * std::sin(3.0 * i + 5 * j)) * kSide / n;
        node.Y = (j + part * std::cos(4.0 * i - 7 * j)) * kSide / n;
        node.Mesnet = onX || onY ? 4 + (onY ? 1 : 0) + (onX ? 2 : 0) : 0;
    }
}

struct Solved {
    double deflection; // error of the centre's, of the exact value for the load that the meshes put on
    double moment;     // Mx of the centre over the exact value
};

// Solves it with the element of the switch, leaving the solution in Rhs.
Solved SolvePlate(int n, double move, int element) {
    BuildPlate(n, move);
    const TemporaryFolder folder;
    RunWindow window;
    RecordFile stif(folder.file("STIF001"), sizeof(ElementRecord)), son(folder.file("SON"), sizeof(SonRecord));
    const double E = ConcreteE(Fck);
    MeshPass();
    NumberEquations();
    ProfileBuild(window);
    LoadColumnSetup(window);
    FillPlaneD(E, PoissonRatio);
    ElementSwitch = element;
    ElementPass(E, stif, window);
    AssembleSystem(stif, window);
    ProfileSolve(window);
    StressPass(E, son);
    SonRecord record;
    son.GetRecord(record, n * (n / 2 - 1) + n / 2); // its corner 3 is the centre
    double load = 0.0; // a mesh carries its mean sides' product, also where its area is another
    for (int i = 1; i <= MeshCount; ++i)
        load += MeshTable[i].KenarA * MeshTable[i].KenarB;
    const double D = E * kThickness * kThickness * kThickness / (12 * (1 - PoissonRatio * PoissonRatio));
    const double down = -SolutionValue(NoktaTable[(n + 1) * (n / 2) + n / 2 + 1].Denklem[3], 1);
    return {down * D / (0.00406235 * load * kSide * kSide) - 1, record[15] / kMoment};
}

} // namespace

// It comes to the exact plate, the error falling with the square of the mesh width: by 4 from 4 to 8 meshes a side,
// give or take the next order. The quadrilateral is compatible, so it is always the stiffer. On meshes that are no
// rectangles it keeps its order, where the rectangle of mean sides is wrong.
TEST(QuadPlate, ConvergesToTimoshenko) {
    const Solved coarse = SolvePlate(4, 0, 1), fine = SolvePlate(8, 0, 1);
    EXPECT_NEAR(coarse.deflection / fine.deflection, 4.0, 1.0) << coarse.deflection << " to " << fine.deflection;
    EXPECT_TRUE(fine.deflection < 0 && fine.deflection > -0.035) << fine.deflection;
    EXPECT_LT(std::fabs(fine.moment - 1), std::fabs(coarse.moment - 1) / 3);
    EXPECT_LT(SolvePlate(8, 0.2, 0).deflection, -0.4);
    const Solved distorted = SolvePlate(8, 0.2, 1);
    EXPECT_LT(std::fabs(distorted.deflection), 0.035);
    // The centre's moment is of mesh 28, not the last one that had its stiffness made.
    const MeshNodes m = MeshNodeData(28);
    PlaceQuad(MeshTable[28], m);
    Matrix<24, 24> S;
    QuadShellStress(S, 4, 4);
    const std::array<int, 25> equation = MeshEquations(m);
    double Mx = 0.0;
    for (std::size_t p = 1; p <= 24; ++p)
        Mx += equation[p] > 0 ? S(16, static_cast<int>(p)) * SolutionValue(equation[p], 1) : 0.0;
    EXPECT_NEAR(Mx / kMoment, distorted.moment, 1e-6);
}

// A run sets the switch to 0, whatever it was, and fills the material matrix.
TEST(QuadPlate, ARunUsesTheRectangularElement) {
    std::string results[2];
    for (const int element : {0, 1}) {
        BuildPlate(4, 0);
        const TemporaryFolder folder;
        RunWindow window;
        ElementSwitch = element;
        EXPECT_THROW(AnalysisRun({folder.file("P"), folder.file("WORKPOOL"), ""}, window), ProgramEnd);
        EXPECT_EQ(PlaneD(1, 2), 0.25 * 2850000 / 0.9375);
        results[element] = ReadBytes(folder.file("P.SON")) + ReadBytes(folder.file("P.DEP"));
    }
    EXPECT_FALSE(results[0].empty());
    EXPECT_EQ(results[0], results[1]);
}

} // namespace havuz
