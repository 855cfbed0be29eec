/// The effect of clicks on tiles of real apps.
#include "DesktopTest.hpp"

namespace vireline::desktop {
namespace {

class Click : public DesktopTest {
protected:
    /// Runs the program with Alpha and Beta pinned.
    void runWithTwoPinned() { runWithTwoDisplays({alpha, beta}); }

    [[nodiscard]] PixelPoint tile(int index) { return layout("right", tiles(2)).icon(index); }

    void clickTile(int index) { desktop().pointer().click(tile(index)); }

    /// Clicks Alpha's tile and waits until its window is in front.
    void launchAlpha() {
        clickTile(0);
        ASSERT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
    }

    /// Waits until the window manager has handled all clicks so far; it processes this request
    /// after them.
    [[nodiscard]] bool windowManagerIsDone() {
        const auto& client = desktop().client();
        const auto asking = client.createWindow({0, 0, 10, 10}, 0);
        client.sendToRoot(asking, "_NET_REQUEST_FRAME_EXTENTS", {});
        const bool isAnswered =
            eventually([&] { return client.hasProperty(asking, "_NET_FRAME_EXTENTS"); });
        client.destroy(asking);
        return isAnswered;
    }

    const App alpha = someApps(2)[0];
    const App beta = someApps(2)[1];
};

TEST_F(Click, LaunchesAnAppThatDoesNotRun) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    clickTile(0);
    EXPECT_TRUE(logs("click launch " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).size() == 1; }));
}

TEST_F(Click, TellsTheAppItsStartupID) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    const auto window = desktop().windowsOf(alpha).at(0);
    EXPECT_FALSE(desktop().client().text(window, "_NET_STARTUP_ID").empty());
}

TEST_F(Click, HidesTheFrontmostApp) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    clickTile(0);
    EXPECT_TRUE(logs("click hide " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).empty(); }));
    EXPECT_EQ(desktop().windowsOf(alpha).size(), 1U);
}

TEST_F(Click, BringsAHiddenAppBack) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    clickTile(0);
    ASSERT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).empty(); }));
    clickTile(0);
    EXPECT_TRUE(logs("click reopen " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
    EXPECT_EQ(desktop().visibleWindowsOf(alpha).size(), 1U);
}

TEST_F(Click, BringsAnAppBehindOthersForward) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    clickTile(1);
    ASSERT_TRUE(eventually([&] { return desktop().isActive(beta); }));
    clickTile(0);
    EXPECT_TRUE(logs("click reopen " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
}

TEST_F(Click, HidesAllWindowsOfAnApp) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    desktop().launch(alpha, {"--windows", "3"});
    // Each window becomes active in turn.
    ASSERT_TRUE(eventually([&] {
        const auto windows = desktop().visibleWindowsOf(alpha);
        return windows.size() == 3 && desktop().activeWindow() == windows.back();
    }));
    // A compositor may know that before the program does.
    ASSERT_TRUE(dotShows(layout("right", tiles(2)).dot(0), true));
    clickTile(0);
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).empty(); }));
    clickTile(0);
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).size() == 3; }));
}

TEST_F(Click, GoesToTheDesktopOfAnApp) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    const auto& client = desktop().client();
    const auto isShown = [&](std::uint32_t number) {
        return client.items(client.root(), "_NET_CURRENT_DESKTOP") == std::vector{number};
    };
    client.sendToRoot(client.root(), "_NET_CURRENT_DESKTOP", {1, XCB_CURRENT_TIME});
    ASSERT_TRUE(eventually([&] { return isShown(1); }));

    clickTile(0);

    EXPECT_TRUE(logs("click reopen " + alpha.id));
    EXPECT_TRUE(eventually([&] { return isShown(0) && desktop().isActive(alpha); }));
    clickTile(0);
    EXPECT_TRUE(logs("click hide " + alpha.id));
}

TEST_F(Click, WorksOnEveryDock) {
    runWithTwoDisplays({alpha, beta}, {.monitors = threeMonitors()});
    ASSERT_TRUE(docksSettle(tiles(2)));
    desktop().pointer().click(layout("above", tiles(2)).icon(0));
    EXPECT_TRUE(logs("click launch " + alpha.id));
    desktop().pointer().click(layout("side", tiles(2)).icon(1));
    EXPECT_TRUE(logs("click launch " + beta.id));
}

// Behaviour: dock-panel-5
TEST_F(Click, NeverTakesTheFocus) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    const auto& client = desktop().client();
    const auto active = client.activeWindow();
    const auto focused = client.focusedWindow();
    // The gap between two tiles belongs to the dock, and clicking it has no effect.
    const auto first = tile(0);
    const auto second = tile(1);
    desktop().pointer().click({(first.x + second.x) / 2, first.y});
    ASSERT_TRUE(windowManagerIsDone());
    EXPECT_EQ(client.activeWindow(), active);
    EXPECT_EQ(client.focusedWindow(), focused);
    EXPECT_EQ(desktop().log().count("click "), 1);

    // Pressing a tile does not move the focus either; only its action may do so afterwards.
    desktop().pointer().moveTo(second);
    desktop().pointer().press(Pointer::Button::primary);
    ASSERT_TRUE(windowManagerIsDone());
    EXPECT_EQ(client.activeWindow(), active);
    EXPECT_EQ(client.focusedWindow(), focused);
    desktop().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(eventually([&] { return desktop().isActive(beta); }));
    EXPECT_EQ(desktop().log().count("click hide"), 0);
}

TEST_F(Click, KeepsTheKeyboardWhereItWas) {
    runWithTwoPinned();
    ASSERT_TRUE(docksSettle(tiles(2)));
    launchAlpha();
    const auto focused = desktop().client().focusedWindow();
    desktop().pointer().moveTo(tile(1));
    desktop().pointer().press(Pointer::Button::primary);
    desktop().client().sync();
    EXPECT_EQ(desktop().client().focusedWindow(), focused);
    // Releasing the button outside the dock is not a click.
    desktop().pointer().moveTo(desktop().monitor("right").frame.center());
    desktop().pointer().release(Pointer::Button::primary);
    EXPECT_EQ(desktop().client().focusedWindow(), focused);
}

TEST_F(Click, OnDownloadsOpensTheFolder) {
    auto& desktop = make({.monitors = twoMonitors()});
    const App files = fileManager();
    desktop.home().install(files);
    desktop.home().setFileManager(files.id);
    desktop.home().pin(std::vector<App>{});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));
    desktop.pointer().click(layout("right", tiles(1)).icon(1));
    EXPECT_TRUE(logs("open folder Downloads"));
    const auto folder = desktop.home().downloads().string() + '\n';
    EXPECT_TRUE(eventually([&] { return readFile(opened()).contains(folder); }))
        << readFile(opened());
}

TEST_F(Click, OnTrashOpensIt) {
    auto& desktop = make({.monitors = twoMonitors()});
    const App files = fileManager();
    desktop.home().install(files);
    desktop.home().setFileManager(files.id);
    desktop.home().pin(std::vector<App>{});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(1)));
    desktop.pointer().click(layout("right", tiles(1)).icon(2));
    EXPECT_TRUE(logs("open folder Trash"));
    EXPECT_TRUE(eventually([&] { return readFile(opened()).contains("open trash:///"); }))
        << readFile(opened());
}

TEST_F(Click, SurvivesAnAppThatCannotStart) {
    auto& desktop = make({.monitors = twoMonitors()});
    desktop.home().installEntry("broken", "[Desktop Entry]\nType=Application\nName=Broken\n"
                                          "Exec=/nowhere/at/all %U\n");
    desktop.home().install(alpha);
    desktop.home().pin(std::vector{App{"broken", "Broken", {}, {}}, alpha});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(2)));
    clickTile(0);
    EXPECT_TRUE(logs("click launch broken"));
    clickTile(1);
    EXPECT_TRUE(eventually([&] { return desktop.isActive(alpha); }));
}

TEST_F(Click, SurvivesAnAppThatCrashesBeforeItsWindow) {
    auto& desktop = make({.monitors = twoMonitors()});
    App crashing = beta;
    crashing.arguments = {"--crash"};
    desktop.home().install(crashing);
    desktop.home().install(alpha);
    desktop.home().pin(std::vector{crashing, alpha});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(2)));
    clickTile(0);
    EXPECT_TRUE(logs("click launch " + crashing.id));
    clickTile(1);
    EXPECT_TRUE(eventually([&] { return desktop.isActive(alpha); }));
}

}
}
