#include "Applications/Launching/LaunchTracker.hpp"
#include "Support/FakeRunLoop.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace vireline {
namespace {

using xdg::IdentifiedApp;
using Lines = std::vector<std::string>;

IdentifiedApp app(const std::string& id) {
    return {.bundleID = id, .name = id, .path = "/" + id + ".desktop", .hasEntry = true};
}

/// A tracker and its callbacks, in order.
struct Tracking {
    Tracking() {
        tracker.onChange = [this](const xdg::LaunchTracker::Change& change) {
            constexpr std::array states{"began", "finished", "failed", "showed window"};
            said.push_back(change.startupID + ' ' + change.app.bundleID + ' ' +
                           states.at(static_cast<std::size_t>(change.state)));
        };
    }

    test::FakeRunLoop loop;
    xdg::LaunchTracker tracker{loop};
    Lines said;
};

TEST(LaunchTracker, AnnouncesALaunchAndItsEnd) {
    Tracking tracking;

    tracking.tracker.begin("id", app("a"), false);
    tracking.tracker.finish("id");
    tracking.tracker.finish("id");

    EXPECT_EQ(tracking.said, (Lines{"id a began", "id a finished"}));
}

TEST(LaunchTracker, HearingOfItsOwnLaunchAgainChangesNothing) {
    Tracking tracking;

    tracking.tracker.begin("id", app("a"), true);
    tracking.tracker.begin("id", app("a"), false);

    EXPECT_EQ(tracking.said, Lines{"id a began"});
}

TEST(LaunchTracker, ALaunchIsUnderWayUntilItIsOver) {
    Tracking tracking;

    tracking.tracker.begin("id", app("a"), true);
    tracking.tracker.begin("other", app("b"), false);

    EXPECT_FALSE(tracking.tracker.isUnderWay("c", 1));
    tracking.loop.advance(14.9);
    EXPECT_TRUE(tracking.tracker.isUnderWay("a", 1));
    EXPECT_TRUE(tracking.tracker.isUnderWay("b", 1)) << "whose launch it is does not matter";
    tracking.loop.advance(0.2);
    EXPECT_FALSE(tracking.tracker.isUnderWay("a", 1));
    EXPECT_FALSE(tracking.tracker.isUnderWay("b", 1));
}

TEST(LaunchTracker, ALaunchThatFailedOrShowedAWindowIsNotUnderWay) {
    Tracking tracking;

    tracking.tracker.begin("1", app("a"), true);
    tracking.tracker.fail("1");
    tracking.tracker.begin("2", app("b"), true);
    tracking.tracker.appShowed("b", 1);

    EXPECT_FALSE(tracking.tracker.isUnderWay("a", 1));
    EXPECT_FALSE(tracking.tracker.isUnderWay("b", 1));
}

TEST(LaunchTracker, ALaunchThatIsSaidToBeOverBeforeItsWindowIsThereIsUnderWayForADoubleClick) {
    Tracking tracking;

    tracking.tracker.begin("id", app("a"), true);
    tracking.tracker.finish("id");

    tracking.loop.advance(1.9);
    EXPECT_TRUE(tracking.tracker.isUnderWay("a", 2));
    EXPECT_FALSE(tracking.tracker.isUnderWay("a", 1));
    tracking.loop.advance(0.2);
    EXPECT_FALSE(tracking.tracker.isUnderWay("a", 2));
}

TEST(LaunchTracker, ALaunchThatShowsNothingEndsAfterFifteenSeconds) {
    Tracking tracking;
    tracking.tracker.begin("id", app("a"), true);

    tracking.loop.advance(14.9);
    EXPECT_EQ(tracking.said, Lines{"id a began"});
    tracking.loop.advance(0.2);

    EXPECT_EQ(tracking.said, (Lines{"id a began", "id a failed"}));
}

TEST(LaunchTracker, TheAppsFirstWindowEndsAllItsLaunches) {
    Tracking tracking;
    tracking.tracker.begin("1", app("a"), true);
    tracking.tracker.begin("2", app("a"), false);
    tracking.tracker.begin("3", app("b"), true);
    tracking.said.clear();

    tracking.tracker.appShowed("a", 7);

    EXPECT_EQ(tracking.said, (Lines{"1 a showed window", "2 a showed window"}));
    EXPECT_FALSE(tracking.tracker.fail("1"));
    EXPECT_TRUE(tracking.tracker.fail("3"));
}

TEST(LaunchTracker, AFailureIsToldOnce) {
    Tracking tracking;
    tracking.tracker.begin("id", app("a"), false);

    EXPECT_TRUE(tracking.tracker.fail("id"));
    EXPECT_FALSE(tracking.tracker.fail("id"));
    EXPECT_FALSE(tracking.tracker.fail("unheard"));

    EXPECT_EQ(tracking.said, (Lines{"id a began", "id a failed"}));
}

TEST(LaunchTracker, OnlyOurOwnLaunchesTellWindowsApart) {
    Tracking tracking;
    tracking.tracker.begin("ours", app("a"), true);
    tracking.tracker.begin("theirs", app("b"), false);

    EXPECT_EQ(tracking.tracker.launchedApp("ours", 7), app("a"));
    EXPECT_FALSE(tracking.tracker.launchedApp("theirs", 7));
    EXPECT_FALSE(tracking.tracker.launchedApp("", 7));
}

TEST(LaunchTracker, AnIdThatTheAppHandedOnIsNotItsOwn) {
    Tracking tracking;
    tracking.tracker.begin("id", app("terminal"), true);
    tracking.tracker.appShowed("terminal", 7);

    EXPECT_TRUE(tracking.tracker.launchedApp("id", 7));
    EXPECT_FALSE(tracking.tracker.launchedApp("id", 8));
}

TEST(LaunchTracker, RemembersTheNewestLaunchesAndSettlesTheRest) {
    Tracking tracking;
    for (std::size_t i = 0; i <= xdg::LaunchTracker::maximumLaunches; ++i)
        tracking.tracker.begin(std::to_string(i), app("a" + std::to_string(i)), true);

    EXPECT_FALSE(tracking.tracker.launchedApp("0", 1));
    EXPECT_TRUE(tracking.tracker.launchedApp("1", 1));
    EXPECT_NE(std::ranges::find(tracking.said, "0 a0 failed"), tracking.said.end());
}

}
}
