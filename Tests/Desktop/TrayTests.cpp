/// The status item in a system tray.
#include "StatusItemTest.hpp"

#include <algorithm>
#include <csignal>

namespace vireline::desktop {
namespace {

TEST_F(StatusItem, IsInTheTrayWhereThereIsNoHost) {
    runWith();
    startTray();
    ASSERT_TRUE(trayHasIcon(true));

    desktop().pointer().click(trayIconFrame().center());
    ASSERT_TRUE(eventually([&] { return !desktop().docks().menus().empty(); }));
    choose(desktop().docks().menus().front(), 0, menuEntryCount);
    EXPECT_TRUE(opens(settingsTitle));

    desktop().pointer().click(trayIconFrame().center(), Pointer::Button::secondary);
    ASSERT_TRUE(eventually([&] { return !desktop().docks().menus().empty(); }));
    choose(desktop().docks().menus().front(), menuEntryCount - 1, menuEntryCount);
    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
    EXPECT_TRUE(trayHasIcon(false));
}

TEST_F(StatusItem, OpensItsMenuInTheTrayForAClickAlone) {
    runWith();
    startTray();
    ASSERT_TRUE(trayHasIcon(true));
    ASSERT_TRUE(docksSettle(twoTiles));
    const auto pointer = desktop().pointer();
    const PixelPoint icon = trayIconFrame().center();
    const PixelPoint elsewhere = desktop().monitor("left").frame.center();

    for (const auto button :
         {Pointer::Button::wheelUp, Pointer::Button::wheelDown, Pointer::Button::middle})
        pointer.click(icon, button);
    for (const auto& [from, to] : {std::pair{icon, elsewhere}, std::pair{elsewhere, icon}}) {
        pointer.moveTo(from);
        pointer.press(Pointer::Button::primary);
        pointer.moveTo(to);
        pointer.release(Pointer::Button::primary);
    }

    // If a menu were open, this click would only close it.
    pointer.click(layout("right", twoTiles).icon(0));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_TRUE(desktop().docks().menus().empty());
}

TEST_F(StatusItem, StandsOutFromTheTray) {
    runWith();
    startTray();
    ASSERT_TRUE(trayHasIcon(true));

    // On a dark ground the symbol is bright.
    EXPECT_TRUE(eventually([&] {
        const auto picture = desktop().picture(trayIconFrame());
        constexpr Colour bright{240, 240, 244};
        return picture.count(bright) >= 10;
    }));
}

TEST_F(StatusItem, FollowsTheKeysOfItsMenuInTheTray) {
    runWith();
    startTray();
    ASSERT_TRUE(trayHasIcon(true));

    desktop().pointer().click(trayIconFrame().center());
    ASSERT_TRUE(eventually(
        [&] { return !desktop().docks().menus().empty() && desktop().isKeyboardTaken(); }));
    desktop().keyboard().typeWithControl(',');
    EXPECT_TRUE(opens(settingsTitle));
    EXPECT_TRUE(eventually([&] { return desktop().docks().menus().empty(); }));

    desktop().pointer().click(trayIconFrame().center());
    ASSERT_TRUE(eventually(
        [&] { return !desktop().docks().menus().empty() && desktop().isKeyboardTaken(); }));
    desktop().keyboard().typeWithControl('q');
    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
    EXPECT_EQ(desktop().log().messages().back(), "quit from menu bar");
}

TEST_F(StatusItem, ReturnsToATrayThatWasStartedAgain) {
    runWith();
    auto& first = startTray();
    ASSERT_TRUE(trayHasIcon(true));
    first.signal(SIGTERM);
    ASSERT_TRUE(first.waitForExit());
    ASSERT_TRUE(trayHasIcon(false));

    startTray();

    EXPECT_TRUE(trayHasIcon(true));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

TEST_F(StatusItem, MovesFromTheTrayToAHostAndBack) {
    runWith();
    startTray();
    ASSERT_TRUE(trayHasIcon(true));

    const auto host = desktop().startNotifierHost();
    EXPECT_TRUE(isRegistered(host));
    EXPECT_TRUE(trayHasIcon(false));
    desktop().stopNotifierHost();
    EXPECT_TRUE(trayHasIcon(true));
}

TEST_F(StatusItem, StaysInTheTrayWhileNoHostShowsTheItems) {
    runWith();
    startTray();
    const auto host = desktop().startNotifierHost(false);
    ASSERT_TRUE(isRegistered(host));
    EXPECT_TRUE(trayHasIcon(true));

    host.becomeHost();

    EXPECT_TRUE(trayHasIcon(false));
}

TEST_F(StatusItem, IsInTheTrayWithoutASessionBus) {
    auto& desktop = make({.monitors = twoMonitors()});
    startTray();
    desktop.runVireline();

    EXPECT_TRUE(trayHasIcon(true));
}

}
}
