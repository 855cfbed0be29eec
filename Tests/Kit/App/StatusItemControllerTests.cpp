#include "App/StatusItemController.hpp"
#include "Settings/LoginItemManager.hpp"
#include "Support/FakeApplications.hpp"
#include "Support/FakeProgramWindows.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using LoginStatus = LoginItemService::Status;

class StatusItemControllerTest : public testing::Test {
protected:
    /// The state of "Launch at Login" when the menu is opened now.
    [[nodiscard]] bool isChecked() {
        const Menu menu = statusBar.openMenu();
        return std::get<MenuCommand>(menu.entries.at(2)).isChecked.value();
    }

    test::LoggedLines log;
    test::FakeStatusBar statusBar;
    test::FakeApplication application;
    test::FakeLoginItemService service;
    LoginItemManager loginItem{service};
    int settingsShown = 0;
    int toursShown = 0;
    StatusItemController controller{statusBar, application, loginItem, [this] { ++settingsShown; },
                                    [this] { ++toursShown; }};
};

TEST_F(StatusItemControllerTest, ShowsTheDockSymbolUnderTheProgramsName) {
    ASSERT_TRUE(statusBar.item);
    EXPECT_EQ(statusBar.item->symbol, "dock.rectangle");
    EXPECT_EQ(statusBar.item->description, "Vireline");
}

TEST_F(StatusItemControllerTest, HasFourCommandsTheLastBehindASeparator) {
    const Menu expected{{MenuCommand{"Settings…", ','}, MenuCommand{"Welcome Tour…"},
                         MenuCommand{"Launch at Login", 0, false}, MenuSeparator{},
                         MenuCommand{"Quit Vireline", 'q'}}};

    EXPECT_EQ(statusBar.openMenu(), expected);
}

TEST_F(StatusItemControllerTest, OpensTheSettingsAndTheTour) {
    statusBar.choose("Settings…");
    EXPECT_EQ(settingsShown, 1);
    EXPECT_EQ(toursShown, 0);

    statusBar.choose("Welcome Tour…");
    EXPECT_EQ(settingsShown, 1);
    EXPECT_EQ(toursShown, 1);
}

TEST_F(StatusItemControllerTest, TogglesTheLoginItem) {
    statusBar.choose("Launch at Login");
    EXPECT_EQ(service.current, LoginStatus::enabled);

    statusBar.choose("Launch at Login");
    EXPECT_EQ(service.current, LoginStatus::notRegistered);
}

TEST_F(StatusItemControllerTest, QuitsAndLogsIt) {
    statusBar.choose("Quit Vireline");

    EXPECT_EQ(application.terminations, 1);
    EXPECT_EQ(log.messages(), std::vector<std::string>{"quit from menu bar"});
}

// Behaviour: status-item-1
TEST_F(StatusItemControllerTest, ReadsTheLoginItemAtEachOpening) {
    EXPECT_FALSE(isChecked());
    service.current = LoginStatus::enabled;
    EXPECT_TRUE(isChecked());
    service.current = LoginStatus::requiresApproval;
    EXPECT_FALSE(isChecked());
}

// Behaviour: status-item-2
TEST_F(StatusItemControllerTest, OpensTheSettingsAndQuitsByKeyWhileTheMenuIsOpen) {
    statusBar.pressKey(',');
    EXPECT_EQ(settingsShown, 1);
    EXPECT_EQ(application.terminations, 0);

    statusBar.pressKey('q');
    EXPECT_EQ(application.terminations, 1);
}

}
}
