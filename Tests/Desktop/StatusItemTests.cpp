/// The status item on real desktops: with a panel that shows status notifier items, in a system
/// tray, with either coming and going, and without both; and the start at login that its menu
/// switches.
#include "StatusItemTest.hpp"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <utility>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;
using Role = AccessibleRole;
using Lines = std::vector<std::string>;

Lines menuWithLogin(bool isChecked) {
    return {"Settings…", "Welcome Tour…",
            std::string{isChecked ? "[x]" : "[ ]"} + " Launch at Login", "---", "Quit Vireline"};
}

TEST_F(StatusItem, IsShownByAHostWithItsMenu) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));

    EXPECT_EQ(host.text("Id"), "vireline");
    EXPECT_EQ(host.text("Title"), "Vireline");
    EXPECT_EQ(host.text("Status"), "Active");
    EXPECT_EQ(host.text("IconAccessibleDesc"), "Vireline");
    EXPECT_TRUE(host.flag("ItemIsMenu"));
    EXPECT_GE(host.pictureCount(), 4U);
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
}

TEST_F(StatusItem, OpensTheSettingsAndTheTourFromAHost) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));

    host.choose("Settings…");
    EXPECT_TRUE(opens(settingsTitle));
    host.choose("Welcome Tour…");
    EXPECT_TRUE(opens(tourTitle));
}

// Behaviour: status-item-2
TEST_F(StatusItem, OpensTheSettingsAndQuitsByKeyFromAHost) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));

    host.press("comma");
    EXPECT_TRUE(opens(settingsTitle));
    host.press("q");
    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
    EXPECT_EQ(desktop().log().messages().back(), "quit from menu bar");
}

// Behaviour: status-item-1
TEST_F(StatusItem, ShowsTheStartAtLoginAsItIsAtEachOpening) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    ASSERT_EQ(host.openMenu(), menuWithLogin(false));

    const std::string entry = "[Desktop Entry]\nType=Application\nName=Mine\nExec=";
    const std::string program = testedPrograms().vireline.string();
    writeFile(autostartEntry(), entry + program + " --mine\n");
    EXPECT_EQ(host.openMenu(), menuWithLogin(true));
    writeFile(autostartEntry(), entry + program + " --mine\nX-GNOME-Autostart-enabled=false\n");
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
    writeFile(autostartEntry(), entry + "/deleted/vireline --mine\n");
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
    fs::remove(autostartEntry());
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
}

TEST_F(StatusItem, SwitchesTheStartAtLoginOnAndOffAgain) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));

    host.choose("Launch at Login");
    EXPECT_TRUE(logs("login item registered"));
    EXPECT_EQ(host.openMenu(), menuWithLogin(true));
    const auto entry = readFile(autostartEntry());
    EXPECT_TRUE(entry.contains("\nExec=" + testedPrograms().vireline.string() + "\n")) << entry;
    EXPECT_TRUE(entry.contains("\nIcon=vireline\n")) << entry;

    host.choose("Launch at Login");
    EXPECT_TRUE(logs("login item unregistered"));
    EXPECT_FALSE(fs::exists(autostartEntry()));
}

TEST_F(StatusItem, SharesTheStartAtLoginWithTheSettings) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    openSettings();

    click(Role::checkBox, "Launch at login");
    EXPECT_TRUE(logs("login item registered"));
    EXPECT_EQ(host.openMenu(), menuWithLogin(true));

    // The switch is updated when the window is shown, not before.
    close(settingsTitle);
    host.choose("Launch at Login");
    EXPECT_TRUE(logs("login item unregistered"));
    openSettings();
    const auto shown = control(Role::checkBox, "Launch at login");
    EXPECT_FALSE(desktop().controls().is(shown, AccessibleState::checked));
}

TEST_F(StatusItem, KeepsWhatTheUserWroteIntoTheAutostartEntry) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    const std::string program = testedPrograms().vireline.string();
    writeFile(autostartEntry(), "# mine\n[Desktop Entry]\nType=Application\nName=Mine\nExec=" +
                                    program + " --mine\n");

    host.choose("Launch at Login");
    EXPECT_TRUE(logs("login item unregistered"));
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
    host.choose("Launch at Login");
    EXPECT_TRUE(logs("login item registered"));

    EXPECT_EQ(host.openMenu(), menuWithLogin(true));
    const auto entry = readFile(autostartEntry());
    EXPECT_TRUE(entry.contains("# mine")) << entry;
    EXPECT_TRUE(entry.contains("Exec=" + program + " --mine")) << entry;
}

TEST_F(StatusItem, SaysWhyTheStartAtLoginCannotBeSwitched) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    // A file in place of the folder makes writing fail, even for root.
    writeFile(autostartEntry().parent_path(), "");

    host.choose("Launch at Login");

    EXPECT_TRUE(logs("login item toggle failed: "));
    EXPECT_EQ(desktop().log().count("login item "), 1);
    EXPECT_EQ(host.openMenu(), menuWithLogin(false));
}

TEST_F(StatusItem, IsThereForAHostThatComesLaterAndForTheNextOne) {
    runWith();
    ASSERT_TRUE(docksSettle(twoTiles));
    for (int round = 0; round < 2; ++round) {
        const auto host = desktop().startNotifierHost();
        EXPECT_TRUE(isRegistered(host));
        EXPECT_EQ(host.openMenu(), menuWithLogin(false));
        desktop().stopNotifierHost();
    }
}

TEST_F(StatusItem, PopsItsOwnMenuUpForAHostThatShowsNone) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    const auto display = desktop().monitor("left").frame;
    desktop().pointer().moveTo(display.center());

    host.activate();

    ASSERT_TRUE(eventually([&] { return !desktop().docks().menus().empty(); }));
    const auto menu = desktop().docks().menus().front();
    EXPECT_NEAR(menu.x, display.center().x, 8) << menu;
    EXPECT_NEAR(menu.y, display.center().y, 8) << menu;
    choose(menu, 0, menuEntryCount);
    EXPECT_TRUE(opens(settingsTitle));
}

TEST_F(StatusItem, ClosesItsOwnMenuWithEscapeOrAClickElsewhere) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));
    const auto display = desktop().monitor("left").frame;
    const auto menus = [&] { return desktop().docks().menus(); };
    for (const bool byKey : {true, false}) {
        desktop().pointer().moveTo(display.center());
        host.activate();
        ASSERT_TRUE(eventually([&] { return !menus().empty() && desktop().isKeyboardTaken(); }));
        if (byKey)
            desktop().keyboard().type(Keyboard::escape);
        else
            desktop().pointer().click({display.x + 100, display.y + 100});
        EXPECT_TRUE(eventually([&] { return menus().empty(); }));
        EXPECT_TRUE(eventually([&] { return !desktop().isKeyboardTaken(); }));
    }
    desktop().pointer().click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
}

TEST_F(StatusItem, IsNotNeededWhereThereIsNoPlaceForIt) {
    runWithTwoDisplays(apps);
    ASSERT_TRUE(docksSettle(twoTiles));

    const auto messages = desktop().log().messages();
    EXPECT_TRUE(std::ranges::none_of(messages, [](const std::string& message) {
        return message.contains("tray") || message.contains("status") || message.contains("bus");
    }));
    startAgain();
    EXPECT_TRUE(opens(settingsTitle));
}

TEST_F(StatusItem, OutlivesTheSessionBus) {
    runWith();
    {
        const auto host = desktop().startNotifierHost();
        ASSERT_TRUE(isRegistered(host));
    }
    desktop().stopSessionBus();

    startAgain();

    EXPECT_TRUE(opens(settingsTitle));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

/// The empty glass of a dock, between its end and its first tile.
class BesideTheTiles : public StatusItem {
protected:
    /// A point there; waits until the dock is in place.
    [[nodiscard]] PixelPoint glass() {
        EXPECT_TRUE(docksSettle(twoTiles));
        const auto icon = layout("right", twoTiles).icon(0);
        constexpr int besideTheIcon = 22 + 3;
        const PixelPoint glass{icon.x - besideTheIcon, icon.y};
        EXPECT_TRUE(eventually([&] { return takesClicksAt(glass); }));
        return glass;
    }
    [[nodiscard]] bool takesClicksAt(PixelPoint point) {
        const auto dock = desktop().docks().on(desktop().displayIDOf("right"));
        const PixelPoint inside{point.x - dock.frame.x, point.y - dock.frame.y};
        return std::ranges::any_of(desktop().docks().inputRegion(dock.window),
                                   [&](const PixelRect& part) { return part.contains(inside); });
    }
    /// Opens the menu there and chooses the last of its `count` entries; returns the menu's height.
    int chooseLast(int count) {
        const auto menu = openMenu(glass());
        EXPECT_NE(menu, PixelRect{});
        choose(menu, count - 1, count);
        return menu.height;
    }
};

TEST_F(BesideTheTiles, IsAnotherWayToTheSettingsAndWithoutAPlaceForTheItemToTheEnd) {
    runWith();

    const auto menu = openMenu(glass());
    ASSERT_NE(menu, PixelRect{});
    choose(menu, 0, 2);
    EXPECT_TRUE(opens(settingsTitle));
    close(settingsTitle);
    chooseLast(2);

    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
    EXPECT_EQ(desktop().log().messages().back(), "quit from dock");
}

TEST_F(BesideTheTiles, NothingQuitsWhileAHostShowsTheItem) {
    runWith();
    const auto host = desktop().startNotifierHost();
    ASSERT_TRUE(isRegistered(host));

    chooseLast(1);

    EXPECT_TRUE(opens(settingsTitle));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

TEST_F(BesideTheTiles, NothingQuitsWhileTheItemIsInTheTray) {
    runWith();
    auto& tray = startTray();
    ASSERT_TRUE(trayHasIcon(true));

    const int withTray = chooseLast(1);
    EXPECT_TRUE(opens(settingsTitle));
    close(settingsTitle);
    tray.signal(SIGTERM);
    ASSERT_TRUE(trayHasIcon(false));
    const int withoutTray = chooseLast(2);

    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
    EXPECT_GT(withoutTray, withTray) << "it had an entry less";
}

}
}
