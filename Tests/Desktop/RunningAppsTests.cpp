/// Docks show the running apps.
#include "DesktopTest.hpp"

#include <csignal>

namespace vireline::desktop {
namespace {

class RunningApps : public DesktopTest {
protected:
    /// Runs the program with Alpha and Beta installed, but only Alpha pinned.
    void runWithAlphaPinned() {
        auto& desktop = make({.monitors = twoMonitors()});
        desktop.home().install(alpha);
        desktop.home().install(beta);
        desktop.home().pin(std::vector{alpha});
        desktop.runVireline();
    }

    const App alpha = someApps(2)[0];
    const App beta = someApps(2)[1];
};

TEST_F(RunningApps, GetATileBehindTheSeparator) {
    runWithAlphaPinned();
    desktop().launch(beta);
    ASSERT_TRUE(docksSettle(tiles(1, 1)));
    const auto dock = layout("right", tiles(1, 1));
    EXPECT_TRUE(turns(dock.icon(0), alpha.colour));
    EXPECT_TRUE(turns(dock.icon(1), beta.colour));
    EXPECT_TRUE(dotShows(dock.dot(1), true));
}

TEST_F(RunningApps, LoseTheirTileWhenTheyQuit) {
    runWithAlphaPinned();
    auto& app = desktop().launch(beta);
    ASSERT_TRUE(docksSettle(tiles(1, 1)));
    app.signal(SIGTERM);
    EXPECT_TRUE(docksSettle(tiles(1)));
}

TEST_F(RunningApps, LoseTheirTileWhenTheyCrash) {
    runWithAlphaPinned();
    auto& app = desktop().launch(beta);
    ASSERT_TRUE(docksSettle(tiles(1, 1)));
    app.signal(SIGKILL);
    EXPECT_TRUE(docksSettle(tiles(1)));
}

TEST_F(RunningApps, HaveADotWhilePinned) {
    runWithAlphaPinned();
    ASSERT_TRUE(docksSettle(tiles(1)));
    const auto dot = layout("right", tiles(1)).dot(0);
    EXPECT_TRUE(dotShows(dot, false));
    auto& app = desktop().launch(alpha);
    EXPECT_TRUE(dotShows(dot, true));
    app.signal(SIGTERM);
    EXPECT_TRUE(dotShows(dot, false));
}

TEST_F(RunningApps, HaveOneTileForAllTheirWindows) {
    runWithAlphaPinned();
    desktop().launch(beta, {"--windows", "3"});
    ASSERT_TRUE(eventually([&] { return desktop().windowsOf(beta).size() == 3; }));
    EXPECT_TRUE(docksSettle(tiles(1, 1)));
}

TEST_F(RunningApps, AreThereWhenTheyStartedFirst) {
    auto& desktop = make({.monitors = twoMonitors()});
    desktop.home().install(alpha);
    desktop.home().install(beta);
    desktop.home().pin(std::vector{alpha});
    desktop.launch(beta);
    ASSERT_TRUE(eventually([&] { return !desktop.windowsOf(beta).empty(); }));
    desktop.runVireline();
    EXPECT_TRUE(docksSettle(tiles(1, 1)));
}

TEST_F(RunningApps, CountTheirDialogs) {
    runWithAlphaPinned();
    desktop().launch(beta, {"--type", "DIALOG"});
    EXPECT_TRUE(docksSettle(tiles(1, 1)));
}

TEST_F(RunningApps, DoNotCountWhenTheyKeepOffTheTaskbar) {
    runWithAlphaPinned();
    desktop().launch(beta, {"--skip-taskbar"});
    ASSERT_TRUE(eventually([&] { return !desktop().windowsOf(beta).empty(); }));
    // Alpha's start is noticed after Beta's, so once its dot shows, Beta's window has been handled.
    desktop().launch(alpha);
    EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
    EXPECT_TRUE(docksSettle(tiles(1)));
}

TEST_F(RunningApps, WithoutADesktopEntryShowTheirWindowsIcon) {
    runWithAlphaPinned();
    const App stranger{"stranger", "Stranger", {0x20, 0xc0, 0x40}, {"--icon", "20c040"}};
    desktop().launch(stranger);
    ASSERT_TRUE(docksSettle(tiles(1, 1)));
    EXPECT_TRUE(turns(layout("right", tiles(1, 1)).icon(1), stranger.colour));
}

TEST_F(RunningApps, KeepTheOrderOfTheirFirstWindows) {
    runWithAlphaPinned();
    const auto more = someApps(4);
    desktop().home().install(more[2]);
    desktop().home().install(more[3]);
    desktop().launch(more[3]);
    ASSERT_TRUE(docksSettle(tiles(1, 1)));
    desktop().launch(beta);
    ASSERT_TRUE(docksSettle(tiles(1, 2)));
    desktop().launch(more[2]);
    ASSERT_TRUE(docksSettle(tiles(1, 3)));
    const auto dock = layout("right", tiles(1, 3));
    EXPECT_TRUE(turns(dock.icon(1), more[3].colour));
    EXPECT_TRUE(turns(dock.icon(2), beta.colour));
    EXPECT_TRUE(turns(dock.icon(3), more[2].colour));
}

}
}
