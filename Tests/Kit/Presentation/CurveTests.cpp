#include "Presentation/Curve.hpp"

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
    EXPECT_GT(progress({1, Easing::easeOut}, 0.25), 0.25 * 1.5);
    EXPECT_NEAR(progress({1, Easing::easeInOut}, 0.5), 0.5, 1e-9);
    EXPECT_NEAR(progress({1, Easing::easeInOut}, 0.2) + progress({1, Easing::easeInOut}, 0.8), 1,
                1e-8);
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

/// Reference values computed to 40 digits by bisection.
TEST(Curve, EasesAlongTheUsualBezierCurves) {
    struct Sample {
        double time;
        double easeOut;
        double easeInOut;
    };
    for (const Sample& sample :
         {Sample{0.05, 0.082242204042017, 0.004829749667859},
          Sample{0.1, 0.160572154237533, 0.019722453548311},
          Sample{0.25, 0.378138130825110, 0.129161931047320}, Sample{0.5, 0.684643187427461, 0.5},
          Sample{0.75, 0.906535349281175, 0.870838068952680},
          Sample{0.9, 0.982973390348437, 0.980277546451689},
          Sample{0.99, 0.999813146804538, 0.999810180414793}}) {
        EXPECT_NEAR(progress({2, Easing::easeOut}, 2 * sample.time), sample.easeOut, 1e-8);
        EXPECT_NEAR(progress({2, Easing::easeInOut}, 2 * sample.time), sample.easeInOut, 1e-8);
    }
}

TEST(Curve, ARepeatingCurveTakesEachWayBackAsItCame) {
    const Curve bounce{1, Easing::easeOut, true};
    for (const double leg : {0.0, 2.0, 4.0}) {
        EXPECT_NEAR(progress(bounce, leg + 0.25), 0.378138130825110, 1e-8);
        EXPECT_NEAR(progress(bounce, leg + 1.75), 0.378138130825110, 1e-8);
    }
}

}
}
