#include "Layout/DockMagnifier.hpp"
#include "Support/Random.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace vireline {
namespace {

using namespace DockMagnifier;
using Counts = DockOrdering::Counts;

constexpr double icon = 44;

/// A complete strip, as a view lays it out.
struct Strip {
    Counts counts;
    double iconSize = icon;
    double magnification = 2;
    double container = 0;
    /// In the container's coordinates.
    std::optional<double> cursor;

    std::vector<double> base = baseCenters(counts, iconSize);
    double baseLength = DockOrdering::stripWidth(counts, iconSize);
    std::vector<double> scales =
        DockMagnifier::scales(base, cursorInStrip(), magnification, radius(iconSize));
    std::vector<double> packed = packedCenters(base, scales, iconSize);
    double length = packedLength(packed, scales, iconSize);
    double shift = anchoredShift(base, packed, {baseLength, length, container}, cursor);

    [[nodiscard]] double centering() const { return (container - baseLength) / 2; }
    [[nodiscard]] std::optional<double> cursorInStrip() const {
        return cursor ? std::optional{*cursor - centering()} : std::nullopt;
    }
};

Strip randomStrip(test::Random& random) {
    const Counts counts{.pinned = random.integer(1, 30),
                        .unpinnedRunning = random.integer(0, 10),
                        .utility = random.integer(0, 2)};
    const double size = random.integer(16, 64);
    const double container =
        std::max(0.0, DockOrdering::stripWidth(counts, size) + random.real(-300, 600));
    return {.counts = counts,
            .iconSize = size,
            .magnification = random.real(1.05, 2.5),
            .container = container,
            .cursor = random.real(-50, container + 50)};
}

TEST(DockMagnifier, SpacesTheCentresOfATilesRow) {
    EXPECT_EQ(baseCenters({3, 0, 0}, icon), (std::vector<double>{29, 79, 129}));
}

TEST(DockMagnifier, StepsOverASeparatorBeforeEachFurtherGroup) {
    EXPECT_EQ(baseCenters({1, 1, 2}, icon), (std::vector<double>{29, 86, 143, 193}));
    EXPECT_EQ(baseCenters({0, 1, 0}, icon), (std::vector<double>{36}));
    EXPECT_TRUE(baseCenters({0, 0, 0}, icon).empty());
}

// Behaviour: dock-magnifier-6
TEST(DockMagnifier, PutsLoneUtilityTilesBehindOneSeparator) {
    EXPECT_EQ(baseCenters({0, 0, 2}, icon), (std::vector<double>{7 + 7 + 22, 7 + 7 + 22 + 50}));
}

TEST(DockMagnifierDeathTest, StopsForANegativeNumberOfPinnedTiles) {
    EXPECT_DEATH((void)baseCenters({-1, 0, 2}, icon), "broken condition");
}

// Behaviour: dock-magnifier-1
TEST(DockMagnifier, GivesTheTileUnderThePointerTheFullFactorAndDistantOnesNone) {
    const auto centers = baseCenters({9, 0, 0}, icon);
    const auto result = scales(centers, centers[4], 1.8, radius(icon));
    EXPECT_DOUBLE_EQ(result[4], 1.8);
    for (const std::size_t distant : {0U, 1U, 7U, 8U})
        EXPECT_EQ(result[distant], 1.0) << distant;
    EXPECT_GT(result[3], 1.0);

    const double edge = centers[4] - 2.5 * (icon + 6);
    EXPECT_EQ(scales(std::vector{edge}, centers[4], 1.8, radius(icon)), std::vector{1.0});
    EXPECT_GT(scales(std::vector{edge + 1}, centers[4], 1.8, radius(icon)).front(), 1.0);
}

TEST(DockMagnifier, LetsTheEffectFallAsTheSquareOfACosine) {
    const std::vector<double> centers{0, 50, 100};
    const auto result = scales(centers, 0, 2, 200);
    EXPECT_DOUBLE_EQ(result[1], 1 + std::pow(std::cos(std::numbers::pi / 8), 2));
    EXPECT_NEAR(result[2], 1.5, 1e-12);
}

// Behaviour: dock-magnifier-2
TEST(DockMagnifier, LeavesAStripAloneWithoutAPointerOrAFactor) {
    for (const double factor : {1.0, 0.5, 0.0, -3.0, 2.0}) {
        const Strip strip{.counts = {5, 2, 2},
                          .magnification = factor,
                          .container = 900,
                          .cursor = factor > 1 ? std::nullopt : std::optional{300.0}};
        EXPECT_EQ(strip.scales, std::vector<double>(9, 1.0)) << factor;
        EXPECT_EQ(strip.packed, strip.base);
        EXPECT_EQ(strip.length, strip.baseLength);
        EXPECT_NEAR(strip.shift, strip.centering(), 1e-9);
    }
}

TEST(DockMagnifier, LeavesScalesAloneWithoutARadius) {
    EXPECT_EQ(scales(std::vector{1.0, 2.0}, 1.0, 2.0, 0), (std::vector{1.0, 1.0}));
    EXPECT_EQ(scales(std::vector{1.0, 2.0}, 1.0, 2.0, -5), (std::vector{1.0, 1.0}));
    EXPECT_TRUE(scales({}, 1.0, 2.0, 100).empty());
}

// Behaviour: dock-magnifier-5
// Behaviour: dock-strip-8
TEST(DockMagnifier, FallsBackToTheStripAtRestWhereCountsDiffer) {
    const auto base = baseCenters({3, 0, 0}, icon);
    const std::vector two{1.5, 1.5};
    EXPECT_EQ(packedCenters(base, two, icon), base);
    EXPECT_EQ(anchoredShift(base, two, {164, 200, 400}, 30), 118);
    EXPECT_EQ(anchoredShift({}, {}, {0, 0, 400}, 30), 200);
}

TEST(DockMagnifier, PacksNothingForNoTiles) {
    EXPECT_TRUE(packedCenters({}, {}, icon).empty());
    EXPECT_EQ(packedLength({}, {}, icon), 0);
    EXPECT_EQ(packedLength(std::vector{29.0}, {}, icon), 0);
}

TEST(DockMagnifier, GrowsTilesInPlaceKeepingTheirGaps) {
    // The second gap contains a separator.
    const std::vector<double> base{29, 79, 136};
    const std::vector<double> grown{1, 2, 1.5};
    const auto packed = packedCenters(base, grown, icon);
    EXPECT_EQ(packed, (std::vector<double>{29, 101, 191}));
    EXPECT_EQ(packedLength(packed, grown, icon), 191 + 33 + 7);
}

// Behaviour: dock-magnifier-3
TEST(DockMagnifier, AnchorsTheOuterTileForAPointerBeyondIt) {
    constexpr double before = 480;
    const Strip first{.counts = {5, 0, 0}, .container = 1200, .cursor = before};
    ASSERT_LT(before - first.centering(), first.base.front());
    EXPECT_NEAR(first.shift + first.packed.front(), before, 1e-9);

    constexpr double behind = 720;
    const Strip last{.counts = {5, 0, 0}, .container = 1200, .cursor = behind};
    ASSERT_GT(behind - last.centering(), last.base.back());
    EXPECT_NEAR(last.shift + last.packed.back(), behind, 1e-9);
}

TEST(DockMagnifier, KeepsTheTileUnderThePointerUnderIt) {
    const Counts counts{4, 2, 2};
    const double container = 1200;
    const double centering = (container - DockOrdering::stripWidth(counts, icon)) / 2;
    const auto base = baseCenters(counts, icon);
    for (std::size_t i = 0; i < base.size(); ++i) {
        const double cursor = centering + base[i];
        const Strip strip{.counts = counts, .container = container, .cursor = cursor};
        EXPECT_NEAR(strip.shift + strip.packed[i], cursor, 1e-9) << i;
    }
}

TEST(DockMagnifier, KeepsAPointBetweenTwoTilesUnderThePointer) {
    constexpr double cursor = 600 + 25;
    const Strip strip{.counts = {5, 0, 0}, .container = 1200, .cursor = cursor};
    const double between = (strip.packed[2] + strip.packed[3]) / 2;
    EXPECT_NEAR(strip.shift + between, cursor, 1e-9);
}

// Behaviour: dock-magnifier-4
TEST(DockMagnifier, CoversAContainerThatTheGrownStripOverflows) {
    for (const double cursor : {-100.0, 0.0, 7.0, 150.0, 299.0, 400.0}) {
        const Strip strip{.counts = {6, 0, 0}, .container = 300, .cursor = cursor};
        ASSERT_GT(strip.length, strip.container);
        EXPECT_LE(strip.shift, 0);
        EXPECT_GE(strip.shift, strip.container - strip.length);
    }
    const auto shiftAt = [](double cursor) {
        return Strip{.counts = {6, 0, 0}, .container = 300, .cursor = cursor}.shift;
    };
    // Held in place by the strip's far end, by the pointer, and by the strip's near end.
    EXPECT_NEAR(shiftAt(-100), -8, 1e-9);
    EXPECT_NEAR(shiftAt(0), -48.899187, 1e-6);
    EXPECT_NEAR(shiftAt(150), -59, 1e-9);
    EXPECT_NEAR(shiftAt(299), -15.795383, 1e-6);
    EXPECT_NEAR(shiftAt(400), 0, 1e-9);
}

TEST(DockMagnifier, StaysInsideAContainerThatHoldsTheGrownStrip) {
    test::Random random{21};
    for (int round = 0; round < 2'000; ++round) {
        const Strip strip = randomStrip(random);
        const double room = strip.container - strip.length;
        EXPECT_GE(strip.shift, std::min(room, 0.0));
        EXPECT_LE(strip.shift, std::max(room, 0.0));
    }
}

TEST(DockMagnifier, GivesPackedCentresThatAscendWithUnchangedGaps) {
    test::Random random{22};
    for (int round = 0; round < 2'000; ++round) {
        const Strip strip = randomStrip(random);
        ASSERT_EQ(strip.packed.size(), strip.base.size());
        for (std::size_t i = 1; i < strip.packed.size(); ++i) {
            EXPECT_LT(strip.packed[i - 1], strip.packed[i]);
            const double halves = strip.iconSize * (strip.scales[i - 1] + strip.scales[i]) / 2;
            EXPECT_NEAR(strip.packed[i] - strip.packed[i - 1] - halves,
                        strip.base[i] - strip.base[i - 1] - strip.iconSize, 1e-9);
        }
    }
}

TEST(DockMagnifier, GrowsTheStripByWhatItsTilesGrow) {
    test::Random random{23};
    for (int round = 0; round < 2'000; ++round) {
        const Strip strip = randomStrip(random);
        const double extra = std::accumulate(
            strip.scales.begin(), strip.scales.end(), 0.0,
            [&](double sum, double scale) { return sum + strip.iconSize * (scale - 1); });
        EXPECT_NEAR(strip.length, strip.baseLength + extra, 1e-9);
    }
}

TEST(DockMagnifier, ScalesByTheFormulaEverywhere) {
    test::Random random{24};
    for (int round = 0; round < 2'000; ++round) {
        const Strip strip = randomStrip(random);
        const auto cursor = strip.cursorInStrip();
        ASSERT_TRUE(cursor);
        for (std::size_t i = 0; i < strip.base.size(); ++i) {
            const double distance = std::abs(strip.base[i] - cursor.value_or(0));
            const double d = std::min(distance / radius(strip.iconSize), 1.0);
            const double w = std::cos(d * std::numbers::pi / 2);
            EXPECT_NEAR(strip.scales[i], 1 + (strip.magnification - 1) * w * w, 1e-12);
            EXPECT_LE(strip.scales[i], strip.magnification);
        }
    }
}

// Behaviour: dock-magnifier-7
TEST(DockMagnifier, AddsNoLengthWithoutMagnificationOrTiles) {
    EXPECT_EQ(maxExtraLength(10, icon, 1.0), 0);
    EXPECT_EQ(maxExtraLength(10, icon, 0.5), 0);
    EXPECT_EQ(maxExtraLength(0, icon, 2.0), 0);
    EXPECT_EQ(maxExtraLength(-4, icon, 2.0), 0);
}

TEST(DockMagnifier, AddsWhatARowWithThePointerOnItsMiddleTileGrows) {
    for (int count = 1; count <= 60; ++count) {
        for (const double size : {16.0, 44.0, 63.5}) {
            std::vector<double> row(static_cast<std::size_t>(count));
            for (std::size_t i = 0; i < row.size(); ++i)
                row[i] = static_cast<double>(i) * (size + 6);
            const auto grown = scales(row, row[row.size() / 2], 1.7, radius(size));
            const double extra = std::accumulate(grown.begin(), grown.end(), 0.0) - count;
            EXPECT_NEAR(maxExtraLength(count, size, 1.7), size * extra, 1e-9) << count;
        }
    }
}

TEST(DockMagnifier, SurvivesIconSizesThatMakeNoSense) {
    for (const double size : {-1e9, -50.0, -6.0, -3.0, 0.0, 1e9, 1e300}) {
        const Strip strip{.counts = {5, 2, 2}, .iconSize = size, .container = 900, .cursor = 300};
        EXPECT_EQ(strip.packed.size(), 9U) << size;
        EXPECT_FALSE(std::isnan(maxExtraLength(9, size, 2))) << size;
    }
}

TEST(DockMagnifier, MagnifiesHoweverShortTheReach) {
    EXPECT_EQ(DockMagnifier::scales(std::vector{10.0, 11.0}, 10, 2, 0.5), (std::vector{2.0, 1.0}));
}

TEST(DockMagnifier, PutsAStripAgainstTheEndThatThePointerIsBeyond) {
    const std::vector base{10.0};
    EXPECT_EQ(anchoredShift(base, base, {.base = 20, .packed = 20, .container = 30}, -100), 0);
    EXPECT_EQ(anchoredShift(base, base, {.base = 20, .packed = 20, .container = 30}, 100), 10);
    EXPECT_EQ(anchoredShift(base, base, {.base = 20, .packed = 20, .container = 15}, -100), -5);
    EXPECT_EQ(anchoredShift(base, base, {.base = 20, .packed = 20, .container = 15}, 100), 0);
}

TEST(DockMagnifier, AStripOfNoLengthInAContainerOfNoneLiesAtItsEdge) {
    constexpr DockMagnifier::Lengths none;
    EXPECT_EQ(none.base, 0);
    EXPECT_EQ(none.packed, 0);
    EXPECT_EQ(none.container, 0);
    EXPECT_EQ(DockMagnifier::anchoredShift({}, {}, none, std::nullopt), 0);
}

}
}
