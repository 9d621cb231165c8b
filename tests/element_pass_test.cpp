// The passes over the meshes: what like meshes share, and records in blocks, change no bit.
#include "fea/analysis.h"
#include "fea/element_pass.h"
#include "fea/equations.h"
#include "fea/result_pass.h"
#include "fea/system.h"
#include "hand_models.h"
#include "plain_elements.h"
#include "support.h"

#include <gtest/gtest.h>
#include <random>

namespace havuz {

namespace {

// A floor of 12 by 9 meshes in three widths and two thicknesses, changing within a row, and a wall at its side; every
// seventh mesh switched off. Any numbers as the solution of three columns.
void BuildFloorAndWall() {
    ResetAll();
    ResetSystem();
    for (const double d : {30.0, 45.0}) {
        AddPanel(0, {0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
        PanelTable[PanelCount].D = d;
    }
    const auto x = [](int i) { return 0.5 * i + 0.25 * (i / 5); };
    for (int j = 0; j <= 9; ++j)
        for (int i = 0; i <= 12; ++i)
            AddNode(x(i), j < 6 ? 0.5 * j : 2.5, j < 6 ? 0.0 : 0.5 * (j - 5));
    for (int j = 0; j < 9; ++j)
        for (int i = 0; i < 12; ++i) {
            const int n = 13 * j + i + 1;
            AddMesh(n, n + 1, n + 14, n + 13, i >= 5 && i <= 8 ? 2 : 1, (i + j) % 7 == 6 ? 1 : 0);
        }
    MeshPass();
    NumberEquations();
    YukSayisi = 3;
    std::mt19937 random(3);
    for (int cell = 1; cell <= YukSayisi * EquationCount; ++cell)
        Rhs[cell] = static_cast<float>(static_cast<int>(random() % 2001) - 1000) * 1e-5F;
}

std::string Bytes(const void *from, std::size_t size) { return {static_cast<const char *>(from), size}; }

} // namespace

TEST(StressPass, StoresTheBitsOfEachMeshByItself) {
    BuildFloorAndWall();
    const TemporaryFolder folder;
    {
        RecordFile son(folder.file("A.SON"), sizeof(SonRecord));
        StressPass(ConcreteE(Fck), son);
    }
    std::string want;
    for (int i = 1; i <= MeshCount; ++i) {
        const SonRecord record = MeshTable[i].Sil == 1 ? SonRecord{} : PlainResults(i);
        want += Bytes(&record, sizeof record);
    }
    EXPECT_EQ(ReadBytes(folder.file("A.SON")), want);
}

TEST(ElementPass, LikeMeshesTakeTheMatrixOfOneAlone) {
    BuildFloorAndWall();
    AnalysisWindow window;
    const TemporaryFolder folder;
    RecordFile all(folder.file("ALL"), sizeof(ElementRecord));
    RecordFile alone(folder.file("ALONE"), sizeof(ElementRecord));
    ElementPass(ConcreteE(Fck), all, window);
    std::vector<Int16> off;
    for (int i = 1; i <= MeshCount; ++i)
        off.push_back(MeshTable[i].Sil);
    for (int only = 1; only <= MeshCount; ++only) {
        if (off[static_cast<std::size_t>(only - 1)] == 1)
            continue;
        for (int i = 1; i <= MeshCount; ++i)
            MeshTable[i].Sil = i == only ? 0 : 1;
        ElementPass(ConcreteE(Fck), alone, window);
        ElementRecord got{}, want{};
        all.GetRecord(got, only);
        alone.GetRecord(want, only);
        EXPECT_EQ(Bytes(&got, sizeof got), Bytes(&want, sizeof want)) << "mesh " << only;
    }
}

// Records 1..150 but for every fourth ten, which stay holes: blocks of 64, shorter ones, and single records.
TEST(RecordBlocks, HoldWhatSingleRecordsHold) {
    using Record = std::array<Float32, 5>;
    const auto written = [](int n) { return n / 10 % 4 != 2; };
    const auto record = [](int n) {
        return Record{{Float32(n), Float32(n * 0.5), Float32(1), Float32(-2), Float32(-n)}};
    };
    const TemporaryFolder folder;
    {
        RecordFile single(folder.file("S"), sizeof(Record));
        RecordFile blocks(folder.file("B"), sizeof(Record));
        RecordWriter<Record> writer(blocks);
        for (int n = 1; n <= 150; ++n)
            if (written(n)) {
                single.PutRecord(record(n), n);
                writer.put(record(n), n);
            }
        writer.flush();
        RecordReader<Record> reader(blocks);
        for (int n = 1; n <= 150; ++n) {
            const Record want = written(n) ? record(n) : Record{};
            EXPECT_EQ(Bytes(&reader.get(n), sizeof want), Bytes(&want, sizeof want)) << n;
        }
        EXPECT_EQ(FailureOf([&] { reader.get(151); }).words, folder.file("B") + ": record 151 cannot be read");
    }
    EXPECT_EQ(ReadBytes(folder.file("B")), ReadBytes(folder.file("S")));
    RecordFile full("/dev/full", sizeof(Record));
    RecordWriter<Record> writer(full);
    writer.put(record(1), 1);
    EXPECT_TRUE(FailureOf([&] { writer.flush(); }).failed);
}

} // namespace havuz
