// A square plate solved by the driver's passes with both elements, against Timoshenko and Woinowsky-Krieger, "Theory of
// Plates and Shells", 2nd edition: tables 8 (simply supported) and 35 (clamped), the digits from the series of the
// text.
#include "analysis_support.h"
#include "fea/analysis.h"
#include "fea/assembly.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/plane_stress.h"
#include "fea/profile_solve.h"
#include "fea/quad_stress.h"
#include "fea/quad_work.h"
#include "fea/result_pass.h"
#include "fea/system.h"
#include "model/store.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

constexpr double kSide = 4.0, kLoad = 1.0, kThickness = 20.0; // m, t/m2, cm
enum Edge { Supported, Clamped };
enum Layout { Regular, Distorted };

double PlateStiffness() { // D, t.m
    const double t = kThickness / 100;
    return ConcreteE(Fck) * t * t * t / (12 * (1 - PoissonRatio * PoissonRatio));
}

// n by n meshes; a distorted layout moves the inner nodes by up to a fifth of a mesh.
void BuildPlate(int n, Edge edge, Layout layout) {
    NoktaCount = MeshCount = 0;
    PanelCount = 1;
    PanelTable[1].D = kThickness;
    PanelTable[1].G = kLoad;
    PanelTable[1].Tip = 2; // neither springs nor pressures
    for (int i = 0; i < 4; ++i)
        YukDurum[i] = 0;
    for (int j = 0; j <= n; ++j)
        for (int i = 0; i <= n; ++i) {
            const bool onX = j == 0 || j == n, onY = i == 0 || i == n;
            const double move = layout == Distorted && !onX && !onY ? 0.2 : 0.0;
            NoktaRecord &node = NoktaTable[++NoktaCount];
            node.X = (i + move * std::sin(3.0 * i + 5 * j)) * kSide / n;
            node.Y = (j + move * std::cos(4.0 * i - 7 * j)) * kSide / n;
            node.Z = 0.0;
            node.Mesnet = !onX && !onY ? 0 : edge == Clamped ? 7 : 4 + (onY ? 1 : 0) + (onX ? 2 : 0);
        }
    for (int j = 0; j < n; ++j)
        for (int i = 1; i <= n; ++i) {
            MeshRecord &mesh = MeshTable[++MeshCount];
            const int first = j * (n + 1) + i;
            mesh.N1 = first, mesh.N2 = first + 1, mesh.N3 = first + n + 2, mesh.N4 = first + n + 1;
            mesh.PanelNo = 1;
        }
}

// Solves the model in the store with the element of the switch, leaving the solution in Rhs.
void Solve(int element) {
    TemporaryFolder folder;
    RunWindow window;
    RecordFile stif(folder.file("STIF001"), sizeof(ElementRecord));
    MeshPass();
    NumberEquations();
    ProfileBuild(window);
    LoadColumnSetup(window);
    CheckSystemSizes();
    FillPlaneD(ConcreteE(Fck), PoissonRatio);
    ElementSwitch = element;
    ElementPass(ConcreteE(Fck), stif, window);
    AssembleSystem(stif, window);
    ProfileSolve(window);
}

struct Solved {
    double deflection; // error of the centre's, of the exact value for the load that the meshes put on
    double moment;     // Mx of the centre over q * side^2
};

Solved SolvePlate(int n, Edge edge, Layout layout, int element) {
    ResetAll();
    BuildPlate(n, edge, layout);
    Solve(element);
    double load = 0.0; // a mesh carries its mean sides' product, also where its area is another
    for (int i = 1; i <= MeshCount; ++i)
        load += kLoad * MeshTable[i].KenarA * MeshTable[i].KenarB;
    const double factor = edge == Supported ? 0.00406235 : 0.00126532;
    const int centre = (n + 1) * (n / 2) + n / 2 + 1;
    const double down = -SolutionValue(NoktaTable[centre].Denklem[3], 1);
    const TemporaryFolder folder;
    RecordFile son(folder.file("plate.SON"), sizeof(SonRecord));
    StressPass(ConcreteE(Fck), son);
    SonRecord record;
    son.GetRecord(record, n * (n / 2 - 1) + n / 2); // its corner 3 is the centre
    return {down * PlateStiffness() / (factor * load * kSide * kSide) - 1, record[15] / (kLoad * kSide * kSide)};
}

} // namespace

// It comes to the exact plate, the error falling with the square of the mesh width: by 4 from 4 to 8 meshes a side,
// give or take the next order. The quadrilateral is compatible, so it is always the stiffer.
TEST(QuadPlate, ConvergesToTimoshenko) {
    const double moment = 1.25 * 0.0736714 / 2; // table 8: Mx = My = 0.0479 at v = 0.3, their sum going with 1 + v
    for (const Edge edge : {Supported, Clamped}) {
        SCOPED_TRACE(edge);
        const Solved coarse = SolvePlate(4, edge, Regular, 1), fine = SolvePlate(8, edge, Regular, 1);
        const double rate = coarse.deflection / fine.deflection;
        EXPECT_TRUE(rate > 3 && rate < 5) << coarse.deflection << " to " << fine.deflection;
        EXPECT_TRUE(fine.deflection < 0 && fine.deflection > -0.035);
        if (edge == Supported) {
            EXPECT_LT(std::fabs(fine.moment / -moment - 1), std::fabs(coarse.moment / -moment - 1) / 3);
        }
    }
}

// Where meshes are no rectangles the two part: the quadrilateral keeps its order, the rectangle of mean sides is wrong.
TEST(QuadPlate, DistortedMeshes) {
    EXPECT_LT(SolvePlate(8, Supported, Distorted, 0).deflection, -0.4);
    const Solved quad = SolvePlate(8, Supported, Distorted, 1);
    EXPECT_LT(std::fabs(quad.deflection), 0.035);
    // The centre's moment is of mesh 28, not the last one that had its stiffness made.
    const MeshNodes m = MeshNodeData(28);
    for (int k = 1; k <= 4; ++k) {
        const auto c = static_cast<std::size_t>(k);
        QuadCorner[k] = {m.x[c], m.y[c], m.z[c]};
    }
    Matrix<24, 24> S;
    QuadShellStress(S, 4, 4);
    double Mx = 0.0;
    const std::array<int, 25> eqs = MeshEquations(m);
    for (std::size_t p = 1; p <= 24; ++p)
        Mx += eqs[p] > 0 ? S(16, static_cast<int>(p)) * SolutionValue(eqs[p], 1) : 0.0;
    EXPECT_EQ(Float32(Mx), quad.moment * kLoad * kSide * kSide);
}

// A run sets the switch to 0, whatever it was, and fills the material matrix.
TEST(QuadPlate, ARunUsesTheRectangularElement) {
    std::string results[2];
    for (const int element : {0, 1}) {
        ResetAll();
        BuildPlate(4, Supported, Regular);
        TemporaryFolder folder;
        RunWindow window;
        ElementSwitch = element;
        const AnalysisPaths paths{folder.file("plate"), folder.file("WORKPOOL"), ""};
        EXPECT_THROW(AnalysisRun(paths, window), ProgramEnd);
        EXPECT_EQ(ElementSwitch, 0);
        EXPECT_EQ(PlaneD(1, 2), 0.25 * 2850000 / 0.9375);
        results[element] = ReadBytes(paths.project + ".SON") + ReadBytes(paths.project + ".DEP");
    }
    EXPECT_FALSE(results[0].empty());
    EXPECT_EQ(results[0], results[1]);
}

} // namespace havuz
