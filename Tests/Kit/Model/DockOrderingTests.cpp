#include "Model/DockOrdering.hpp"
#include "Support/Random.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace vireline {
namespace {

using DockOrdering::Counts;
using test::sampleApp;

constexpr int maxInt = std::numeric_limits<int>::max();

std::vector<AppRef> sampleApps(std::initializer_list<const char*> bundleIDs) {
    std::vector<AppRef> apps;
    for (const char* bundleID : bundleIDs)
        apps.push_back(sampleApp(bundleID));
    return apps;
}

DockItem item(const AppRef& app, bool isPinned, bool isRunning) {
    return {app.bundleID, app.name, app.url, isPinned, isRunning};
}

bool lists(std::span<const AppRef> apps, const std::string& bundleID) {
    return std::ranges::any_of(apps, [&](const AppRef& app) { return app.bundleID == bundleID; });
}

/// Uses few identifiers, so that lists contain duplicates and overlap.
std::vector<AppRef> randomApps(test::Random& random) {
    std::vector<AppRef> apps;
    for (int i = random.integer(0, 12); i > 0; --i) {
        apps.push_back(sampleApp(std::string(1, static_cast<char>('A' + random.integer(0, 9)))));
        apps.back().name += std::to_string(random.integer(0, 3));
    }
    return apps;
}

Counts randomCounts(test::Random& random) {
    return {.pinned = random.integer(0, 40),
            .unpinnedRunning = random.integer(0, 20),
            .utility = random.integer(0, 2)};
}

// Behaviour: dock-ordering-1
TEST(DockOrdering, MakesNoTilesOfNoApps) {
    EXPECT_TRUE(DockOrdering::merge({}, {}).empty());
}

// Behaviour: dock-ordering-2
TEST(DockOrdering, PutsPinnedAppsFirstAndMarksThoseThatRun) {
    const auto pinned = sampleApps({"A", "B"});
    const auto running = sampleApps({"C", "A"});
    const std::vector<DockItem> expected{item(pinned[0], true, true), item(pinned[1], true, false),
                                         item(running[0], false, true)};
    EXPECT_EQ(DockOrdering::merge(pinned, running), expected);
}

// Behaviour: dock-ordering-3
TEST(DockOrdering, KeepsARunningAppThatIsReportedTwice) {
    const auto running = sampleApps({"C", "D", "C"});
    const std::vector<DockItem> expected{item(running[0], false, true),
                                         item(running[1], false, true),
                                         item(running[2], false, true)};
    EXPECT_EQ(DockOrdering::merge({}, running), expected);
}

TEST(DockOrdering, KeepsAnAppThatIsPinnedTwice) {
    const auto pinned = sampleApps({"A", "A"});
    const std::vector<DockItem> expected{item(pinned[0], true, true), item(pinned[1], true, true)};
    EXPECT_EQ(DockOrdering::merge(pinned, sampleApps({"A"})), expected);
}

// Behaviour: dock-ordering-4
TEST(DockOrdering, ShowsAPinnedAppUnderItsPinnedNameAndLocation) {
    const auto pinned = sampleApps({"A"});
    const std::vector<AppRef> running{{"A", "Another name", FileURL::fromPath("/elsewhere")}};
    EXPECT_EQ(DockOrdering::merge(pinned, running), std::vector{item(pinned[0], true, true)});
}

TEST(DockOrdering, TellsIdentifiersApartByCase) {
    const auto pinned = sampleApps({"org.Mail"});
    const auto running = sampleApps({"org.mail"});
    const std::vector<DockItem> expected{item(pinned[0], true, false),
                                         item(running[0], false, true)};
    EXPECT_EQ(DockOrdering::merge(pinned, running), expected);
}

TEST(DockOrdering, MergesRandomListsAsAPlainSearchDoes) {
    test::Random random{1};
    for (int round = 0; round < 1'000; ++round) {
        const auto pinned = randomApps(random);
        const auto running = randomApps(random);
        std::vector<DockItem> expected;
        expected.reserve(pinned.size() + running.size());
        for (const AppRef& app : pinned)
            expected.push_back(item(app, true, lists(running, app.bundleID)));
        for (const AppRef& app : running) {
            if (!lists(pinned, app.bundleID))
                expected.push_back(item(app, false, true));
        }
        EXPECT_EQ(DockOrdering::merge(pinned, running), expected);
    }
}

TEST(DockOrdering, PutsASeparatorBeforeEachFurtherGroupThatHoldsAnything) {
    EXPECT_EQ((Counts{3, 0, 0}).separators(), 0);
    EXPECT_EQ((Counts{3, 1, 0}).separators(), 1);
    EXPECT_EQ((Counts{3, 0, 2}).separators(), 1);
    EXPECT_EQ((Counts{3, 4, 2}).separators(), 2);
    EXPECT_EQ((Counts{0, 1, 0}).separators(), 1);
    EXPECT_EQ((Counts{0, 0, 2}).separators(), 1);
}

// Behaviour: dock-ordering-5
TEST(DockOrdering, AddsUpTilesSeparatorsGapsAndPaddings) {
    EXPECT_EQ(DockOrdering::stripWidth({3, 0, 0}, 48), 170);
    EXPECT_EQ(DockOrdering::stripWidth({3, 1, 2}, 48), 346);
}

TEST(DockOrdering, GivesAStripWithoutTilesNoLength) {
    EXPECT_EQ(DockOrdering::stripWidth({0, 0, 0}, 48), 0);
}

// Behaviour: dock-ordering-6
TEST(DockOrdering, FitsTheConfiguredSizeWhereThereAreNoTiles) {
    for (const double available : {-100.0, 0.0, 5.0, 5000.0})
        EXPECT_EQ(DockOrdering::fittedIconSize({0, 0, 0}, available, 64), 64);
}

// Behaviour: dock-ordering-7
TEST(DockOrdering, RoundsAFittedSizeDownToWholePoints) {
    EXPECT_EQ(DockOrdering::fittedIconSize({10, 0, 2}, 400, 64), 26);
}

// Behaviour: dock-ordering-8
TEST(DockOrdering, KeepsAFittedSizeBetweenSixteenAndTheConfiguredOne) {
    for (const double available : {-1e9, 0.0, 1.0, 100.0})
        EXPECT_EQ(DockOrdering::fittedIconSize({10, 0, 2}, available, 64), 16);
    EXPECT_EQ(DockOrdering::fittedIconSize({10, 0, 2}, 4000, 51.5), 51.5);
}

TEST(DockOrdering, NeverExceedsAConfiguredSizeBelowSixteen) {
    EXPECT_EQ(DockOrdering::fittedIconSize({10, 0, 2}, 10, 12), 12);
    EXPECT_EQ(DockOrdering::fittedIconSize({10, 0, 2}, 4000, 12), 12);
}

TEST(DockOrdering, FitsTheLargestWholeSizeThatLeavesTheStripInItsRoom) {
    test::Random random{2};
    for (int round = 0; round < 5'000; ++round) {
        Counts counts = randomCounts(random);
        counts.pinned += 1;
        const double available = random.real(0, 6000);
        const double maxSize = random.integer(16, 128);
        const double size = DockOrdering::fittedIconSize(counts, available, maxSize);
        if (size > 16) {
            EXPECT_LE(DockOrdering::stripWidth(counts, size), available);
        }
        if (size < maxSize) {
            EXPECT_GT(DockOrdering::stripWidth(counts, size + 1), available);
        }
    }
}

TEST(DockOrdering, GrowsAStripByOneTileAndOneGapPerPinnedApp) {
    test::Random random{3};
    for (int round = 0; round < 1'000; ++round) {
        Counts counts = randomCounts(random);
        counts.pinned += 1;
        const double size = random.real(16, 128);
        const double before = DockOrdering::stripWidth(counts, size);
        counts.pinned += 1;
        EXPECT_NEAR(DockOrdering::stripWidth(counts, size), before + size + 6, 1e-9);
    }
}

TEST(DockOrderingDeathTest, StopsWhereTheNumberOfTilesOverflows) {
    EXPECT_EQ((Counts{maxInt, 0, 0}).tiles(), maxInt);
    EXPECT_DEATH((void)(Counts{maxInt, 1, 0}).tiles(), "broken condition: the number of tiles");
    EXPECT_DEATH((void)DockOrdering::stripWidth({maxInt, maxInt, maxInt}, 48), "broken condition");
}

TEST(DockOrdering, FitsALoneTileIntoItsRoom) {
    EXPECT_EQ(DockOrdering::fittedIconSize({1, 0, 0}, 50, 44), 36);
    EXPECT_EQ(DockOrdering::fittedIconSize({0, 0, 0}, 50, 44), 44);
}

}
}
