/// Which displays have a dock, and its exact position.
#include "DesktopTest.hpp"

#include <algorithm>

namespace vireline::desktop {
namespace {

class DockPlacement : public DesktopTest {
protected:
    /// Runs the program with three pinned apps on these displays.
    VirtualDesktop& runOn(const Options& options) {
        auto& desktop = make(options);
        const auto apps = someApps(3);
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        return desktop;
    }

    static constexpr int panelThickness = 40;
    Request threeTiles = tiles(3);
};

TEST_F(DockPlacement, LeavesOutThePrimaryWhenNothingElseIsReserved) {
    runOn({.monitors = threeMonitors()}).runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().on(desktop().displayIDOf("main")).window, XCB_NONE);
}

TEST_F(DockPlacement, LeavesOutTheDisplayThatHoldsTheOtherDock) {
    runOn({.monitors = threeMonitors()});
    desktop().reserve({"side", Edge::bottom, panelThickness});
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().on(desktop().displayIDOf("side")).window, XCB_NONE);
    EXPECT_EQ(desktop().docks().shown().size(), 2U);
}

TEST_F(DockPlacement, FindsTheOtherDockAtAnInnerEdge) {
    // The right edge of the left display is in the middle of the X screen.
    runOn({.monitors = twoMonitors()});
    desktop().setMonitors({twoMonitors()[1], twoMonitors()[0]});
    desktop().reserve({"left", Edge::right, panelThickness});
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_NE(desktop().docks().on(desktop().displayIDOf("right")).window, XCB_NONE);
}

TEST_F(DockPlacement, IgnoresAPanelAtTheTop) {
    runOn({.monitors = twoMonitors()});
    desktop().reserve({"right", Edge::top, panelThickness});
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_NE(desktop().docks().on(desktop().displayIDOf("right")).window, XCB_NONE);
}

TEST_F(DockPlacement, MovesAwayFromADisplayWhereAnotherDockAppears) {
    runOn({.monitors = twoMonitors()}).runVireline();
    ASSERT_TRUE(docksSettle(threeTiles));
    desktop().reserve({"right", Edge::bottom, panelThickness});
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_NE(desktop().docks().on(desktop().displayIDOf("left")).window, XCB_NONE);
}

TEST_F(DockPlacement, ComesBackWhenTheOtherDockIsGone) {
    runOn({.monitors = twoMonitors()});
    desktop().reserve({"right", Edge::bottom, panelThickness});
    desktop().runVireline();
    ASSERT_TRUE(docksSettle(threeTiles));
    desktop().endReservations();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_NE(desktop().docks().on(desktop().displayIDOf("right")).window, XCB_NONE);
}

TEST_F(DockPlacement, StandsBeyondASecondPanel) {
    runOn({.monitors = twoMonitors()});
    desktop().reserve({"left", Edge::bottom, panelThickness});
    desktop().reserve({"right", Edge::bottom, panelThickness});
    desktop().runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    const auto right = desktop().displayIDOf("right");
    const auto& display = desktop().monitor("right").frame;
    constexpr int gap = 4;
    EXPECT_EQ(desktop().docks().on(right).frame.bottom(), display.bottom() - panelThickness - gap);
    desktop().endReservations();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_TRUE(eventually(
        [&] { return desktop().docks().on(right).frame.bottom() == display.bottom() - gap; }));
}

TEST_F(DockPlacement, OpensBeyondASecondPanelFromItsSliver) {
    runOn({.monitors = twoMonitors()});
    desktop().home().writePreferences(R"({"onboardingCompleted": true, "autoHide": true})");
    desktop().reserve({"left", Edge::bottom, panelThickness});
    desktop().reserve({"right", Edge::bottom, panelThickness});
    desktop().runVireline();
    const auto planned = plannedDock("right", threeTiles).frame;
    const auto right = desktop().displayIDOf("right");
    constexpr int sliver = 4;
    const int edge = desktop().monitor("right").frame.bottom() - panelThickness;
    ASSERT_TRUE(eventually([&] {
        const auto frame = desktop().docks().on(right).frame;
        return frame.height == sliver && frame.bottom() == edge;
    }));
    desktop().pointer().moveTo({planned.center().x, edge - 1});
    EXPECT_TRUE(eventually([&] {
        const auto frame = desktop().docks().on(right).frame;
        return frame.y == planned.y && frame.bottom() == edge;
    }));
}

TEST_F(DockPlacement, ShowsNoDockOnASingleDisplay) {
    runOn({.monitors = {twoMonitors().front()}}).runVireline();
    EXPECT_TRUE(logs("reconcile screens=[" + std::to_string(desktop().displayIDOf("left")) +
                     "] desired=[] create=0 destroy=0 reframe=0"));
    EXPECT_TRUE(desktop().docks().shown().empty());
}

TEST_F(DockPlacement, ReachesDisplaysToTheLeftAndBelow) {
    runOn({.monitors = {{"main", {1280, 0, 1600, 900}},
                        {"beside", {0, 100, 1280, 720}},
                        {"below", {1500, 900, 1366, 768}}}})
        .runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().shown().size(), 2U);
}

TEST_F(DockPlacement, GrowsWithTheScaleOfItsDisplay) {
    runOn({.monitors = {{"main", {0, 0, 1600, 900}}, {"fine", {1600, 0, 2560, 1440}}},
           .scales = {{"fine", 2}}})
        .runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
    constexpr int thicknessAtTwiceTheScale = 168;
    const auto dock = desktop().docks().on(desktop().displayIDOf("fine"));
    EXPECT_EQ(dock.frame.height, thicknessAtTwiceTheScale);
}

TEST_F(DockPlacement, UsesWholePixelsAtAScaleOfOneAndAHalf) {
    runOn({.monitors = {{"main", {0, 0, 1600, 900}}, {"odd", {1600, 0, 1537, 863}}},
           .scales = {{"odd", 1.5}}})
        .runVireline();
    EXPECT_TRUE(docksSettle(threeTiles));
}

TEST_F(DockPlacement, TellsWhatItPlanned) {
    runOn({.monitors = twoMonitors()}).runVireline();
    const auto left = std::to_string(desktop().displayIDOf("left"));
    const auto right = std::to_string(desktop().displayIDOf("right"));
    EXPECT_TRUE(logs("reconcile screens=[" + left + ", " + right + "] desired=[" + right +
                     "] create=1 destroy=0 reframe=0"));
    EXPECT_TRUE(logs("created panel #" + right + " at "));
}

}
}
