#include "Views/Curve.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(Curve, RunsFromTheStartToTheTargetAndStaysThere) {
    for (const Easing easing : {Easing::easeOut, Easing::easeInOut}) {
        const Curve curve{0.2, easing};
        EXPECT_EQ(progress(curve, -1), 0);
        EXPECT_EQ(progress(curve, 0), 0);
        EXPECT_EQ(progress(curve, 0.2), 1);
        EXPECT_EQ(progress(curve, 5), 1);
        double last = 0;
        for (int i = 1; i <= 100; ++i) {
            const double now = progress(curve, 0.002 * i);
            EXPECT_GE(now, last);
            last = now;
        }
    }
}

TEST(Curve, EasingOutStartsFastAndEasingInOutIsSymmetric) {
    EXPECT_GT(progress({1, Easing::easeOut}, 0.25), 0.5);
    EXPECT_DOUBLE_EQ(progress({1, Easing::easeInOut}, 0.5), 0.5);
    EXPECT_DOUBLE_EQ(progress({1, Easing::easeInOut}, 0.2) + progress({1, Easing::easeInOut}, 0.8),
                     1);
}

TEST(Curve, ARepeatingCurveGoesBackAndForthForever) {
    const Curve bounce{0.3, Easing::easeInOut, true};
    EXPECT_NEAR(progress(bounce, 0.3), 1, 1e-9);
    EXPECT_NEAR(progress(bounce, 0.45), 0.5, 1e-9);
    EXPECT_NEAR(progress(bounce, 0.6), 0, 1e-9);
    EXPECT_NEAR(progress(bounce, 60.3), 1, 1e-6);
    EXPECT_TRUE(isMoving(bounce, 1000));
}

TEST(Curve, OthersEndWithTheirDuration) {
    EXPECT_TRUE(isMoving({0.2, Easing::easeOut}, 0.19));
    EXPECT_FALSE(isMoving({0.2, Easing::easeOut}, 0.2));
}

TEST(Curve, EasesByCubes) {
    EXPECT_DOUBLE_EQ(progress({2, Easing::easeOut}, 0.5), 0.578125);
    EXPECT_DOUBLE_EQ(progress({2, Easing::easeInOut}, 0.5), 0.0625);
    EXPECT_DOUBLE_EQ(progress({2, Easing::easeInOut}, 1.5), 0.9375);
}

TEST(Curve, ARepeatingCurveTakesEachWayBackAsItCame) {
    const Curve bounce{1, Easing::easeOut, true};
    for (const double leg : {0.0, 2.0, 4.0}) {
        EXPECT_DOUBLE_EQ(progress(bounce, leg + 0.25), 0.578125);
        EXPECT_DOUBLE_EQ(progress(bounce, leg + 1.75), 0.578125);
    }
}

}
}
