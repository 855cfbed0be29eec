#include "Translation/ScenePlacement.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

SceneNode node(const Rect& frame, decltype(SceneNode::content) content) {
    return {.id = {}, .frame = frame, .content = std::move(content)};
}

TEST(ScenePlacement, SnapsEachEdgeToTheNearestPixel) {
    EXPECT_EQ(ScenePlacement::snapped({0.3, 0.6, 10.4, 10.2}, 1), (Rect{0, 1, 11, 10}));
    EXPECT_EQ(ScenePlacement::snapped({0.3, 0.6, 10.4, 10.2}, 2), (Rect{0.5, 0.5, 10, 10.5}));
}

TEST(ScenePlacement, SnapsNothingAway) {
    EXPECT_EQ(ScenePlacement::snapped({5, 5, 0.1, 0.1}, 2), (Rect{5, 5, 0.5, 0.5}));
    EXPECT_EQ(ScenePlacement::snappedAsWhole({5, 5, 0.1, 0.1}, 1).size(), (Size{1, 1}));
}

TEST(ScenePlacement, EqualThingsStayEqualWhereverTheyLie) {
    for (double x = 0; x < 2; x += 0.1)
        EXPECT_EQ(ScenePlacement::snappedAsWhole({x, x / 3, 4, 4}, 2).size(), (Size{4, 4}));
}

TEST(ScenePlacement, DrawsANodeScaledAboutItsCentre) {
    SceneNode glass = node({10, 20, 100, 50}, GlassNode{18});
    glass.scale = 2;

    EXPECT_EQ(ScenePlacement::frame(glass, 1), (Rect{-40, -5, 200, 100}));
}

TEST(ScenePlacement, DrawsANodeScaledAboutItsAnchorAndThenMoved) {
    SceneNode dot = node({10, 10, 4, 4}, DotNode{});
    dot.scale = 0.5;
    dot.anchor = Point{0, 0};
    dot.slide = {20, 0};
    dot.bounce = {0, -12};

    EXPECT_EQ(ScenePlacement::frame(dot, 1), (Rect{25, -7, 2, 2}));
}

TEST(ScenePlacement, AnIconAtRestLiesOnWholePixels) {
    const SceneNode icon = node({10.3, 5.4, 44, 44}, ImageNode{nullptr, 44, 88});

    EXPECT_EQ(ScenePlacement::frame(icon, 2), (Rect{10.5, 5.5, 44, 44}));
}

TEST(ScenePlacement, AnIconThatHasGrownLiesBetweenPixels) {
    const SceneNode icon = node({10.25, 5.375, 48, 48}, ImageNode{nullptr, 44, 88});

    EXPECT_EQ(ScenePlacement::frame(icon, 2), icon.frame);
}

TEST(ScenePlacement, AnIconThatIsPressedLiesBetweenPixels) {
    SceneNode icon = node({10, 5, 44, 44}, ImageNode{nullptr, 44, 88});
    icon.scale = 0.92;

    const Rect frame = ScenePlacement::frame(icon, 1);

    EXPECT_NEAR(frame.width, 40.48, 1e-9);
    EXPECT_NEAR(frame.midX(), 32, 1e-9);
}

TEST(ScenePlacement, ARadiusIsAtMostThatOfACapsule) {
    EXPECT_EQ(ScenePlacement::cornerRadius(18, {300, 58}), 18);
    EXPECT_EQ(ScenePlacement::cornerRadius(18, {300, 30}), 15);
    EXPECT_EQ(ScenePlacement::cornerRadius(18, {20, 300}), 10);
    EXPECT_EQ(ScenePlacement::cornerRadius(-1, {20, 300}), 0);
}

TEST(ScenePlacement, ACapsuleHoldsItsTextInTheMiddleOfTheRoom) {
    EXPECT_EQ(ScenePlacement::capsule({0, 0, 200, 26}, {59.2, 15}, {9, 3}, 1),
              (Rect{61, 3, 78, 21}));
}

TEST(ScenePlacement, ACapsuleIsNoLargerThanItsRoom) {
    EXPECT_EQ(ScenePlacement::capsule({10, 0, 100, 26}, {500, 40}, {9, 3}, 2),
              (Rect{10, 0, 100, 26}));
}

TEST(ScenePlacement, AnImageIsSharpAtItsLargest) {
    EXPECT_EQ(ScenePlacement::imageScale({44, 44}, 44, 2), 2);
    EXPECT_EQ(ScenePlacement::imageScale({44, 44}, 88, 2), 4);
    EXPECT_EQ(ScenePlacement::imageScale({22, 44}, 66, 1), 1.5);
}

TEST(ScenePlacement, AnImageNeverHasFewerPixelsThanTheDisplayNorEndlesslyMany) {
    EXPECT_EQ(ScenePlacement::imageScale({44, 44}, 16, 2), 2);
    EXPECT_EQ(ScenePlacement::imageScale({44, 44}, 1e9, 2), 16);
    EXPECT_EQ(ScenePlacement::imageScale({0, 0}, 44, 2), 2);
}

}
}
