/// The settings window on a real desktop: it opens and closes, and shows what holds.
#include "ProgramWindowTest.hpp"

#include <algorithm>

namespace vireline::desktop {
namespace {

using Role = AccessibleRole;

class SettingsWindow : public ProgramWindowTest {};

TEST_F(SettingsWindow, OpenedTwiceIsOneWindow) {
    runWith();
    openSettings();
    const auto first = window(settingsTitle);
    startAgain();
    openSettings();

    EXPECT_EQ(window(settingsTitle), first);
    EXPECT_EQ(desktop().windowsTitled(settingsTitle).size(), 1U);
}

TEST_F(SettingsWindow, IsAsLargeAsItShouldBeAndInTheMiddleOfTheDisplayWithThePointer) {
    runWith();
    const auto display = desktop().monitor("right").frame;
    desktop().pointer().moveTo({display.x + 100, display.y + 100});
    openSettings();

    const auto frame = desktop().client().frame(window(settingsTitle)).value();
    EXPECT_EQ(frame.width, 480);
    EXPECT_EQ(frame.height, 640);
    // The window manager's decoration shifts it by some pixels.
    constexpr int frameThickness = 40;
    EXPECT_NEAR(frame.center().x, display.center().x, frameThickness);
    EXPECT_NEAR(frame.center().y, display.center().y, frameThickness);
}

// Behaviour: settings-window-2
TEST_F(SettingsWindow, KeepsItsPlaceWhenItIsClosedAndOpenedAgain) {
    runWith();
    openSettings();
    const auto& client = desktop().client();
    constexpr std::uint32_t placeOnly = (1U << 8U) | (1U << 9U) | (2U << 12U);
    client.sendToRoot(window(settingsTitle), "_NET_MOVERESIZE_WINDOW", {placeOnly, 300, 200});
    const auto isMoved = [&] {
        const auto frame = client.frame(window(settingsTitle));
        return frame && frame->x < 400 && frame->y < 300;
    };
    ASSERT_TRUE(eventually(isMoved));
    const auto before = client.frame(window(settingsTitle));

    for (int round = 0; round < 3; ++round) {
        close(settingsTitle);
        openSettings();
        EXPECT_EQ(client.frame(window(settingsTitle)), before);
    }
}

TEST_F(SettingsWindow, ClosesOnEscapeAndLetsTheProgramRun) {
    runWith();
    openSettings();
    ASSERT_TRUE(takesKeys());

    desktop().keyboard().type(Keyboard::escape);

    EXPECT_TRUE(closes(settingsTitle));
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

TEST_F(SettingsWindow, ComesBackFromBeingMinimised) {
    runWith();
    openSettings();
    const auto first = window(settingsTitle);
    // Qt repeats the request to activate a new window once it is shown. Until then, that would
    // undo the minimising.
    ASSERT_TRUE(takesKeys());
    constexpr std::uint32_t iconic = 3;
    desktop().client().sendToRoot(first, "WM_CHANGE_STATE", {iconic});
    ASSERT_TRUE(closes(settingsTitle));

    openSettings();

    EXPECT_EQ(window(settingsTitle), first);
}

// Behaviour: entry-3
TEST_F(SettingsWindow, QuitsTheProgramWithItsKey) {
    runWith();
    openSettings();
    ASSERT_TRUE(takesKeys());

    desktop().keyboard().typeWithControl('q');

    EXPECT_EQ(desktop().vireline().waitForExit(), 0);
}

TEST_F(SettingsWindow, IsNoAppInTheDock) {
    runWith();
    openSettings();

    // If the window counted as an app, it would have added a tile.
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_EQ(desktop().log().count("reframed panel"), 0);
}

TEST_F(SettingsWindow, FollowsADragInADock) {
    runWith();
    ASSERT_TRUE(docksSettle(twoTiles));
    openSettings();
    const auto manual = control(Role::radioButton, "Manual list");
    ASSERT_FALSE(desktop().controls().is(manual, AccessibleState::checked));

    const auto dock = layout("right", twoTiles);
    auto pointer = desktop().pointer();
    pointer.moveTo(dock.icon(0));
    pointer.press(Pointer::Button::primary);
    constexpr int step = 6;
    for (int x = dock.icon(0).x; x < dock.icon(1).x + step; x += step)
        pointer.moveTo({x, dock.icon(0).y});
    pointer.moveTo({dock.icon(1).x + step, dock.icon(0).y});
    pointer.release(Pointer::Button::primary);

    EXPECT_TRUE(logs("manual move " + apps[0].id));
    EXPECT_TRUE(
        eventually([&] { return desktop().controls().is(manual, AccessibleState::checked); }));
    EXPECT_TRUE(says("Drag apps from the file manager onto the dock to add them."));
}

TEST_F(SettingsWindow, ShowsTheFactorOnlyWhileMagnificationIsOn) {
    runWith();
    openSettings();
    ASSERT_FALSE(has(Role::slider, "Magnify to"));

    click(Role::checkBox, "Magnification");
    EXPECT_TRUE(eventually([&] { return has(Role::slider, "Magnify to"); }));
    click(Role::checkBox, "Magnification");
    EXPECT_TRUE(eventually([&] { return !has(Role::slider, "Magnify to"); }));
}

TEST_F(SettingsWindow, SaysThatTheAnchorIsActiveWhileItIs) {
    runWith();
    openSettings();
    const std::string line = "Active. The desktop's dock stays where it is.";

    click(Role::checkBox, "Keep the desktop's dock on its own display");
    EXPECT_TRUE(says(line));
    click(Role::checkBox, "Keep the desktop's dock on its own display");
    EXPECT_TRUE(eventually([&] { return !has(Role::label, line); }));
}

TEST_F(SettingsWindow, SaysWhatAWindowManagerThatMovesNoWindowsDisables) {
    runWith(R"("anchorAppleDock": true)", {.windowManager = false});
    startAgain();

    const std::string warning =
        "There is no window manager here that can move other programs' windows.";
    const auto warnings = [&] {
        return std::ranges::count(desktop().controls().names(Role::label), warning);
    };
    EXPECT_TRUE(eventually([&] { return warnings() == 3; })) << warnings();
    // The anchor does not need a window manager.
    EXPECT_TRUE(says("Active. The desktop's dock stays where it is."));
    // The only buttons are those of the dock, since there is no permission to ask for.
    EXPECT_TRUE(eventually([&] {
        return desktop().controls().names(Role::pushButton) ==
               std::vector<std::string>{"Alpha", "Beta", "Downloads", "Trash"};
    }));

    desktop().startWindowManager();
    EXPECT_TRUE(eventually([&] { return warnings() == 0; }));
    desktop().stopWindowManager();
    EXPECT_TRUE(eventually([&] { return warnings() == 3; }));
}

TEST_F(SettingsWindow, KeepsAValueOutsideItsRangeUntilTheSliderMoves) {
    runWith(R"("iconSize": 20)");
    openSettings();
    const auto slider = control(Role::slider, "Icon size");
    EXPECT_EQ(desktop().controls().value(slider), 0);
    click(Role::checkBox, "Automatically hide and show the dock");
    ASSERT_TRUE(saves([](const Settings& settings) { return settings.autoHide; }));
    EXPECT_EQ(saved().iconSize, 20);

    ASSERT_TRUE(focus(slider));
    desktop().keyboard().type(Keyboard::right);

    EXPECT_TRUE(saves([](const Settings& settings) { return settings.iconSize == 33; }));
}

TEST_F(SettingsWindow, NamesEveryControl) {
    runWith(R"("magnificationEnabled": true)");
    openSettings();
    const auto tree = desktop().controls();
    // The last one.
    static_cast<void>(control(Role::checkBox, "Launch at login"));

    EXPECT_EQ(tree.names(Role::checkBox),
              (std::vector<std::string>{"Magnification", "Automatically hide and show the dock",
                                        "Keep the desktop's dock on its own display",
                                        "Open apps on the dock's display",
                                        "Move windows to the dock you click",
                                        "Fill the display on double-click", "Launch at login"}));
    EXPECT_EQ(tree.names(Role::radioButton),
              (std::vector<std::string>{"Mirror the desktop's dock", "Manual list", "Bottom",
                                        "Left", "Right"}));
    EXPECT_EQ(tree.names(Role::slider), (std::vector<std::string>{"Icon size", "Magnify to"}));
}

}
}
