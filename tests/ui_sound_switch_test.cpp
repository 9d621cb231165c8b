// The switch "Tutarlı" of the top bar: which mesher "auto mesh" takes, what the prompt line says, what a record keeps.
#include "mesh/mesh_report.h"
#include "mesh/polygon_pool.h"
#include "model/store.h"
#include "support.h"
#include "ui/commands/tools.h"
#include "ui/window/recorder.h"
#include "ui/window/sound_switch.h"
#include "ui_support.h"

#include <gtest/gtest.h>
#include <sstream>

namespace havuz {

namespace {

// An L, of which the other mesher loses the inner corner.
void PutL() {
    PolygonPool pool;
    pool.points = {{0, 0}, {6, 0}, {6, 3}, {3, 3}, {3, 6}, {0, 6}};
    pool.dp = 20;
    pool.ds = 30;
    pool.UstKot = 3;
    BuildPolygonPool(pool);
}

} // namespace

TEST(SoundSwitch, AutoMeshObeysItAndSaysWhichMesherWorked) {
    Desk desk;
    PutL();
    EXPECT_FALSE(desk.window.Checked(kSoundSwitch));
    desk.click(kAutoMeshTool);
    EXPECT_EQ(desk.prompt().rfind("MESH TAMAM (ALISILMIS): ", 0), 0U) << desk.prompt();
    EXPECT_FALSE(MeshReport().empty());
    NokYukTable[1].FZ = 1.0;
    NoktaTable[1].X = 77.0; // no place in the new mesh
    ASSERT_TRUE(desk.click(kSoundSwitch));
    desk.window.SetChecked(kAutoMeshTool, false);
    desk.click(kAutoMeshTool);
    EXPECT_EQ(desk.prompt(),
              "MESH TAMAM (TUTARLI): 160 NOKTA, 145 MESH, TASINAMAYAN 1, UYARI YOK - GORMEK ICIN plak/mesh");
    EXPECT_TRUE(MeshReport().empty());
    ASSERT_EQ(desk.window.errors.size(), 1U);
    EXPECT_NE(desk.window.errors[0].find("point load of node 1"), std::string::npos);
}

TEST(SoundSwitch, ARefusalIsToldInTurkishAndTheModelStays) {
    Desk desk;
    PutL();
    desk.click(kSoundSwitch);
    MeshGenisligi = 0.02;
    desk.click(kAutoMeshTool);
    EXPECT_EQ(desk.prompt().rfind("AUTO MESH YAPILAMADI, TABLO SINIRI ASILDI: MESH GENISLIGI 0.02 COK KUCUK", 0), 0U)
        << desk.prompt();
    EXPECT_EQ(NoktaCount, 0);
    EXPECT_EQ(MeshCount, 0);
}

TEST(SoundSwitch, ARecordBeginsWithIt) {
    Desk desk;
    desk.click(kSoundSwitch);
    std::ostringstream out;
    const Recorder recorder(desk.window, out, "");
    EXPECT_NE(out.str().find("\ncheck MAIN Tutarli on\n"), std::string::npos) << out.str();
}

} // namespace havuz
