#include "Interaction/AppActivator.hpp"
#include "Support/FakePlatform.hpp"
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
    AppActivator activator{platform.running, platform.workspace};
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

TEST_F(AppActivatorTest, TakesADoubleClickForOneMoreClick) {
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

}
}
