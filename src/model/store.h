// The model store: the one process-wide set of tables and parameters that every part reads and writes directly.
// Units: metres for coordinates and levels, centimetres for thicknesses, metric tons (t) for forces, t/m2 for area
// loads and soil stress, t/m3 for densities and the subgrade coefficient, kg/cm2 for strengths, mm for bar diameters.
// Stored widths are part of the model: a value is cut to its field when it is stored, all arithmetic is double.
#pragma once

#include "model/fields.h"
#include "model/table.h"

#include <cstdint>
#include <string>

namespace havuz {

constexpr int kPlakCapacity = 100;
constexpr int kPanelCapacity = 1000;
constexpr int kMeshCapacity = 5000;
constexpr int kNoktaCapacity = 5000;
constexpr int kPlakPoints = 200; // outline points of one plate

// A flat quadrilateral piece of a structure with its own mesh counts. Corners 1, 2 are the top edge, 4, 3 the bottom;
// edge e runs from corner e to corner e + 1: 1 "ust", 2 "sag", 3 "alt", 4 "sol". Elements 1..4 are in use.
struct PanelRecord {
    Int16 No;                // number shown in the table; 0 marks a free record
    Int16 Nx, Ny;            // mesh divisions along edges 1 and 3, along edges 2 and 4
    Float32 D;               // thickness, cm
    Float32 G, P;            // dead and live area load, t/m2
    Row<Float32, 5> X, Y, Z; // corners, m
    Row<Int16, 4> KenarMesnet;
    Int16 Tip;                // 0 base on the foundation, 1 wall, 2 top overhang strip
    Row<Int16, 5> KenarKomsu; // link code of each edge (link_code.h)
};

// A polygon plate.
struct PlakRecord {
    Row<Float32, kPlakPoints> X, Y, Z;              // outline points, m
    Int16 Kalinlik;                                 // thickness, cm
    Int16 NoktaSayisi;                              // outline points in use
    Row<Int16, kPlakPoints> KenarKodu;              // link code of the edge from point k to the next (link_code.h)
    Row<std::uint8_t, kPlakPoints> Sonraki, Onceki; // next and previous point, derived by the plate meshing
};

// A four-node shell element.
struct MeshRecord {
    Float32 Kalinlik;       // thickness, cm, from its owner at analysis
    Int16 N1, N2, N3, N4;   // nodes in order around the element
    Int16 PanelNo;          // owner: panel number, or 1000 + plate number
    Int16 Sil;              // 0 on, 1 switched off by the user
    Float32 OluYuk;         // dead area load, t/m2, at analysis
    Float32 Derinlik;       // sort key of the drawing order
    std::int32_t Sira = 0;  // index that goes with Derinlik
    Float32 HareketliYuk;   // live area load, t/m2, at analysis
    Float32 KenarA, KenarB; // mean side lengths, m, at analysis
};

// A node. Support bits: 1 rotation about X held, 2 rotation about Y held, 4 translation held.
struct NoktaRecord {
    Float32 X, Y, Z;       // m
    Int16 Mesnet;          // support bits
    Int16 PanelNo;         // panel that made the node
    Int16 UcA, UcB;        // end nodes of the panel line on which the node lies; a corner holds its own number
    Int16 Tur;             // 0 interior, 1 edge, 3 corner 1, 4 corner 2, 5 corner 4, 6 corner 3
    Int16 AnaNo;           // master node after merging
    Int16 YeniNo;          // final number
    Row<Int16, 6> Denklem; // equations of ux, uy, uz, rx, ry, rz in elements 1..6, at analysis
    Float32 Yay;           // foundation spring, t/m
    Int16 PlakKodu;        // plate code (link_code.h)
};

// The point load at the node of the same number. Three zero forces count as no load.
struct NokYukRecord {
    Int16 Nokta;
    Float32 FX, FY, FZ; // t
};

inline bool HasPointLoad(const NokYukRecord &load) { return load.FX != 0.0 || load.FY != 0.0 || load.FZ != 0.0; }

// Tables, records in use 1..count; slots above a count are scratch.
extern Table<PlakRecord, kPlakCapacity> PlakTable;
extern Table<PanelRecord, kPanelCapacity> PanelTable;
extern Table<MeshRecord, kMeshCapacity> MeshTable;
extern Table<NoktaRecord, kNoktaCapacity> NoktaTable;
extern Table<NokYukRecord, kNoktaCapacity> NokYukTable;
extern int PlakCount, PanelCount, MeshCount, NoktaCount;
extern int HamNoktaCount; // raw nodes of a mesh run before numbering

// General parameters, saved with the project but for MeshGenisligi.
extern std::string ProjeIsmi;
extern double HavuzTip;                   // 0 cell layout (nothing is generated), 1 rectangular, 2 circular
extern double HucreTip;                   // cell layout page: 0 rectangular, 1 circular
extern double ZeminKo;                    // subgrade coefficient Ko, t/m3
extern double ZeminGzem;                  // allowable soil stress, t/m2
extern double ZeminKa;                    // lateral soil load parameter Ka
extern double ZeminYogunluk;              // soil density, t/m3
extern double SiviYogunluk;               // liquid density, t/m3
extern double YeraltiSuKotu;              // groundwater level, m
extern double BolumX, BolumY;             // cells in x and y of the cell layout
extern double Lx, Ly;                     // plan lengths, m; Lx is the diameter of a circular pool
extern double KenarKalinlik, AltKalinlik; // dp and ds: wall and base thickness, cm
extern double UstKot, AltKot;             // top and bottom level, m
extern double SiviKotu, ToprakKotu;       // liquid and soil level, m
extern double Bk;                         // width of the top overhang strip, m; 0 for none
// Load situations 0..3: liquid and soil, liquid, soil, groundwater uplift. Cell fillings 0..2. The element behind the
// last of each stays 0: the list made at a load walks that far.
extern Row<double, 4> YukDurum;
extern Row<double, 3> YukKombinasyon;
constexpr int kYukDurumLast = 3;
constexpr int kYukKombinasyonLast = 2;
extern double Fck, Fyk;               // concrete and steel strength, kg/cm2
extern double HesapYontem;            // 1 "TASIMA GUCU", 0 "EMNIYET GERILMESI"
extern Row<double, 13> DonatiCaplari; // chosen bar diameters, mm, packed from element 1
extern double MeshGenisligi;          // unit mesh width, m; never saved

// Run-time state beside the model, never saved.
extern std::string ProjeAdi;                      // short name without extension
extern std::string ProjeYolu;                     // path of the project up to the first "."
extern std::string ProjeDosyasi;                  // full path of the file last opened
extern std::string KartAdi;                       // card name, refreshed by every save
extern int IsoView;                               // 0 plan view, 1 rotated view
extern int GorunusModu;                           // 1 plate view, 2 mesh view
extern int NodesHidden;                           // 1 hides nodes and numbers in the mesh view
extern double ViewAngleA, ViewAngleB, ViewAngleC; // radians
extern double ViewDistance;                       // eye distance of the perspective, m
extern int SeciliNo;                              // node or mesh under the pointer, 0 none
extern int TabloUst, TabloSatir;                  // first row shown and focused row of a paged table
extern Row<int, 16> YukListesi;                   // code of each load column, from column 2 on
extern int YukSayisi;                             // load columns of a run

// All tables blank, all counts 0, parameters and run-time state as before the program's start.
void ResetStore();

// A new project: counts 0, panel and plate records cleared. Node, mesh and point load records keep their contents: the
// counts alone retire them.
void ClearModel();

// Closes the gaps of PanelTable: records with No 0 fall out, those behind move up. Link codes are not rewritten.
void CompactPanels();

} // namespace havuz
