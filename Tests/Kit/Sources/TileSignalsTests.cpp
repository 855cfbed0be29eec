#include "Sources/TileSignals.hpp"
#include "Support/DockFixture.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using AppNames = std::set<std::string>;

struct TileSignalsTest : testing::Test {
    TileSignalsTest() {
        dock.setTiles(2, 2);
        signals.start();
        platform.runLoop.advance(1);
    }

    [[nodiscard]] const AppNames& marked() const { return dock.model.marked.get(); }
    [[nodiscard]] const AppNames& bobbing() const { return dock.model.bobbing.get(); }

    test::DockFixture dock;
    test::FakePlatform& platform = dock.platform;
    TileSignals signals{&platform.announcements, platform.running, platform.runLoop, dock.model};
};

TEST_F(TileSignalsTest, WhatAnAppAnnouncesReachesTheModelAndGoesAgain) {
    platform.announcements.announce("p0", {.count = 3});
    EXPECT_EQ(dock.model.statuses.get().at("p0"), TileStatus{.count = 3});

    platform.runLoop.advance(1);
    platform.announcements.withdraw("p0");
    EXPECT_TRUE(dock.model.statuses.get().empty());
}

// Behaviour: tile-badges-3
TEST_F(TileSignalsTest, AFloodOfAnnouncementsChangesTheModelEvery16MillisecondsAtMost) {
    int changes = 0;
    const auto subscription = dock.model.statuses.observe([&] { ++changes; });

    for (int i = 0; i < 10'000; ++i) {
        platform.announcements.announce("p0", {.count = i + 1});
        platform.runLoop.advance(0.0001);
    }
    platform.runLoop.advance(0.1);

    EXPECT_LE(changes, 1 / TileSignals::shortestPause + 2);
    EXPECT_GE(changes, 50);
    EXPECT_EQ(dock.model.statuses.get().at("p0"), TileStatus{.count = 10'000});
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(TileSignalsTest, WhatIsAnnouncedSoonAfterAnotherShows16MillisecondsAfterThat) {
    platform.announcements.announce("p0", {.count = 1});
    platform.announcements.announce("p0", {.count = 2});

    platform.runLoop.advance(0.0159);
    EXPECT_EQ(dock.model.statuses.get().at("p0").count, 1);
    platform.runLoop.advance(0.0002);
    EXPECT_EQ(dock.model.statuses.get().at("p0").count, 2);
}

// Behaviour: attention-1
TEST_F(TileSignalsTest, AnAppThatDemandsAttentionIsMarkedUntilItIsActiveAndBobsThreeTimes) {
    platform.running.demandAttention({.demanding = {"u0"}, .active = "u1"});
    EXPECT_EQ(marked(), AppNames{"u0"});
    EXPECT_EQ(bobbing(), AppNames{"u0"});

    platform.runLoop.advance(1.79);
    EXPECT_EQ(bobbing(), AppNames{"u0"});
    platform.runLoop.advance(0.02);
    EXPECT_EQ(bobbing(), AppNames{});
    EXPECT_EQ(marked(), AppNames{"u0"});

    platform.running.demandAttention({.demanding = {}, .active = "u1"});
    EXPECT_EQ(marked(), AppNames{"u0"}) << "it has not been active";
    platform.running.demandAttention({.demanding = {}, .active = "u0"});
    EXPECT_EQ(marked(), AppNames{});
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(TileSignalsTest, AMarkedAppBobsOnceHoweverOftenOthersAnnounceSomething) {
    platform.running.demandAttention({.demanding = {"u0"}, .active = "u1"});
    platform.runLoop.advance(2);

    platform.announcements.announce("p0", {.count = 3});

    EXPECT_EQ(marked(), AppNames{"u0"});
    EXPECT_EQ(bobbing(), AppNames{});
}

TEST_F(TileSignalsTest, AnUrgentAppIsMarkedLikeOneWhoseWindowDemandsAttention) {
    platform.announcements.announce("u0", {.isUrgent = true});
    EXPECT_EQ(marked(), AppNames{"u0"});

    platform.running.demandAttention({.demanding = {}, .active = "u0"});
    EXPECT_EQ(marked(), AppNames{});
    EXPECT_EQ(bobbing(), AppNames{});
    platform.running.demandAttention({.demanding = {}, .active = "u1"});
    EXPECT_EQ(marked(), AppNames{}) << "it has been heard";
}

// Behaviour: attention-2
TEST_F(TileSignalsTest, TheActiveAppIsNotMarkedAndNeitherIsOneThatHasEnded) {
    platform.running.demandAttention({.demanding = {"u0"}, .active = "u0"});
    EXPECT_EQ(marked(), AppNames{});

    platform.running.demandAttention({.demanding = {"u1"}, .active = "u0"});
    EXPECT_EQ(marked(), AppNames{"u1"});
    dock.setTiles(2, 1);
    EXPECT_EQ(marked(), AppNames{});
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(TileSignalsTest, NothingIsPendingWhileNothingHappens) {
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
    platform.announcements.announce("p0", {.progress = 0.5});
    platform.runLoop.advance(1);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

}
}
