/// The pinned tiles follow the list of the desktop's own dock.
#include "DesktopTest.hpp"

#include <filesystem>

namespace vireline::desktop {
namespace {

class PinnedList : public DesktopTest {
protected:
    /// Waits until the dock on "right" shows exactly these apps, in this order.
    void expectTiles(const std::vector<App>& apps) {
        const auto request = tiles(static_cast<int>(apps.size()));
        ASSERT_TRUE(docksSettle(request));
        const auto dock = layout("right", request);
        for (std::size_t i = 0; i < apps.size(); ++i)
            EXPECT_TRUE(turns(dock.icon(static_cast<int>(i)), apps[i].colour)) << apps[i].name;
    }

    /// Installs all of `apps` and runs the program with the first `count` of them pinned.
    void runPinning(std::size_t count) {
        auto& desktop = make({.monitors = twoMonitors()});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(std::span{apps}.first(count));
        desktop.runVireline();
    }

    std::vector<App> apps = someApps(4);
};

TEST_F(PinnedList, StandsInTheOrderOfTheOtherDock) {
    runWithTwoDisplays({apps[2], apps[0], apps[1]});
    expectTiles({apps[2], apps[0], apps[1]});
    EXPECT_TRUE(logs("mirror: 3 pinned apps from Apple's Dock"));
}

TEST_F(PinnedList, FollowsAListThatIsRewrittenInPlace) {
    runPinning(2);
    expectTiles({apps[0], apps[1]});
    desktop().home().pin(std::vector{apps[3], apps[1], apps[0]});
    expectTiles({apps[3], apps[1], apps[0]});
}

TEST_F(PinnedList, FollowsAListThatIsReplacedByRename) {
    runPinning(2);
    expectTiles({apps[0], apps[1]});
    replaceFile(desktop().home().dockPreferences(),
                desktop().home().dockList(std::vector{apps[1], apps[2], apps[3]}));
    expectTiles({apps[1], apps[2], apps[3]});
}

// Behaviour: mirror-source-2
TEST_F(PinnedList, KeepsFollowingAfterARename) {
    runPinning(2);
    expectTiles({apps[0], apps[1]});
    replaceFile(desktop().home().dockPreferences(),
                desktop().home().dockList(std::vector{apps[1], apps[2], apps[3]}));
    expectTiles({apps[1], apps[2], apps[3]});
    // Moving the watch to the new file takes a second.
    using namespace std::chrono_literals;
    const int before = desktop().log().count("mirror: ");
    EXPECT_TRUE(eventually([&] {
        desktop().home().pin(std::vector{apps[3]});
        return eventually([&] { return desktop().log().count("mirror: ") > before; }, 1s);
    }));
    expectTiles({apps[3]});
}

TEST_F(PinnedList, IsEmptyOnceTheListIsDeleted) {
    runPinning(2);
    expectTiles({apps[0], apps[1]});
    std::filesystem::remove(desktop().home().dockPreferences());
    expectTiles({});
    EXPECT_TRUE(logs("mirror empty, using fallback list"));
}

TEST_F(PinnedList, ComesBackWhenTheListIsMadeAgain) {
    runPinning(2);
    expectTiles({apps[0], apps[1]});
    std::filesystem::remove(desktop().home().dockPreferences());
    expectTiles({});
    desktop().home().pin(std::vector{apps[1], apps[2]});
    expectTiles({apps[1], apps[2]});
}

TEST_F(PinnedList, ComesWhenTheFirstListIsWrittenAfterTheStart) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.runVireline();
    expectTiles({});
    desktop.home().pin(std::vector{apps[0], apps[3]});
    expectTiles({apps[0], apps[3]});
}

TEST_F(PinnedList, LeavesOutAppsThatAreNotInstalled) {
    auto& desktop = make({.monitors = twoMonitors()});
    desktop.home().install(apps[0]);
    desktop.home().install(apps[2]);
    desktop.home().pin(std::vector{apps[0], apps[1], apps[2]});
    desktop.runVireline();
    expectTiles({apps[0], apps[2]});
}

TEST_F(PinnedList, BeginsWithTheFileManager) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().setFileManager(apps[3].id);
    desktop.home().pin(std::vector{apps[0], apps[1]});
    desktop.runVireline();
    expectTiles({apps[3], apps[0], apps[1]});
}

TEST_F(PinnedList, LeavesTheFileManagerWhereTheOtherDockHasIt) {
    auto& desktop = make({.monitors = twoMonitors()});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().setFileManager(apps[1].id);
    desktop.home().pin(std::vector{apps[0], apps[1]});
    desktop.runVireline();
    expectTiles({apps[0], apps[1]});
}

TEST_F(PinnedList, ShrinksSixtyTilesToSixteenPoints) {
    constexpr int count = 60;
    // The narrowest display on which sixty-two tiles of 16 points fit.
    constexpr int width = 1400;
    runWithTwoDisplays(someApps(count), {.monitors = {{"left", {0, 0, 1920, 1080}},
                                                      {"right", {1920, 0, width, 900}}}});
    const auto dock = layout("right", tiles(count));
    constexpr double smallest = 16;
    EXPECT_EQ(dock.iconSize(), smallest);
    EXPECT_TRUE(docksSettle(tiles(count)));
    const auto all = someApps(count);
    for (int i = 0; i < count; ++i)
        EXPECT_TRUE(turns(dock.icon(i), all[static_cast<std::size_t>(i)].colour)) << i;
}

TEST_F(PinnedList, OverflowsADisplayThatIsTooNarrow) {
    constexpr int count = 60;
    const auto all = someApps(count);
    runWithTwoDisplays(
        all, {.monitors = {{"left", {0, 0, 1920, 1080}}, {"right", {1920, 0, 800, 600}}}});
    const auto dock = layout("right", tiles(count));
    constexpr double smallest = 16;
    EXPECT_EQ(dock.iconSize(), smallest);
    // The strip is centred, so the tiles in the middle are on the display.
    constexpr int middle = count / 2;
    EXPECT_TRUE(turns(dock.icon(middle), all[middle].colour));
    desktop().pointer().click(dock.icon(middle));
    EXPECT_TRUE(logs("click launch " + all[middle].id));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

}
}
