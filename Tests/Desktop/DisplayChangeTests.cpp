/// Docks follow displays that are attached, removed or changed.
#include "DesktopTest.hpp"

#include <chrono>

namespace vireline::desktop {
namespace {

class DisplayChange : public DesktopTest {
protected:
    void runWithThreeDisplays() {
        runWithTwoDisplays(someApps(3), {.monitors = threeMonitors()});
        ASSERT_TRUE(docksSettle(threeTiles));
    }

    /// The number of log messages after `mark` that begin with `prefix`.
    [[nodiscard]] int countSince(int mark, std::string_view prefix) {
        return desktop().log().count(prefix) - mark;
    }

    Request threeTiles = tiles(3);
};

TEST_F(DisplayChange, GivesADockToADisplayThatIsAdded) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors.push_back({"below", {1280, 1700, 800, 600}});
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().shown().size(), 3U);
}

TEST_F(DisplayChange, TakesTheDockOfADisplayThatIsRemoved) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors.pop_back();
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_TRUE(logs("destroyed panel #" + std::to_string(desktop().displayIDOf("side"))));
}

TEST_F(DisplayChange, FollowsADisplayThatMoves) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors[2].frame.y += 300;
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
}

TEST_F(DisplayChange, FollowsADisplayThatIsRotated) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    std::swap(monitors[2].frame.width, monitors[2].frame.height);
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
}

TEST_F(DisplayChange, FollowsADisplayThatIsResized) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors[1].frame = {0, 0, 1024, 600};
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_TRUE(logs("reframed panel #" + std::to_string(desktop().displayIDOf("above"))));
}

TEST_F(DisplayChange, FollowsThePrimaryThatMoves) {
    // The origin of global space is at the primary, so every frame changes.
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors[0].frame.y += 400;
    desktop().setMonitors(monitors);
    for (const auto* moved : {"above", "side"})
        EXPECT_TRUE(logs("reframed panel #" + std::to_string(desktop().displayIDOf(moved))));
    EXPECT_TRUE(docksSettle(threeTiles));
}

TEST_F(DisplayChange, FollowsAnotherDisplayThatBecomesPrimary) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    std::swap(monitors[0], monitors[1]);
    desktop().setMonitors(monitors);
    EXPECT_TRUE(docksSettle(threeTiles));
}

TEST_F(DisplayChange, LeavesNoDockOnTheLastDisplay) {
    runWithThreeDisplays();
    desktop().setMonitors({threeMonitors().front()});
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_TRUE(desktop().docks().shown().empty());
}

TEST_F(DisplayChange, ComesBackFromASingleDisplay) {
    runWithThreeDisplays();
    desktop().setMonitors({threeMonitors().front()});
    ASSERT_TRUE(docksSettle(threeTiles));
    desktop().setMonitors(threeMonitors());
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().shown().size(), 2U);
}

TEST_F(DisplayChange, ReconcilesOnceAfterABurst) {
    runWithThreeDisplays();
    const int reconciles = desktop().log().count("reconcile ");
    const int notices = desktop().log().count("screen-params #");
    constexpr int changes = 50;
    // Half of the time that the program waits for further changes. A machine that is so busy makes
    // more than one burst of them.
    constexpr std::chrono::milliseconds longPause{250};
    int pauses = 0;
    auto monitors = threeMonitors();
    for (int i = 1; i <= changes; ++i) {
        const auto start = std::chrono::steady_clock::now();
        monitors[2].frame.y = 600 + i;
        desktop().setMonitors(monitors);
        pauses += std::chrono::steady_clock::now() - start > longPause ? 1 : 0;
    }
    // On Wayland, a dock moves along with its display before anything is planned.
    ASSERT_TRUE(logs("reconcile ", reconciles + 1));
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_GT(countSince(notices, "screen-params #"), 0);
    // Another reconciliation shows that nothing of the burst is pending.
    monitors[2].frame.y = 600;
    desktop().setMonitors(monitors);
    ASSERT_TRUE(logs("reconcile ", reconciles + 2));
    ASSERT_TRUE(docksSettle(threeTiles));
    EXPECT_GE(countSince(reconciles, "reconcile "), 2);
    EXPECT_LE(countSince(reconciles, "reconcile "), 2 + pauses);
}

TEST_F(DisplayChange, ComesBackWithOneReconciliationWhenThereWasNoDisplayAtAll) {
    runWithThreeDisplays();
    const int reconciles = desktop().log().count("reconcile ");
    desktop().setMonitors({});
    desktop().setMonitors(threeMonitors());
    ASSERT_TRUE(logs("reconcile ", reconciles + 1));
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(desktop().docks().shown().size(), 2U);
    // Another reconciliation shows that nothing of the change is pending.
    desktop().setMonitors({threeMonitors().front()});
    ASSERT_TRUE(logs("reconcile ", reconciles + 2));
    EXPECT_TRUE(docksSettle(threeTiles));
    EXPECT_EQ(countSince(reconciles, "reconcile "), 2);
}

TEST_F(DisplayChange, HasOneDockForEachDisplayAfterChaos) {
    runWithThreeDisplays();
    const int reconciles = desktop().log().count("reconcile ");
    constexpr int rounds = 50;
    for (int i = 0; i < rounds; ++i) {
        auto monitors = threeMonitors();
        monitors[1].frame.width = 800 + 16 * (i % 7);
        if (i % 3 == 0)
            monitors.pop_back();
        if (i % 5 == 0)
            monitors = {monitors.front()};
        desktop().setMonitors(monitors);
    }
    desktop().setMonitors(threeMonitors());
    ASSERT_TRUE(logs("reconcile ", reconciles + 1));
    EXPECT_TRUE(docksSettle(threeTiles));
    for (const auto& dock : desktop().docks().shown()) {
        const auto inside = [&](const auto& monitor) { return monitor.frame.contains(dock.frame); };
        EXPECT_EQ(std::ranges::count_if(threeMonitors(), inside), 1) << dock;
    }
}

TEST_F(DisplayChange, KeepsTheTilesOfADockThatMoves) {
    runWithThreeDisplays();
    auto monitors = threeMonitors();
    monitors[2].frame.y += 300;
    desktop().setMonitors(monitors);
    ASSERT_TRUE(docksSettle(threeTiles));
    const auto apps = someApps(3);
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(
            turns(layout("side", threeTiles).icon(i), apps[static_cast<std::size_t>(i)].colour));
}

}
}
