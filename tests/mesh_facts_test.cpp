// The meanings of Sil: on, switched off, and the values that only a file can bring.
#include "export/export_file.h"
#include "export/staad.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/pressures.h"
#include "fea/system.h"
#include "hand_models.h"
#include "model/springs.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

TEST(MeshFacts, ThreeTestsOfSilDiffer) {
    const struct {
        int sil;
        bool stiff, springs, pressed, exported;
    } cases[] = {{0, true, true, true, true},
                 {1, false, false, false, false},
                 {2, true, false, false, false},
                 {-1, true, true, false, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.sil);
        ResetAll();
        AddPanel(0, {0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0});
        PanelTable[1].D = 30;
        for (const auto &[x, y] : {std::pair{0, 0}, {2, 0}, {2, 2}, {0, 2}})
            AddNode(x, y, 0);
        AddMesh(1, 2, 3, 4, 1, c.sil);
        EXPECT_EQ(FoundationSprings()[1] > 0.0, c.springs);
        MeshPass();
        NumberEquations();
        AnalysisWindow none;
        ProfileBuild(none);
        EXPECT_EQ(EquationCount > 0, c.stiff);
        int pressures = 0;
        ForEachPressure([&](const MeshPressure &) { ++pressures; });
        EXPECT_EQ(pressures > 0, c.pressed);
        EXPECT_EQ(StaadText().find("   1      1      2      3      4") != std::string::npos, c.exported);
    }
}

} // namespace havuz
