#include "ProgramWindowTest.hpp"

#include "Settings/SettingsCoding.hpp"

#include <algorithm>

namespace vireline::desktop {
namespace {

bool liesIn(const PixelRect& inner, const PixelRect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

}

VirtualDesktop& ProgramWindowTest::runWith(const std::string& members, Options options) {
    options.accessibility = true;
    if (options.monitors.empty())
        options.monitors = twoMonitors();
    auto& desktop = make(options);
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.home().writePreferences(R"({"onboardingCompleted": true)" +
                                    (members.empty() ? "" : ", " + members) + "}");
    desktop.runVireline();
    return desktop;
}

VirtualDesktop& ProgramWindowTest::runForTheFirstTime() {
    auto& desktop = make({.monitors = twoMonitors(), .accessibility = true});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    std::filesystem::remove_all(desktop.home().dataFolder());
    desktop.runVireline();
    return desktop;
}

xcb_window_t ProgramWindowTest::window(std::string_view title) {
    const auto windows = desktop().windowsTitled(title);
    return windows.empty() ? xcb_window_t{XCB_NONE} : windows.front();
}

testing::AssertionResult ProgramWindowTest::opens(std::string_view title) {
    if (eventually([&] { return window(title) != XCB_NONE; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << title << " does not open";
}

testing::AssertionResult ProgramWindowTest::closes(std::string_view title) {
    if (eventually([&] { return window(title) == XCB_NONE; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << title << " does not close";
}

void ProgramWindowTest::startAgain() {
    ChildProcess second{
        {testedPrograms().vireline.string(), {}, desktop().environment(), {}, {}, {}}};
    EXPECT_EQ(second.waitForExit(), 0);
}

void ProgramWindowTest::openSettings() {
    startAgain();
    ASSERT_TRUE(opens(settingsTitle));
    ASSERT_TRUE(eventually([&] { return desktop().activeWindow() == window(settingsTitle); }));
}

testing::AssertionResult ProgramWindowTest::takesKeys() {
    if (eventually([&] { return desktop().controls().focused().has_value(); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no control has the focus";
}

void ProgramWindowTest::close(std::string_view title) {
    desktop().closeWindow(window(title));
    ASSERT_TRUE(closes(title));
}

BusObject ProgramWindowTest::control(Role role, const std::string& name) {
    std::optional<BusObject> found;
    if (!eventually([&] {
            found = desktop().controls().find(role, name);
            return found.has_value();
        }))
        throw std::runtime_error{"no control " + name};
    return *found;
}

bool ProgramWindowTest::has(Role role, const std::string& name) {
    return desktop().controls().find(role, name).has_value();
}

PixelRect ProgramWindowTest::bringIntoView(const BusObject& control) {
    const auto settings = desktop().frameOf(window(settingsTitle)).value_or(PixelRect{});
    desktop().pointer().moveTo({settings.x + 3, settings.y + settings.height / 2});
    constexpr int mostTurns = 60;
    for (int i = 0; i < mostTurns && !liesIn(frameOf(control), settings); ++i) {
        const auto before = frameOf(control);
        const bool isBelow = before.bottom() > settings.bottom();
        const auto wheel = isBelow ? Pointer::Button::wheelDown : Pointer::Button::wheelUp;
        desktop().pointer().press(wheel);
        desktop().pointer().release(wheel);
        static_cast<void>(
            eventually([&] { return frameOf(control) != before; }, std::chrono::milliseconds{500}));
    }
    return frameOf(control);
}

PixelRect ProgramWindowTest::frameOf(const BusObject& control) {
    const auto tree = desktop().controls();
    PixelRect frame = tree.frame(control);
    if (!desktop().isWayland())
        return frame;
    // Programs do not know where their windows are.
    for (const std::string_view title : {settingsTitle, tourTitle}) {
        const auto root = tree.find(Role::frame, std::string{title});
        const auto seen = desktop().frameOf(window(title));
        if (!root || !seen)
            continue;
        const PixelRect reported = tree.frame(*root);
        frame.x += seen->x - reported.x;
        frame.y += seen->y - reported.y;
        break;
    }
    return frame;
}

void ProgramWindowTest::click(Role role, const std::string& name) {
    const auto found = control(role, name);
    const auto frame = window(settingsTitle) != XCB_NONE ? bringIntoView(found) : frameOf(found);
    desktop().pointer().click(frame.center());
}

testing::AssertionResult ProgramWindowTest::focus(const BusObject& control) {
    const auto tree = desktop().controls();
    constexpr int mostControls = 30;
    std::optional<BusObject> before;
    for (int i = 0; i < mostControls; ++i) {
        // Waits for the effect of each key, since a pending one would move the focus on later.
        std::optional<BusObject> now;
        const auto hasMoved = [&] {
            now = tree.focused();
            return now && now != before;
        };
        if (!eventually(hasMoved))
            break;
        if (now == control)
            return testing::AssertionSuccess();
        before = now;
        desktop().keyboard().type(Keyboard::tab);
    }
    return testing::AssertionFailure() << tree.name(control) << " never has the focus";
}

testing::AssertionResult ProgramWindowTest::says(std::string_view text) {
    const auto isShown = [&] {
        const auto labels = desktop().controls().names(Role::label);
        return std::ranges::any_of(
            labels, [&](const std::string& label) { return label.starts_with(text); });
    };
    if (eventually(isShown))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "nothing says " << text;
}

Settings ProgramWindowTest::saved() {
    return SettingsCoding::decode(readFile(desktop().home().preferences())).value_or(Settings{});
}

testing::AssertionResult
ProgramWindowTest::saves(const std::function<bool(const Settings&)>& condition) {
    if (eventually([&] { return condition(saved()); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the file holds\n"
                                       << readFile(desktop().home().preferences());
}

}
