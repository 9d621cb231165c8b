// Panel blocks joined by cells are as those joined by holding every node against every other.
#include "mesh/panel_mesh.h"
#include "plain_joining.h"
#include "support.h"

#include <functional>
#include <gtest/gtest.h>

namespace havuz {

TEST(PanelJoining, ByCellsAsByAllPairs) {
    std::mt19937 random(17);
    long joined = 0;
    long raised = 0;
    for (int model = 0; model < 400; ++model) {
        PutRandomPanels(random, 2 + model % 25, 1 + model % 7);
        const auto build = [](auto corners, auto ends, auto edges) {
            ClearMeshTables();
            MakePanelBlocks();
            std::vector<decltype(JoinedNodes())> steps;
            for (const auto &step :
                 {std::function<void()>(corners), std::function<void()>(ends), std::function<void()>(edges)}) {
                step();
                steps.push_back(JoinedNodes());
            }
            return steps;
        };
        const auto plain = build(PlainJoinCornersOnCorners, PlainJoinCornersOnEdges, PlainJoinEdgesOnEdges);
        const auto byCells = build(JoinCornersOnCorners, JoinCornersOnEdges, JoinEdgesOnEdges);
        for (std::size_t step = 0; step < 3; ++step)
            ASSERT_EQ(byCells[step], plain[step]) << "model " << model << ", step " << step;
        for (int i = 1; i <= HamNoktaCount; ++i)
            joined += NoktaTable[i].AnaNo != i ? 1 : 0;
        NoktaSikistir();
        const std::vector<std::array<int, 2>> counts = PlainRaisedCounts();
        int degisti = 0;
        PanelSayiUyumu(degisti);
        raised += degisti;
        for (int p = 1; p <= PanelCount; ++p)
            ASSERT_EQ((std::array<int, 2>{PanelTable[p].Nx, PanelTable[p].Ny}), counts[static_cast<std::size_t>(p - 1)])
                << "model " << model << ", panel " << p;
    }
    EXPECT_GT(joined, 10000);
    EXPECT_GT(raised, 100);
}

} // namespace havuz
