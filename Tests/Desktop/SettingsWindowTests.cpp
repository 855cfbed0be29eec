/// The settings window on a real desktop: it opens and closes, and every control changes the file,
/// the docks and the window's texts, by pointer and by keyboard.
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
    EXPECT_EQ(std::ranges::count_if(desktop().client().managedWindows(),
                                    [&](xcb_window_t managed) {
                                        return desktop().client().text(managed, "_NET_WM_NAME") ==
                                               settingsTitle;
                                    }),
              1);
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

    desktop().keyboard().type(Keyboard::escape);

    EXPECT_TRUE(closes(settingsTitle));
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(desktop().vireline().isRunning());
}

TEST_F(SettingsWindow, ComesBackFromBeingMinimised) {
    runWith();
    openSettings();
    const auto first = window(settingsTitle);
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

    const std::string warning = "The window manager here cannot move other programs' windows.";
    const auto warnings = [&] {
        return std::ranges::count(desktop().controls().names(Role::label), warning);
    };
    EXPECT_TRUE(says(warning));
    EXPECT_EQ(warnings(), 3);
    // The anchor does not need a window manager.
    EXPECT_TRUE(says("Active. The desktop's dock stays where it is."));
    // The only buttons are those of the dock, since there is no permission to ask for.
    EXPECT_EQ(desktop().controls().names(Role::pushButton),
              (std::vector<std::string>{"Alpha", "Beta", "Downloads", "Trash"}));

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

/// A control, how to operate it, and the expected effect.
struct ControlCase {
    const char* name;
    Role role;
    /// The control's name; for a group, the option to choose.
    std::string control;
    /// The group's option that is focused before.
    std::string from{}; // NOLINT(readability-redundant-member-init)
    xcb_keysym_t key = Keyboard::space;
    /// The expected change of the file.
    void (*change)(Settings&) = nullptr;
    /// The expected change of the docks' plan.
    void (*plan)(PanelPlanner::Request&) = [](PanelPlanner::Request&) {};
    /// The expected text of a label.
    std::string label{}; // NOLINT(readability-redundant-member-init)

    friend std::ostream& operator<<(std::ostream& out, const ControlCase& control) {
        return out << control.name;
    }
};

std::vector<ControlCase> switches() {
    const auto toggle = [](const char* name, const char* control, void (*change)(Settings&)) {
        return ControlCase{
            .name = name, .role = Role::checkBox, .control = control, .change = change};
    };
    auto cases = std::vector{
        toggle("Magnification", "Magnification",
               [](Settings& settings) { settings.magnificationEnabled = true; }),
        toggle("AutoHide", "Automatically hide and show the dock",
               [](Settings& settings) { settings.autoHide = true; }),
        toggle("Anchor", "Keep the desktop's dock on its own display",
               [](Settings& settings) { settings.anchorAppleDock = true; }),
        toggle("OpenHere", "Open apps on the dock's display",
               [](Settings& settings) { settings.openOnThisDisplay = true; }),
        toggle("Summon", "Move windows to the dock you click",
               [](Settings& settings) { settings.summonOnClick = true; }),
        toggle("Fill", "Fill the display on double-click",
               [](Settings& settings) { settings.fillOnDoubleClick = true; }),
    };
    cases[0].plan = [](PanelPlanner::Request& request) { request.magnification = 1.5; };
    cases[2].label = "Active. The desktop's dock stays where it is.";
    return cases;
}

std::vector<ControlCase> choices() {
    return {
        {.name = "Source",
         .role = Role::radioButton,
         .control = "Manual list",
         .from = "Mirror the desktop's dock",
         .key = Keyboard::down,
         .change = [](Settings& settings) { settings.sourceMode = SourceMode::manual; },
         .label = "Drag apps from the file manager onto the dock to add them."},
        {.name = "Position",
         .role = Role::radioButton,
         .control = "Left",
         .from = "Bottom",
         .key = Keyboard::right,
         .change = [](Settings& settings) { settings.position = DockPosition::left; },
         .plan = [](PanelPlanner::Request& request) { request.position = DockPosition::left; }},
    };
}

std::vector<ControlCase> allButSliders() {
    auto cases = switches();
    std::ranges::copy(choices(), std::back_inserter(cases));
    return cases;
}

class SettingsControl : public ProgramWindowTest, public testing::WithParamInterface<ControlCase> {
protected:
    /// Checks that the file, the docks and the window all reflect the change.
    void expectChange() {
        const ControlCase& used = GetParam();
        Settings expected;
        expected.onboardingCompleted = true;
        used.change(expected);
        EXPECT_TRUE(saves([&](Settings settings) {
            // The manual list is initialised from the mirrored one.
            settings.manualApps.clear();
            return settings == expected;
        }));
        if (!expected.autoHide) {
            used.plan(twoTiles);
            EXPECT_TRUE(docksSettle(twoTiles));
        }
        if (!used.label.empty()) {
            EXPECT_TRUE(says(used.label));
        }
        const auto tree = desktop().controls();
        const auto shown = control(used.role, used.control);
        EXPECT_TRUE(eventually([&] { return tree.is(shown, AccessibleState::checked); }));
    }
};

TEST_P(SettingsControl, WorksByPointer) {
    runWith();
    openSettings();

    click(GetParam().role, GetParam().control);

    expectChange();
}

TEST_P(SettingsControl, WorksByKeyboard) {
    runWith();
    openSettings();
    const ControlCase& used = GetParam();

    ASSERT_TRUE(focus(control(used.role, used.from.empty() ? used.control : used.from)));
    desktop().keyboard().type(used.key);

    expectChange();
}

INSTANTIATE_TEST_SUITE_P(Each, SettingsControl, testing::ValuesIn(allButSliders()),
                         [](const auto& control) { return std::string{control.param.name}; });

class SettingsSlider : public ProgramWindowTest {
protected:
    /// Drags the slider's knob between two positions, given as fractions of its length.
    void drag(const BusObject& slider, double from, double to) {
        const auto frame = bringIntoView(slider);
        const auto at = [&](double share) {
            // Half a knob plus the focus ring, at both ends.
            constexpr int reach = 14;
            return PixelPoint{frame.x + reach + static_cast<int>(share * (frame.width - 2 * reach)),
                              frame.center().y};
        };
        auto pointer = desktop().pointer();
        pointer.moveTo(at(from));
        pointer.press(Pointer::Button::primary);
        constexpr int steps = 12;
        for (int i = 1; i <= steps; ++i)
            pointer.moveTo(at(from + (to - from) * i / steps));
        pointer.release(Pointer::Button::primary);
    }
};

TEST_F(SettingsSlider, OfTheIconSizeIsDraggedAndTheDocksFollow) {
    runWith();
    openSettings();
    constexpr double now = 12.0 / 32;

    drag(control(Role::slider, "Icon size"), now, 1);

    EXPECT_TRUE(saves([](const Settings& settings) { return settings.iconSize == 64; }));
    twoTiles.maxIconSize = 64;
    EXPECT_TRUE(docksSettle(twoTiles));
    EXPECT_TRUE(turns(layout("right", twoTiles).icon(0), apps[0].colour));
}

TEST_F(SettingsSlider, OfTheIconSizeGoesByKeyToItsEndsAndByStep) {
    runWith();
    openSettings();
    ASSERT_TRUE(focus(control(Role::slider, "Icon size")));

    desktop().keyboard().type(Keyboard::right);
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.iconSize == 45; }));
    desktop().keyboard().type(Keyboard::home);
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.iconSize == 32; }));
    twoTiles.maxIconSize = 32;
    EXPECT_TRUE(docksSettle(twoTiles));
    desktop().keyboard().type(Keyboard::end);
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.iconSize == 64; }));
}

TEST_F(SettingsSlider, OfTheMagnificationIsDraggedAndTheDocksFollow) {
    runWith(R"("magnificationEnabled": true)");
    openSettings();
    constexpr double now = 3.0 / 8;

    drag(control(Role::slider, "Magnify to"), now, 0);

    EXPECT_TRUE(saves([](const Settings& settings) { return settings.magnification == 1.2; }));
    twoTiles.magnification = 1.2;
    EXPECT_TRUE(docksSettle(twoTiles));
}

TEST_F(SettingsSlider, OfTheMagnificationGoesByKeyInTenths) {
    runWith(R"("magnificationEnabled": true)");
    openSettings();
    ASSERT_TRUE(focus(control(Role::slider, "Magnify to")));

    desktop().keyboard().type(Keyboard::right);
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.magnification == 1.6; }));
    desktop().keyboard().type(Keyboard::end);
    EXPECT_TRUE(saves([](const Settings& settings) { return settings.magnification == 2.0; }));
    twoTiles.magnification = 2.0;
    EXPECT_TRUE(docksSettle(twoTiles));
}

}
}
