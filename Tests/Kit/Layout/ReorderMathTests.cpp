#include "Layout/ReorderMath.hpp"
#include "Support/Random.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace vireline {
namespace {

using ReorderMath::Drag;
using ReorderMath::neighborOffset;
using ReorderMath::targetIndex;

constexpr double slot = 50;

// Behaviour: tiles-1
TEST(ReorderMath, RoundsAnOffsetToWholeSlotsHalvesAwayFromZero) {
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 1.5 * slot, .slot = slot, .count = 5}), 4);
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = -0.5 * slot, .slot = slot, .count = 5}), 1);
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 0.49 * slot, .slot = slot, .count = 5}), 2);
}

// Behaviour: tiles-1
TEST(ReorderMath, KeepsATargetInsideTheRow) {
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = -1e12, .slot = slot, .count = 5}), 0);
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 1e12, .slot = slot, .count = 5}), 4);
}

// Behaviour: tiles-1
TEST(ReorderMath, LeavesATileInPlaceWhereSlotsHaveNoLength) {
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 300, .slot = 0, .count = 5}), 2);
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 300, .slot = -1, .count = 5}), 2);
    EXPECT_EQ(targetIndex({.draggedIndex = 2, .offset = 300, .slot = slot, .count = 0}), 2);
}

// Behaviour: tiles-2
TEST(ReorderMath, SlidesTheTilesPassedOverByOneSlot) {
    const Drag forwards{.draggedIndex = 1, .offset = 2 * slot, .slot = slot, .count = 5};
    EXPECT_EQ(neighborOffset(0, forwards), 0);
    EXPECT_EQ(neighborOffset(2, forwards), -slot);
    EXPECT_EQ(neighborOffset(3, forwards), -slot);
    EXPECT_EQ(neighborOffset(4, forwards), 0);

    const Drag backwards{.draggedIndex = 2, .offset = -2 * slot, .slot = slot, .count = 5};
    EXPECT_EQ(neighborOffset(0, backwards), slot);
    EXPECT_EQ(neighborOffset(1, backwards), slot);
    EXPECT_EQ(neighborOffset(3, backwards), 0);
    EXPECT_EQ(neighborOffset(4, backwards), 0);
}

TEST(ReorderMath, SlidesNothingForADragOfLessThanHalfASlot) {
    const Drag drag{.draggedIndex = 2, .offset = 20, .slot = slot, .count = 5};
    for (int tile = 0; tile < 5; ++tile)
        EXPECT_EQ(neighborOffset(tile, drag), 0) << tile;
}

TEST(ReorderMath, NeverSlidesTheDraggedTile) {
    for (const double offset : {-1000.0, -60.0, 60.0, 1000.0}) {
        EXPECT_EQ(
            neighborOffset(2, {.draggedIndex = 2, .offset = offset, .slot = slot, .count = 5}), 0);
    }
}

TEST(ReorderMath, LeavesExactlyTheTargetFree) {
    test::Random random{31};
    for (int round = 0; round < 2'000; ++round) {
        const int count = random.integer(1, 12);
        const Drag drag{.draggedIndex = random.integer(0, count - 1),
                        .offset = random.real(-1000, 1000),
                        .slot = slot,
                        .count = count};
        std::set<double> places{targetIndex(drag) * slot};
        for (int tile = 0; tile < count; ++tile) {
            if (tile != drag.draggedIndex)
                places.insert(tile * slot + neighborOffset(tile, drag));
        }
        EXPECT_EQ(places.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(*places.begin(), 0);
        EXPECT_EQ(*places.rbegin(), (count - 1) * slot);
    }
}

TEST(ReorderMathDeathTest, StopsForADragWithoutEnd) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Drag drag{.draggedIndex = 2, .offset = infinity, .slot = slot, .count = 5};
    EXPECT_DEATH((void)targetIndex(drag), "broken condition");
    EXPECT_DEATH((void)neighborOffset(1, drag), "broken condition");
    EXPECT_DEATH((void)targetIndex({.draggedIndex = 0, .offset = 0x1p62, .slot = 1, .count = 5}),
                 "broken condition");
}

TEST(ReorderMath, CountsSlotsHoweverNarrow) {
    EXPECT_EQ(targetIndex({.draggedIndex = 1, .offset = 1, .slot = 0.5, .count = 5}), 3);
}

}
}
