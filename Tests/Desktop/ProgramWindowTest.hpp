/// For tests of the program's own windows: opens them, and uses their controls as a person does
/// whom assistive technology tells where they are.
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

    /// Runs the program on two displays with two pinned apps, the dock on the display "right".
    /// `members` are preferences besides that the tour was completed.
    VirtualDesktop& runWith(const std::string& members = {}, Options options = {});
    /// The same without any preferences, as it is when the program is started for the first time.
    VirtualDesktop& runForTheFirstTime();

    /// The window with this title that is open; XCB_NONE if there is none.
    [[nodiscard]] xcb_window_t window(std::string_view title);
    [[nodiscard]] testing::AssertionResult opens(std::string_view title);
    [[nodiscard]] testing::AssertionResult closes(std::string_view title);

    /// Starts the program a second time, which shows the settings of the running one.
    void startAgain();
    /// The same, and waits until the settings are there with the keyboard's focus.
    void openSettings();
    /// As the window's close button does.
    void close(std::string_view title);

    /// Waits for the control, and throws when it does not come.
    [[nodiscard]] BusObject control(Role role, const std::string& name);
    [[nodiscard]] bool has(Role role, const std::string& name);
    /// Scrolls the settings until the control can be seen whole; where it is then.
    [[nodiscard]] PixelRect bringIntoView(const BusObject& control);
    /// Clicks the middle of a control.
    void click(Role role, const std::string& name);
    /// Presses Tab until the control has the focus.
    [[nodiscard]] testing::AssertionResult focus(const BusObject& control);

    /// A label that begins so is shown, or comes to be.
    [[nodiscard]] testing::AssertionResult says(std::string_view text);

    /// What the preferences file holds now; the defaults if it holds nothing that can be read.
    [[nodiscard]] Settings saved();
    [[nodiscard]] testing::AssertionResult
    saves(const std::function<bool(const Settings&)>& condition);

    const std::vector<App> apps = someApps(2);
    Request twoTiles = tiles(2);
};

}
