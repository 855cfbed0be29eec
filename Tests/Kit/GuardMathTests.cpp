#include "Support/Random.hpp"
#include "Support/Samples.hpp"
#include "WindowManagement/GuardMath.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Zones = std::vector<Rect>;

const ScreenSnapshot primary = test::sampleScreen(1, {0, 0, 1920, 1080});
const Zones oneZone{{1920, 1077, 1920, 3}};

// Behaviour: anchor-guard-1
TEST(GuardMath, PutsABandAlongTheBottomOfAGuardedDisplay) {
    const std::vector screens{primary, test::sampleScreen(2, {1920, 0, 1920, 1080})};

    EXPECT_EQ(GuardMath::guardZones(screens, {2}), oneZone);
}

TEST(GuardMath, FollowsDisplaysThatLieHigherOrLower) {
    const std::vector screens{primary, test::sampleScreen(3, {-1280, 400, 1280, 1024}),
                              test::sampleScreen(2, {1920, -500, 800, 600})};

    EXPECT_EQ(GuardMath::guardZones(screens, {2, 3}),
              (Zones{{-1280, 677, 1280, 3}, {1920, 1577, 800, 3}}));
}

// Behaviour: anchor-guard-4
TEST(GuardMath, HasNoZonesWithoutGuardedDisplays) {
    EXPECT_EQ(GuardMath::guardZones(std::vector{primary}, {}), Zones{});
    EXPECT_EQ(GuardMath::guardZones(std::vector{primary}, {9}), Zones{});
    EXPECT_EQ(GuardMath::guardZones({}, {1}), Zones{});
}

// Behaviour: anchor-guard-2
TEST(GuardMath, LetsAPointerRestOnABandsTopAndNoLower) {
    EXPECT_EQ(GuardMath::clamp({2000, 1077}, oneZone), std::nullopt);
    EXPECT_EQ(GuardMath::clamp({2000, 1077.5}, oneZone), (Point{2000, 1077}));
}

// Behaviour: anchor-guard-3
TEST(GuardMath, CountsABandsNearEndAndNotItsFarOne) {
    EXPECT_EQ(GuardMath::clamp({1920, 1079}, oneZone), (Point{1920, 1077}));
    EXPECT_EQ(GuardMath::clamp({3840, 1079}, oneZone), std::nullopt);
    EXPECT_EQ(GuardMath::clamp({1919.9, 1079}, oneZone), std::nullopt);
}

TEST(GuardMath, BringsBackWhatIsFarBelow) {
    EXPECT_EQ(GuardMath::clamp({2000, 9000}, oneZone), (Point{2000, 1077}));
}

TEST(GuardMath, TakesTheFirstOfTheZonesThatMatch) {
    const Zones stacked{{0, 2157, 1920, 3}, {0, 1077, 1920, 3}};

    EXPECT_EQ(GuardMath::clamp({10, 2159}, stacked), (Point{10, 2157}));
    EXPECT_EQ(GuardMath::clamp({10, 2000}, stacked), (Point{10, 1077}));
}

TEST(GuardMath, NeverLeavesAPointerInsideABand) {
    test::Random random{7};
    const std::vector screens{primary, test::sampleScreen(2, {1920, 300, 1280, 1024}),
                              test::sampleScreen(3, {-800, -100, 800, 600})};
    const auto zones = GuardMath::guardZones(screens, {2, 3});

    for (int i = 0; i < 10'000; ++i) {
        const Point wanted{random.real(-900, 3300), random.real(-400, 1300)};
        const Point reached = GuardMath::clamp(wanted, zones).value_or(wanted);
        for (const Rect& zone : zones) {
            EXPECT_FALSE(zone.contains(reached) && reached.y > zone.minY())
                << wanted << " -> " << reached;
        }
    }
}

}
}
