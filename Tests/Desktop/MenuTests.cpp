/// The menus of the tiles.
#include "DesktopTest.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>

namespace vireline::desktop {
namespace {

class TileMenu : public DesktopTest {
protected:
    [[nodiscard]] PixelPoint alphaTile() { return layout("right", tiles(1)).icon(0); }

    /// Opens Alpha's menu, which has `count` entries, and chooses one of them.
    void chooseOf(int index, int count) {
        const auto menu = openMenu(alphaTile());
        ASSERT_NE(menu, PixelRect{});
        choose(menu, index, count);
    }

    void runWithAlpha(Options options = {}) {
        runWithTwoDisplays({alpha}, std::move(options));
        ASSERT_TRUE(docksSettle(tiles(1)));
    }

    void launchAlpha() {
        desktop().launch(alpha);
        ASSERT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
    }

    /// Preferences with these apps in the manual list.
    [[nodiscard]] std::string manualList(const std::vector<App>& apps) {
        std::string list;
        for (const auto& app : apps)
            list += (list.empty() ? "" : ",") + std::string{R"({"bundleID": ")"} + app.id +
                    R"(", "name": ")" + app.name + R"(", "path": ")" +
                    desktop().home().entry(app.id).string() + R"("})";
        return R"({"onboardingCompleted": true, "sourceMode": "manual", "schemaVersion": 7,
                   "hideOverFullScreen": false, "manualApps": [)" +
               list + "]}";
    }

    void runWithManualList(const std::vector<App>& apps) {
        auto& desktop = make({.monitors = twoMonitors()});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().writePreferences(manualList(apps));
        desktop.runVireline();
        ASSERT_TRUE(docksSettle(tiles(static_cast<int>(apps.size()))));
    }

    /// Runs with these apps in the manual list, and removes the first of them by its menu.
    void runAndRemoveFirstOf(const std::vector<App>& apps) {
        runWithManualList(apps);
        const auto menu = openMenu(layout("right", tiles(static_cast<int>(apps.size()))).icon(0));
        ASSERT_NE(menu, PixelRect{});
        choose(menu, 2, 3);
        ASSERT_TRUE(logs("manual remove " + apps[0].id));
    }

    /// The windows that Alpha has, in the order in which they opened.
    [[nodiscard]] std::vector<xcb_window_t> launchWindows(int count) {
        desktop().launch(alpha, {"--windows", std::to_string(count)});
        // Each becomes active in turn.
        EXPECT_TRUE(eventually([&] {
            const auto windows = desktop().windowsOf(alpha);
            return windows.size() == static_cast<std::size_t>(count) &&
                   desktop().activeWindow() == windows.back();
        }));
        EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
        return desktop().windowsOf(alpha);
    }

    /// The entries of a running app's menu above "Show".
    static constexpr int window = 1;
    static constexpr int separator = 1;

    const App alpha = someApps(1)[0];
};

TEST_F(TileMenu, BeginsWithOpenForAnAppThatDoesNotRun) {
    runWithAlpha();
    chooseOf(0, 2);
    EXPECT_TRUE(logs("click launch " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
}

TEST_F(TileMenu, ShowsTheDesktopEntryThroughTheFileManagersService) {
    runWithAlpha({.sessionBus = true});
    const auto calls = desktop().startFileManagerService();
    chooseOf(1, 2);
    EXPECT_TRUE(logs("menu show-in-finder " + alpha.id));
    const auto call = "ShowItems file://" + desktop().home().entry(alpha.id).string();
    EXPECT_TRUE(eventually([&] { return readFile(calls).contains(call); })) << readFile(calls);
}

TEST_F(TileMenu, OpensTheEntrysFolderWhereThereIsNoSuchService) {
    auto& desktop = make({.monitors = twoMonitors()});
    const App files = fileManager();
    desktop.home().install(files);
    desktop.home().install(alpha);
    desktop.home().setFileManager(files.id);
    desktop.home().pin(std::vector{alpha, files});
    desktop.runVireline();
    ASSERT_TRUE(docksSettle(tiles(2)));
    const auto menu = openMenu(layout("right", tiles(2)).icon(0));
    ASSERT_NE(menu, PixelRect{});
    choose(menu, 1, 2);
    EXPECT_TRUE(logs("menu show-in-finder " + alpha.id));
    const auto folder = desktop.home().entry(alpha.id).parent_path().string() + '\n';
    EXPECT_TRUE(eventually([&] { return readFile(opened()).contains(folder); }))
        << readFile(opened());
}

TEST_F(TileMenu, OffersToShowAnAppThatRuns) {
    runWithAlpha();
    launchAlpha();
    ASSERT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
    chooseOf(window + separator, window + separator + 3);
    // The same decision as for a click: the frontmost app is hidden.
    EXPECT_TRUE(logs("click hide " + alpha.id));
}

TEST_F(TileMenu, QuitsAnApp) {
    runWithAlpha();
    launchAlpha();
    chooseOf(window + separator + 2, window + separator + 3);
    EXPECT_TRUE(logs("menu quit " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().windowsOf(alpha).empty(); }));
    EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), false));
}

TEST_F(TileMenu, QuitsAllWindowsOfAnApp) {
    runWithAlpha();
    ASSERT_EQ(launchWindows(3).size(), 3U);
    chooseOf(3 * window + separator + 2, 3 * window + separator + 3);
    EXPECT_TRUE(eventually([&] { return desktop().windowsOf(alpha).empty(); }));
}

TEST_F(TileMenu, BringsTheChosenWindowForward) {
    runWithAlpha();
    const auto windows = launchWindows(2);
    ASSERT_EQ(windows.size(), 2U);
    // The second entry is the window that is not active.
    chooseOf(1, 2 * window + separator + 3);
    EXPECT_TRUE(logs("menu window " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().activeWindow() == windows.front(); }));
}

TEST_F(TileMenu, RestoresAWindowThatWasHidden) {
    runWithAlpha();
    ASSERT_EQ(launchWindows(1).size(), 1U);
    desktop().pointer().click(alphaTile());
    ASSERT_TRUE(logs("click hide " + alpha.id));
    ASSERT_TRUE(eventually([&] { return desktop().visibleWindowsOf(alpha).empty(); }));
    chooseOf(0, window + separator + 3);
    EXPECT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
    EXPECT_EQ(desktop().visibleWindowsOf(alpha).size(), 1U);
}

TEST_F(TileMenu, OpensAtOnceForAnAppThatHangs) {
    runWithAlpha();
    auto& app = desktop().launch(alpha, {"--title", "A title"});
    ASSERT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
    app.signal(SIGSTOP);
    const UndisturbedTime time{{desktop().vireline().pid(), desktop().server(), getpid()}};
    const auto menu = openMenu(alphaTile());
    const auto took = time.elapsed();
    app.signal(SIGCONT);
    ASSERT_NE(menu, PixelRect{});
    EXPECT_LT(took, std::chrono::milliseconds{400}) << took.count();
    EXPECT_GT(menu.height, 4 * 20) << "the window is listed all the same";
}

TEST_F(TileMenu, ListsMoreThanTenWindowsInASubmenu) {
    runWithAlpha();
    const auto windows = launchWindows(12);
    const auto menu = openMenu(alphaTile());
    ASSERT_NE(menu, PixelRect{});
    constexpr int listed = 10;
    constexpr int more = 1;
    choose(menu, listed, listed + more + 3);
    ASSERT_TRUE(eventually([&] { return desktop().docks().menus().size() == 2; }));
    const auto menus = desktop().docks().menus();
    const auto submenu = menus[0] == menu ? menus[1] : menus[0];
    EXPECT_TRUE(desktop().monitor("right").frame.contains(submenu)) << submenu;
    choose(submenu, 1, 2);
    EXPECT_TRUE(logs("menu window " + alpha.id));
    EXPECT_TRUE(eventually([&] { return desktop().docks().menus().empty(); }));
    EXPECT_TRUE(eventually([&] {
        const auto active = desktop().activeWindow();
        return active != windows.back() && std::ranges::find(windows, active) != windows.end();
    }));
}

TEST_F(TileMenu, OnlyAsksAnAppToQuit) {
    runWithAlpha();
    const auto record = (desktop().home().scratch() / "alpha").string();
    auto& app = desktop().launch(alpha, {"--ignore-close", "--record", record});
    ASSERT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
    chooseOf(window + separator + 2, window + separator + 3);
    EXPECT_TRUE(eventually([&] { return readFile(record).contains("asked to close"); }));
    EXPECT_TRUE(app.isRunning());
    EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), true));
}

TEST_F(TileMenu, RemovesAnAppFromTheManualList) {
    const auto apps = someApps(2);
    runAndRemoveFirstOf(apps);
    EXPECT_TRUE(docksSettle(tiles(1)));
    EXPECT_TRUE(turns(layout("right", tiles(1)).icon(0), apps[1].colour));
}

TEST_F(TileMenu, UndoesARemovalFromTheMenuBesideTheTiles) {
    const auto apps = someApps(2);
    runAndRemoveFirstOf(apps);
    ASSERT_TRUE(docksSettle(tiles(1)));
    const auto beside = openMenu(besideTiles(layout("right", tiles(1)), 1));
    ASSERT_NE(beside, PixelRect{});
    choose(beside, 0, 3);
    EXPECT_TRUE(logs("manual undo " + apps[0].id));
    EXPECT_TRUE(docksSettle(tiles(2)));
    EXPECT_TRUE(turns(layout("right", tiles(2)).icon(0), apps[0].colour));
    EXPECT_TRUE(turns(layout("right", tiles(2)).icon(1), apps[1].colour));
}

TEST_F(TileMenu, WritesARemovalIntoThePreferencesAtOnce) {
    const auto apps = someApps(2);
    runAndRemoveFirstOf(apps);
    const auto saved = readFile(desktop().home().preferences());
    EXPECT_FALSE(saved.contains(apps[0].id)) << saved;
    EXPECT_TRUE(saved.contains(apps[1].id)) << saved;
    // Settings without a control are preserved.
    EXPECT_TRUE(saved.contains("\"schemaVersion\": 7")) << saved;
    EXPECT_TRUE(saved.contains("\"hideOverFullScreen\": false")) << saved;
}

TEST_F(TileMenu, ClosesWithEscapeAndDoesNothing) {
    runWithAlpha();
    ASSERT_NE(openMenu(alphaTile()), PixelRect{});
    // The menu is visible slightly before it has the keyboard.
    ASSERT_TRUE(eventually([&] { return desktop().isKeyboardTaken(); }));
    desktop().keyboard().type(Keyboard::escape);
    EXPECT_TRUE(eventually([&] { return desktop().docks().menus().empty(); }));
    desktop().pointer().click(alphaTile());
    ASSERT_TRUE(logs("click "));
    EXPECT_EQ(desktop().log().count("click "), 1);
    EXPECT_EQ(desktop().log().count("menu "), 0);
}

TEST_F(TileMenu, ClosesWithAClickElsewhereThatDoesNothingElse) {
    runWithAlpha();
    ASSERT_NE(openMenu(alphaTile()), PixelRect{});
    // The menu is visible slightly before it has grabbed the keyboard and pointer.
    ASSERT_TRUE(eventually([&] { return desktop().isKeyboardTaken(); }));
    desktop().pointer().click(desktop().monitor("left").frame.center());
    EXPECT_TRUE(eventually([&] { return desktop().docks().menus().empty(); }));
    desktop().pointer().click(alphaTile());
    ASSERT_TRUE(logs("click "));
    EXPECT_EQ(desktop().log().count("click "), 1);
    EXPECT_EQ(desktop().log().count("menu "), 0);
}

/// Parametrised by the dock's edge, as written in the preferences.
class TileMenuAtEdge : public TileMenu, public testing::WithParamInterface<const char*> {};

TEST_P(TileMenuAtEdge, OpensInsideTheDocksDisplay) {
    auto& desktop = make({.monitors = twoMonitors()});
    const auto apps = someApps(8);
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.home().writePreferences(std::string{R"({"onboardingCompleted": true, "position": ")"} +
                                    GetParam() + R"("})");
    desktop.runVireline();
    auto request = tiles(8);
    request.position = dockPosition(GetParam()).value_or(DockPosition::bottom);
    ASSERT_TRUE(docksSettle(request));
    const auto menu = openMenu(layout("right", request).icon(7));
    ASSERT_NE(menu, PixelRect{});
    EXPECT_TRUE(desktop.monitor("right").frame.contains(menu)) << menu;
}

INSTANTIATE_TEST_SUITE_P(Edges, TileMenuAtEdge, testing::Values("bottom", "left", "right"),
                         [](const auto& edge) { return std::string{edge.param}; });

}
}
