#include "ClientWindows/GuardMath.hpp"
#include "Support/Random.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Zones = std::vector<Rect>;

const ScreenSnapshot primaryScreen = test::sampleScreen(1, {0, 0, 1920, 1080});
const Zones oneZone{{1920, 1077, 1920, 3}};

// Behaviour: anchor-guard-1
TEST(GuardMath, PutsABandAlongTheBottomOfAGuardedDisplay) {
    const std::vector screens{primaryScreen, test::sampleScreen(2, {1920, 0, 1920, 1080})};

    EXPECT_EQ(GuardMath::guardZones(screens, {2}), oneZone);
}

TEST(GuardMath, FollowsDisplaysThatLieHigherOrLower) {
    const std::vector screens{primaryScreen, test::sampleScreen(3, {-1280, 400, 1280, 1024}),
                              test::sampleScreen(2, {1920, -500, 800, 600})};

    EXPECT_EQ(GuardMath::guardZones(screens, {2, 3}),
              (Zones{{-1280, 677, 1280, 3}, {1920, 1577, 800, 3}}));
}

// Behaviour: anchor-guard-4
TEST(GuardMath, HasNoZonesWithoutGuardedDisplays) {
    EXPECT_EQ(GuardMath::guardZones(std::vector{primaryScreen}, {}), Zones{});
    EXPECT_EQ(GuardMath::guardZones(std::vector{primaryScreen}, {9}), Zones{});
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
    const std::vector screens{primaryScreen, test::sampleScreen(2, {1920, 300, 1280, 1024}),
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

/// Two displays 1000 points high, the second below the right half of the first, and a third to the
/// right of both whose bottom edge lies in between.
struct StackedDisplays : testing::Test {
    const std::vector<Rect> displays{
        {0, 0, 1000, 1000}, {500, 1000, 1000, 1000}, {1500, 0, 800, 1500}};
    const Zones all{{0, 997, 1000, 3}, {500, 1997, 1000, 3}, {1500, 1497, 800, 3}};
    const Zones firstAlone{all[0]};

    [[nodiscard]] std::optional<Point> held(Point p, const Zones& zones) const {
        return GuardMath::clamp(p, zones, displays);
    }
};

TEST_F(StackedDisplays, ThePointerMayGoDownToTheDisplayBelowAtAnySpeed) {
    for (const double y : {996.0, 997.5, 999.9, 1000.0, 1002.0, 1500.0, 1996.0})
        EXPECT_EQ(held({700, y}, all), std::nullopt) << y;
}

TEST_F(StackedDisplays, ThePointerIsHeldWhereNothingIsBelow) {
    for (const double y : {997.5, 999.9, 1000.0, 1500.0, 9000.0})
        EXPECT_EQ(held({200, y}, all), (Point{200, 997})) << y;
}

TEST_F(StackedDisplays, BeyondThemAllTheLowestDisplaysBandCounts) {
    EXPECT_EQ(held({700, 1998}, all), (Point{700, 1997}));
    EXPECT_EQ(held({700, 9000}, all), (Point{700, 1997}));
    EXPECT_EQ(held({1600, 2100}, all), (Point{1600, 1497}));
}

TEST_F(StackedDisplays, ThePointerStaysBeyondALowestDisplayWithoutABand) {
    EXPECT_EQ(held({700, 2000}, firstAlone), std::nullopt);
}

TEST_F(StackedDisplays, ABandThatLeadsOntoADisplaysCornerEndsWhereThatDoes) {
    EXPECT_EQ(held({499.9, 998}, all), (Point{499.9, 997}));
    EXPECT_EQ(held({500, 998}, all), std::nullopt);
}

TEST_F(StackedDisplays, TheBandOfADisplayThatOverlapsTheLowestOneDoesNotCountBelowIt) {
    const std::vector<Rect> overlapping{{0, 0, 1000, 1000}, {0, 0, 1000, 900}};
    const Zones band{{0, 897, 1000, 3}};

    EXPECT_EQ(GuardMath::clamp({10, 1001}, band, overlapping), std::nullopt);
}

TEST_F(StackedDisplays, RoundingOpensNoBand) {
    const std::vector<Rect> thirds{{0, 0, 1000, 1000.0 / 3}};
    const Zones band{{0, 1000.0 / 3 - 3, 1000, 3.0 - 1e-9}};

    EXPECT_EQ(GuardMath::clamp({10, 332}, band, thirds), (Point{10, 1000.0 / 3 - 3}));
}

TEST(GuardMath, PutsTheDisplaysIntoEventSpace) {
    const std::vector screens{primaryScreen, test::sampleScreen(2, {-1280, 400, 1280, 1024}),
                              test::sampleScreen(3, {0, -600, 800, 600})};

    EXPECT_EQ(GuardMath::displayFrames(screens),
              (Zones{{0, 0, 1920, 1080}, {-1280, -344, 1280, 1024}, {0, 1080, 800, 600}}));
    EXPECT_EQ(GuardMath::displayFrames({}), Zones{});
}

TEST(GuardMath, WithoutDisplaysBelowEverythingIsAsWithTheBandsAlone) {
    test::Random random{7};
    const std::vector<Rect> displays{{0, 0, 1920, 1080}, {1920, 0, 1920, 1080}};
    for (int i = 0; i < 10'000; ++i) {
        const Point p{random.real(1900, 3900), random.real(0, 3000)};
        ASSERT_EQ(GuardMath::clamp(p, oneZone, displays), GuardMath::clamp(p, oneZone)) << p;
    }
}

}
}
