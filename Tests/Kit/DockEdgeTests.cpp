#include "Displays/DockEdge.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr Rect displayFrame{-1280, 300, 1280, 1024};
constexpr auto everyEdge = {DockPosition::bottom, DockPosition::left, DockPosition::right};

TEST(DockEdge, PutsARectangleTogetherFromItsExtents) {
    for (const DockPosition edge : everyEdge) {
        const auto along = DockEdge::along(displayFrame, edge);
        const auto across = DockEdge::across(displayFrame, edge);
        EXPECT_EQ(DockEdge::rect(along, across, edge), displayFrame) << edge;
    }
}

TEST(DockEdge, RunsAlongXAtTheBottomAndAlongYAtTheSides) {
    EXPECT_EQ(DockEdge::along(displayFrame, DockPosition::bottom), (DockEdge::Extent{-1280, 1280}));
    EXPECT_EQ(DockEdge::along(displayFrame, DockPosition::left), (DockEdge::Extent{300, 1024}));
    EXPECT_EQ(DockEdge::along(displayFrame, DockPosition::right), (DockEdge::Extent{300, 1024}));
}

TEST(DockEdge, MeasuresAGapFromTheEdgeInwards) {
    constexpr DockEdge::Extent container{100, 50};
    EXPECT_EQ(DockEdge::atEdge(container, 10, 4, DockPosition::left), (DockEdge::Extent{104, 10}));
    EXPECT_EQ(DockEdge::atEdge(container, 10, 4, DockPosition::right), (DockEdge::Extent{136, 10}));
    EXPECT_EQ(DockEdge::atEdge(container, 4, -4, DockPosition::bottom), (DockEdge::Extent{96, 4}));
    EXPECT_EQ(DockEdge::atEdge(container, 4, -4, DockPosition::right), (DockEdge::Extent{150, 4}));
}

}
}
