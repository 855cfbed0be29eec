/// Bobbing dots, and sizes that change in the middle of an animation.
#include "Kit/Views/AnimatorScenes.hpp"
#include "Views/Contents/Animator.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

namespace vireline {
namespace {

using test::dotAt;
using test::fade;
using test::sceneOf;
using test::slow;
using test::xAt;

/// The dot of an app that has been launching for a while.
SceneNode bobbingDot() {
    SceneNode node = dotAt(0);
    node.bounce.y = -12;
    node.motion.bounce = Curve{0.3, Easing::easeInOut, true};
    node.motion.presence = fade;
    return node;
}

TEST(AnimatorGrowth, ANodeThatComesWhileItBobsSetsOutFromItsPlace) {
    Animator first;
    first.setTarget(sceneOf({bobbingDot()}), 0);
    Animator later;
    later.setTarget(sceneOf({}), -1);
    later.setTarget(sceneOf({bobbingDot()}), 0);
    for (Animator* const animator : {&first, &later}) {
        const auto y = [&](double now) { return animator->frame(now).nodes.at(0).bounce.y; };
        EXPECT_NEAR(y(0), 0, 1e-9);
        EXPECT_NEAR(y(0.3), -12, 1e-9);
        animator->setTarget(sceneOf({bobbingDot()}), 0.45);
        EXPECT_NEAR(y(0.45), -6, 1e-6);
        EXPECT_NEAR(y(0.6), 0, 1e-9);
        SceneNode settled = bobbingDot();
        settled.bounce = {};
        settled.motion.bounce = Curve{0.2, Easing::easeOut};
        animator->setTarget(sceneOf({settled}), 0.9);
        EXPECT_EQ(y(1.11), 0);
        EXPECT_FALSE(animator->isMoving(1.11));
    }
}

TEST(AnimatorGrowth, ReducedMotionLeavesABobbingNodeRaised) {
    Animator animator;
    animator.setTarget(sceneOf({bobbingDot()}), 0, true);
    EXPECT_EQ(animator.frame(0.1).nodes.at(0).bounce.y, -12);
    EXPECT_FALSE(animator.isMoving(0.1));

    // Animations may be switched off during a launch.
    animator.setTarget(sceneOf({bobbingDot()}), 1);
    EXPECT_NEAR(animator.frame(1.6).nodes.at(0).bounce.y, 0, 1e-9);
    EXPECT_NEAR(animator.frame(1.9).nodes.at(0).bounce.y, -12, 1e-9);
}

TEST(AnimatorGrowth, AnIconThatShrinksWhileItGrowsNeverVanishes) {
    const auto iconOf = [](double side, std::optional<Curve> curve) {
        SceneNode node = dotAt(0);
        // The node stands on the lower edge of a view 100 points high.
        node.frame = {50, 100 - side, side, side};
        node.motion.frame = curve;
        return node;
    };
    Animator animator;
    animator.setTarget(sceneOf({iconOf(16, slow)}), 0);
    animator.setTarget(sceneOf({iconOf(64, slow)}), 0);
    animator.setTarget(sceneOf({iconOf(20, std::nullopt)}), 0.1);

    for (const double now : {0.1, 0.5, 0.9}) {
        const Rect shown = animator.frame(now).nodes.at(0).frame;
        EXPECT_GT(shown.width, 4) << now;
        EXPECT_LE(shown.width, 20) << now;
        EXPECT_EQ(shown.width, shown.height) << now;
        EXPECT_DOUBLE_EQ(shown.maxY(), 100) << now;
    }
    EXPECT_EQ(animator.frame(1).nodes.at(0).frame, (Rect{50, 80, 20, 20}));
}

TEST(AnimatorGrowth, AWayThatHasNothingToDoWithGrowthGoesOn) {
    const auto wideAt = [](double x, double width, std::optional<Curve> curve) {
        SceneNode node = dotAt(x);
        node.frame.width = width;
        node.motion.frame = curve;
        return node;
    };
    Animator animator;
    animator.setTarget(sceneOf({wideAt(0, 40, slow)}), 0);
    animator.setTarget(sceneOf({wideAt(100, 42, slow)}), 0);
    const double before = xAt(animator, 0.5);

    animator.setTarget(sceneOf({wideAt(100, 84, std::nullopt)}), 0.5);

    EXPECT_DOUBLE_EQ(xAt(animator, 0.5), before);
}

}
}
