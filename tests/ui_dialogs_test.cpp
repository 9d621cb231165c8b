// The dialogs: what each shows, what its ways out store, where the keys lead.
#include "hand_models.h"
#include "model/options.h"
#include "model/project_file.h"
#include "support.h"
#include "ui/forms/dialogs.h"
#include "ui_support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

constexpr Colour kGrey = Rgb(224, 224, 224);

Element Of(std::string_view form, std::string_view name, int index = 0) { return {form, name, index}; }

bool MainEnabled(Desk &desk) { return desk.window.formState(kMain).enabled; }

// Works its dialog through the tool that shows it.
void OpenBy(Desk &desk, Element tool) { ASSERT_TRUE(desk.click(tool)); }

} // namespace

TEST(PoolData, ShowsAndStoresEveryRowHoweverItIsClosed) {
    Desk desk;
    double *const parameters[] = {&MeshGenisligi, &ZeminKo,      &ZeminGzem, &ZeminKa,
                                  &ZeminYogunluk, &SiviYogunluk, &SiviKotu,  &YeraltiSuKotu};
    ProjeIsmi = "DENEME  ";
    for (int i = 0; i < 8; ++i)
        *parameters[i] = i + 1.25;
    OpenBy(desk, kGeneralDataTool);
    EXPECT_EQ(desk.window.formState("POOLGEN").caption, "HAVUZ  GENEL  BİLGİSİ");
    EXPECT_EQ(desk.window.Text(Of("POOLGEN", "Tex", 0)), "DENEME");
    EXPECT_EQ(desk.window.Text(Of("POOLGEN", "Tex", 1)), "1");
    for (int i = 1; i < 8; ++i) {
        EXPECT_EQ(desk.window.Text(Of("POOLGEN", "Tex", i + 1)), std::to_string(i + 1) + ".25");
        desk.window.Type(Of("POOLGEN", "Tex", i + 1), std::to_string(i) + ",5");
    }
    desk.window.Type(Of("POOLGEN", "Tex", 0), "HAVUZ 2 ");
    EXPECT_TRUE(desk.window.CloseForm("POOLGEN"));
    EXPECT_EQ(ProjeIsmi, "HAVUZ 2");
    EXPECT_EQ(MeshGenisligi, 1.0); // 1.25 is cut by opening and closing alone
    for (int i = 1; i < 8; ++i)
        EXPECT_EQ(*parameters[i], i + 0.5);
    EXPECT_FALSE(desk.window.Checked(kGeneralDataTool));
    EXPECT_FALSE(desk.window.FormShown("POOLGEN"));
    EXPECT_TRUE(MainEnabled(desk));
}

TEST(PoolData, KeysStopAtBothEndsAndTheFocusColours) {
    Desk desk;
    OpenBy(desk, kGeneralDataTool);
    const auto tex = [](int row) { return Of("POOLGEN", "Tex", row); };
    EXPECT_EQ(desk.window.focused(), tex(0));
    desk.window.Press(Key::Up);
    EXPECT_EQ(TabloSatir, 0);
    desk.window.Press(Key::Enter);
    EXPECT_EQ(TabloSatir, 1);
    EXPECT_EQ(desk.window.state(tex(0)).colour, kGrey);
    EXPECT_EQ(desk.window.state(tex(1)).colour, kWindowColour);
    for (int i = 0; i < 9; ++i)
        desk.window.Press(i % 2 == 0 ? Key::Down : Key::Enter);
    EXPECT_EQ(desk.window.focused(), tex(8));
    desk.window.Press(Key::Up);
    EXPECT_EQ(TabloSatir, 7);
    EXPECT_TRUE(desk.main.OnKey(tex(7), Key::Enter)); // kept from the box
}

TEST(Material, OpeningAloneBringsStrengthsIntoLineWithTheTables) {
    Desk desk;
    Fck = 210;
    Fyk = 2000;
    OpenBy(desk, kMaterialTool);
    EXPECT_EQ(Fck, BetonTablosu[3]);
    EXPECT_EQ(Fyk, CelikTablosu[1]);
    EXPECT_EQ(desk.window.Items(Of("donsec", "Beton"))[1], "BS20 (fck=200 kg/cm²)");
    EXPECT_EQ(desk.window.Items(Of("donsec", "Celik"))[0], "fyk=2200 kg/cm²");
    EXPECT_FALSE(MainEnabled(desk));
}

TEST(Material, ConfirmingStoresAndTheOtherWaysOutDoNot) {
    Desk desk;
    const auto work = [&desk] {
        OpenBy(desk, kMaterialTool);
        EXPECT_TRUE(desk.window.Checked(Of("donsec", "Cap", 2))); // 8 mm
        EXPECT_EQ(desk.window.state(Of("donsec", "Cap", 2)).picture, 1);
        desk.click(Of("donsec", "Cap", 2));
        EXPECT_EQ(desk.window.state(Of("donsec", "Cap", 1)).label, "6");
        EXPECT_EQ(desk.window.state(Of("donsec", "Cap", 13)).label, "30");
        desk.click(Of("donsec", "Cap", 13));
        EXPECT_EQ(desk.window.state(Of("donsec", "Cap", 2)).picture, 0);
        desk.click(Of("donsec", "Yuk", 3));
        EXPECT_TRUE(desk.window.Checked(Of("donsec", "Yontem", 0)));
        desk.click(Of("donsec", "Yontem", 1));
        desk.window.Choose(Of("donsec", "Beton"), 4);
        desk.window.Choose(Of("donsec", "Celik"), 2);
    };
    work();
    desk.click(Of("donsec", "Iptal"));
    EXPECT_EQ(DonatiCaplari[1], 8);
    EXPECT_EQ(HesapYontem, 1);
    EXPECT_EQ(YukDurum[3], 1);
    EXPECT_EQ(Fck, 200);
    EXPECT_TRUE(MainEnabled(desk));
    EXPECT_FALSE(desk.window.Checked(kMaterialTool));
    work();
    desk.click(Of("donsec", "Tamam"));
    EXPECT_EQ(DonatiCaplari[1], 10);
    EXPECT_EQ(DonatiCaplari[2], 12);
    EXPECT_EQ(DonatiCaplari[3], 30);
    EXPECT_EQ(DonatiCaplari[4], 0);
    EXPECT_EQ(HesapYontem, 0);
    EXPECT_EQ(YukDurum[2], 1);
    EXPECT_EQ(YukDurum[3], 0);
    EXPECT_EQ(Fck, 350);
    EXPECT_EQ(Fyk, 3600);
}

TEST(Material, NoDiameterStaysNoneAndOneWithoutAButtonIsLeftOut) {
    Desk desk;
    OpenBy(desk, kMaterialTool);
    for (const int button : {2, 3, 4})
        desk.click(Of("donsec", "Cap", button));
    desk.click(Of("donsec", "Tamam"));
    for (int i = 1; i <= 13; ++i)
        EXPECT_EQ(DonatiCaplari[i], 0);
    DonatiCaplari[1] = 10;
    DonatiCaplari[2] = 32;
    OpenBy(desk, kMaterialTool);
    EXPECT_TRUE(desk.window.Checked(Of("donsec", "Cap", 3)));
    EXPECT_EQ(desk.prompt(), "DUGMESI OLMAYAN CAP SECILMEDI: 32 mm");
}

TEST(PoolLibrary, EveryWayOutReadsThePageOnTopAndTheCommonFrame) {
    Desk desk;
    Lx = 10.5;
    OpenBy(desk, kLibraryTool);
    desk.click(Of("POOLlib", "Sayfa", 2));
    EXPECT_EQ(desk.window.focused(), Of("POOLlib", "Lx", 2));
    EXPECT_FALSE(desk.window.Type(Of("POOLlib", "Lx", 1), "77")); // below the page on top
    EXPECT_EQ(desk.window.Text(Of("POOLlib", "Lx", 2)), "11");    // shown rounded, read back so
    for (int row = 0; row <= 6; ++row)
        desk.window.Type(Of("POOLlib", "Ortak", row), std::to_string(row + 1) + ",5");
    desk.window.CloseForm("POOLlib");
    const double got[] = {Lx, Ly, KenarKalinlik, AltKalinlik, UstKot, AltKot, SiviKotu, ToprakKotu, Bk};
    const double wanted[] = {11, 5, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7.5};
    EXPECT_TRUE(std::ranges::equal(got, wanted));
    EXPECT_EQ(PanelCount, 0);
    EXPECT_TRUE(MainEnabled(desk));
    EXPECT_FALSE(desk.window.Checked(kLibraryTool));
}

TEST(PoolLibrary, ConfirmingGeneratesThePageOnTop) {
    Desk desk;
    PanelCount = PlakCount = 1;
    OpenBy(desk, kLibraryTool);
    EXPECT_TRUE(desk.window.Checked(Of("POOLlib", "Sayfa", 1))); // the rectangular pool
    desk.click(Of("POOLlib", "Sayfa", 0));
    desk.click(Of("POOLlib", "HucreTip", 1));
    desk.click(Of("POOLlib", "YukKombinasyon", 2));
    EXPECT_EQ(desk.window.focused(), Of("POOLlib", "BolumX", 0));
    desk.window.Type(Of("POOLlib", "BolumY"), "7");
    desk.click(Of("POOLlib", "Tamam"));
    EXPECT_EQ(PanelCount + PlakCount, 0); // page 0 only clears
    EXPECT_EQ(HucreTip, 1);
    EXPECT_EQ(YukKombinasyon[2], 1);
    EXPECT_EQ(BolumY, 7);
    EXPECT_EQ(IsoView, 1);
    OpenBy(desk, kLibraryTool);
    desk.click(Of("POOLlib", "Sayfa", 1));
    desk.window.Type(Of("POOLlib", "Lx", 1), "6");
    desk.click(Of("POOLlib", "Tamam"));
    EXPECT_EQ(PanelCount, 9);
    EXPECT_EQ(HavuzTip, 1);
    EXPECT_EQ(PanelTable[1].X[2], 6.0);
    EXPECT_FALSE(desk.window.FormShown("POOLlib"));
}

TEST(PoolLibrary, KeysRunThroughThePageIntoTheCommonFrame) {
    Desk desk;
    OpenBy(desk, kLibraryTool);
    desk.click(Of("POOLlib", "Sayfa", 0));
    std::vector<std::string> visited;
    for (int i = 0; i < 11; ++i) {
        const Element at = *desk.window.focused();
        visited.push_back(std::string(at.name) + std::to_string(at.index));
        desk.window.Press(i % 2 == 0 ? Key::Enter : Key::Down);
    }
    const std::vector<std::string> wanted = {"BolumX0", "BolumY0", "Lx0",    "Ly0",    "Ortak0", "Ortak1",
                                             "Ortak2",  "Ortak3",  "Ortak4", "Ortak5", "Ortak5"};
    EXPECT_EQ(visited, wanted);
    EXPECT_EQ(desk.window.state(Of("POOLlib", "Ortak", 4)).colour, kGrey);
    for (int i = 0; i < 6; ++i)
        desk.window.Press(Key::Up);
    EXPECT_EQ(desk.window.focused(), Of("POOLlib", "Ly", 0));
}

TEST(SaveName, CutsTheNameAtItsFirstPointAndStaysOpenWithoutOne) {
    Desk desk;
    TemporaryFolder folder;
    CalismaDizini = folder.path();
    OpenBy(desk, kSaveTool);
    EXPECT_EQ(desk.window.Text(Of("BILGI", "Tex")), "HAVUZ");
    desk.window.Type(Of("BILGI", "Tex"), "   ");
    desk.click(Of("BILGI", "Tamam"));
    EXPECT_TRUE(desk.window.FormShown("BILGI"));
    EXPECT_FALSE(MainEnabled(desk));
    desk.window.Type(Of("BILGI", "Tex"), "DEPO.TXT  ");
    desk.click(Of("BILGI", "Tamam"));
    EXPECT_EQ(ProjeAdi, "DEPO");
    EXPECT_FALSE(ReadBytes(folder.file("DEPO.POL")).empty());
    EXPECT_FALSE(desk.window.FormShown("BILGI"));
    EXPECT_FALSE(desk.window.Checked(kSaveTool));
    EXPECT_TRUE(desk.window.Enabled(kAnalysisTool));
}

TEST(OpenProject, ListsADirectoryAndLoadsTheChosenFile) {
    Desk desk;
    TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("eski"));
    AddPanel(1, {0, 0, 3}, {4, 0, 3}, {4, 0, 0}, {0, 0, 0});
    SaveProject(folder.file("eski/depo.pol"), desk.main);
    WriteBytes(folder.file("eski/not.txt"), "");
    ClearModel();
    CalismaDizini = folder.path();
    OpenBy(desk, kOpenTool);
    EXPECT_TRUE(desk.window.Items(Of("LOADFILE", "Dosya")).empty());
    desk.click(Of("LOADFILE", "Tamam"));
    EXPECT_TRUE(desk.window.FormShown("LOADFILE")); // nothing is selected
    ASSERT_EQ(desk.window.Items(Of("LOADFILE", "Dizin")), (std::vector<std::string>{"..", "eski"}));
    desk.window.Choose(Of("LOADFILE", "Dizin"), 1);
    ASSERT_EQ(desk.window.Items(Of("LOADFILE", "Dosya")), std::vector<std::string>{"depo.pol"});
    desk.window.Choose(Of("LOADFILE", "Dosya"), 0);
    EXPECT_EQ(desk.window.Text(Of("LOADFILE", "Secilen")), "depo.pol");
    ZoomPending = NodesHidden = 1;
    desk.click(Of("LOADFILE", "Tamam"));
    EXPECT_EQ(ProjeAdi, "depo");
    EXPECT_EQ(ZoomPending + NodesHidden, 0); // as at the start
    EXPECT_EQ(ProjeDosyasi, folder.file("eski/depo.pol"));
    EXPECT_EQ(PanelCount, 1);
    EXPECT_EQ(IsoView, 1);
    EXPECT_EQ(GorunusModu, 1);
    EXPECT_FALSE(desk.window.Enabled(kNodeMoveTool));
    EXPECT_FALSE(desk.window.Checked(kOpenTool));
    desk.click(kOpenTool);
    desk.window.Choose(Of("LOADFILE", "Dizin"), 0);
    EXPECT_EQ(desk.window.Text(Of("LOADFILE", "Yol")), std::filesystem::path(folder.path()).parent_path().string());
    desk.click(Of("LOADFILE", "Iptal"));
    EXPECT_EQ(PanelCount, 1);
}

TEST(OpenProject, ADroppedFileEndsWhatIsArmedAndIsReadAsFromTheDialog) {
    Desk desk;
    TemporaryFolder folder;
    AddPanel(1, {0, 0, 3}, {4, 0, 3}, {4, 0, 0}, {0, 0, 0});
    SaveProject(folder.file("depo.pol"), desk.main);
    EXPECT_EQ(desk.window.remembered, std::vector{folder.file("depo.pol")}); // as it is called, not as it is made up
    ClearModel();
    const std::string before = CalismaDizini;
    desk.click(kNewTool);
    desk.click(kVerticalPlateTool);
    desk.press({100, 100});
    WriteBytes(folder.file("depo.txt"), "x");
    for (const auto &[path, words] :
         {std::pair{"depo.txt", "depo.txt BIR .POL DOSYASI DEGIL"}, std::pair{"yok.POL", "yok.POL DOSYASI YOK"},
          std::pair{"", " BIR .POL DOSYASI DEGIL"}}) {
        EXPECT_TRUE(desk.window.OpenFile(folder.file(path)));
        EXPECT_EQ(desk.prompt(), "ACILAMADI: " + std::string(words));
        EXPECT_EQ(CommandState, kVerticalPlate);
        EXPECT_TRUE(desk.window.Shown(RubberLine(1)));
    }
    EXPECT_TRUE(desk.window.OpenFile(folder.file("DEPO.Pol")));
    EXPECT_EQ(PanelCount, 1);
    EXPECT_EQ(ProjeAdi, "depo");
    EXPECT_EQ(ProjeDosyasi, folder.file("depo.pol"));
    EXPECT_EQ(CalismaDizini, before);
    EXPECT_EQ(desk.window.remembered, (std::vector{2, folder.file("depo.pol")}));
    EXPECT_EQ(CommandState + PickStage, 0);
    EXPECT_FALSE(desk.window.Shown(RubberLine(1)));
    EXPECT_FALSE(desk.window.Checked(kNewTool));
    EXPECT_FALSE(desk.window.Checked(kVerticalPlateTool));
    EXPECT_FALSE(desk.window.FormShown(kTool1));
    EXPECT_EQ(IsoView, 1);
    EXPECT_TRUE(desk.window.Enabled(kAnalysisTool));
    desk.click(kPanelTableTool);
    EXPECT_FALSE(desk.window.OpenFile(folder.file("depo.pol"))); // behind a dialog
}

// A new project and one that is read leave nothing pending and nothing hidden.
TEST(OpenProject, EndsAPendingZoomAndShowsTheNodesAsANewProjectDoes) {
    Desk desk;
    TemporaryFolder folder;
    CalismaDizini = folder.path();
    AddGrid(1, 1);
    SaveProject(folder.file("depo.pol"), desk.main);
    for (const Element tool : {kNewTool, kOpenTool}) {
        SCOPED_TRACE(tool.index);
        desk.main.DrawMeshView();
        desk.click(kHideNodesTool);
        desk.click(kZoomWinTool);
        ASSERT_EQ(ZoomPending + NodesHidden, 2);
        desk.main.EnableMainWindow();
        desk.click(tool);
        if (tool == kOpenTool) {
            desk.window.Choose(Of("LOADFILE", "Dosya"), 0);
            desk.click(Of("LOADFILE", "Tamam"));
            EXPECT_EQ(MeshCount, 1);
        }
        EXPECT_EQ(ZoomPending, 0);
        EXPECT_EQ(NodesHidden, 0);
        EXPECT_FALSE(desk.window.Checked(kHideNodesTool));
    }
}

TEST(EndConfirm, DeletesTheScratchFileAndEnds) {
    Desk desk;
    TemporaryFolder folder;
    CalismaDizini = folder.path();
    WriteBytes(folder.file("CADTEMP.CAD"), "x");
    desk.click(kEndButton);
    EXPECT_EQ(desk.window.FormPlace("ENDKONT"), (Place{1024 * 15.0 - 3000.0 - 90.0, 800.0}));
    desk.window.CloseForm("ENDKONT");
    EXPECT_TRUE(MainEnabled(desk));
    EXPECT_EQ(ReadBytes(folder.file("CADTEMP.CAD")), "x");
    desk.click(kEndButton);
    EXPECT_EQ(EndStatus([&] { desk.click(Of("ENDKONT", "Tamam")); }), 0);
    EXPECT_EQ(ReadBytes(folder.file("CADTEMP.CAD")), "");
}

TEST(Support, ButtonsFlipBitsAndOnlyAChangeRedraws) {
    Desk desk;
    SeciliNo = 3;
    NoktaTable[3].Mesnet = 5;
    ShowSupportType(desk.main);
    EXPECT_EQ(desk.window.formState("MESTIP").caption, "3 NOKTASI MESNET KOSULU");
    EXPECT_EQ(desk.window.Text(Of("MESTIP", "Mesnet", 0)), "Z COKME MESNET");
    EXPECT_EQ(desk.window.Text(Of("MESTIP", "Mesnet", 1)), "X DONME MESNET");
    EXPECT_EQ(desk.window.Text(Of("MESTIP", "Mesnet", 2)), "Y DONME SERBEST");
    desk.scr.log.clear();
    desk.click(Of("MESTIP", "Tamam"));
    EXPECT_EQ(NoktaTable[3].Mesnet, 5);
    EXPECT_EQ(desk.scr.log, "");
    ShowSupportType(desk.main);
    desk.click(Of("MESTIP", "Mesnet", 0));
    desk.click(Of("MESTIP", "Mesnet", 2));
    EXPECT_EQ(desk.window.Text(Of("MESTIP", "Mesnet", 0)), "Z COKME SERBEST");
    EXPECT_EQ(NoktaTable[3].Mesnet, 5);
    desk.click(Of("MESTIP", "Tamam"));
    EXPECT_EQ(NoktaTable[3].Mesnet, 3);
    EXPECT_NE(desk.scr.log, "");
    EXPECT_TRUE(MainEnabled(desk));
}

TEST(PointLoad, TheFirstButtonStoresAndDrawsTheSecondDoesNot) {
    Desk desk;
    SeciliNo = 2;
    NokYukTable[2].FY = -1.5;
    for (const char *button : {"Iptal", "Tamam"}) {
        IsoView = 1; // arrows stand in the rotated view
        ShowPointLoad(desk.main);
        EXPECT_FALSE(MainEnabled(desk));
        EXPECT_EQ(desk.window.formState("NOKYUK").caption, "2 NOKTASI YUK BILGISI");
        EXPECT_EQ(desk.window.focused(), Of("NOKYUK", "Tex", 2));
        EXPECT_EQ(desk.window.Text(Of("NOKYUK", "Tex", 1)), "-1.5");
        desk.window.Type(Of("NOKYUK", "Tex", 2), "-2,25");
        desk.scr.log.clear();
        desk.click(Of("NOKYUK", button));
        EXPECT_EQ(NokYukTable[2].FZ, button[0] == 'T' ? -2.25 : 0.0);
        EXPECT_EQ(desk.scr.log.empty(), button[0] == 'I');
        EXPECT_FALSE(desk.window.FormShown("NOKYUK"));
        EXPECT_TRUE(MainEnabled(desk));
    }
}

TEST(PolygonConfirm, BuildsFromThePaletteWithoutTheCommaStep) {
    Desk desk;
    const auto draw = [&desk] {
        PolyCount = 3;
        PolyX[2] = 4.0;
        PolyX[3] = PolyY[3] = 4.0;
        desk.window.SetText(Tool1Text(0), "25");
        desk.window.SetText(Tool1Text(1), "3,5");
        desk.window.SetText(Tool1Text(2), "-1.5");
        ShowPolygonConfirm(desk.main);
    };
    draw();
    desk.click(Of("yesno", "Iptal"));
    EXPECT_EQ(PlakCount + PanelCount, 0);
    draw();
    desk.click(Of("yesno", "Tamam"));
    EXPECT_EQ(PlakCount, 1);
    EXPECT_EQ(PanelCount, 3);
    EXPECT_EQ(UstKot, 3.0);
    EXPECT_EQ(PanelTable[3].Z[3], -1.5);
    EXPECT_EQ(PanelTable[3].D, 25.0);
    EXPECT_EQ(PlakTable[1].Kalinlik, 30);
    EXPECT_EQ(IsoView, 1);
    EXPECT_TRUE(MainEnabled(desk));
    EXPECT_FALSE(desk.window.FormShown("yesno"));
}

TEST(PolygonConfirm, AFullTableEndsTheCommandAndLeavesTheModel) {
    Desk desk;
    PolyCount = 3;
    PanelCount = kPanelCapacity - 1;
    ShowPolygonConfirm(desk.main);
    EXPECT_TRUE(desk.click(Of("yesno", "Tamam")));
    EXPECT_EQ(PlakCount, 0);
    EXPECT_EQ(PanelCount, kPanelCapacity - 1);
    EXPECT_NE(desk.prompt().find("POLIGON HAVUZU YAPILAMADI"), std::string::npos) << desk.prompt();
    EXPECT_TRUE(desk.window.FormShown("yesno")); // the polygon stands
}

} // namespace havuz
