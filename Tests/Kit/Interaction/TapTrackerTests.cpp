#include "Interaction/TapTracker.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace vireline {
namespace {

using Resolution = TapTracker::Resolution;

// Behaviour: click-policy-4
TEST(TapTracker, CountsTapsExactlyTheThresholdApartAsTwoClicks) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(10, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(10.5, 0.5), Resolution::single);
}

// Behaviour: click-policy-4
TEST(TapTracker, CountsTapsCloserThanTheThresholdAsADoubleClick) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(10, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(std::nextafter(10.5, 10), 0.5), Resolution::doubled);
}

// Behaviour: click-policy-5
TEST(TapTracker, StartsOverAfterADoubleClick) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(1.0, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(1.1, 0.5), Resolution::doubled);
    EXPECT_EQ(taps.registerTap(1.2, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(1.3, 0.5), Resolution::doubled);
}

// Behaviour: click-policy-6
TEST(TapTracker, MeasuresFromATapWhoseClockWentBackwards) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(10.0, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(9.9, 0.5), Resolution::single);
    // Too late to pair with the first of them.
    EXPECT_EQ(taps.registerTap(10.45, 0.5), Resolution::single);
}

TEST(TapTracker, TakesATapSoonAfterOneWhoseClockWentBackwardsForADoubleClick) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(10.0, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(9.9, 0.5), Resolution::single);
    // Even earlier than the first.
    EXPECT_EQ(taps.registerTap(9.95, 0.5), Resolution::doubled);
}

TEST(TapTracker, MeasuresFromTheLastSingleClick) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(1, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(2, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(2.4, 0.5), Resolution::doubled);
}

TEST(TapTracker, TakesTwoTapsAtTheSameMomentForADoubleClick) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(0, 0.5), Resolution::single);
    EXPECT_EQ(taps.registerTap(0, 0.5), Resolution::doubled);
}

TEST(TapTracker, KnowsNoDoubleClickWithoutAThreshold) {
    TapTracker taps;
    EXPECT_EQ(taps.registerTap(1, 0), Resolution::single);
    EXPECT_EQ(taps.registerTap(1, 0), Resolution::single);
}

}
}
