#include "ProgramWindows/SettingsView.hpp"
#include "ProgramWindows/SettingsWindow.hpp"
#include "Settings/LoginItemManager.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using LoginStatus = LoginItemService::Status;

class SettingsWindowTest : public testing::Test {
protected:
    [[nodiscard]] test::FakeForm& window() { return *platform.programWindows.forms.at(0); }
    [[nodiscard]] const FormRow& row(SettingsField field) {
        return test::rowOf(window().content, field);
    }
    [[nodiscard]] bool isOn(SettingsField field) {
        return std::get<Toggle>(row(field).control).isOn;
    }
    void set(SettingsField field, const FormValue& value) {
        window().listener.formChanged(field, value);
    }
    /// Makes a change from outside the window.
    template <class Change>
    void change(Change change) {
        Settings settings = store.settings();
        change(settings);
        store.setSettings(settings);
    }

    test::LoggedLines log;
    test::FakePlatform platform;
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    LoginItemManager loginItem{platform.loginItem};
    DockAnchorGuard anchorGuard{platform.accessibility, platform.pointerTaps, platform.runLoop};
    SettingsWindowController controller{store, loginItem, anchorGuard, platform.ports()};
};

TEST_F(SettingsWindowTest, MakesItsWindowWhenItIsFirstShown) {
    EXPECT_TRUE(platform.programWindows.forms.empty());

    controller.show();

    EXPECT_EQ(window().style, (WindowStyle{"Vireline Settings", {480, 640}, true}));
    EXPECT_EQ(window().timesShown, 1);
    EXPECT_EQ(window().content, SettingsView::form({}, {}, {}));
}

// Behaviour: settings-window-1
TEST_F(SettingsWindowTest, ShowsTheSameWindowTheSecondTime) {
    controller.show();
    controller.show();

    EXPECT_EQ(platform.programWindows.forms.size(), 1U);
    EXPECT_EQ(window().timesShown, 2);
}

TEST_F(SettingsWindowTest, ShowsTheSameWindowAfterItWasClosed) {
    controller.show();
    window().closeByButton();
    controller.show();

    EXPECT_EQ(platform.programWindows.forms.size(), 1U);
    EXPECT_TRUE(window().isVisible);
}

TEST_F(SettingsWindowTest, WritesEveryControlThroughTheStoreAtOnce) {
    controller.show();
    const std::vector<std::pair<SettingsField, FormValue>> choices{
        {SettingsField::sourceMode, std::size_t{1}},
        {SettingsField::position, std::size_t{2}},
        {SettingsField::iconSize, 51.0},
        {SettingsField::magnificationEnabled, true},
        {SettingsField::magnification, 1.8},
        {SettingsField::autoHide, true},
        {SettingsField::anchorAppleDock, true},
        {SettingsField::openOnThisDisplay, true},
        {SettingsField::summonOnClick, true},
        {SettingsField::fillOnDoubleClick, true},
    };
    Settings expected;
    std::size_t saves = 0;
    for (const auto& [field, value] : choices) {
        set(field, value);
        expected = SettingsView::edited(expected, field, value);
        EXPECT_EQ(store.settings(), expected);
        EXPECT_EQ(platform.fileSystem.writes[store.fileURL().path()].size(), ++saves);
        EXPECT_EQ(window().content, SettingsView::form(expected, {}, {}));
    }
}

TEST(SettingsWindow, CallsThingsAsThePlatformDoes) {
    test::FakePlatform platform;
    platform.words.dock = "the shelf";
    PreferencesStore store{platform.fileSystem, platform.userFolders};
    LoginItemManager loginItem{platform.loginItem};
    DockAnchorGuard anchorGuard{platform.accessibility, platform.pointerTaps, platform.runLoop};
    SettingsWindowController controller{store, loginItem, anchorGuard, platform.ports()};

    controller.show();

    EXPECT_EQ(
        test::rowOf(platform.programWindows.forms.at(0)->content, SettingsField::anchorAppleDock)
            .title,
        "Keep the shelf on its own display");
}

TEST_F(SettingsWindowTest, LooksEachTimeWhetherWindowsCanBeMoved) {
    platform.accessibility.movesWindows = false;
    controller.show();
    EXPECT_TRUE(row(SettingsField::summonOnClick).status);

    platform.accessibility.movesWindows = true;
    controller.show();
    EXPECT_FALSE(row(SettingsField::summonOnClick).status);
}

TEST_F(SettingsWindowTest, FollowsTheWindowManagerWhileItIsOpen) {
    controller.show();
    ASSERT_FALSE(row(SettingsField::summonOnClick).status);

    platform.accessibility.changeManager(false);
    EXPECT_TRUE(row(SettingsField::summonOnClick).status);

    platform.accessibility.changeManager(true);
    EXPECT_FALSE(row(SettingsField::summonOnClick).status);
}

// Behaviour: settings-window-3
TEST_F(SettingsWindowTest, ChangesTheCaptionAtOnceWhenTheSourceGoesBackToMirroring) {
    change([](Settings& settings) { settings.sourceMode = SourceMode::manual; });
    controller.show();
    ASSERT_TRUE(row(SettingsField::sourceMode).caption.starts_with("Drag apps"));

    set(SettingsField::sourceMode, std::size_t{0});

    EXPECT_TRUE(row(SettingsField::sourceMode).caption.starts_with("The second dock follows"));
}

TEST_F(SettingsWindowTest, FollowsWhatChangesElsewhere) {
    controller.show();

    change([](Settings& settings) { settings.sourceMode = SourceMode::manual; });

    EXPECT_EQ(std::get<RadioGroup>(row(SettingsField::sourceMode).control).selected, 1U);
}

TEST_F(SettingsWindowTest, LeavesAClosedWindowAloneAndShowsTheNewsLater) {
    controller.show();
    window().closeByButton();
    const int before = window().presentations;

    change([](Settings& settings) { settings.autoHide = true; });
    EXPECT_EQ(window().presentations, before);

    controller.show();
    EXPECT_TRUE(isOn(SettingsField::autoHide));
}

TEST_F(SettingsWindowTest, KeepsAValueOutsideItsRangeUntilTheSliderMoves) {
    change([](Settings& settings) { settings.iconSize = 500; });
    controller.show();
    set(SettingsField::autoHide, true);
    EXPECT_EQ(store.settings().iconSize, 500);

    set(SettingsField::iconSize, 63.0);
    EXPECT_EQ(store.settings().iconSize, 63);
}

TEST_F(SettingsWindowTest, FollowsTheAnchorsStatus) {
    platform.accessibility.trusted = false;
    change([](Settings& settings) { settings.anchorAppleDock = true; });
    anchorGuard.enable();
    controller.show();
    EXPECT_EQ(row(SettingsField::anchorAppleDock).status->text, "Waiting for permission.");

    platform.accessibility.trusted = true;
    platform.runLoop.advance(2.1);
    EXPECT_EQ(row(SettingsField::anchorAppleDock).status->text,
              "Active. Apple's Dock stays where it is.");
}

TEST_F(SettingsWindowTest, LeadsToTheSystemsAccessibilitySettings) {
    controller.show();

    window().listener.formStatusButtonPressed(SettingsField::anchorAppleDock);

    EXPECT_EQ(platform.workspace.openedPanes,
              std::vector<std::string>{"x-apple.systempreferences:com.apple.preference.security?"
                                       "Privacy_Accessibility"});
}

TEST_F(SettingsWindowTest, ReadsTheLoginItemWheneverItIsShownAgain) {
    platform.loginItem.current = LoginStatus::enabled;
    controller.show();
    EXPECT_TRUE(isOn(SettingsField::launchAtLogin));

    window().closeByButton();
    platform.loginItem.current = LoginStatus::requiresApproval;
    controller.show();
    EXPECT_FALSE(isOn(SettingsField::launchAtLogin));
}

TEST_F(SettingsWindowTest, TogglesTheLoginItem) {
    controller.show();

    set(SettingsField::launchAtLogin, true);
    EXPECT_EQ(platform.loginItem.current, LoginStatus::enabled);
    EXPECT_TRUE(isOn(SettingsField::launchAtLogin));

    set(SettingsField::launchAtLogin, false);
    EXPECT_EQ(platform.loginItem.current, LoginStatus::notRegistered);
    EXPECT_FALSE(isOn(SettingsField::launchAtLogin));
}

TEST_F(SettingsWindowTest, TheLoginItemIsSwitchedByASwitchAlone) {
    controller.show();

    set(SettingsField::launchAtLogin, 1.0);

    EXPECT_EQ(platform.loginItem.registrations, 0);
    EXPECT_FALSE(isOn(SettingsField::launchAtLogin));
}

TEST_F(SettingsWindowTest, LeavesALoginItemAloneThatIsAlreadyAsTheUserSetsIt) {
    controller.show();
    platform.loginItem.current = LoginStatus::enabled;

    set(SettingsField::launchAtLogin, true);

    EXPECT_EQ(platform.loginItem.registrations, 0);
    EXPECT_EQ(platform.loginItem.unregistrations, 0);
}

TEST_F(SettingsWindowTest, KeepsTheLoginSwitchAsTheUserSetItUntilItIsShownAgain) {
    platform.loginItem.failure = PlatformError{13, "Permission denied"};
    controller.show();

    set(SettingsField::launchAtLogin, true);
    set(SettingsField::autoHide, true);
    controller.show();
    EXPECT_TRUE(isOn(SettingsField::launchAtLogin));
    EXPECT_EQ(log.count("login item toggle failed: Permission denied"), 1);

    window().closeByButton();
    controller.show();
    EXPECT_FALSE(isOn(SettingsField::launchAtLogin));
}

}
}
