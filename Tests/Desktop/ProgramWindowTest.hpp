/// For tests of the program's own windows: opens them, and drives their controls through the
/// accessibility tree.
#pragma once

#include "DesktopTest.hpp"
#include "Settings/Settings.hpp"

#include <functional>
#include <string>
#include <string_view>

namespace vireline::desktop {

class ProgramWindowTest : public DesktopTest {
protected:
    using Role = AccessibleRole;

    static constexpr std::string_view settingsTitle = "Vireline Settings";
    static constexpr std::string_view tourTitle = "Welcome to Vireline";

    /// Runs the program on two displays with two pinned apps; the dock is on the display "right".
    /// `members` are preferences in addition to the completed tour.
    VirtualDesktop& runWith(const std::string& members = {}, Options options = {});
    /// As above, but without any preferences, as in a first start.
    VirtualDesktop& runForTheFirstTime();

    /// The open window with this title; XCB_NONE if there is none.
    [[nodiscard]] xcb_window_t window(std::string_view title);
    [[nodiscard]] testing::AssertionResult opens(std::string_view title);
    [[nodiscard]] testing::AssertionResult closes(std::string_view title);

    /// Starts the program a second time, which shows the settings of the running instance.
    void startAgain();
    /// As above, and waits until the settings window has the keyboard focus.
    void openSettings();
    /// Waits until the program knows that a window of its own has the keyboard focus, which is a
    /// little later than the window manager or compositor does. Until then, keys may be lost.
    [[nodiscard]] testing::AssertionResult takesKeys();
    /// Closes the window as its close button does.
    void close(std::string_view title);

    /// Waits for the control; throws if it does not appear.
    [[nodiscard]] BusObject control(Role role, const std::string& name);
    [[nodiscard]] bool has(Role role, const std::string& name);
    /// The control's frame on the screen. On a Wayland desktop, only one window may be open.
    [[nodiscard]] PixelRect frameOf(const BusObject& control);
    /// Scrolls the settings until the whole control is visible; returns its frame.
    [[nodiscard]] PixelRect bringIntoView(const BusObject& control);
    /// Clicks the centre of a control.
    void click(Role role, const std::string& name);
    /// Presses Tab until the control has the focus.
    [[nodiscard]] testing::AssertionResult focus(const BusObject& control);

    /// Waits for a label that begins with this text.
    [[nodiscard]] testing::AssertionResult says(std::string_view text);

    /// The content of the preferences file; the defaults if it cannot be parsed.
    [[nodiscard]] Settings saved();
    [[nodiscard]] testing::AssertionResult
    saves(const std::function<bool(const Settings&)>& condition);

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

}
