#include "model/store.h"

#include "model/parameters.h"

namespace havuz {

Table<PlakRecord, kPlakCapacity> PlakTable(Thing::PlakTable);
Table<PanelRecord, kPanelCapacity> PanelTable(Thing::PanelTable);
Table<MeshRecord, kMeshCapacity> MeshTable(Thing::MeshTable);
Table<NoktaRecord, kNoktaCapacity> NoktaTable(Thing::NoktaTable);
Table<NokYukRecord, kNoktaCapacity> NokYukTable(Thing::NokYukTable);
int PlakCount, PanelCount, MeshCount, NoktaCount;
int HamNoktaCount;

std::string ProjeIsmi;
double HavuzTip, HucreTip;
double ZeminKo, ZeminGzem, ZeminKa, ZeminYogunluk, SiviYogunluk, YeraltiSuKotu;
double BolumX, BolumY, Lx, Ly, KenarKalinlik, AltKalinlik, UstKot, AltKot, SiviKotu, ToprakKotu, Bk;
Row<double, 4> YukDurum;
Row<double, 3> YukKombinasyon;
double Fck, Fyk, HesapYontem;
Row<double, 13> DonatiCaplari;
double MeshGenisligi;

std::string ProjeAdi, ProjeYolu, ProjeDosyasi, KartAdi;
int IsoView, GorunusModu, NodesHidden;
double ViewAngleA, ViewAngleB, ViewAngleC, ViewDistance;
int SeciliNo, TabloUst, TabloSatir;
Row<int, 16> YukListesi;
int YukSayisi;

static void ResetTables() {
    PlakTable.reset();
    PanelTable.reset();
    MeshTable.reset();
    NoktaTable.reset();
    NokYukTable.reset();
    PlakCount = PanelCount = MeshCount = NoktaCount = HamNoktaCount = 0;
}

static void ResetParameters() {
    ProjeIsmi.clear();
    ResetParameterValues();
    YukDurum = {};
    YukKombinasyon = {};
    DonatiCaplari = {};
}

void ResetStore() {
    ResetTables();
    ResetParameters();
    for (std::string *s : {&ProjeAdi, &ProjeYolu, &ProjeDosyasi, &KartAdi})
        s->clear();
    IsoView = NodesHidden = 0;
    GorunusModu = 1;
    ViewAngleA = ViewAngleB = ViewAngleC = 0.0;
    ViewDistance = 1000.0;
    SeciliNo = TabloUst = TabloSatir = 0;
    YukListesi = {};
    YukSayisi = 0;
}

static void ClearPanel(PanelRecord &panel) {
    panel.No = panel.Nx = panel.Ny = panel.Tip = 0;
    panel.D = panel.G = panel.P = 0.0;
    for (int k = 1; k <= 4; ++k) {
        panel.X[k] = panel.Y[k] = panel.Z[k] = 0.0;
        panel.KenarMesnet[k] = panel.KenarKomsu[k] = 0;
    }
}

static void ClearPlak(PlakRecord &plak) {
    plak.NoktaSayisi = plak.Kalinlik = 0;
    for (int k = 1; k <= kPlakPoints; ++k) {
        plak.X[k] = plak.Y[k] = plak.Z[k] = 0.0;
        plak.KenarKodu[k] = 0;
    }
}

void ClearModel() {
    NoktaCount = MeshCount = PanelCount = PlakCount = 0;
    for (int i = 0; i <= kPanelCapacity; ++i)
        ClearPanel(PanelTable[i]);
    for (int i = 0; i <= kPlakCapacity; ++i)
        ClearPlak(PlakTable[i]);
}

// A record that moved up stays where it was as well, behind the count, and is counted again by the next compaction:
// wanted, the table has always kept it so.
void CompactPanels() {
    PanelCount = 0;
    for (int i = 1; i <= kPanelCapacity; ++i) {
        if (PanelTable[i].No != 0)
            PanelTable[++PanelCount] = PanelTable[i];
        else
            PanelTable[i] = PanelTable[0];
    }
}

} // namespace havuz
