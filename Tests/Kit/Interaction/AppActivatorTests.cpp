#include "ClientWindows/WindowMover.hpp"
#include "Interaction/AppActivator.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using test::FakePlatform;
using test::FakeWorkspace;
using test::LoggedLines;
using Lines = std::vector<std::string>;
using Opened = std::vector<FakeWorkspace::OpenedApplication>;
using Instances = std::vector<RunningApplication>;

constexpr std::uint32_t display = 7;

struct AppActivatorTest : testing::Test {
    LoggedLines log;
    FakePlatform platform;
    AppRef app = platform.install("com.apple.mail", "Mail");
    DockItem item{app.bundleID, app.name, app.url, true, false};
    Opened openedOnce{{app.bundleID, app.url}};
    AppActivator activator{platform.running, platform.workspace, platform.catalog, platform.screens,
                           platform.accessibility};
};

TEST_F(AppActivatorTest, LaunchesAnAppThatDoesNotRun) {
    activator.leftClick(item, display);

    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(log.messages(), Lines{"click launch com.apple.mail"});
}

TEST_F(AppActivatorTest, BringsAnAppBehindOthersForward) {
    platform.running.apps = {FakePlatform::instanceOf(app)};

    activator.leftClick(item, display);

    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(log.messages(), Lines{"click reopen com.apple.mail"});
}

TEST_F(AppActivatorTest, HidesTheFrontmostApp) {
    platform.running.apps = {FakePlatform::instanceOf(app)};
    platform.running.bringToFront(app.bundleID);

    activator.leftClick(item, display);

    EXPECT_EQ(platform.running.hidden, platform.running.apps);
    EXPECT_EQ(platform.workspace.openedApplications, Opened{});
    EXPECT_EQ(log.messages(), Lines{"click hide com.apple.mail"});
}

TEST_F(AppActivatorTest, LetsTheFirstInstanceStandForTheApp) {
    RunningApplication frontmost = FakePlatform::instanceOf(app, 2);
    frontmost.isActive = true;
    platform.running.apps = {FakePlatform::instanceOf(app, 1), frontmost};

    activator.leftClick(item, display);
    activator.menuSelect(MenuEntry::quit, item, display);

    EXPECT_EQ(platform.running.hidden, Instances{});
    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(platform.running.terminated, Instances{FakePlatform::instanceOf(app, 1)});
}

TEST_F(AppActivatorTest, AsksTheSystemInsteadOfTheTileWhetherTheAppRuns) {
    item.isRunning = true;

    activator.leftClick(item, display);

    EXPECT_EQ(log.messages(), Lines{"click launch com.apple.mail"});
}

TEST_F(AppActivatorTest, TreatsADoubleClickAsOneMoreClick) {
    platform.running.apps = {FakePlatform::instanceOf(app)};
    platform.running.bringToFront(app.bundleID);

    activator.leftClick(item, display);
    platform.running.bringToFront({});
    activator.doubleClick(item, display);

    EXPECT_EQ(log.messages(), (Lines{"click hide com.apple.mail", "click reopen com.apple.mail"}));
}

TEST_F(AppActivatorTest, TreatsOpenAndShowInTheMenuAsAClick) {
    activator.menuSelect(MenuEntry::open, item, display);
    platform.running.apps = {FakePlatform::instanceOf(app)};
    activator.menuSelect(MenuEntry::show, item, display);

    EXPECT_EQ(platform.workspace.openedApplications.size(), 2U);
    EXPECT_EQ(log.messages(),
              (Lines{"click launch com.apple.mail", "click reopen com.apple.mail"}));
}

TEST_F(AppActivatorTest, RevealsTheAppsFile) {
    activator.menuSelect(MenuEntry::showInFinder, item, display);

    EXPECT_EQ(platform.workspace.revealed, (std::vector<std::vector<FileURL>>{{app.url}}));
    EXPECT_EQ(log.messages(), Lines{"menu show-in-finder com.apple.mail"});
}

TEST_F(AppActivatorTest, AsksARunningAppToQuit) {
    platform.running.apps = {FakePlatform::instanceOf(app)};

    activator.menuSelect(MenuEntry::quit, item, display);

    EXPECT_EQ(platform.running.terminated, platform.running.apps);
    EXPECT_EQ(log.messages(), Lines{"menu quit com.apple.mail"});
}

TEST_F(AppActivatorTest, LogsAQuitOfAnAppThatDoesNotRun) {
    activator.menuSelect(MenuEntry::quit, item, display);

    EXPECT_EQ(platform.running.terminated, Instances{});
    EXPECT_EQ(log.messages(), Lines{"menu quit com.apple.mail"});
}

TEST_F(AppActivatorTest, LogsARemovalAsAnErrorOfTheWiringAndDoesNothing) {
    platform.running.apps = {FakePlatform::instanceOf(app)};

    activator.menuSelect(MenuEntry::removeFromDock, item, display);

    EXPECT_EQ(log.messages(), Lines{"removeFromDock reached AppActivator, wiring error"});
    EXPECT_EQ(platform.workspace.openedApplications, Opened{});
    EXPECT_EQ(platform.running.terminated, Instances{});
}

/// As above, with a window mover and two displays: 1 and, to its right, 7.
struct WindowFeatures : AppActivatorTest {
    WindowFeatures() {
        platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                                 test::screenAt(display, {1920, 0, 1280, 1080})};
        activator.windowMover = &mover;
        activator.settings = [this] { return settings; };
    }

    /// Starts the app with one window whose corner is at this position.
    test::FakeWindow& runAt(double x, double y) {
        platform.running.apps = {FakePlatform::instanceOf(app, process)};
        return platform.accessibility.addWindow(platform.running.apps.front(), {x, y, 400, 300});
    }

    static constexpr std::int32_t process = 100;
    Settings settings;
    WindowMover mover{platform.accessibility, platform.running, platform.screens, platform.runLoop};
};

// Behaviour: app-activator-1
TEST_F(WindowFeatures, ALaunchArmsNothingWhileOpeningHereIsOff) {
    activator.leftClick(item, display);

    EXPECT_TRUE(mover.pending().empty());
    EXPECT_EQ(log.messages(), Lines{"click launch com.apple.mail"});
}

// Behaviour: app-activator-1
TEST_F(WindowFeatures, ALaunchArmsOneCentredPlacementOnTheClickedDisplay) {
    settings.openOnThisDisplay = true;

    activator.leftClick(item, display);

    ASSERT_EQ(mover.pending().size(), 1U);
    const WindowMover::Pending& pending = mover.pending().at(app.bundleID);
    EXPECT_EQ(pending.display, display);
    EXPECT_EQ(pending.mode, WindowMover::PlacementMode{WindowMover::Center{}});
    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(log.messages(),
              (Lines{"placement armed for com.apple.mail on #7", "click launch com.apple.mail"}));
}

// Behaviour: app-activator-1
TEST_F(WindowFeatures, WithoutAMoverALaunchArmsNothing) {
    settings.openOnThisDisplay = true;
    activator.windowMover = nullptr;

    activator.leftClick(item, display);

    EXPECT_TRUE(mover.pending().empty());
    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
}

// Behaviour: app-activator-2
TEST_F(WindowFeatures, AFrontmostAppElsewhereIsSummonedAndNotHidden) {
    settings.summonOnClick = true;
    const auto& window = runAt(100, 100);
    platform.running.bringToFront(app.bundleID);

    activator.leftClick(item, display);

    EXPECT_EQ(window.frame, (Rect{2360, 390, 400, 300}));
    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(platform.running.hidden, Instances{});
    EXPECT_EQ(log.messages().back(), "click summon com.apple.mail on #7");
}

TEST_F(WindowFeatures, AnAppWithItsWindowHereIsHiddenOrBroughtForward) {
    settings.summonOnClick = true;
    const auto& window = runAt(2000, 100);

    activator.leftClick(item, display);
    platform.running.bringToFront(app.bundleID);
    activator.leftClick(item, display);

    EXPECT_EQ(window.frame.x, 2000);
    EXPECT_EQ(log.messages(), (Lines{"click reopen com.apple.mail", "click hide com.apple.mail"}));
}

TEST_F(WindowFeatures, NothingIsSummonedWhileSummoningIsOff) {
    const auto& window = runAt(100, 100);
    platform.running.bringToFront(app.bundleID);

    activator.leftClick(item, display);

    EXPECT_EQ(window.frame.x, 100);
    EXPECT_EQ(platform.accessibility.timeouts.size(), 0U) << "the windows were not even looked at";
    EXPECT_EQ(log.messages(), Lines{"click hide com.apple.mail"});
}

TEST_F(WindowFeatures, WithoutAMoverNothingIsSummoned) {
    settings.summonOnClick = true;
    activator.windowMover = nullptr;
    runAt(100, 100);

    activator.leftClick(item, display);

    EXPECT_EQ(log.messages(), Lines{"click reopen com.apple.mail"});
}

TEST_F(WindowFeatures, WithoutThePermissionAClickActsAsWithoutSummoning) {
    settings.summonOnClick = true;
    platform.accessibility.trusted = false;
    const auto& window = runAt(100, 100);
    platform.running.bringToFront(app.bundleID);

    activator.leftClick(item, display);

    EXPECT_EQ(window.frame.x, 100);
    EXPECT_EQ(log.messages(), Lines{"click hide com.apple.mail"});
}

TEST_F(WindowFeatures, ASummonThatFailsStillBringsTheAppForward) {
    settings.summonOnClick = true;
    platform.accessibility.failures["set AXPosition"] = {-25204, "cannot complete"};
    runAt(100, 100);

    activator.leftClick(item, display);

    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(log.messages(), (Lines{"summon pid 100 to display #7: AXError -25204",
                                     "click summon com.apple.mail on #7"}));
}

TEST_F(WindowFeatures, ADoubleClickFillsTheDisplayBesideItsDock) {
    settings.fillOnDoubleClick = true;
    settings.position = DockPosition::left;
    settings.magnificationEnabled = true;
    settings.magnification = 2;
    settings.iconSize = 40;
    const auto& window = runAt(100, 100);

    activator.doubleClick(item, display);

    EXPECT_EQ(window.frame, (Rect{1920 + 106, 0, 1280 - 106, 1080}));
    EXPECT_EQ(platform.workspace.openedApplications, openedOnce);
    EXPECT_EQ(log.messages(), (Lines{"placement armed for com.apple.mail on #7",
                                     "fill pid 100 on #7: ok", "placement done for com.apple.mail",
                                     "double-click fill com.apple.mail on #7"}));
}

TEST_F(WindowFeatures, ADoubleClickFillsTheWholeDisplayOverADockThatHides) {
    settings.fillOnDoubleClick = true;
    settings.autoHide = true;
    settings.magnification = 2;
    const auto& window = runAt(100, 100);

    activator.doubleClick(item, display);

    EXPECT_EQ(window.frame, (Rect{1920, 0, 1280, 1080}));
}

TEST_F(WindowFeatures, AFactorThatIsSwitchedOffTakesNoRoom) {
    settings.fillOnDoubleClick = true;
    settings.magnification = 2;
    const auto& window = runAt(100, 100);

    activator.doubleClick(item, display);

    EXPECT_EQ(window.frame, (Rect{1920, 0, 1280, 1080 - 92}));
}

// Behaviour: app-activator-3
TEST_F(WindowFeatures, WithoutThePermissionADoubleClickIsOneMoreClick) {
    settings.fillOnDoubleClick = true;
    platform.accessibility.trusted = false;
    const auto& window = runAt(100, 100);
    platform.running.bringToFront(app.bundleID);

    activator.doubleClick(item, display);

    EXPECT_EQ(window.frame.x, 100);
    EXPECT_TRUE(mover.pending().empty());
    EXPECT_EQ(log.messages(), Lines{"click hide com.apple.mail"});
}

TEST_F(WindowFeatures, WithoutAMoverADoubleClickIsOneMoreClick) {
    settings.fillOnDoubleClick = true;
    activator.windowMover = nullptr;
    runAt(100, 100);

    activator.doubleClick(item, display);

    EXPECT_EQ(log.messages(), Lines{"click reopen com.apple.mail"});
}

TEST_F(WindowFeatures, ChangedSettingsCountFromTheNextClickOn) {
    const auto& window = runAt(100, 100);
    activator.leftClick(item, display);
    EXPECT_EQ(window.frame.x, 100);

    settings.summonOnClick = true;
    activator.leftClick(item, display);

    EXPECT_EQ(window.frame.x, 2360);
}

struct AppWindowsTest : AppActivatorTest {
    AppWindowsTest() {
        platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                                 test::screenAt(display, {1920, 0, 1920, 1080})};
        platform.running.apps = {FakePlatform::instanceOf(app)};
        activator.windowMover = &mover;
        activator.settings = [this] { return settings; };
        platform.accessibility.addWindow(platform.running.apps[0], {10, 10, 400, 300}).title =
            "Inbox";
        platform.accessibility.addWindow(platform.running.apps[0], {50, 50, 400, 300}).title =
            "Draft";
    }

    [[nodiscard]] std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const OpenWindow& window : activator.windows(item))
            all.push_back(window.title + (window.isActive ? " *" : ""));
        return all;
    }

    Settings settings;
    WindowMover mover{platform.accessibility, platform.running, platform.screens, platform.runLoop};
};

// Behaviour: tile-windows-1
TEST_F(AppWindowsTest, AreListedMostRecentFirst) {
    EXPECT_EQ(titles(), (Lines{"Draft *", "Inbox"}));
    EXPECT_EQ(platform.accessibility.callsWithoutTimeout, 0);
}

TEST_F(AppWindowsTest, AreNotListedWithoutThePermissionOrForAnAppThatDoesNotRun) {
    platform.accessibility.trusted = false;
    EXPECT_EQ(titles(), Lines{});
    platform.accessibility.trusted = true;
    platform.running.apps.clear();
    EXPECT_EQ(titles(), Lines{});
}

// Behaviour: tile-windows-3
TEST_F(AppWindowsTest, ComeForwardWhereTheyAreWithoutSummoning) {
    activator.showWindow(activator.windows(item).at(1), item, display);

    EXPECT_EQ(platform.accessibility.broughtForward, Lines{"Inbox"});
    EXPECT_EQ(platform.accessibility.sets, Lines{});
    EXPECT_EQ(log.messages(), Lines{"menu window com.apple.mail"});
}

TEST_F(AppWindowsTest, ComeToTheDocksDisplayWithSummoning) {
    settings.summonOnClick = true;

    activator.showWindow(activator.windows(item).at(1), item, display);
    EXPECT_EQ(platform.accessibility.sets, Lines{"AXPosition (2680, 390)"});
    activator.showWindow(activator.windows(item).at(0), item, display);

    EXPECT_EQ(platform.accessibility.sets.size(), 1U) << "it is there already";
    EXPECT_EQ(platform.accessibility.broughtForward, (Lines{"Inbox", "Inbox"}));
}

TEST_F(AppWindowsTest, ThatAreGoneAreLogged) {
    const auto windows = activator.windows(item);
    platform.accessibility.failures["bringForward"] = {1, "no such window"};

    activator.showWindow(windows.at(0), item, display);

    EXPECT_EQ(log.messages(),
              (Lines{"window not shown: no such window", "menu window com.apple.mail"}));
}

}
}
