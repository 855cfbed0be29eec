#include "Kit/Views/AnimatorScenes.hpp"
#include "Views/Contents/Animator.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace vireline {
namespace {

using test::dotAt;
using test::fade;
using test::sceneOf;
using test::slow;
using test::xAt;

SceneNode movingDotAt(double x) {
    SceneNode node = dotAt(x);
    node.motion.frame = slow;
    return node;
}

TEST(Animator, TheFirstSceneShowsAtOnce) {
    Animator animator;
    SceneNode node = movingDotAt(10);
    node.motion.presence = fade;
    animator.setTarget(sceneOf({node}), 0);

    EXPECT_EQ(animator.frame(0).nodes, std::vector{node});
    EXPECT_FALSE(animator.isMoving(0));
}

TEST(Animator, AChangeWithACurveIsUnderWayUntilItsDurationIsOver) {
    Animator animator;
    animator.setTarget(sceneOf({movingDotAt(0)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 10);

    EXPECT_EQ(xAt(animator, 10), 0);
    EXPECT_DOUBLE_EQ(xAt(animator, 10.5), 50);
    EXPECT_TRUE(animator.isMoving(10.99));
    EXPECT_EQ(xAt(animator, 11), 100);
    EXPECT_FALSE(animator.isMoving(11));
}

TEST(Animator, TellsAFadeFromAMovement) {
    Animator animator;
    SceneNode fading = dotAt(0);
    fading.motion.opacity = fade;
    SceneNode moving = movingDotAt(0);
    moving.id.owner = 1;
    animator.setTarget(sceneOf({fading, moving}), 0);
    EXPECT_TRUE(animator.onlyFades(0));

    fading.opacity = 0.5;
    animator.setTarget(sceneOf({fading, moving}), 1);
    EXPECT_TRUE(animator.isMoving(1));
    EXPECT_TRUE(animator.onlyFades(1));

    moving.frame.x = 100;
    animator.setTarget(sceneOf({fading, moving}), 2);
    EXPECT_FALSE(animator.onlyFades(2.5));
    EXPECT_TRUE(animator.onlyFades(3));
}

TEST(Animator, AChangeWithoutACurveShowsAtOnce) {
    Animator animator;
    animator.setTarget(sceneOf({dotAt(0)}), 0);
    animator.setTarget(sceneOf({dotAt(100)}), 1);

    EXPECT_EQ(xAt(animator, 1), 100);
    EXPECT_FALSE(animator.isMoving(1));
}

TEST(Animator, AnInterruptedMovementGoesOnFromWhereItIs) {
    Animator animator;
    animator.setTarget(sceneOf({movingDotAt(0)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 0);
    const double before = xAt(animator, 0.4);

    animator.setTarget(sceneOf({movingDotAt(-50)}), 0.4);

    EXPECT_DOUBLE_EQ(xAt(animator, 0.4), before);
    EXPECT_DOUBLE_EQ(xAt(animator, 1.4), -50);
}

TEST(Animator, ATargetThatFollowsThePointerCarriesARunningMovementAlong) {
    Animator animator;
    animator.setTarget(sceneOf({dotAt(0)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 0);
    const double before = xAt(animator, 0.5);

    animator.setTarget(sceneOf({dotAt(103)}), 0.5);

    EXPECT_DOUBLE_EQ(xAt(animator, 0.5), before + 3);
    EXPECT_EQ(xAt(animator, 1), 103);
}

TEST(Animator, SettingTheSameTargetAgainDoesNotStartOver) {
    Animator animator;
    animator.setTarget(sceneOf({movingDotAt(0)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 0.9);

    EXPECT_FALSE(animator.isMoving(1));
}

TEST(Animator, PropertiesMoveEachOnItsOwnCurve) {
    Animator animator;
    SceneNode node = dotAt(0);
    animator.setTarget(sceneOf({node}), 0);
    node.frame.x = 100;
    node.motion.frame = slow;
    node.scale = 0.5;
    node.motion.scale = fade;
    animator.setTarget(sceneOf({node}), 0);

    const SceneNode shown = animator.frame(0.1).nodes.at(0);
    EXPECT_EQ(shown.scale, 0.5);
    EXPECT_LT(shown.frame.x, 10);
}

TEST(Animator, ANodeFadesInAndOut) {
    Animator animator;
    animator.setTarget(sceneOf({}), 0);
    SceneNode label = dotAt(0);
    label.motion.presence = fade;
    animator.setTarget(sceneOf({label}), 1);
    EXPECT_EQ(animator.frame(1).nodes.at(0).opacity, 0);
    EXPECT_EQ(animator.frame(1.1).nodes.at(0).opacity, 1);

    animator.setTarget(sceneOf({}), 2);
    EXPECT_EQ(animator.frame(2).nodes.at(0).opacity, 1);
    EXPECT_TRUE(animator.isMoving(2.05));
    EXPECT_TRUE(animator.frame(2.1).nodes.empty());
    EXPECT_FALSE(animator.isMoving(2.1));
}

TEST(Animator, ANodeThatComesBackWhileFadingOutGoesOnFromThere) {
    Animator animator;
    SceneNode label = dotAt(0);
    label.motion.presence = slow;
    animator.setTarget(sceneOf({label}), 0);
    animator.setTarget(sceneOf({}), 0);
    EXPECT_DOUBLE_EQ(animator.frame(0.5).nodes.at(0).opacity, 0.5);

    animator.setTarget(sceneOf({label}), 0.5);

    EXPECT_DOUBLE_EQ(animator.frame(0.5).nodes.at(0).opacity, 0.5);
    EXPECT_EQ(animator.frame(1.5).nodes.at(0).opacity, 1);
}

TEST(Animator, ABounceGoesOnUntilItsTargetChangesAndThenEasesHome) {
    Animator animator;
    SceneNode icon = dotAt(0);
    animator.setTarget(sceneOf({icon}), 0);
    icon.bounce.y = -12;
    icon.motion.bounce = Curve{0.3, Easing::easeInOut, true};
    animator.setTarget(sceneOf({icon}), 0);
    const auto y = [&](double now) { return animator.frame(now).nodes.at(0).bounce.y; };
    EXPECT_NEAR(y(0.3), -12, 1e-9);
    EXPECT_NEAR(y(0.6), 0, 1e-9);
    EXPECT_TRUE(animator.isMoving(100));
    const double before = y(0.8);

    icon.bounce.y = 0;
    icon.motion.bounce = Curve{0.2, Easing::easeOut};
    animator.setTarget(sceneOf({icon}), 0.8);

    EXPECT_NEAR(y(0.8), before, 1e-9);
    EXPECT_EQ(y(1.01), 0);
    EXPECT_FALSE(animator.isMoving(1.01));
}

TEST(Animator, ReducedMotionShowsEverythingAtOnce) {
    Animator animator;
    animator.setTarget(sceneOf({movingDotAt(0)}), 0);
    animator.setTarget(sceneOf({movingDotAt(100)}), 1, true);

    EXPECT_EQ(xAt(animator, 1), 100);
    EXPECT_FALSE(animator.isMoving(1));
}

TEST(Animator, NodesKeepTheirOwnMovementsWhenTheOrderChanges) {
    Animator animator;
    animator.setTarget(sceneOf({dotAt(0, 1), dotAt(50, 2)}), 0);
    SceneNode first = dotAt(50, 1);
    SceneNode second = dotAt(0, 2);
    first.motion.frame = second.motion.frame = slow;
    animator.setTarget(sceneOf({second, first}), 0);

    const auto& shown = animator.frame(0.5).nodes;
    EXPECT_EQ(shown[0].id.owner, 2U);
    EXPECT_DOUBLE_EQ(shown[0].frame.x, 25);
    EXPECT_DOUBLE_EQ(shown[1].frame.x, 25);
}

TEST(Animator, NothingJumpsHoweverOftenTheTargetChanges) {
    Animator animator;
    animator.setTarget(sceneOf({movingDotAt(0)}), 0);
    double now = 0;
    double last = 0;
    for (int step = 0; step < 500; ++step) {
        if (step % 7 == 0)
            animator.setTarget(sceneOf({movingDotAt((step * 37) % 200)}), now);
        now += 0.001;
        const double x = xAt(animator, now);
        EXPECT_LT(std::abs(x - last), 2);
        last = x;
    }
}

Scene viewAt(double x, std::vector<SceneNode> nodes) {
    Scene scene = sceneOf(std::move(nodes));
    scene.viewPlace = {x, 0};
    return scene;
}

TEST(Animator, WhatMovesSetsOutFromWhereItWasOnTheDisplayThoughTheViewHasMoved) {
    Animator animator;
    animator.setTarget(viewAt(1000, {movingDotAt(10)}), 0);
    animator.setTarget(viewAt(900, {movingDotAt(30)}), 0);

    EXPECT_DOUBLE_EQ(xAt(animator, 0), 110);
    EXPECT_DOUBLE_EQ(xAt(animator, 0.5), 70);
    EXPECT_DOUBLE_EQ(xAt(animator, 1), 30);
}

TEST(Animator, WhatHasNoCurveMovesWithTheView) {
    Animator animator;
    animator.setTarget(viewAt(1000, {dotAt(10)}), 0);
    animator.setTarget(viewAt(900, {dotAt(10)}), 0);

    EXPECT_EQ(xAt(animator, 0), 10);
    EXPECT_FALSE(animator.isMoving(0));
}

SceneNode fadingDotAt(double x, std::uint32_t owner = 1) {
    SceneNode node = dotAt(x, owner);
    node.motion.presence = slow;
    return node;
}

TEST(Animator, NodesComeAndGoOnThePassage) {
    Animator animator;
    animator.setTarget(sceneOf({fadingDotAt(0, 1)}), 0);
    Scene other = sceneOf({fadingDotAt(50, 2)});
    other.presenceOffset = {0, 40};
    animator.setTarget(other, 0);

    const auto& begun = animator.frame(0).nodes;
    EXPECT_EQ(begun.at(0).presenceOffset, (Point{0, 0}));
    EXPECT_EQ(begun.at(1).presenceOffset, (Point{0, 40}));
    const auto& halfway = animator.frame(0.5).nodes;
    EXPECT_EQ(halfway.at(0).presenceOffset, (Point{0, 20}));
    EXPECT_EQ(halfway.at(1).presenceOffset, (Point{0, 20}));
    const auto& ended = animator.frame(1).nodes;
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended.at(0), fadingDotAt(50, 2));
}

TEST(Animator, ANodeThatComesBackTurnsRoundWhereItIs) {
    Animator animator;
    animator.setTarget(sceneOf({fadingDotAt(0)}), 0);
    Scene empty;
    empty.presenceOffset = {0, 40};
    empty.viewPlace = {0, 4};
    animator.setTarget(empty, 0);
    // The node has not moved on the display, although the view has.
    EXPECT_EQ(animator.frame(0).nodes.at(0).frame.y, -4);
    const SceneNode before = animator.frame(0.4).nodes.at(0);

    Scene back = sceneOf({fadingDotAt(0)});
    back.presenceOffset = {0, 40};
    animator.setTarget(back, 0.4);

    const SceneNode after = animator.frame(0.4).nodes.at(0);
    EXPECT_NEAR(after.opacity, before.opacity, 1e-9);
    EXPECT_NEAR(after.presenceOffset.y, before.presenceOffset.y, 1e-9);
    EXPECT_EQ(animator.frame(1.4).nodes, std::vector{fadingDotAt(0)});
}

TEST(Animator, ADotThatComesBackWhileFadingOutGoesOnFromThere) {
    Animator animator;
    SceneNode dot = dotAt(0);
    dot.motion.presence = slow;
    dot.motion.opacity = fade;
    animator.setTarget(sceneOf({dot}), 0);
    animator.setTarget(sceneOf({}), 1);
    const double before = animator.frame(1.5).nodes.at(0).opacity;
    ASSERT_NEAR(before, 0.5, 1e-9);

    animator.setTarget(sceneOf({dot}), 1.5);

    EXPECT_NEAR(animator.frame(1.5).nodes.at(0).opacity, before, 1e-9);
    EXPECT_EQ(animator.frame(2.5).nodes.at(0).opacity, 1);
}

TEST(Animator, ANodeThatCannotFadeIsGoneAtOnce) {
    Animator animator;
    animator.setTarget(sceneOf({dotAt(0)}), 0);

    animator.setTarget(sceneOf({}), 1);

    EXPECT_TRUE(animator.frame(1).nodes.empty());
    EXPECT_FALSE(animator.isMoving(1));
}

TEST(Animator, ANodeThatIsFadingOutStaysWhereItIsOnTheDisplayThoughTheViewMoves) {
    Animator animator;
    SceneNode node = dotAt(10);
    node.motion.presence = fade;
    animator.setTarget(sceneOf({node}), 0);
    animator.setTarget(sceneOf({}), 0);

    Scene moved = sceneOf({});
    moved.viewPlace = {4, 0};
    animator.setTarget(moved, 0.05);

    EXPECT_EQ(xAt(animator, 0.05), 6);
    EXPECT_TRUE(animator.frame(0.1).nodes.empty()) << "and it is gone in its time";
}

TEST(Animator, ANodeThatCannotFadeIsThereAtOnce) {
    Animator animator;
    animator.setTarget(sceneOf({dotAt(0)}), 0);

    animator.setTarget(sceneOf({dotAt(0), dotAt(10, 2)}), 1);

    EXPECT_EQ(animator.frame(1).nodes.at(1), dotAt(10, 2));
    EXPECT_FALSE(animator.isMoving(1));
}

TEST(Animator, RegionsAreThoseOfTheSceneToComeAtOnce) {
    Animator animator;
    Scene scene = sceneOf({movingDotAt(0)});
    scene.inputRegion = Rect{0, 0, 10, 10};
    animator.setTarget(scene, 0);
    scene = sceneOf({movingDotAt(100)});
    scene.inputRegion = Rect{0, 0, 20, 20};
    animator.setTarget(scene, 0);

    const Scene shown = animator.frame(0.5);
    EXPECT_EQ(shown.inputRegion, scene.inputRegion);
}

}
}
