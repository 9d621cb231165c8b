// The model store: stored widths, bounds, clearing, compaction, springs.
#include "model/springs.h"
#include "model/store.h"
#include "support.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

TEST(Fields, SixteenBitsRoundTiesToEvenAndFailOutsideTheRange) {
    const std::pair<double, int> kept[] = {{0.5, 0},  {1.5, 2},         {2.5, 2},           {-2.5, -2},
                                           {-0.5, 0}, {32767.4, 32767}, {-32768.5, -32768}, {2.500001, 3}};
    for (const auto &[value, stored] : kept)
        EXPECT_EQ(int(Int16(value)), stored) << value;
    for (const double bad : {32767.5, -32768.6, 1e300, std::nan("")})
        EXPECT_EQ(FailureOf([bad] { Int16 field(bad); }).kind, Overflow) << bad;
    EXPECT_EQ(FailureOf([] { Int16 field(40000); }).kind, Overflow);
}

TEST(Fields, ThirtyTwoBitsCutWhenStoredAndComputeInDouble) {
    const Float32 a(0.1);
    const Float32 b(0.2);
    EXPECT_EQ(a.raw(), 0.1F);
    EXPECT_EQ(a + b, static_cast<double>(0.1F) + static_cast<double>(0.2F)); // not the float sum
    EXPECT_NE(a + b, static_cast<double>(0.1F + 0.2F));
    for (const double bad : {1e39, -1e300, std::nan(""), HUGE_VAL})
        EXPECT_EQ(FailureOf([bad] { Float32 field(bad); }).kind, Overflow) << bad;
}

TEST(Tables, RecordZeroToTheLastAndNothingBeyond) {
    PanelTable[0].No = 0;
    PanelTable[1000].No = 1;
    EXPECT_EQ(FailureOf([] { PanelTable[1001].No = 1; }).words, "PanelTable(1001) lies outside 0..1000");
    EXPECT_EQ(FailureOf([] { NoktaTable[-1].Mesnet = 1; }).kind, Subscript);
    EXPECT_EQ(FailureOf([] { PlakTable[1].X[201] = 1.0; }).kind, Subscript);
}

TEST(Store, ANewProjectRetiresNodesByTheirCountsAlone) {
    PanelCount = 2;
    PanelTable[2].KenarKomsu[4] = 101;
    PlakCount = 1;
    PlakTable[1].KenarKodu[200] = 7;
    NoktaCount = 7;
    NokYukTable[7].FZ = 2.0;
    ClearModel();
    EXPECT_EQ(PanelCount + PlakCount + NoktaCount + MeshCount, 0);
    EXPECT_EQ(PanelTable[2].KenarKomsu[4], 0);
    EXPECT_EQ(PlakTable[1].KenarKodu[200], 0);
    EXPECT_EQ(NokYukTable[7].FZ, 2.0);
}

TEST(Store, CompactionMovesPanelsUpAndKeepsTheirCodes) {
    for (const int i : {1, 2, 4}) {
        PanelTable[i].No = 10 + i;
        PanelTable[i].KenarKomsu[1] = 402;
    }
    PanelTable[3].Nx = 5; // free, No 0
    CompactPanels();
    EXPECT_EQ(PanelCount, 3);
    EXPECT_EQ(PanelTable[3].No, 14);
    EXPECT_EQ(PanelTable[3].KenarKomsu[1], 402); // not rewritten
    EXPECT_EQ(PanelTable[4].No, 14);             // the moved record stays behind as well
    CompactPanels();
    EXPECT_EQ(PanelCount, 4); // and counts at the next compaction
}

TEST(Springs, StandUnderActiveFloorsByPlanArea) {
    NoktaCount = 6;
    const double xy[7][2] = {{0, 0}, {0, 0}, {2, 0}, {2, 3}, {0, 3}, {4, 0}, {4, 3}};
    for (int i = 1; i <= 6; ++i) {
        NoktaTable[i].X = xy[i][0];
        NoktaTable[i].Y = xy[i][1];
        NoktaTable[i].Z = i * 0.7; // heights take no part
        NoktaTable[i].Yay = 99.0;
    }
    MeshCount = 2;
    const int corners[3][4] = {{}, {1, 2, 3, 4}, {2, 5, 6, 3}};
    for (int i = 1; i <= 2; ++i) {
        MeshTable[i].N1 = corners[i][0];
        MeshTable[i].N2 = corners[i][1];
        MeshTable[i].N3 = corners[i][2];
        MeshTable[i].N4 = corners[i][3];
        MeshTable[i].PanelNo = i;
    }
    PanelTable[2].Tip = 1;
    ZeminKo = 1000;
    SpringStiffness();
    EXPECT_EQ(NoktaTable[1].Yay, 1500.0);
    EXPECT_EQ(NoktaTable[2].Yay, 1500.0);
    EXPECT_EQ(NoktaTable[5].Yay, 0.0); // a wall's
    MeshTable[2].PanelNo = 1001;       // a plate's, whatever the plate is
    SpringStiffness();
    EXPECT_EQ(NoktaTable[2].Yay, 3000.0);
    MeshTable[1].Sil = 1;
    SpringStiffness();
    EXPECT_EQ(NoktaTable[1].Yay, 0.0);
    EXPECT_EQ(NoktaTable[2].Yay, 1500.0);
}

} // namespace havuz
