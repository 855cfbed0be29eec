#include "Layout/DockEdge.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr Rect displayFrame{-1280, 300, 1280, 1024};
constexpr auto everyEdge = {DockPosition::bottom, DockPosition::left, DockPosition::right};

TEST(DockEdge, PutsARectangleTogetherFromItsExtents) {
    for (const DockPosition edge : everyEdge) {
        const auto along = DockEdge::global(edge).along(displayFrame);
        const auto across = DockEdge::global(edge).across(displayFrame);
        EXPECT_EQ(DockEdge::global(edge).rect(along, across), displayFrame) << edge;
    }
}

TEST(DockEdge, RunsAlongXAtTheBottomAndAlongYAtTheSides) {
    EXPECT_EQ(DockEdge::global(DockPosition::bottom).along(displayFrame), (Extent{-1280, 1280}));
    EXPECT_EQ(DockEdge::global(DockPosition::left).along(displayFrame), (Extent{300, 1024}));
    EXPECT_EQ(DockEdge::global(DockPosition::right).along(displayFrame), (Extent{300, 1024}));
}

TEST(DockEdge, MeasuresAGapFromTheEdgeInwards) {
    constexpr Extent container{100, 50};
    EXPECT_EQ(DockEdge::global(DockPosition::left).atEdge(container, 10, 4), (Extent{104, 10}));
    EXPECT_EQ(DockEdge::global(DockPosition::right).atEdge(container, 10, 4), (Extent{136, 10}));
    EXPECT_EQ(DockEdge::global(DockPosition::bottom).atEdge(container, 4, -4), (Extent{96, 4}));
    EXPECT_EQ(DockEdge::global(DockPosition::right).atEdge(container, 4, -4), (Extent{150, 4}));
}

}
}
