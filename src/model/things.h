// What a failure can be about: tables, parts of the model, records of a file, operations that divide. Each has an
// English and a Turkish word in failure_words.cpp, where the compiler asks for the words of a new one.
#pragma once

#include <cstdint>

namespace havuz {

enum class Thing : std::uint8_t {
    Nothing,
    // tables and arrays, by their names
    NoktaTable,
    MeshTable,
    PanelTable,
    PlakTable,
    NokYukTable,
    DortluTable,
    BantTable,
    Rhs,
    YukDurum,
    YukKombinasyon,
    DonatiCaplari,
    KenarMesnet,
    // parts of the model and of its meshing
    Plate,
    Panel,
    Wall,
    Edge,
    Node,
    Equation,
    RowElement,
    OutlinePoint,
    MeshPoint,
    WorkingCopy,
    GridStep,
    GridDurum,
    GridGridNo,
    GridHucre,
    WallColumn,
    NodeRow,
    NodeUnderWall,
    DisplacementColumn,
    PlakKodu,
    // what is divided, or divided by
    MeshGenisligi,
    PanelNx,
    PanelNy,
    PlateSlope,
    PlateView,
    MeshView,
    Zoom,
    Projection,
    Overview,
    PointLoadArrow,
    NodeMove,
    MatrixInvert,
    PlaneD,
    TriangleMembrane,
    TriangleBending,
    TriangleAxes,
    QuadBasis,
    QuadStress,
    RectStress,
    RectStiffness,
    // records and fields of a file that have no name in the model
    TitleRecord,
    CountRecord,
    SoilRecord,
    PoolRecord,
    LoadRecord,
    CombinationRecord,
    MaterialRecord,
    DiameterRecord,
    CardRecord,
    EndLine,
    Value,
    Text,
    Directory,
    // elements of the window
    Form,
    WindowElement,
    Tool,
    DiameterButton,
};

} // namespace havuz
