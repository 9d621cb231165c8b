// The paged tables and the popup that edits their rows.
#include "hand_models.h"
#include "support.h"
#include "ui/forms/dialogs.h"
#include "ui_support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

Element Cell(std::string_view form, std::string_view column, int row = 0) { return {form, column, row}; }

void PutNode(int no, double x, double y, double z) {
    NoktaTable[no].X = x;
    NoktaTable[no].Y = y;
    NoktaTable[no].Z = z;
}

void PutPanels(int count) {
    for (int i = 1; i <= count; ++i) {
        PanelTable[i].No = i;
        PanelTable[i].D = 10.0 * i;
    }
    PanelCount = count;
}

// The numbers of the first eight panel records.
std::string PanelNos() {
    std::string nos;
    for (int i = 1; i <= 8; ++i)
        nos += std::to_string(PanelTable[i].No) + " ";
    return nos;
}

// One item of the row-menu on a record of the table shown.
void Choose(Desk &desk, const std::string &tag, int record, int item) {
    SeciliNo = record;
    ShowRowPopup(desk.main, tag, {});
    ASSERT_TRUE(desk.click({"TOOL", "Satir", item}));
}

} // namespace

TEST(PanelTableForm, ShowsRowsAndTheFocusedPanel) {
    Desk desk;
    PutPanels(3);
    PanelTable[2].Z[4] = 1.2345;
    PanelTable[2].G = 0.5;
    desk.click(kPanelTableTool);
    EXPECT_FALSE(desk.window.formState(kMain).enabled);
    EXPECT_EQ(desk.window.focused(), Cell("FEAPLAK", "No"));
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "Sira", 9)), "10");
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "D", 1)), "20");
    for (const char *column : {"No", "D", "Nx", "Ny"})
        EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", column, 3)), ""); // a free record
    desk.window.Press(Key::Down);
    EXPECT_EQ(TabloSatir, 1);
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "Deger", 11)), "1.235");
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "Deger", 12)), "0.5");
    desk.window.Type(Cell("FEAPLAK", "Deger", 13), "1,5");
    desk.window.Press(Key::Up);
    EXPECT_EQ(PanelTable[2].P, 1.5);
}

TEST(PanelTableForm, TheMarkerFollowsTheFocusAndCellsAreStoredWhenLeft) {
    Desk desk;
    PutPanels(3);
    desk.click(kPanelTableTool);
    const Element marker = Cell("FEAPLAK", "Isaret"), cell = Cell("FEAPLAK", "D", 2);
    desk.window.Type(cell, "12,5");
    EXPECT_TRUE(desk.window.Shown(marker));
    EXPECT_EQ(desk.window.state(marker).top, desk.window.state(cell).top + 50.0);
    EXPECT_EQ(desk.window.state(cell).colour, kWindowColour);
    EXPECT_EQ(PanelTable[3].D, 30.0);
    desk.window.Focus(Cell("FEAPLAK", "Deger"));
    EXPECT_EQ(PanelTable[3].D, 12.5);
    EXPECT_EQ(desk.window.state(cell).colour, Rgb(224, 224, 224));
    EXPECT_FALSE(desk.window.Shown(marker));
    desk.window.Focus(cell);
    EXPECT_EQ(desk.window.Text(cell), "13"); // the picture has no places: the next leaving stores what it shows
    desk.window.Focus(Cell("FEAPLAK", "No"));
    EXPECT_EQ(PanelTable[3].D, 13.0);
}

TEST(PanelTableForm, ConfirmingClosesTheGapsAnyOtherWayOutDoesNot) {
    Desk desk;
    PutPanels(4);
    for (const bool confirmed : {false, true}) {
        desk.click(kPanelTableTool);
        desk.window.Type(Cell("FEAPLAK", "No", 1), "");
        desk.window.Press(Key::Down);
        if (confirmed)
            desk.click(Cell("FEAPLAK", "Tamam"));
        else
            desk.window.CloseForm("FEAPLAK");
        // a panel that moved up leaves its copy behind the count
        EXPECT_EQ(PanelNos(), confirmed ? "1 3 4 4 0 0 0 0 " : "1 0 3 4 0 0 0 0 ");
        EXPECT_EQ(PanelCount, confirmed ? 3 : 4);
        EXPECT_FALSE(desk.window.Checked(kPanelTableTool));
        EXPECT_TRUE(desk.window.formState(kMain).enabled);
    }
}

TEST(Paging, KeysWalkTheColumnsOfARow) {
    Desk desk;
    PutNode(1, 12.5, 0, 3);
    desk.click(kNodeTableTool);
    desk.window.Press(Key::Left); // nothing before the first column
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "X"));
    desk.window.Press(Key::Enter);
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "Y"));
    EXPECT_EQ(desk.window.SelectionLength(Cell("KOORBIL", "Y")), 1); // "0"
    desk.window.Press(Key::Right);                                   // behind the selection: as Enter
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "Z"));
    desk.window.Press(Key::Left);
    desk.window.Press(Key::Left);
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "X"));
    desk.window.Select(Cell("KOORBIL", "X"), 0, 0);
    desk.window.Press(Key::Right); // 1 from its start
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "X"));
    for (int i = 0; i < 3; ++i)
        desk.window.Press(Key::Enter);
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "X", 1)); // behind the last box the next row
    EXPECT_TRUE(desk.main.OnKey(Cell("KOORBIL", "X", 1), Key::Enter));
    desk.window.Type(Cell("KOORBIL", "X", 1), "5 ş"); // the end is counted in characters
    desk.window.Press(Key::Right);
    EXPECT_EQ(desk.window.focused(), Cell("KOORBIL", "Y", 1));
}

TEST(Paging, PagesMoveByTenAndStopAtBothEnds) {
    for (const auto &[form, column, tool, last] : {std::tuple{"FEAPLAK", "No", kPanelTableTool, 990},
                                                   {"MESHBIL", "I", kMeshTableTool, 4990},
                                                   {"KOORBIL", "X", kNodeTableTool, 4990}}) {
        SCOPED_TRACE(form);
        Desk desk;
        desk.click(tool);
        desk.window.Press(Key::PageUp);
        EXPECT_EQ(TabloUst, 0);
        desk.window.Press(Key::PageDown);
        EXPECT_EQ(TabloUst, 10);
        EXPECT_EQ(desk.window.Text(Cell(form, "Sira")), "11");
        EXPECT_EQ(desk.window.ScrollValue(Cell(form, "Kaydir")), 10);
        desk.window.Scroll(Cell(form, "Kaydir"), last + 7);
        EXPECT_EQ(TabloUst, last);
        desk.window.Press(Key::PageDown);
        EXPECT_EQ(TabloUst, last);
        EXPECT_EQ(desk.window.Text(Cell(form, "Sira", 9)), std::to_string(last + 10));
        desk.window.Scroll(Cell(form, "Kaydir"), 3);
        desk.window.Press(Key::PageUp);
        EXPECT_EQ(TabloUst, 0);
        // Row by row: the key stops where TabloUst + 9 reaches its limit.
        desk.window.Scroll(Cell(form, "Kaydir"), last - 12);
        desk.window.Focus(Cell(form, column, 9));
        for (int i = 0; i < 30; ++i)
            desk.window.Press(Key::Down);
        EXPECT_EQ(TabloUst, last == 990 ? 990 : 4981);
        EXPECT_EQ(desk.window.focused(), Cell(form, column, 9));
        desk.window.Focus(Cell(form, column, 0));
        desk.window.Press(Key::Up);
        EXPECT_EQ(TabloUst, last == 990 ? 989 : 4980);
        EXPECT_EQ(desk.window.focused(), Cell(form, column, 0));
    }
}

TEST(NodeTableForm, OnlyAMoveOfMoreThanAMillimetreRedraws) {
    Desk desk;
    PutNode(1, 1, 1, 0);
    desk.click(kNodeTableTool);
    for (const auto &[typed, drawn] : {std::pair{"1.001", false}, {"1.003", true}}) {
        desk.window.Type(Cell("KOORBIL", "X"), typed);
        desk.scr.log.clear();
        desk.window.Focus(Cell("KOORBIL", "Y"));
        EXPECT_EQ(!desk.scr.log.empty(), drawn) << typed;
        desk.window.Focus(Cell("KOORBIL", "X"));
    }
}

TEST(NodeTableForm, SupportsAreStoredAtTheNextSaveOnly) {
    Desk desk;
    PutNode(1, 1, 1, 0);
    PutNode(2, 2, 1, 0);
    NoktaTable[2].Mesnet = 6;
    desk.click(kNodeTableTool);
    EXPECT_FALSE(desk.window.Checked(Cell("KOORBIL", "Rx", 1)));
    EXPECT_TRUE(desk.window.Checked(Cell("KOORBIL", "Ry", 1)));
    EXPECT_TRUE(desk.window.Checked(Cell("KOORBIL", "Dz", 1)));
    desk.scr.log.clear();
    desk.click(Cell("KOORBIL", "Rx", 0));
    desk.click(Cell("KOORBIL", "Ry", 1));
    EXPECT_EQ(NoktaTable[1].Mesnet + NoktaTable[2].Mesnet, 6);
    EXPECT_EQ(desk.scr.log, "");
    desk.window.Press(Key::PageDown);
    EXPECT_EQ(NoktaTable[1].Mesnet, 1);
    EXPECT_EQ(NoktaTable[2].Mesnet, 4);
}

TEST(NodeTableForm, ClosingEndsTheModelAtTheFirstRowOfZeros) {
    Desk desk;
    for (const int i : {1, 2, 4, 5})
        PutNode(i, i, 0, 0);
    NoktaTable[3].Mesnet = 7;
    desk.click(kNodeTableTool);
    desk.window.CloseForm("KOORBIL");
    EXPECT_EQ(NoktaCount, 2);
    EXPECT_EQ(NoktaTable[3].Mesnet, 0);
    EXPECT_EQ(NoktaTable[4].X, 4.0);
    EXPECT_FALSE(desk.window.Checked(kNodeTableTool));
    for (int i = 2; i <= kNoktaCapacity; ++i)
        PutNode(i, 1, 1, 1);
    desk.click(kNodeTableTool);
    desk.window.CloseForm("KOORBIL");
    EXPECT_EQ(NoktaCount, 0); // no row of zeros is met
}

TEST(MeshTableForm, TheCheckMarkIsOneMinusSil) {
    Desk desk;
    MeshTable[2].Sil = 1;
    desk.click(kMeshTableTool);
    EXPECT_TRUE(desk.window.Checked(Cell("MESHBIL", "Acik", 0)));
    EXPECT_FALSE(desk.window.Checked(Cell("MESHBIL", "Acik", 1)));
    desk.click(Cell("MESHBIL", "Acik", 0));
    desk.window.Type(Cell("MESHBIL", "L", 0), "4999"); // stored as it is
    desk.window.Press(Key::PageDown);
    EXPECT_EQ(MeshTable[1].Sil, 1);
    EXPECT_EQ(MeshTable[1].N4, 4999);
    desk.window.CloseForm("MESHBIL");
    EXPECT_FALSE(desk.window.Checked(kMeshTableTool));
    EXPECT_TRUE(desk.window.formState(kMain).enabled);
}

TEST(RowPopup, OpensBesideTheMarkerAndGivesTheRowBack) {
    Desk desk;
    PutPanels(12);
    desk.click(kPanelTableTool);
    desk.window.Press(Key::PageDown);
    desk.window.Type(Cell("FEAPLAK", "D", 1), "77");
    ASSERT_TRUE(desk.click(Cell("FEAPLAK", "Isaret")));
    EXPECT_EQ(SeciliNo, 12);
    EXPECT_EQ(PanelTable[12].D, 77.0); // the page is saved
    const Element item{"TOOL", "Satir", 0}, other{"TOOL", "Satir", 1};
    desk.window.Hover(item);
    EXPECT_EQ(desk.window.state(item).colour, Rgb(0, 0, 192));
    EXPECT_EQ(desk.window.state(item).textColour, QbColour(15));
    EXPECT_EQ(desk.window.state(other).colour, kButtonColour);
    EXPECT_EQ(desk.window.state(other).textColour, Rgb(0, 0, 192));
    desk.click(item);
    EXPECT_FALSE(desk.window.FormShown("TOOL"));
    EXPECT_EQ(PanelCount, 13);
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "No", 1)), "11"); // a copy of the row before it
    EXPECT_EQ(desk.window.Text(Cell("FEAPLAK", "No", 2)), "12");
    EXPECT_EQ(desk.window.focused(), Cell("FEAPLAK", "No", 1));
    EXPECT_FALSE(desk.window.formState(kMain).enabled);
    desk.click(Cell("FEAPLAK", "Isaret"));
    desk.click(Cell("FEAPLAK", "D", 4)); // the popup loses its activation
    EXPECT_FALSE(desk.window.FormShown("TOOL"));
    EXPECT_EQ(PanelCount, 13);
}

TEST(RowPopup, PanelsAreCountedToTheFirstGapAndMoved) {
    Desk desk;
    desk.click(kPanelTableTool);
    PutPanels(3);
    Choose(desk, "1", 1, 0);
    EXPECT_EQ(PanelNos(), "0 1 2 3 0 0 0 0 "); // the blank record 0 comes in
    PutPanels(4);
    PanelTable[1].Tip = 2;
    Choose(desk, "1", 2, 1);
    EXPECT_EQ(PanelNos(), "1 3 4 0 0 0 0 0 ");
    EXPECT_EQ(PanelCount, 3);
    PutPanels(5);
    PanelTable[3].No = 0;
    PanelTable[3].KenarKomsu[1] = 101;
    Choose(desk, "1", 2, 0);
    EXPECT_EQ(PanelCount, 3);
    EXPECT_EQ(PanelNos(), "1 1 2 4 5 0 0 0 ");
    Choose(desk, "1", 1, 2);
    EXPECT_EQ(PanelNos(), "0 0 0 0 0 0 0 0 ");
    EXPECT_EQ(PanelCount, 0);
    EXPECT_EQ(PanelTable[1].Tip, 2); // not among the fields that are cleared
}

TEST(RowPopup, MeshesWithoutFourNodesFallOutAndTheLastRecordIsTheBlank) {
    Desk desk;
    desk.click(kMeshTableTool);
    for (int i = 1; i <= 4; ++i) {
        MeshTable[i].N1 = MeshTable[i].N2 = MeshTable[i].N3 = i;
        MeshTable[i].N4 = i == 2 ? 0 : i;
    }
    Choose(desk, "2", 2, 0);
    EXPECT_EQ(MeshCount, 4);
    const int inserted[] = {1, 0, 3, 4, 0};
    for (int i = 1; i <= 5; ++i)
        EXPECT_EQ(MeshTable[i].N1, inserted[i - 1]) << i;
    MeshTable[kMeshCapacity].PanelNo = 9; // no mesh, but what the empty rows become
    Choose(desk, "2", 1, 1);
    EXPECT_EQ(MeshCount, 2);
    EXPECT_EQ(MeshTable[1].N1, 3);
    EXPECT_EQ(MeshTable[3].PanelNo, 9);
    Choose(desk, "2", 1, 2);
    EXPECT_EQ(MeshCount, 0);
    EXPECT_EQ(MeshTable[1].PanelNo, 9);
    EXPECT_EQ(desk.window.Text(Cell("MESHBIL", "I")), "");
}

TEST(RowPopup, NodesOnAnAxisFallOut) {
    Desk desk;
    desk.click(kNodeTableTool);
    PutNode(1, 0, 5, 1);
    PutNode(2, 2, 2, 0);
    PutNode(3, -1, 3, 1);
    PutNode(4, 4, 4, 4);
    NoktaTable[4].Mesnet = 4;
    Choose(desk, "3", 2, 0);
    EXPECT_EQ(NoktaCount, 3);
    EXPECT_EQ(NoktaTable[1].X, 2.0);
    EXPECT_EQ(NoktaTable[2].X, 0.0);
    EXPECT_EQ(NoktaTable[3].X, 4.0);
    EXPECT_EQ(NoktaTable[4].X, 0.0);
    EXPECT_EQ(desk.window.Text(Cell("KOORBIL", "Z", 2)), "4");
    EXPECT_TRUE(desk.window.Checked(Cell("KOORBIL", "Dz", 2)));
}

} // namespace havuz
