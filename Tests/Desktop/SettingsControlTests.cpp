/// The controls of the settings window on a real desktop: each changes the file, the docks and the
/// window's texts, by pointer and by keyboard.
#include "ProgramWindowTest.hpp"

#include <algorithm>

namespace vireline::desktop {
namespace {

using Role = AccessibleRole;

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
