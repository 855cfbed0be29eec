#include "Interaction/AppActivator.hpp"
#include "Interaction/NewWindow.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using test::FakePlatform;
using Action = ApplicationCatalog::Action;
using Lines = std::vector<std::string>;

constexpr std::uint32_t anyDisplay = 7;

struct AppActionTest : testing::Test {
    test::LoggedLines log;
    FakePlatform platform;
    AppRef app = platform.install("org.example.Notes", "Notes");
    DockItem item{app.bundleID, app.name, app.url, true, false};
    AppActivator activator{platform.running, platform.workspace, platform.catalog, platform.screens,
                           platform.accessibility};
};

TEST(NewWindow, IsTheActionOfThatNameHoweverItIsWritten) {
    const Action other{"private", "New Private Window", ""};
    for (const char* const id : {"new-window", "NewWindow", "new_window", "newWindow"})
        EXPECT_EQ(NewWindow::action(std::vector{other, Action{id, "New", ""}}), id);
    EXPECT_EQ(NewWindow::action(std::vector{other}), std::nullopt);
    EXPECT_EQ(NewWindow::action(std::vector{Action{"new-window-2", "", ""}}), std::nullopt);
}

TEST_F(AppActionTest, AnAppsActionsAreThoseOfItsEntry) {
    platform.catalog.offered[app.url.path()] = {{"private", "New Private Window", "mask"}};

    EXPECT_EQ(activator.actions(item),
              (std::vector<Action>{{"private", "New Private Window", "mask"}}));
    activator.perform("private", item);

    EXPECT_EQ(platform.workspace.performed, Lines{"org.example.Notes private"});
    EXPECT_EQ(log.messages(), Lines{"menu action private of org.example.Notes"});
}

// Behaviour: tile-actions-2
TEST_F(AppActionTest, AMiddleClickOpensAnotherWindowWithTheActionForThat) {
    platform.running.apps = {FakePlatform::instanceOf(app)};
    platform.catalog.offered[app.url.path()] = {{"private", "New Private Window", ""},
                                                {"new-window", "New Window", ""}};

    activator.middleClick(item, anyDisplay);

    EXPECT_EQ(platform.workspace.performed, Lines{"org.example.Notes new-window"});
    EXPECT_EQ(platform.workspace.launchedAgain, Lines{});
    EXPECT_EQ(log.messages(), Lines{"middle click new window org.example.Notes"});
}

TEST_F(AppActionTest, AMiddleClickStartsAnAppAgainThatHasNoSuchAction) {
    platform.running.apps = {FakePlatform::instanceOf(app)};

    activator.middleClick(item, anyDisplay);

    EXPECT_EQ(platform.workspace.launchedAgain, Lines{"org.example.Notes"});
    EXPECT_TRUE(platform.workspace.openedApplications.empty());
}

TEST_F(AppActionTest, AMiddleClickLaunchesAnAppThatDoesNotRun) {
    platform.catalog.offered[app.url.path()] = {{"new-window", "New Window", ""}};

    activator.middleClick(item, anyDisplay);

    EXPECT_EQ(platform.workspace.openedApplications.size(), 1U);
    EXPECT_EQ(platform.workspace.performed, Lines{});
    EXPECT_EQ(log.messages(), Lines{"click launch org.example.Notes"});
}

}
}
